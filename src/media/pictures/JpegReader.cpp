#include <array>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <utility>

#include <jpeglib.h>

#include <jerror.h>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/ExifBlock.h"
#include "media/pictures/Orientation.h"
#include "media/pictures/PictureFormats.h"

namespace vellora {
namespace {

constexpr int app1 = JPEG_APP0 + 1, app2 = JPEG_APP0 + 2, app13 = JPEG_APP0 + 13;
constexpr std::size_t maximumProfileBytes = std::size_t{16} << 20;
constexpr std::string_view xmpStart("http://ns.adobe.com/xap/1.0/\0", 29);
constexpr std::string_view exifStart("Exif\0\0", 6);
constexpr std::string_view profileStart("ICC_PROFILE\0", 12);
/// A file of a few megabytes can ask for ten thousand passes over a large picture.
constexpr int mostScans = 200;
constexpr double centimetersPerInch = 2.54;

/// libjpeg with its errors as return values. It leaves by longjmp, so that what runs under `guarded` must own nothing.
class Decompressor {
 public:
  explicit Decompressor(FileBytes file) {
    codec_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr codec) {
      auto& self = *static_cast<Decompressor*>(codec->client_data);
      self.failure_ = codec->err->msg_code;
      std::longjmp(self.jump_, 1);
    };
    errors_.emit_message = [](j_common_ptr codec, int level) {
      if (level < 0 && !isHarmless(codec->err->msg_code)) codec->err->error_exit(codec);
    };
    errors_.output_message = [](j_common_ptr) {};
    codec_.client_data = this;
    isReady_ = guarded([this] { jpeg_create_decompress(&codec_); });
    if (!isReady_) return;
    source_.next_input_byte = octets(file);
    source_.bytes_in_buffer = file.size();
    source_.init_source = [](j_decompress_ptr) {};
    source_.term_source = [](j_decompress_ptr) {};
    source_.resync_to_restart = jpeg_resync_to_restart;
    // The file is there as a whole: who asks for more has a cut one.
    source_.fill_input_buffer = [](j_decompress_ptr codec) -> boolean {
      codec->err->msg_code = JERR_INPUT_EOF;
      codec->err->error_exit(reinterpret_cast<j_common_ptr>(codec));
      return FALSE;
    };
    source_.skip_input_data = [](j_decompress_ptr codec, long count) {
      if (count <= 0) return;
      if (static_cast<std::size_t>(count) > codec->src->bytes_in_buffer) codec->src->fill_input_buffer(codec);
      codec->src->next_input_byte += count;
      codec->src->bytes_in_buffer -= static_cast<std::size_t>(count);
    };
    codec_.src = &source_;
    progress_.progress_monitor = [](j_common_ptr codec) {
      auto* decompressor = reinterpret_cast<j_decompress_ptr>(codec);
      if (decompressor->input_scan_number <= mostScans) return;
      codec->err->msg_code = JERR_BAD_PROGRESSION;
      codec->err->error_exit(codec);
    };
    codec_.progress = &progress_;
  }
  ~Decompressor() { jpeg_destroy_decompress(&codec_); }
  Decompressor(const Decompressor&) = delete;
  Decompressor& operator=(const Decompressor&) = delete;

  bool isReady() const { return isReady_; }
  jpeg_decompress_struct& codec() { return codec_; }

  /// False when libjpeg gave up; failure() then says why.
  template <class Work>
  bool guarded(const Work& work) {
    if (setjmp(jump_) != 0) return false;
    work();
    return true;
  }

  bool readHeader() {
    return guarded([this] {
      for (const int marker : {app1, app2, app13, int{JPEG_COM}}) jpeg_save_markers(&codec_, marker, 0xFFFF);
      jpeg_read_header(&codec_, TRUE);
    });
  }

  PictureFailure failure() const {
    switch (failure_) {
      case JERR_OUT_OF_MEMORY:
        return {PictureError::OutOfMemory};
      case JERR_BAD_PRECISION:
        return {PictureError::Unsupported, "not 8 bits per sample"};
      case JERR_SOF_UNSUPPORTED:
        return {PictureError::Unsupported, "lossless or hierarchical JPEG"};
      case JERR_ARITH_NOTIMPL:
        return {PictureError::Unsupported, "arithmetic coding"};
      case JERR_CONVERSION_NOTIMPL:
        return {PictureError::Unsupported, "unknown colors"};
      case JERR_INPUT_EOF:
        return {PictureError::Damaged, "the file is incomplete"};
      default: {
        std::array<char, JMSG_LENGTH_MAX> text{};
        if (failure_ > 0 && failure_ < errors_.last_jpeg_message) {
          std::snprintf(text.data(), text.size(), "%s", errors_.jpeg_message_table[failure_]);
        }
        // Texts with numbers in them would need libjpeg's formatting, which has gone with the call.
        const bool isPlain = std::strchr(text.data(), '%') == nullptr;
        return {PictureError::Damaged, isPlain ? text.data() : "corrupt JPEG data"};
      }
    }
  }

 private:
  /// Warnings that cost no part of the picture.
  static bool isHarmless(int warning) {
    return warning == JWRN_EXTRANEOUS_DATA || warning == JWRN_ADOBE_XFORM || warning == JWRN_JFIF_MAJOR ||
           warning == JWRN_BOGUS_PROGRESSION || warning == JWRN_TOO_MUCH_DATA;
  }

  jpeg_decompress_struct codec_{};
  jpeg_error_mgr errors_{};
  jpeg_source_mgr source_{};
  jpeg_progress_mgr progress_{};
  std::jmp_buf jump_{};
  int failure_ = 0;
  bool isReady_ = false;
};

/// The markers between the start of the file and the pixels.
struct Blocks {
  PictureMetadata metadata;
  ExifFacts facts;
  bool hasMetadata = false;
};

std::optional<FileBytes> payload(const jpeg_marker_struct& marker, int kind, std::string_view start) {
  const FileBytes data = std::as_bytes(std::span(marker.data, marker.data_length));
  if (marker.marker != kind || !holdsAt(data, 0, start)) return std::nullopt;
  return data.subspan(start.size());
}

/// Puts a profile together from its numbered parts (ICC.1, annex B.4); empty when one is missing or there twice.
std::vector<std::uint8_t> joinedProfile(jpeg_saved_marker_ptr markers) {
  std::array<FileBytes, 256> parts{};
  std::uint32_t expected = 0;
  for (auto* marker = markers; marker != nullptr; marker = marker->next) {
    const auto data = payload(*marker, app2, profileStart);
    if (!data) continue;
    if (data->size() < 3) return {};
    const std::uint32_t number = byteAt(*data, 0), count = byteAt(*data, 1);
    if (number == 0 || number > count || (expected != 0 && count != expected) || !parts[number].empty()) return {};
    expected = count;
    parts[number] = data->subspan(2);
  }
  std::vector<std::uint8_t> profile;
  for (std::uint32_t number = 1; number <= expected; ++number) {
    if (parts[number].empty() || profile.size() + parts[number].size() > maximumProfileBytes) return {};
    profile.insert(profile.end(), octets(parts[number]), octets(parts[number]) + parts[number].size());
  }
  return profile;
}

Blocks readBlocks(const jpeg_decompress_struct& codec) {
  Blocks blocks;
  for (auto* marker = codec.marker_list; marker != nullptr; marker = marker->next) {
    if (marker->marker == JPEG_COM || marker->marker == app13) blocks.hasMetadata = true;
    if (const auto exif = payload(*marker, app1, exifStart); exif && blocks.metadata.exif.empty()) {
      blocks.metadata.exif = copyOf(*exif);
    }
    if (const auto xmp = payload(*marker, app1, xmpStart); xmp && blocks.metadata.xmp.empty()) {
      blocks.metadata.xmp = copyOf(*xmp);
    }
  }
  blocks.metadata.profile = joinedProfile(codec.marker_list);
  blocks.hasMetadata = blocks.hasMetadata || !blocks.metadata.exif.empty() || !blocks.metadata.xmp.empty();
  blocks.facts = exifFacts(blocks.metadata.exif);
  blocks.metadata.dotsPerInch = blocks.facts.dotsPerInch;
  if (codec.saw_JFIF_marker != 0 && codec.density_unit == 1) blocks.metadata.dotsPerInch = codec.X_density;
  if (codec.saw_JFIF_marker != 0 && codec.density_unit == 2) {
    blocks.metadata.dotsPerInch = codec.X_density * centimetersPerInch;
  }
  return blocks;
}

Result<PictureInfo, PictureFailure> infoOf(const jpeg_decompress_struct& codec, const Blocks& blocks) {
  PictureInfo info{.type = PictureType::Jpeg};
  info.orientation = blocks.facts.orientation;
  info.width = static_cast<int>(codec.image_width);
  info.height = static_cast<int>(codec.image_height);
  if (isSideways(info.orientation)) std::swap(info.width, info.height);
  switch (codec.jpeg_color_space) {
    case JCS_GRAYSCALE:
      info.colors = PictureColors::Grey;
      break;
    case JCS_CMYK:
    case JCS_YCCK:
      info.colors = PictureColors::Cmyk;
      break;
    case JCS_RGB:
    case JCS_YCbCr:
      info.colors = PictureColors::Rgb;
      break;
    default:
      return refused(PictureError::Unsupported, std::to_string(codec.num_components) + " color components");
  }
  info.hasProfile = !blocks.metadata.profile.empty();
  info.hasMetadata = blocks.hasMetadata;
  if (codec.progressive_mode != 0 || codec.num_components > codec.comps_in_scan) {
    // All coefficients are kept until the last scan has refined them.
    for (int i = 0; i < codec.num_components; ++i) {
      const auto& part = codec.comp_info[i];
      info.workingBytes += std::size_t{part.width_in_blocks + 2} * (part.height_in_blocks + 2) * sizeof(JBLOCK);
    }
  }
  return info;
}

/// The smallest of the sizes libjpeg makes quickly (an eighth to the whole) that still has `neededEdge`.
unsigned int eighthsFor(const jpeg_decompress_struct& codec, int neededEdge) {
  if (neededEdge <= 0) return 8;
  const auto longer = std::max(codec.image_width, codec.image_height);
  for (const unsigned int eighths : {1U, 2U, 4U}) {
    if (longer * eighths / 8 >= static_cast<unsigned int>(neededEdge)) return eighths;
  }
  return 8;
}

bool readRows(Decompressor& decompressor, Raster& raster) {
  auto& codec = decompressor.codec();
  return decompressor.guarded([&codec, &raster] {
    jpeg_start_decompress(&codec);
    while (codec.output_scanline < codec.output_height) {
      std::array<JSAMPROW, 16> rows;
      const auto count = std::min<JDIMENSION>(codec.output_height - codec.output_scanline, rows.size());
      for (JDIMENSION i = 0; i < count; ++i) rows[i] = raster.row(static_cast<int>(codec.output_scanline + i));
      jpeg_read_scanlines(&codec, rows.data(), count);
    }
    jpeg_finish_decompress(&codec);
  });
}

bool readCmykRows(Decompressor& decompressor, const CmykConverter& converter, Raster& raster) {
  auto& codec = decompressor.codec();
  std::vector<std::uint8_t> inks(std::size_t{codec.output_width} * 4);
  std::uint8_t* const row = inks.data();
  const std::size_t count = inks.size();
  return decompressor.guarded([&codec, &converter, &raster, row, count] {
    jpeg_start_decompress(&codec);
    while (codec.output_scanline < codec.output_height) {
      JSAMPROW target = row;
      const int y = static_cast<int>(codec.output_scanline);
      jpeg_read_scanlines(&codec, &target, 1);
      // Adobe's files, which are nearly all there are, store 255 for no ink.
      if (codec.saw_Adobe_marker != 0) {
        for (std::size_t i = 0; i < count; ++i) row[i] = static_cast<std::uint8_t>(255 - row[i]);
      }
      converter.convertRow(row, raster.row(y), raster.width());
    }
    jpeg_finish_decompress(&codec);
  });
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectJpeg(FileBytes file) {
  const auto decompressor = std::make_unique<Decompressor>(file);
  if (!decompressor->isReady() || !decompressor->readHeader()) return failure(decompressor->failure());
  return infoOf(decompressor->codec(), readBlocks(decompressor->codec()));
}

Result<DecodedPicture, PictureFailure> decodeJpeg(FileBytes file, const DecodeOptions& options) {
  const auto decompressor = std::make_unique<Decompressor>(file);
  if (!decompressor->isReady() || !decompressor->readHeader()) return failure(decompressor->failure());
  auto& codec = decompressor->codec();
  Blocks blocks = readBlocks(codec);
  const auto info = infoOf(codec, blocks);
  if (!info) return failure(info.error());
  DecodedPicture picture{.info = *info, .metadata = std::move(blocks.metadata)};

  const bool isCmyk = info->colors == PictureColors::Cmyk, isGrey = info->colors == PictureColors::Grey;
  codec.out_color_space = isCmyk ? JCS_CMYK : isGrey ? JCS_GRAYSCALE : JCS_RGB;
  codec.scale_num = eighthsFor(codec, options.neededEdge);
  codec.scale_denom = 8;
  if (!decompressor->guarded([&codec] { jpeg_calc_output_dimensions(&codec); })) {
    return failure(decompressor->failure());
  }
  auto raster = rasterFor(static_cast<int>(codec.output_width), static_cast<int>(codec.output_height),
                          isGrey ? RasterLayout::Grey : RasterLayout::Rgb);
  if (!raster) return failure(raster.error());
  bool isWhole = false;
  if (isCmyk) {
    const CmykConverter converter(picture.metadata.profile, 8);
    isWhole = readCmykRows(*decompressor, converter, *raster);
    picture.metadata.profile.clear();
  } else {
    isWhole = readRows(*decompressor, *raster);
  }
  if (!isWhole) return failure(decompressor->failure());
  picture.raster = std::move(*raster);
  return picture;
}

}  // namespace vellora
