#include "media/codecs/HeifReader.h"

#include <QColorSpace>
#include <memory>
#include <span>

#include "media/pictures/ForeignCodec.h"

namespace vellora {
namespace {

ImageLoadError errorOf(PictureError error) {
  switch (error) {
    case PictureError::Unsupported:
      return ImageLoadError::Unsupported;
    case PictureError::TooLarge:
      return ImageLoadError::TooLarge;
    case PictureError::OutOfMemory:
      return ImageLoadError::OutOfMemory;
    default:
      return ImageLoadError::Damaged;
  }
}

bool isTooLarge(const PictureInfo& info) {
  return info.width > imageLimits::edge || info.height > imageLimits::edge ||
         qint64{info.width} * info.height * 4 > imageLimits::decodedBytes;
}

QColorSpace colorSpaceOf(const PictureMetadata& metadata) {
  if (metadata.profile.empty()) return QColorSpace(QColorSpace::SRgb);
  return QColorSpace::fromIccProfile(QByteArray(reinterpret_cast<const char*>(metadata.profile.data()),
                                                static_cast<qsizetype>(metadata.profile.size())));
}

}  // namespace

Result<QImage, ImageLoadError> readHeif(const QByteArray& data) {
  const ForeignCodec* codec = foreignCodecFor(PictureType::Heic);
  if (codec == nullptr) return failure(ImageLoadError::Unsupported);
  const auto file = std::as_bytes(std::span(data.constData(), static_cast<std::size_t>(data.size())));
  const auto info = codec->inspect(file);
  if (!info) return failure(errorOf(info.error().error));
  if (isTooLarge(*info)) return failure(ImageLoadError::TooLarge);
  auto picture = codec->decode(file, {});
  if (!picture) return failure(errorOf(picture.error().error));
  auto raster = std::make_unique<Raster>(picture->raster);
  const auto format = hasAlpha(raster->layout()) ? QImage::Format_RGBA8888 : QImage::Format_RGB888;
  QImage image(
      std::as_const(*raster).row(0), raster->width(), raster->height(), static_cast<qsizetype>(raster->stride()),
      format, [](void* kept) { delete static_cast<Raster*>(kept); }, raster.get());
  if (image.isNull()) return failure(ImageLoadError::OutOfMemory);
  (void)raster.release();  // the image's cleanup owns it now
  image.setColorSpace(colorSpaceOf(picture->metadata));
  return image;
}

}  // namespace vellora
