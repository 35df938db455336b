#include <webp/decode.h>
#include <webp/demux.h>

#include <cstring>
#include <memory>
#include <utility>

#include "media/pictures/ExifBlock.h"
#include "media/pictures/Orientation.h"
#include "media/pictures/PictureFormats.h"

namespace vellora {
namespace {

constexpr std::size_t maximumProfileBytes = std::size_t{16} << 20;

struct Demuxer {
  std::unique_ptr<WebPDemuxer, void (*)(WebPDemuxer*)> file{nullptr, WebPDemuxDelete};

  std::uint32_t feature(WebPFormatFeature which) const { return WebPDemuxGetI(file.get(), which); }

  /// A chunk's content, which lies in the file.
  FileBytes chunk(const char* name) const {
    WebPChunkIterator iterator{};
    FileBytes found;
    if (WebPDemuxGetChunk(file.get(), name, 1, &iterator) != 0) {
      found = std::as_bytes(std::span(iterator.chunk.bytes, iterator.chunk.size));
    }
    WebPDemuxReleaseChunkIterator(&iterator);
    return found;
  }
};

Result<Demuxer, PictureFailure> demuxed(FileBytes file) {
  const WebPData data{octets(file), file.size()};
  WebPDemuxState state = WEBP_DEMUX_PARSE_ERROR;
  Demuxer demuxer;
  demuxer.file.reset(WebPDemuxPartial(&data, &state));
  if (!demuxer.file) return refused(PictureError::Damaged, "no WebP stream");
  if (state != WEBP_DEMUX_DONE) return refused(PictureError::Damaged, "the file is incomplete");
  if (demuxer.feature(WEBP_FF_FRAME_COUNT) == 0) return refused(PictureError::Damaged, "no pixels");
  return demuxer;
}

FileBytes exifOf(const Demuxer& demuxer) {
  FileBytes exif = demuxer.chunk("EXIF");
  if (holdsAt(exif, 0, std::string_view("Exif\0\0", 6)))
    exif = exif.subspan(6);  // some writers take JPEG's framing along
  return exif;
}

PictureInfo infoOf(const Demuxer& demuxer) {
  PictureInfo info{.type = PictureType::WebP};
  info.width = static_cast<int>(demuxer.feature(WEBP_FF_CANVAS_WIDTH));
  info.height = static_cast<int>(demuxer.feature(WEBP_FF_CANVAS_HEIGHT));
  info.frames = static_cast<int>(demuxer.feature(WEBP_FF_FRAME_COUNT));
  const std::uint32_t flags = demuxer.feature(WEBP_FF_FORMAT_FLAGS);
  info.isAnimated = (flags & ANIMATION_FLAG) != 0 && info.frames > 1;
  info.hasAlpha = (flags & ALPHA_FLAG) != 0;
  info.hasProfile = (flags & ICCP_FLAG) != 0;
  info.hasMetadata = (flags & (EXIF_FLAG | XMP_FLAG)) != 0;
  const FileBytes exif = exifOf(demuxer);
  info.orientation = exifFacts({octets(exif), exif.size()}).orientation;
  if (isSideways(info.orientation)) std::swap(info.width, info.height);
  // Lossless frames, and the alpha of lossy ones, are made in a buffer of their own.
  info.workingBytes = static_cast<std::size_t>(info.width) * static_cast<std::size_t>(info.height) * 4;
  return info;
}

PictureFailure failureOf(VP8StatusCode status) {
  switch (status) {
    case VP8_STATUS_OUT_OF_MEMORY:
      return {PictureError::OutOfMemory};
    case VP8_STATUS_UNSUPPORTED_FEATURE:
      return {PictureError::Unsupported, "an unknown kind of WebP stream"};
    case VP8_STATUS_SUSPENDED:
    case VP8_STATUS_NOT_ENOUGH_DATA:
      return {PictureError::Damaged, "the file is incomplete"};
    default:
      return {PictureError::Damaged, "corrupt WebP data"};
  }
}

Result<Raster, PictureFailure> decodeFrame(const WebPIterator& frame, int width, int height, bool withAlpha) {
  WebPDecoderConfig config;
  if (WebPInitDecoderConfig(&config) == 0) return refused(PictureError::Unsupported, "another version of libwebp");
  const auto status = WebPGetFeatures(frame.fragment.bytes, frame.fragment.size, &config.input);
  if (status != VP8_STATUS_OK) return failure(failureOf(status));
  const bool fits = frame.x_offset >= 0 && frame.y_offset >= 0 && config.input.width == frame.width &&
                    config.input.height == frame.height && frame.x_offset + frame.width <= width &&
                    frame.y_offset + frame.height <= height;
  if (!fits) return refused(PictureError::Damaged, "a frame outside of its canvas");
  const bool isWhole = frame.width == width && frame.height == height;
  auto raster = rasterFor(width, height, withAlpha || !isWhole ? RasterLayout::Rgba : RasterLayout::Rgb);
  if (!raster) return raster;
  config.output.colorspace = hasAlpha(raster->layout()) ? MODE_RGBA : MODE_RGB;
  config.output.is_external_memory = 1;
  const std::size_t skipped = static_cast<std::size_t>(frame.x_offset) * raster->bytesPerPixel();
  config.output.u.RGBA.rgba = raster->row(frame.y_offset) + skipped;
  config.output.u.RGBA.stride = static_cast<int>(raster->stride());
  config.output.u.RGBA.size = raster->stride() * static_cast<std::size_t>(frame.height) - skipped;
  const auto decoded = WebPDecode(frame.fragment.bytes, frame.fragment.size, &config);
  WebPFreeDecBuffer(&config.output);
  if (decoded != VP8_STATUS_OK) return failure(failureOf(decoded));
  return raster;
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectWebP(FileBytes file) {
  const auto demuxer = demuxed(file);
  if (!demuxer) return failure(demuxer.error());
  return infoOf(*demuxer);
}

Result<DecodedPicture, PictureFailure> decodeWebP(FileBytes file, const DecodeOptions&) {
  const auto demuxer = demuxed(file);
  if (!demuxer) return failure(demuxer.error());
  DecodedPicture picture{.info = infoOf(*demuxer)};
  WebPIterator first{};
  if (WebPDemuxGetFrame(demuxer->file.get(), 1, &first) == 0) return refused(PictureError::Damaged, "no pixels");
  const std::unique_ptr<WebPIterator, void (*)(WebPIterator*)> released(&first, WebPDemuxReleaseIterator);
  auto raster = decodeFrame(first, static_cast<int>(demuxer->feature(WEBP_FF_CANVAS_WIDTH)),
                            static_cast<int>(demuxer->feature(WEBP_FF_CANVAS_HEIGHT)),
                            picture.info.hasAlpha || first.has_alpha != 0);
  if (!raster) return failure(raster.error());
  picture.raster = std::move(*raster);
  picture.metadata.exif = copyOf(exifOf(*demuxer));
  picture.metadata.xmp = copyOf(demuxer->chunk("XMP "));
  const FileBytes profile = demuxer->chunk("ICCP");
  if (profile.size() <= maximumProfileBytes) picture.metadata.profile = copyOf(profile);
  picture.metadata.dotsPerInch = exifFacts(picture.metadata.exif).dotsPerInch;
  return picture;
}

}  // namespace vellora
