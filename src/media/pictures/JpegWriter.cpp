#include <algorithm>
#include <array>
#include <cmath>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string_view>

#include <jpeglib.h>

#include <jerror.h>

#include "media/ByteBuffer.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

constexpr int app1 = JPEG_APP0 + 1;
constexpr int usualQuality = 80;
constexpr int leastFullColorQuality = 90;
constexpr std::size_t longestMarker = 65533;
constexpr std::string_view xmpStart("http://ns.adobe.com/xap/1.0/\0", 29);
constexpr std::string_view exifStart("Exif\0\0", 6);
constexpr std::size_t outputStep = std::size_t{64} << 10;
/// Smaller pictures may be smaller in one pass; larger ones hardly ever are.
constexpr int largestTriedBoth = 512 * 512;

/// libjpeg with its errors as return values. It leaves by longjmp, so that what runs under `guarded` must own nothing.
class Compressor {
 public:
  explicit Compressor(const WriteOptions& options) : options_(options) {
    codec_.err = jpeg_std_error(&errors_);
    errors_.error_exit = [](j_common_ptr codec) {
      auto& self = selfOf(codec);
      self.failure_ = codec->err->msg_code;
      std::longjmp(self.jump_, 1);
    };
    errors_.output_message = [](j_common_ptr) {};
    codec_.client_data = this;
    isReady_ = guarded([this] { jpeg_create_compress(&codec_); });
    if (!isReady_) return;
    target_.init_destination = [](j_compress_ptr codec) { offerRoom(codec); };
    target_.empty_output_buffer = [](j_compress_ptr codec) -> boolean {
      selfOf(codec).output_.commit(outputStep);
      offerRoom(codec);
      return TRUE;
    };
    target_.term_destination = [](j_compress_ptr codec) {
      selfOf(codec).output_.commit(outputStep - codec->dest->free_in_buffer);
    };
    codec_.dest = &target_;
    progress_.progress_monitor = [](j_common_ptr codec) {
      auto& self = selfOf(codec);
      if (!vellora::isCancelled(self.options_)) return;
      self.isCancelled_ = true;
      std::longjmp(self.jump_, 1);
    };
    codec_.progress = &progress_;
  }
  ~Compressor() { jpeg_destroy_compress(&codec_); }
  Compressor(const Compressor&) = delete;
  Compressor& operator=(const Compressor&) = delete;

  bool isReady() const { return isReady_; }
  jpeg_compress_struct& codec() { return codec_; }
  std::span<const std::byte> output() const { return output_.bytes(); }

  /// False when libjpeg gave up; failure() then says why.
  template <class Work>
  bool guarded(const Work& work) {
    if (setjmp(jump_) != 0) return false;
    work();
    return true;
  }

  PictureFailure failure() const {
    if (isCancelled_) return {PictureError::Cancelled};
    if (failure_ == JERR_OUT_OF_MEMORY) return {PictureError::OutOfMemory};
    if (failure_ == JERR_IMAGE_TOO_BIG) {
      return {PictureError::CannotEncode, "JPEG holds at most 65,500 pixels a side"};
    }
    return {PictureError::CannotEncode, "libjpeg error " + std::to_string(failure_)};
  }

 private:
  template <class Codec>
  static Compressor& selfOf(Codec* codec) {
    return *static_cast<Compressor*>(codec->client_data);
  }

  static void offerRoom(j_compress_ptr codec) {
    std::byte* const room = selfOf(codec).output_.reserve(outputStep);
    if (room == nullptr) {
      codec->err->msg_code = JERR_OUT_OF_MEMORY;
      codec->err->error_exit(reinterpret_cast<j_common_ptr>(codec));
    }
    codec->dest->next_output_byte = reinterpret_cast<JOCTET*>(room);
    codec->dest->free_in_buffer = outputStep;
  }

  const WriteOptions& options_;
  ByteBuffer output_;
  jpeg_compress_struct codec_{};
  jpeg_error_mgr errors_{};
  jpeg_destination_mgr target_{};
  jpeg_progress_mgr progress_{};
  std::jmp_buf jump_{};
  int failure_ = 0;
  bool isCancelled_ = false;
  bool isReady_ = false;
};

/// Scans of a progressive file (ITU-T T.81, annex G): the middle of every block, the coarse of brightness, the colors,
/// the fine of brightness, and the last bit of each. More steps, as in libjpeg's own list, take longer to encode and to
/// decode and hardly ever save anything.
constexpr std::array colorScans{jpeg_scan_info{3, {0, 1, 2}, 0, 0, 0, 0}, jpeg_scan_info{1, {0}, 1, 5, 0, 1},
                                jpeg_scan_info{1, {2}, 1, 63, 0, 1},      jpeg_scan_info{1, {1}, 1, 63, 0, 1},
                                jpeg_scan_info{1, {0}, 6, 63, 0, 1},      jpeg_scan_info{1, {2}, 1, 63, 1, 0},
                                jpeg_scan_info{1, {1}, 1, 63, 1, 0},      jpeg_scan_info{1, {0}, 1, 63, 1, 0}};
constexpr std::array greyScans{jpeg_scan_info{1, {0}, 0, 0, 0, 0}, jpeg_scan_info{1, {0}, 1, 5, 0, 1},
                               jpeg_scan_info{1, {0}, 6, 63, 0, 1}, jpeg_scan_info{1, {0}, 1, 63, 1, 0}};

void configure(jpeg_compress_struct& codec, const Raster& raster, const PictureMetadata& metadata, int quality,
               bool isProgressive) {
  const bool isGrey = samplesOf(raster.layout()) < 3;
  codec.image_width = static_cast<JDIMENSION>(raster.width());
  codec.image_height = static_cast<JDIMENSION>(raster.height());
  codec.input_components = isGrey ? 1 : 3;
  codec.in_color_space = isGrey ? JCS_GRAYSCALE : JCS_RGB;
  jpeg_set_defaults(&codec);
  jpeg_set_quality(&codec, quality, TRUE);
  codec.dct_method = JDCT_ISLOW;
  codec.optimize_coding = TRUE;
  if (isProgressive) {
    codec.scan_info = isGrey ? greyScans.data() : colorScans.data();
    codec.num_scans = static_cast<int>(isGrey ? greyScans.size() : colorScans.size());
  }
  if (!isGrey && quality >= leastFullColorQuality) {
    codec.comp_info[0].h_samp_factor = 1;
    codec.comp_info[0].v_samp_factor = 1;
  }
  if (const double density = std::round(metadata.dotsPerInch); density >= 1 && density <= 65535) {
    codec.density_unit = 1;
    codec.X_density = static_cast<UINT16>(density);
    codec.Y_density = codec.X_density;
  }
}

void writeBlock(jpeg_compress_struct& codec, std::string_view start, const std::vector<std::uint8_t>& block) {
  // A longer block has no place in the file.
  if (block.empty() || start.size() + block.size() > longestMarker) return;
  jpeg_write_m_header(&codec, app1, static_cast<unsigned int>(start.size() + block.size()));
  for (const char letter : start) jpeg_write_m_byte(&codec, static_cast<unsigned char>(letter));
  for (const std::uint8_t byte : block) jpeg_write_m_byte(&codec, byte);
}

void writeBlocks(jpeg_compress_struct& codec, const PictureMetadata& metadata) {
  writeBlock(codec, exifStart, metadata.exif);
  writeBlock(codec, xmpStart, metadata.xmp);
  if (metadata.profile.empty()) return;
  jpeg_write_icc_profile(&codec, metadata.profile.data(), static_cast<unsigned int>(metadata.profile.size()));
}

EncodedPicture encode(const Raster& raster, const PictureMetadata& metadata, int quality, bool isProgressive,
                      const WriteOptions& options) {
  const auto compressor = std::make_unique<Compressor>(options);
  RowConverter rows(raster, samplesOf(raster.layout()) < 3 ? RasterLayout::Grey : RasterLayout::Rgb);
  auto& codec = compressor->codec();
  const bool isWhole = compressor->isReady() && compressor->guarded([&] {
    configure(codec, raster, metadata, quality, isProgressive);
    jpeg_start_compress(&codec, TRUE);
    writeBlocks(codec, metadata);
    while (codec.next_scanline < codec.image_height) {
      auto* row = const_cast<JSAMPROW>(rows.row(static_cast<int>(codec.next_scanline)));
      jpeg_write_scanlines(&codec, &row, 1);
    }
    jpeg_finish_compress(&codec);
  });
  if (!isWhole) return failure(compressor->failure());
  return std::vector<std::byte>(compressor->output().begin(), compressor->output().end());
}

}  // namespace

EncodedPicture writeJpeg(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options) {
  const int quality =
      options.quality ? static_cast<int>(std::lround(std::clamp(*options.quality, 0.0, 1.0) * 100)) : usualQuality;
  auto file = encode(raster, metadata, quality, true, options);
  if (!file || static_cast<double>(raster.width()) * raster.height() > largestTriedBoth) return file;
  auto sequential = encode(raster, metadata, quality, false, options);
  return sequential && sequential->size() <= file->size() ? sequential : file;
}

}  // namespace vellora
