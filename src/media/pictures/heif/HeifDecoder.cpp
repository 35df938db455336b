#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <utility>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/heif/HeifHandles.h"

namespace vellora::heif {
namespace {

constexpr std::size_t maximumBlockBytes = std::size_t{16} << 20;

/// A file that was opened, and its primary picture. libheif reads from `file` as long as this lives.
struct Opened {
  Context context;
  Handle primary;
  PictureInfo info;
  std::vector<std::uint8_t> profile;
};

PictureFailure failureOf(const heif_error& error) {
  std::string message = error.message == nullptr ? std::string() : error.message;
  while (message.ends_with('\n')) message.pop_back();
  switch (error.code) {
    case heif_error_Unsupported_filetype:
    case heif_error_Unsupported_feature:
    case heif_error_Plugin_loading_error:
      return {PictureError::Unsupported, message};
    case heif_error_Memory_allocation_error:
      if (error.subcode == heif_suberror_Security_limit_exceeded) return {PictureError::TooLarge, message};
      return {PictureError::OutOfMemory};
    default:
      return {PictureError::Damaged, message};
  }
}

std::vector<std::uint8_t> iccOf(const heif_image_handle* handle) {
  const std::size_t bytes = heif_image_handle_get_raw_color_profile_size(handle);
  if (bytes == 0 || bytes > maximumBlockBytes) return {};
  std::vector<std::uint8_t> profile(bytes);
  if (heif_image_handle_get_raw_color_profile(handle, profile.data()).code != heif_error_Ok) profile.clear();
  return profile;
}

/// The profile of a picture, which may only be named by numbers.
Result<std::vector<std::uint8_t>, PictureFailure> profileOf(const heif_image_handle* handle) {
  heif_color_profile_nclx* found = nullptr;
  const bool isNamed = heif_image_handle_get_nclx_color_profile(handle, &found).code == heif_error_Ok;
  const Nclx nclx(found);
  if (isNamed && nclx) {
    const auto transfer = nclx->transfer_characteristics;
    if (transfer == heif_transfer_characteristic_ITU_R_BT_2100_0_PQ ||
        transfer == heif_transfer_characteristic_ITU_R_BT_2100_0_HLG) {
      return refused(PictureError::Unsupported, "high dynamic range");
    }
  }
  auto profile = iccOf(handle);
  if (profile.empty() && nclx) {
    profile = profileOfCodePoints(nclx->color_primaries, nclx->transfer_characteristics);
  }
  return profile;
}

/// How many pictures the track of an animation has (ISO/IEC 14496-12, 8.7.3.2); 0 without a track.
std::uint32_t samplesOfTrack(FileBytes file) {
  static constexpr std::string_view name = "stsz";
  const auto wanted = std::as_bytes(std::span(name));
  const auto found = std::search(file.begin(), file.end(), wanted.begin(), wanted.end());
  const auto at = static_cast<std::size_t>(found - file.begin());
  return file.size() - at < 16 ? 0 : big32(file, at + 12);
}

void countFrames(FileBytes file, const heif_context* context, PictureInfo& info) {
  for (const std::string_view brand : {"avis", "msf1", "hevc", "hevx"}) {
    info.isAnimated = info.isAnimated || holdsAt(file, 8, brand);
  }
  info.frames = std::max(1, heif_context_get_number_of_top_level_images(const_cast<heif_context*>(context)));
  if (!info.isAnimated) return;
  info.frames = static_cast<int>(std::clamp(samplesOfTrack(file), 1U, 0x7FFFFFFFU));
  info.isAnimated = info.frames > 1;
}

Result<Opened, PictureFailure> open(FileBytes file) {
  Opened opened{.context = Context(heif_context_alloc())};
  if (!opened.context) return refused(PictureError::OutOfMemory);
  heif_context_set_maximum_image_size_limit(opened.context.get(), Raster::maximumEdge);
  heif_error error =
      heif_context_read_from_memory_without_copy(opened.context.get(), file.data(), file.size(), nullptr);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  heif_image_handle* primary = nullptr;
  error = heif_context_get_primary_image_handle(opened.context.get(), &primary);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  opened.primary.reset(primary);

  PictureInfo& info = opened.info;
  const bool isAvif = pictureTypeOf(file) == PictureType::Avif;
  info.type = isAvif ? PictureType::Avif : PictureType::Heic;
  info.width = heif_image_handle_get_width(primary);
  info.height = heif_image_handle_get_height(primary);
  if (info.width <= 0 || info.height <= 0) return refused(PictureError::Damaged, "no pixels");
  if (info.width > Raster::maximumEdge || info.height > Raster::maximumEdge) return refused(PictureError::TooLarge);
  const std::size_t pixels = static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height);
  if (pixels * 4 > Raster::maximumBytes) return refused(PictureError::TooLarge, "more than 1 GB of pixels");
  info.bitsPerSample = std::max(8, heif_image_handle_get_luma_bits_per_pixel(primary));
  info.hasAlpha = heif_image_handle_has_alpha_channel(primary) != 0;
  info.hasMetadata = heif_image_handle_get_number_of_metadata_blocks(primary, nullptr) > 0;
  info.workingBytes = pixels * (info.bitsPerSample > 8 ? 16 : 8);  // the decoder's planes and libheif's RGB
  countFrames(file, opened.context.get(), info);
  auto profile = profileOf(primary);
  if (!profile) return failure(profile.error());
  info.hasProfile = !profile->empty();
  opened.profile = std::move(*profile);
  return opened;
}

std::vector<std::uint8_t> blockOf(const heif_image_handle* handle, heif_item_id id) {
  const std::size_t bytes = heif_image_handle_get_metadata_size(handle, id);
  if (bytes == 0 || bytes > maximumBlockBytes) return {};
  std::vector<std::uint8_t> block(bytes);
  if (heif_image_handle_get_metadata(handle, id, block.data()).code != heif_error_Ok) block.clear();
  return block;
}

void readMetadata(const heif_image_handle* handle, PictureMetadata& metadata) {
  const int count = std::clamp(heif_image_handle_get_number_of_metadata_blocks(handle, nullptr), 0, 256);
  std::vector<heif_item_id> ids(static_cast<std::size_t>(count));
  ids.resize(
      static_cast<std::size_t>(heif_image_handle_get_list_of_metadata_block_IDs(handle, nullptr, ids.data(), count)));
  for (const heif_item_id id : ids) {
    const std::string_view type = heif_image_handle_get_metadata_type(handle, id);
    const std::string_view content = heif_image_handle_get_metadata_content_type(handle, id);
    if (type == "Exif" && metadata.exif.empty()) {
      // The block begins with how many bytes are before the TIFF structure (ISO/IEC 23008-12, annex A).
      const auto block = blockOf(handle, id);
      if (block.size() < 4) continue;
      const std::size_t start = std::size_t{4} + big32(bytesOf(block), 0);
      if (start < block.size()) metadata.exif.assign(block.begin() + static_cast<std::ptrdiff_t>(start), block.end());
    } else if (content == "application/rdf+xml" && metadata.xmp.empty()) {
      metadata.xmp = blockOf(handle, id);
    }
  }
}

template <class Sample>
void straighten(Sample* samples, std::size_t pixels) {
  constexpr std::uint32_t full = Sample(-1);
  for (Sample* pixel = samples; pixel != samples + 4 * pixels; pixel += 4) {
    const std::uint32_t alpha = pixel[3];
    if (alpha == 0 || alpha == full) continue;
    for (int i = 0; i < 3; ++i) {
      pixel[i] = static_cast<Sample>(std::min(full, (pixel[i] * full + alpha / 2) / alpha));
    }
  }
}

/// `bits` wide samples to the full 16.
void widen(std::uint16_t* samples, std::size_t count, int bits) {
  const std::uint32_t highest = (1U << bits) - 1;
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t value = std::min<std::uint32_t>(samples[i], highest);
    samples[i] = static_cast<std::uint16_t>((value * 65535 + highest / 2) / highest);
  }
}

heif_chroma chromaFor(bool isDeep, bool withAlpha) {
  if (isDeep) return withAlpha ? heif_chroma_interleaved_RRGGBBAA_LE : heif_chroma_interleaved_RRGGBB_LE;
  return withAlpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB;
}

Result<Raster, PictureFailure> rasterOf(const heif_image* image, bool isDeep, bool withAlpha, bool isPremultiplied) {
  // What was decoded counts, not what the header promised.
  const int width = heif_image_get_width(image, heif_channel_interleaved);
  const int height = heif_image_get_height(image, heif_channel_interleaved);
  int stride = 0;
  const std::uint8_t* pixels = heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
  auto raster = Raster::create(width, height, withAlpha ? RasterLayout::Rgba : RasterLayout::Rgb, isDeep ? 16 : 8);
  if (!raster) return refused(PictureError::OutOfMemory);
  if (pixels == nullptr || static_cast<std::size_t>(stride) < raster->stride()) {
    return refused(PictureError::Damaged, "no pixels");
  }
  const int bits = heif_image_get_bits_per_pixel_range(image, heif_channel_interleaved);
  for (int y = 0; y < height; ++y) {
    std::uint8_t* row = raster->row(y);
    std::memcpy(row, pixels + static_cast<std::size_t>(y) * static_cast<std::size_t>(stride), raster->stride());
    auto* deep = reinterpret_cast<std::uint16_t*>(row);
    if (isDeep && bits < 16) widen(deep, raster->stride() / 2, bits);
    if (!withAlpha || !isPremultiplied) continue;
    if (isDeep) {
      straighten(deep, static_cast<std::size_t>(width));
    } else {
      straighten(row, static_cast<std::size_t>(width));
    }
  }
  return std::move(*raster);
}

}  // namespace

Result<PictureInfo, PictureFailure> inspect(FileBytes file) {
  const auto opened = open(file);
  if (!opened) return failure(opened.error());
  return opened->info;
}

Result<DecodedPicture, PictureFailure> decode(FileBytes file, const DecodeOptions& wanted) {
  auto opened = open(file);
  if (!opened) return failure(opened.error());
  const heif_image_handle* handle = opened->primary.get();
  const bool isDeep = wanted.keepsDepth && opened->info.bitsPerSample > 8, withAlpha = opened->info.hasAlpha;
  const DecodingOptions options(heif_decoding_options_alloc());
  if (!options) return refused(PictureError::OutOfMemory);
  options->convert_hdr_to_8bit = isDeep ? 0 : 1;
  options->strict_decoding = 1;
  heif_image* decoded = nullptr;
  const heif_error error =
      heif_decode_image(handle, &decoded, heif_colorspace_RGB, chromaFor(isDeep, withAlpha), options.get());
  const Image image(decoded);
  if (error.code != heif_error_Ok) return failure(failureOf(error));
  auto raster = rasterOf(image.get(), isDeep, withAlpha, heif_image_handle_is_premultiplied_alpha(handle) != 0);
  if (!raster) return failure(raster.error());
  DecodedPicture picture{.info = opened->info, .raster = std::move(*raster)};
  picture.metadata.profile = std::move(opened->profile);
  if (wanted.keepsMetadata) readMetadata(handle, picture.metadata);
  return picture;
}

}  // namespace vellora::heif
