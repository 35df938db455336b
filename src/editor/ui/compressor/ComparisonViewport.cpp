#include "editor/ui/compressor/ComparisonViewport.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vellora {
namespace {

constexpr double leastUsualZoom = 0.25;
constexpr double usualZooms[] = {1.0 / 64, 1.0 / 32, 1.0 / 16, 1.0 / 8, 0.25, 1.0 / 3, 0.5, 2.0 / 3, 1, 2, 3, 4, 6, 8};
static_assert(*std::rbegin(usualZooms) == ComparisonViewport::mostZoom);

/// Where a length begins in a room: in its middle, or, when it is longer, anywhere that leaves no gap.
int placed(double start, double length, int room) {
  const int whole = static_cast<int>(std::lround(length));
  if (whole <= room) return (room - whole) / 2;
  return std::clamp(static_cast<int>(std::lround(start)), room - whole, 0);
}

}  // namespace

void ComparisonViewport::setView(QSize pixels) {
  view_ = pixels.expandedTo({1, 1});
  if (fitting_) {
    fit();
  } else {
    placeMiddle();
  }
}

void ComparisonViewport::setPicture(QSize size) {
  picture_ = size;
  zoom_ = 1;
  fitting_ = false;
  middle_ = {size.width() / 2.0, size.height() / 2.0};
  placeMiddle();
}

QRect ComparisonViewport::visible() const {
  return QRectF(origin_, QSizeF(picture_) * zoom_).toRect() & QRect({}, view_);
}

bool ComparisonViewport::canPan() const {
  return std::lround(picture_.width() * zoom_) > view_.width() ||
         std::lround(picture_.height() * zoom_) > view_.height();
}

double ComparisonViewport::fittingZoom() const {
  if (picture_.isEmpty()) return 1;
  return std::min({1.0, double(view_.width()) / picture_.width(), double(view_.height()) / picture_.height()});
}

double ComparisonViewport::leastZoom() const {
  return std::min(leastUsualZoom, fittingZoom());
}

double ComparisonViewport::nextZoom(int direction) const {
  std::vector<double> zooms(std::begin(usualZooms), std::end(usualZooms));
  zooms.push_back(fittingZoom());
  std::sort(zooms.begin(), zooms.end());
  constexpr double nearlyOne = 1 + 1e-6;
  double next = direction > 0 ? mostZoom : leastZoom();
  if (direction > 0) {
    const auto above = std::find_if(zooms.begin(), zooms.end(), [&](double each) { return each > zoom_ * nearlyOne; });
    if (above != zooms.end()) next = *above;
  } else {
    const auto below =
        std::find_if(zooms.rbegin(), zooms.rend(), [&](double each) { return each * nearlyOne < zoom_; });
    if (below != zooms.rend()) next = std::max(next, *below);
  }
  return next;
}

void ComparisonViewport::zoomTo(double zoom, QPoint at) {
  // The middle of the pixel is what stays, so that rounding does not make it a neighbor.
  const QPointF middle = QPointF(at) + QPointF(0.5, 0.5);
  const QPointF fixed = (middle - QPointF(origin_)) / zoom_;
  zoom_ = std::clamp(zoom, leastZoom(), mostZoom);
  fitting_ = zoom_ == fittingZoom() && zoom_ < 1;
  place(middle - fixed * zoom_);
}

void ComparisonViewport::fit() {
  zoom_ = fittingZoom();
  fitting_ = true;
  middle_ = {picture_.width() / 2.0, picture_.height() / 2.0};
  placeMiddle();
}

void ComparisonViewport::panBy(QPoint distance) {
  place(origin_ + distance);
}

void ComparisonViewport::place(QPointF origin) {
  origin_ = {placed(origin.x(), picture_.width() * zoom_, view_.width()),
             placed(origin.y(), picture_.height() * zoom_, view_.height())};
  middle_ = (QPointF(view_.width() / 2.0, view_.height() / 2.0) - QPointF(origin_)) / zoom_;
}

void ComparisonViewport::placeMiddle() {
  // Halves of pixels are not lost over a thousand small changes of the view's size.
  const QPointF wanted = middle_;
  place(QPointF(view_.width() / 2.0, view_.height() / 2.0) - wanted * zoom_);
  middle_ = wanted;
}

}  // namespace vellora
