#include <webp/encode.h>
#include <webp/mux.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>

#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

constexpr int highestQuality = 99;
struct WebPFreed {
  void operator()(std::uint8_t* bytes) const { WebPFree(bytes); }
};
using EncoderOutput = std::unique_ptr<std::uint8_t, WebPFreed>;
using Mux = std::unique_ptr<WebPMux, void (*)(WebPMux*)>;

std::vector<std::byte> copied(const std::uint8_t* bytes, std::size_t size) {
  const auto* begin = reinterpret_cast<const std::byte*>(bytes);
  return {begin, begin + size};
}

/// Without loss, also in the colors of transparent pixels.
EncodedPicture lossless(const Raster& raster, const WriteOptions& options) {
  const auto pixels = converted(raster, hasAlpha(raster.layout()) ? RasterLayout::Rgba : RasterLayout::Rgb);
  if (!pixels) return refused(PictureError::OutOfMemory);
  WebPConfig config;
  WebPPicture picture;
  if (WebPConfigInit(&config) == 0 || WebPPictureInit(&picture) == 0 || WebPConfigLosslessPreset(&config, 6) == 0) {
    return refused(PictureError::CannotEncode, "another version of libwebp");
  }
  config.exact = 1;
  config.thread_level = options.threads > 1 ? 1 : 0;
  WebPMemoryWriter writer;
  WebPMemoryWriterInit(&writer);
  const std::unique_ptr<WebPPicture, void (*)(WebPPicture*)> pictureFreed(&picture, WebPPictureFree);
  const std::unique_ptr<WebPMemoryWriter, void (*)(WebPMemoryWriter*)> writerCleared(&writer, WebPMemoryWriterClear);
  picture.use_argb = 1;
  picture.width = pixels->width();
  picture.height = pixels->height();
  picture.writer = WebPMemoryWrite;
  picture.custom_ptr = &writer;
  picture.user_data = const_cast<WriteOptions*>(&options);
  picture.progress_hook = [](int, const WebPPicture* self) {
    return isCancelled(*static_cast<const WriteOptions*>(self->user_data)) ? 0 : 1;
  };
  const auto import = hasAlpha(pixels->layout()) ? WebPPictureImportRGBA : WebPPictureImportRGB;
  if (import(&picture, pixels->row(0), static_cast<int>(pixels->stride())) == 0) {
    return refused(PictureError::OutOfMemory);
  }
  if (WebPEncode(&config, &picture) != 0) return copied(writer.mem, writer.size);
  switch (picture.error_code) {
    case VP8_ENC_ERROR_USER_ABORT:
      return refused(PictureError::Cancelled);
    case VP8_ENC_ERROR_OUT_OF_MEMORY:
    case VP8_ENC_ERROR_BITSTREAM_OUT_OF_MEMORY:
      return refused(PictureError::OutOfMemory);
    default:
      return refused(PictureError::CannotEncode, "libwebp error " + std::to_string(picture.error_code));
  }
}

EncodedPicture withMetadata(const std::vector<std::byte>& file, const PictureMetadata& metadata) {
  const WebPData bare{reinterpret_cast<const std::uint8_t*>(file.data()), file.size()};
  const Mux mux(WebPMuxCreate(&bare, 0), WebPMuxDelete);
  if (!mux) return refused(PictureError::OutOfMemory);
  const auto put = [&mux](const char* chunk, const std::vector<std::uint8_t>& block) {
    const WebPData data{block.data(), block.size()};
    return block.empty() || WebPMuxSetChunk(mux.get(), chunk, &data, 0) == WEBP_MUX_OK;
  };
  WebPData assembled{};
  const bool isWhole = put("ICCP", metadata.profile) && put("EXIF", metadata.exif) && put("XMP ", metadata.xmp) &&
                       WebPMuxAssemble(mux.get(), &assembled) == WEBP_MUX_OK;
  const std::unique_ptr<WebPData, void (*)(WebPData*)> cleared(&assembled, WebPDataClear);
  if (!isWhole) return refused(PictureError::OutOfMemory);
  return copied(assembled.bytes, assembled.size);
}

}  // namespace

std::optional<std::vector<std::byte>> WebPEncoder::lossy(const Raster& raster, int quality) {
  if (raster.isNull()) return std::nullopt;
  // Opaque pixels give the same file either way; without alpha nobody has to look at it.
  const auto pixels = converted(raster, hasAlpha(raster.layout()) ? RasterLayout::Rgba : RasterLayout::Rgb);
  if (!pixels || pixels->stride() > std::size_t{std::numeric_limits<std::int32_t>::max()}) return std::nullopt;
  const auto encode = hasAlpha(pixels->layout()) ? WebPEncodeRGBA : WebPEncodeRGB;
  std::uint8_t* output = nullptr;
  const std::size_t size = encode(pixels->row(0), pixels->width(), pixels->height(), static_cast<int>(pixels->stride()),
                                  static_cast<float>(std::clamp(quality, 0, highestQuality)), &output);
  const EncoderOutput owned(output);
  if (size == 0 || !owned) return std::nullopt;
  return copied(owned.get(), size);
}

EncodedPicture writeWebP(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options) {
  if (std::max(raster.width(), raster.height()) > WEBP_MAX_DIMENSION) {
    return refused(PictureError::CannotEncode, "WebP holds at most 16,383 pixels a side");
  }
  EncodedPicture file;
  if (options.quality) {
    auto lossy =
        WebPEncoder::lossy(raster, static_cast<int>(std::lround(std::clamp(*options.quality, 0.0, 1.0) * 100)));
    if (!lossy) return refused(PictureError::CannotEncode, "libwebp gave up");
    file = std::move(*lossy);
  } else {
    file = lossless(raster, options);
  }
  const bool isBare = metadata.exif.empty() && metadata.xmp.empty() && metadata.profile.empty();
  if (!file || isBare) return file;
  return withMetadata(*file, metadata);
}

}  // namespace vellora
