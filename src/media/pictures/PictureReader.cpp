#include "media/pictures/PictureReader.h"

#include <algorithm>
#include <new>
#include <utility>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/ExifBlock.h"
#include "media/pictures/ForeignCodec.h"
#include "media/pictures/Orientation.h"
#include "media/pictures/PictureFormats.h"

namespace vellora {
namespace {

/// 16-bit samples to the nearest of 8 bits.
std::optional<Raster> withEightBits(const Raster& deep) {
  auto raster = Raster::create(deep.width(), deep.height(), deep.layout(), 8);
  if (!raster) return std::nullopt;
  const std::size_t samples = raster->stride();
  for (int y = 0; y < deep.height(); ++y) {
    const auto* source = reinterpret_cast<const std::uint16_t*>(deep.row(y));
    std::uint8_t* target = raster->row(y);
    for (std::size_t i = 0; i < samples; ++i) target[i] = static_cast<std::uint8_t>((source[i] * 255U + 32895U) >> 16);
  }
  return raster;
}

Result<DecodedPicture, PictureFailure> finished(DecodedPicture picture, const DecodeOptions& options) {
  // Colors first: with 16 bits their rounding does not show.
  if (!options.keepsProfile) {
    convertToSrgb(picture.raster, picture.metadata.profile);
    picture.metadata.profile.clear();
  }
  if (picture.raster.bitsPerSample() == 16 && !options.keepsDepth) {
    auto raster = withEightBits(picture.raster);
    if (!raster) return refused(PictureError::OutOfMemory);
    picture.raster = std::move(*raster);
  }
  auto raster = turnedUpright(std::exchange(picture.raster, {}), picture.info.orientation);
  if (!raster) return refused(PictureError::OutOfMemory);
  picture.raster = std::move(*raster);
  if (options.keepsMetadata) {
    setUpright(picture.metadata.exif);
  } else {
    picture.metadata.exif.clear();
    picture.metadata.xmp.clear();
  }
  return picture;
}

Result<PictureInfo, PictureFailure> inspect(FileBytes file, PictureType type) {
  switch (type) {
    case PictureType::Jpeg:
      return inspectJpeg(file);
    case PictureType::Png:
      return inspectPng(file);
    case PictureType::WebP:
      return inspectWebP(file);
    case PictureType::Tiff:
      return inspectTiff(file);
    case PictureType::Bmp:
      return inspectBmp(file);
    case PictureType::Gif:
      return inspectGif(file);
    case PictureType::Heic:
    case PictureType::Avif:
    case PictureType::JpegXL:
      break;
  }
  const ForeignCodec* codec = foreignCodecFor(type);
  if (codec == nullptr) return refused(PictureError::Unsupported, "no decoder for it is installed");
  return codec->inspect(file);
}

Result<DecodedPicture, PictureFailure> decode(FileBytes file, PictureType type, const DecodeOptions& options) {
  switch (type) {
    case PictureType::Jpeg:
      return decodeJpeg(file, options);
    case PictureType::Png:
      return decodePngPicture(file, options);
    case PictureType::WebP:
      return decodeWebP(file, options);
    case PictureType::Tiff:
      return decodeTiff(file, options);
    case PictureType::Bmp:
      return decodeBmp(file, options);
    case PictureType::Gif:
      return decodeGif(file, options);
    case PictureType::Heic:
    case PictureType::Avif:
    case PictureType::JpegXL:
      break;
  }
  const ForeignCodec* codec = foreignCodecFor(type);
  if (codec == nullptr) return refused(PictureError::Unsupported, "no decoder for it is installed");
  auto picture = codec->decode(file, options);
  if (picture) picture->info.orientation = 1;  // these libraries turn by themselves
  return picture;
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectPicture(std::span<const std::byte> file) {
  const auto type = pictureTypeOf(file);
  if (!type) return refused(PictureError::NotAPicture);
  if (file.size() > pictureLimits::fileBytes) return refused(PictureError::TooLarge, "the file is too large");
  try {
    return inspect(file, *type);
  } catch (const std::bad_alloc&) {
    return refused(PictureError::OutOfMemory);
  }
}

Result<DecodedPicture, PictureFailure> decodePicture(std::span<const std::byte> file, const DecodeOptions& options) {
  const auto type = pictureTypeOf(file);
  if (!type) return refused(PictureError::NotAPicture);
  if (file.size() > pictureLimits::fileBytes) return refused(PictureError::TooLarge, "the file is too large");
  try {
    auto picture = decode(file, *type, options);
    if (!picture) return picture;
    return finished(std::move(*picture), options);
  } catch (const std::bad_alloc&) {
    return refused(PictureError::OutOfMemory);
  }
}

std::size_t decodedBytesOf(const PictureInfo& info, const DecodeOptions& options) {
  auto width = static_cast<std::size_t>(std::max(info.width, 0));
  auto height = static_cast<std::size_t>(std::max(info.height, 0));
  if (info.type == PictureType::Jpeg && options.neededEdge > 0) {
    const std::size_t longer = std::max(width, height);
    std::size_t divisor = 8;
    while (divisor > 1 && longer / divisor < static_cast<std::size_t>(options.neededEdge)) divisor /= 2;
    width = (width + divisor - 1) / divisor;
    height = (height + divisor - 1) / divisor;
  }
  const std::size_t samples = (info.colors == PictureColors::Grey ? 1U : 3U) + (info.hasAlpha ? 1U : 0U);
  const bool isDeep = info.bitsPerSample > 8;
  const std::size_t pixels = width * height * samples * (isDeep ? 2 : 1);
  // A second raster while the first is turned, or loses half of its bits.
  const bool isCopied = isSideways(info.orientation) || (isDeep && !options.keepsDepth);
  return pixels * (isCopied ? 2 : 1) + info.workingBytes;
}

Result<Raster, PictureFailure> rasterFor(int width, int height, RasterLayout layout, int bitsPerSample,
                                         std::size_t spareBytes) {
  if (width <= 0 || height <= 0) return refused(PictureError::Damaged, "no pixels");
  if (width > Raster::maximumEdge || height > Raster::maximumEdge) {
    return refused(PictureError::TooLarge, "a side of more than 65,535 pixels");
  }
  const std::size_t samples =
      static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * static_cast<std::size_t>(samplesOf(layout));
  if (samples * static_cast<std::size_t>(bitsPerSample / 8) > Raster::maximumBytes) {
    return refused(PictureError::TooLarge, "more than 1 GB of pixels");
  }
  auto raster = Raster::create(width, height, layout, bitsPerSample, spareBytes);
  if (!raster) return refused(PictureError::OutOfMemory);
  return std::move(*raster);
}

}  // namespace vellora
