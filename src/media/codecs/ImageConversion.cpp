#include "media/codecs/ImageConversion.h"

#include <cstdint>
#include <utility>

namespace vellora {
namespace {

constexpr std::uint32_t alphaBits = 0xFF000000U;

bool isFilled(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    std::uint32_t common = alphaBits;
    for (int x = 0; x < image.width(); ++x) common &= row[x];
    if (common != alphaBits) return false;
  }
  return true;
}

void fill(QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    auto* row = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
    for (int x = 0; x < image.width(); ++x) row[x] |= alphaBits;
  }
}

}  // namespace

QImage toImage(const Bitmap& bitmap, AlphaByte alphaByte) {
  if (bitmap.isNull()) return {};
  const bool opaque = bitmap.alpha() == PixelAlpha::Opaque;
  const auto format = opaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied;
  const auto* pixels = reinterpret_cast<const uchar*>(bitmap.row(0));
  const auto stride = static_cast<qsizetype>(bitmap.stride());
  const bool aligned = reinterpret_cast<std::uintptr_t>(pixels) % 4 == 0 && stride % 4 == 0;
  QImage image;
  if (aligned) {
    auto owner = std::make_unique<Bitmap>(bitmap);
    image = QImage(
        pixels, bitmap.width(), bitmap.height(), stride, format, [](void* kept) { delete static_cast<Bitmap*>(kept); },
        owner.get());
    if (!image.isNull()) (void)owner.release();  // the image owns it now
  } else {
    image = QImage(bitmap.width(), bitmap.height(), format);
    if (image.isNull()) return image;
    for (int y = 0; y < bitmap.height(); ++y) {
      std::memcpy(image.scanLine(y), bitmap.row(y), static_cast<std::size_t>(bitmap.width()) * 4);
    }
  }
  if (opaque && alphaByte == AlphaByte::Filled && !isFilled(image)) {
    image = image.copy();
    if (!image.isNull()) fill(image);
  }
  return image;
}

Bitmap toBitmap(QImage image) {
  if (image.isNull()) return {};
  if (image.format() != QImage::Format_RGB32 && image.format() != QImage::Format_ARGB32_Premultiplied) {
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    if (image.isNull()) return {};
  }
  const auto alpha = image.format() == QImage::Format_RGB32 ? PixelAlpha::Opaque : PixelAlpha::Premultiplied;
  const auto kept = std::make_shared<const QImage>(std::move(image));
  return {reinterpret_cast<const std::byte*>(kept->constBits()),
          {kept->width(), kept->height()},
          static_cast<std::size_t>(kept->bytesPerLine()),
          alpha,
          kept};
}

}  // namespace vellora
