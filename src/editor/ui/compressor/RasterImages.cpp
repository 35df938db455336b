#include "editor/ui/compressor/RasterImages.h"

#include <memory>

#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

QImage sharedImage(const Raster& raster, QImage::Format format) {
  auto owner = std::make_unique<Raster>(raster);
  const Raster& kept = *owner;
  return QImage(
      kept.row(0), kept.width(), kept.height(), static_cast<qsizetype>(kept.stride()), format,
      [](void* held) { delete static_cast<Raster*>(held); }, owner.release());
}

QImage colorsOfGrey(const Raster& raster) {
  QImage image(raster.width(), raster.height(), QImage::Format_RGBA8888);
  for (int y = 0; y < image.height(); ++y) {
    const std::uint8_t* from = raster.row(y);
    uchar* to = image.scanLine(y);
    for (int x = 0; x < image.width(); ++x, from += 2, to += 4) {
      to[0] = to[1] = to[2] = from[0];
      to[3] = from[1];
    }
  }
  return image;
}

}  // namespace

QImage imageOf(const Raster& raster) {
  if (raster.isNull() || raster.bitsPerSample() != 8) return {};
  switch (raster.layout()) {
    case RasterLayout::Grey:
      return sharedImage(raster, QImage::Format_Grayscale8);
    case RasterLayout::GreyAlpha:
      return colorsOfGrey(raster);
    case RasterLayout::Rgb:
      return sharedImage(raster, QImage::Format_RGB888);
    case RasterLayout::Rgba:
      return sharedImage(raster, QImage::Format_RGBA8888);
  }
  return {};
}

std::optional<Raster> rasterOf(const Bitmap& bitmap) {
  const QImage image = toImage(bitmap);
  if (image.isNull()) return std::nullopt;
  const bool isOpaque = !image.hasAlphaChannel();
  auto raster = Raster::create(image.width(), image.height(), isOpaque ? RasterLayout::Rgb : RasterLayout::Rgba);
  if (!raster) return std::nullopt;
  // Row by row, so that no second picture is in memory.
  const auto format = isOpaque ? QImage::Format_RGB888 : QImage::Format_RGBA8888;
  for (int y = 0; y < image.height(); ++y) {
    const QImage row(image.constScanLine(y), image.width(), 1, image.bytesPerLine(), image.format());
    const QImage converted = row.convertToFormat(format);
    if (converted.isNull()) return std::nullopt;
    std::copy_n(converted.constBits(), raster->stride(), raster->row(y));
  }
  return raster;
}

}  // namespace vellora
