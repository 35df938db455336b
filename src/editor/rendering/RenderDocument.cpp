#include <cmath>

#include <QImage>

#include "editor/backdrop/BackdropLayout.h"
#include "editor/rendering/DocumentRenderer.h"
#include "editor/rendering/Scene.h"

namespace vellora {
namespace {

PixelSize pixelSize(const Rect& document, double scale) {
  const double width = std::round(document.size.width * scale);
  const double height = std::round(document.size.height * scale);
  // Also refuses what is no number.
  const bool fits = width <= Bitmap::maximumEdge && height <= Bitmap::maximumEdge;
  if (!fits || !(document.size.width > 0) || !(document.size.height > 0) || !(scale > 0)) return {};
  return {std::max(static_cast<int>(width), 1), std::max(static_cast<int>(height), 1)};
}

bool isOpaque(const QImage& image) {
  for (int y = 0; y < image.height(); ++y) {
    const auto* row = reinterpret_cast<const std::uint32_t*>(image.constScanLine(y));
    std::uint32_t common = 0xFF000000U;
    for (int x = 0; x < image.width(); ++x) common &= row[x];
    if (common != 0xFF000000U) return false;
  }
  return true;
}

}  // namespace

PixelSize renderedSize(const ImageDocument& document, double scale) {
  return pixelSize(backdropLayout(drawablePart(document)).document, scale);
}

std::optional<Bitmap> renderDocument(const ImageDocument& document, std::optional<double> scale) {
  const ImageDocument drawable = drawablePart(document);
  const double pixelsPerPoint = scale.value_or(drawable.outputScale());
  const Rect rect = backdropLayout(drawable).document;
  const PixelSize size = pixelSize(rect, pixelsPerPoint);
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Premultiplied);
  if (!bitmap) return std::nullopt;

  QImage image(reinterpret_cast<uchar*>(bitmap->row(0)), size.width, size.height,
               static_cast<qsizetype>(bitmap->stride()), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  const QTransform toDevice(pixelsPerPoint, 0, 0, pixelsPerPoint, -rect.minX() * pixelsPerPoint,
                            -rect.minY() * pixelsPerPoint);
  DocumentRenderer().paint(image, image.rect(), drawable, toDevice);

  const PixelAlpha alpha = isOpaque(image) ? PixelAlpha::Opaque : PixelAlpha::Premultiplied;
  const Bitmap finished = std::move(*bitmap).finish();
  return Bitmap(finished.row(0), size, finished.stride(), alpha, finished.owner());
}

}  // namespace vellora
