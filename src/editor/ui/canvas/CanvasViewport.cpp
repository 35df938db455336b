#include "editor/ui/canvas/CanvasViewport.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vellora {
namespace {

constexpr std::array usualZooms{0.1, 0.25, 1.0 / 3, 0.5, 2.0 / 3, 0.75, 1.0, 1.5, 2.0, 3.0, 4.0, 6.0, 8.0};
constexpr double fittingRoom = 24;       // points around a document that is shown as a whole
constexpr double keptInView = 64;        // points of the document that cannot be moved out of the view
constexpr double sameZoom = 1e-3;        // zooms closer than this, as a fraction, are one
constexpr double farthestPixel = 1e8;    // keeps positions well within the range of int
constexpr double largestDocument = 1e7;  // points

/// The nearest place at which a stretch of `length` from `from` on still overlaps the view's `room` by enough.
double keptNear(double place, double from, double length, double room, double kept) {
  const double overlap = std::min({kept, length, room});
  return std::clamp(place, overlap - from - length, room - overlap - from);
}

}  // namespace

void CanvasViewport::setView(QSize pixels, double ratio) {
  pixels_ = pixels.expandedTo({1, 1});
  ratio_ = ratio;
  place(origin_);
}

void CanvasViewport::setDocument(const Rect& rect) {
  const auto usable = [](double value) { return std::abs(value) <= largestDocument; };
  const bool drawable = usable(rect.minX()) && usable(rect.minY()) && usable(rect.maxX()) && usable(rect.maxY());
  document_ = drawable ? QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height) : QRectF();
  zoom_ = clampedZoom(zoom_);
  place(origin_);
}

double CanvasViewport::lowerLimit() const {
  return std::min(leastZoom, fittingZoom());
}

double CanvasViewport::clampedZoom(double zoom) const {
  if (!std::isfinite(zoom)) return zoom_;
  return std::clamp(zoom, lowerLimit(), mostZoom);
}

double CanvasViewport::fittingZoom() const {
  if (document_.isEmpty()) return 1;
  const double room = 2 * fittingRoom * ratio_;
  const double width = std::max(pixels_.width() - room, pixels_.width() / 2.0);
  const double height = std::max(pixels_.height() - room, pixels_.height() / 2.0);
  return std::min({width / document_.width() / ratio_, height / document_.height() / ratio_, 1.0});
}

double CanvasViewport::nextZoom(double from, int direction) const {
  if (direction > 0) {
    for (const double zoom : usualZooms) {
      if (zoom > from * (1 + sameZoom)) return clampedZoom(zoom);
    }
    return mostZoom;
  }
  for (auto it = usualZooms.rbegin(); it != usualZooms.rend(); ++it) {
    if (*it < from * (1 - sameZoom)) return clampedZoom(*it);
  }
  return lowerLimit();
}

void CanvasViewport::zoomTo(double zoom, QPointF fixed, QPointF at) {
  zoom_ = clampedZoom(zoom);
  place(at - fixed * scale());
}

void CanvasViewport::panBy(QPoint distance) {
  place(QPointF(origin_) + QPointF(distance));
}

void CanvasViewport::center() {
  place(QPointF(pixels_.width(), pixels_.height()) / 2 - document_.center() * scale());
}

void CanvasViewport::place(QPointF origin) {
  const double s = scale();
  const double kept = keptInView * ratio_;
  const double x = keptNear(origin.x(), document_.left() * s, document_.width() * s, pixels_.width(), kept);
  const double y = keptNear(origin.y(), document_.top() * s, document_.height() * s, pixels_.height(), kept);
  const auto whole = [](double value) {
    return static_cast<int>(std::lround(std::clamp(value, -farthestPixel, farthestPixel)));
  };
  origin_ = {whole(x), whole(y)};
}

}  // namespace vellora
