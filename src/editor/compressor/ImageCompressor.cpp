#include "editor/compressor/ImageCompressor.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "media/pictures/MetadataStripper.h"
#include "media/pictures/PictureWriter.h"
#include "media/pictures/Resampler.h"

namespace vellora {
namespace {

constexpr int highestWebPQuality = 99;

bool isCancelled(const CompressControl& control) {
  return control.isCancelled && control.isCancelled();
}

Result<std::vector<std::byte>, PictureFailure> encode(const Raster& raster, const PictureMetadata& metadata,
                                                      const ImageCompressor::Codec& codec,
                                                      const CompressControl& control) {
  WriteOptions options;
  options.threads = control.threads;
  options.isCancelled = control.isCancelled;
  if (const auto* webp = std::get_if<ImageCompressor::WebPCodec>(&codec)) {
    options.quality = webp->quality / 100.0;
    return writePicture(raster, metadata, PictureType::WebP, options);
  }
  const auto& platform = std::get<ImageCompressor::PlatformCodec>(codec);
  options.quality = platform.quality;
  return writePicture(raster, metadata, platform.type, options);
}

bool holdsAlpha(PictureType type) {
  return type != PictureType::Jpeg;
}

template <class Sample>
bool hasTransparentPixel(const Raster& raster) {
  const auto channels = static_cast<std::size_t>(samplesOf(raster.layout()));
  const auto samples = static_cast<std::size_t>(raster.width()) * channels;
  for (int y = 0; y < raster.height(); ++y) {
    const auto* row = reinterpret_cast<const Sample*>(raster.row(y));
    for (std::size_t i = channels - 1; i < samples; i += channels)
      if (row[i] != static_cast<Sample>(~Sample{0})) return true;
  }
  return false;
}

bool isTransparent(const Raster& raster) {
  if (!hasAlpha(raster.layout())) return false;
  return raster.bitsPerSample() == 16 ? hasTransparentPixel<std::uint16_t>(raster)
                                      : hasTransparentPixel<std::uint8_t>(raster);
}

/// Lossless files that can hold all of what pixels have: depth and color space.
bool staysExact(const ImageCompressor::Codec& codec) {
  const auto* platform = std::get_if<ImageCompressor::PlatformCodec>(&codec);
  return platform && (platform->type == PictureType::Png || platform->type == PictureType::Tiff);
}

Result<ImageCompressor::Output, PictureFailure> encoded(const DecodedPicture& picture, ImageCompressor::Size size,
                                                        const ImageCompressor::Codec& codec,
                                                        const CompressControl& control) {
  Raster raster = picture.raster;
  if (raster.width() != size.width || raster.height() != size.height) {
    auto smaller = resampled(raster, size.width, size.height, control.threads);
    if (!smaller) return failure(PictureFailure{PictureError::OutOfMemory});
    raster = std::move(*smaller);
  }
  if (isCancelled(control)) return failure(PictureFailure{PictureError::Cancelled});
  ImageCompressor::Output output;
  output.type = ImageCompressor::typeOf(codec);
  output.width = size.width;
  output.height = size.height;
  output.isFlattened = !holdsAlpha(output.type) && isTransparent(raster);
  auto data = encode(raster, picture.metadata, codec, control);
  if (!data) return failure(std::move(data.error()));
  output.data = std::move(*data);
  return output;
}

/// The source as the result: without its metadata unless that is wanted. Nothing when it has some that cannot be taken
/// out. Readers do not look for all that may be hidden in a file, so that it is gone through in any case.
std::optional<ImageCompressor::Output> original(std::span<const std::byte> file, const PictureInfo& info,
                                                const CompressOptions& options) {
  ImageCompressor::Output output;
  output.type = info.type;
  output.width = info.width;
  output.height = info.height;
  output.isOriginal = true;
  output.frames = info.frames;
  if (!options.keepsMetadata) {
    if (auto stripped = withoutMetadata(file, info.type)) {
      output.data = std::move(*stripped);
      return output;
    }
    if (info.hasMetadata) return std::nullopt;
  }
  output.data.assign(file.begin(), file.end());
  return output;
}

}  // namespace

ImageCompressor::Codec ImageCompressor::codecFor(std::optional<PictureType> source, const CompressOptions& options) {
  const WebPCodec webp{std::clamp(options.quality, 0, highestWebPQuality)};
  const double platformQuality = options.quality / 100.0;
  switch (options.format) {
    case CompressFormat::webp:
      return webp;
    case CompressFormat::png:
      return PlatformCodec{PictureType::Png};
    case CompressFormat::jpeg:
      return PlatformCodec{PictureType::Jpeg, platformQuality};
    case CompressFormat::original:
      break;
  }
  if (source == PictureType::WebP) return webp;
  if (!source || !canWrite(*source)) return PlatformCodec{PictureType::Png};
  if (isLossy(*source)) return PlatformCodec{*source, platformQuality};
  return PlatformCodec{*source};
}

PictureType ImageCompressor::typeOf(const Codec& codec) {
  const auto* platform = std::get_if<PlatformCodec>(&codec);
  return platform ? platform->type : PictureType::WebP;
}

ImageCompressor::Size ImageCompressor::resizedSize(int width, int height, std::optional<int> maxEdge) {
  const int longer = std::max(width, height);
  if (!maxEdge || longer <= std::max(*maxEdge, 1)) return {width, height};
  const double scale = static_cast<double>(std::max(*maxEdge, 1)) / longer;
  const auto scaled = [scale](int side) { return std::max(1, static_cast<int>(std::lround(side * scale))); };
  return {scaled(width), scaled(height)};
}

DecodeOptions ImageCompressor::decodingOf(const PictureInfo& source, const CompressOptions& options) {
  const Codec codec = codecFor(source.type, options);
  const Size size = resizedSize(source.width, source.height, options.maxEdge);
  DecodeOptions decoding;
  if (size != Size{source.width, source.height}) decoding.neededEdge = std::max(size.width, size.height);
  // What more than 8 bits of lossy sources say is not worth the size of a lossless file.
  decoding.keepsDepth = staysExact(codec) && !isLossy(source.type);
  decoding.keepsProfile = staysExact(codec) || typeOf(codec) == PictureType::Bmp;
  decoding.keepsMetadata = options.keepsMetadata;
  return decoding;
}

Result<ImageCompressor::Output, PictureFailure> ImageCompressor::compress(std::span<const std::byte> file,
                                                                          const CompressOptions& options,
                                                                          const CompressControl& control) {
  const auto info = inspectPicture(file);
  if (!info) return failure(info.error());
  const Codec codec = codecFor(info->type, options);
  const Size size = resizedSize(info->width, info->height, options.maxEdge);
  const bool keepsTypeAndSize = typeOf(codec) == info->type && size == Size{info->width, info->height};
  auto unchanged = keepsTypeAndSize ? original(file, *info, options) : std::nullopt;

  if (info->frames > 1) {
    const std::string what = info->isAnimated ? "an animation of " + std::to_string(info->frames) + " frames"
                                              : std::to_string(info->frames) + " pages";
    if (!keepsTypeAndSize) return failure(PictureFailure{PictureError::Animated, what});
    // What is passed on untouched should at least begin well.
    if (const auto first = decodePicture(file, decodingOf(*info, options)); !first) return failure(first.error());
    if (unchanged) return std::move(*unchanged);
    return failure(PictureFailure{PictureError::Unsupported, "the metadata of " + what + " cannot be taken out"});
  }

  const auto picture = decodePicture(file, decodingOf(*info, options));
  if (!picture) return failure(picture.error());
  if (isCancelled(control)) return failure(PictureFailure{PictureError::Cancelled});
  auto output = encoded(*picture, size, codec, control);
  if (!unchanged || (output && output->data.size() < unchanged->data.size())) return output;
  if (!output && output.error().error == PictureError::Cancelled) return output;
  return std::move(*unchanged);
}

Result<ImageCompressor::Output, PictureFailure> ImageCompressor::compress(const Raster& raster,
                                                                          const CompressOptions& options,
                                                                          const CompressControl& control) {
  if (raster.isNull()) return failure(PictureFailure{PictureError::NotAPicture});
  DecodedPicture picture;
  picture.raster = raster;
  return encoded(picture, resizedSize(raster.width(), raster.height(), options.maxEdge),
                 codecFor(std::nullopt, options), control);
}

}  // namespace vellora
