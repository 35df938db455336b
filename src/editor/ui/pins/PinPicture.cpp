#include "editor/ui/pins/PinPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include <QPainter>
#include <QPainterPath>

#include "media/codecs/ImageConversion.h"

namespace vellora {
namespace {

constexpr int bandHeight = 256;       // what is converted at a time, so that little memory is needed
constexpr double pixelatedFrom = 2;   // from this enlargement on pixels are shown as squares
constexpr double reusableDown = 0.7;  // how far a reduced picture may be stretched until a better one is there

/// Sets the alpha of an RGB32 image to opaque and says so.
QImage withAlphaSet(QImage image) {
  for (int y = 0; y < image.height(); ++y) {
    auto* const row = reinterpret_cast<std::uint32_t*>(image.scanLine(y));
    std::transform(row, row + image.width(), row, [](std::uint32_t pixel) { return pixel | 0xFF000000U; });
  }
  image.reinterpretAsFormat(QImage::Format_ARGB32_Premultiplied);
  return image;
}

QImage reducedTo(const Bitmap& bitmap, QSize size) {
  QImage image = toImage(bitmap).scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  if (image.format() == QImage::Format_RGB32) return withAlphaSet(std::move(image));
  image.convertTo(QImage::Format_ARGB32_Premultiplied);
  return image;
}

/// Clears what lies outside a rounded rectangle of `size`.
void cutCorners(QImage& band, QPoint origin, QSize size, double radius) {
  QPainter painter(&band);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
  painter.translate(-origin);
  QPainterPath outside;
  outside.addRect(QRectF(QPointF(), size));
  outside.addRoundedRect(QRectF(QPointF(), size), radius, radius);
  painter.fillPath(outside, Qt::black);
}

}  // namespace

PinPicture::PinPicture(Bitmap image, RunLoop& runLoop, SerialQueue& queue, std::function<void()> refined)
    : image_(std::move(image)), runLoop_(runLoop), queue_(queue), refined_(std::move(refined)) {}

QSize PinPicture::paintedSize(QSize wanted) const {
  const double times = std::round(static_cast<double>(wanted.width()) / image_.width());
  if (times < 1) return wanted;
  const QSizeF whole(image_.width() * times, image_.height() * times);
  const bool near = std::abs(whole.width() - wanted.width()) <= 1 && std::abs(whole.height() - wanted.height()) <= 1;
  return near ? whole.toSize() : wanted;
}

void PinPicture::paint(QPainter& painter, QSize size, const QRect& exposed, double radius) {
  const QRect part = exposed & QRect(QPoint(), size);
  if (part.isEmpty() || image_.isNull()) return;
  refine(size);
  const int corner = static_cast<int>(std::ceil(radius));
  for (int top = part.top(); top <= part.bottom(); top += bandHeight) {
    const QRect rows(part.left(), top, part.width(), std::min(bandHeight, part.bottom() + 1 - top));
    QImage image = band(size, rows);
    const bool touchesCorner = rows.top() < corner || rows.bottom() >= size.height() - corner;
    const bool cut = radius > 0 && touchesCorner;
    if (cut) cutCorners(image, rows.topLeft(), size, radius);
    // Blending what is opaque would only take longer.
    const bool covers = !cut && !hasAlpha() && painter.opacity() == 1;
    painter.setCompositionMode(covers ? QPainter::CompositionMode_Source : QPainter::CompositionMode_SourceOver);
    painter.drawImage(rows.topLeft(), image);
  }
}

QImage PinPicture::band(QSize size, const QRect& part) const {
  const bool reduces = size.width() < image_.width() || size.height() < image_.height();
  const bool useReduced = reduces && !reduced_.isNull() && reduced_.width() >= size.width() * reusableDown;
  if (useReduced && reduced_.size() == size) return reduced_.copy(part);
  const QImage source = useReduced ? reduced_ : toImage(image_);
  QImage result(part.size(), source.format());
  if (result.isNull()) return result;
  if (source.format() != QImage::Format_RGB32) result.fill(0);
  QPainter painter(&result);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  // Reducing the whole picture smoothly here would take several frames.
  const double enlarged = static_cast<double>(size.width()) / image_.width();
  const bool smooth = useReduced || (!reduces && size != source.size() && enlarged < pixelatedFrom);
  painter.setRenderHint(QPainter::SmoothPixmapTransform, smooth);
  painter.drawImage(QRectF(-part.topLeft(), size), source);
  painter.end();
  return result.format() == QImage::Format_RGB32 ? withAlphaSet(std::move(result)) : result;
}

void PinPicture::refine(QSize size) {
  if (size.width() >= image_.width() && size.height() >= image_.height()) {
    reduced_ = {};
    wanted_ = {};
    return;
  }
  wanted_ = size;
  if (refining_ || reduced_.size() == size) return;
  refining_ = true;
  auto arrived = lifetime_.guard([this](const QImage& image) {
    refining_ = false;
    if (wanted_.isEmpty()) return;
    reduced_ = image;
    refined_();
  });
  queue_.async([image = image_, size, &runLoop = runLoop_, arrived = std::move(arrived)]() mutable {
    runLoop.post([arrived = std::move(arrived), reduced = reducedTo(image, size)]() mutable { arrived(reduced); });
  });
}

QImage PinPicture::miniature(int longestSide) const {
  const QImage source = reduced_.isNull() ? toImage(image_) : reduced_;
  const QSize size = source.size().scaled(longestSide, longestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
  QImage small = source.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
  return small.format() == QImage::Format_RGB32 ? withAlphaSet(std::move(small)) : small;
}

}  // namespace vellora
