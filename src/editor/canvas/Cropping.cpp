#include "editor/canvas/Cropping.h"

#include <algorithm>

#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

double usableScale(double scale) {
  return std::isfinite(scale) && scale > 0 ? scale : 1;
}

double onPixel(double value, double scale) {
  return std::round(value * scale) / scale;
}

/// One axis of the part of a source that is shown.
struct Span {
  double from;
  double to;
};

Span movedEdge(Span shown, int edge, double to, double source, double scale) {
  const double least = std::min(leastCrop, source);
  const double place = onPixel(to, scale);
  if (edge < 0) return {std::max(std::min(place, shown.to - least), 0.0), shown.to};
  if (edge > 0) return {shown.from, std::min(std::max(place, shown.from + least), source)};
  return shown;
}

/// Shows `rect` of the source and leaves the picture where it is.
CapturePiece showing(const CapturePiece& piece, const Rect& rect) {
  CapturePiece result = piece;
  result.origin = sum(piece.origin, difference(rect.origin, piece.visibleRect.origin));
  result.pointSize = rect.size;
  result.visibleRect = rect;
  return result;
}

}  // namespace

Rect sourceFrame(const CapturePiece& piece) {
  return {difference(piece.origin, piece.visibleRect.origin), piece.sourceSize};
}

CapturePiece cropped(const CapturePiece& piece, Handle::Role role, Point to) {
  if (!isFinite(to) || !isFinite(piece.visibleRect)) return piece;
  const MovedEdges edges = movedEdges(role);
  const double scale = usableScale(piece.scale);
  const Point inSource = difference(to, sourceFrame(piece).origin);
  const Rect& shown = piece.visibleRect;
  const Span x = movedEdge({shown.minX(), shown.maxX()}, edges.x, inSource.x, piece.sourceSize.width, scale);
  const Span y = movedEdge({shown.minY(), shown.maxY()}, edges.y, inSource.y, piece.sourceSize.height, scale);
  return showing(piece, {{x.from, y.from}, {x.to - x.from, y.to - y.from}});
}

CapturePiece cropShifted(const CapturePiece& piece, Point by) {
  if (!isFinite(by) || !isFinite(piece.visibleRect)) return piece;
  const double scale = usableScale(piece.scale);
  const Rect& shown = piece.visibleRect;
  const auto within = [scale](double from, double length, double source) {
    return std::max(0.0, std::min(onPixel(from, scale), source - length));
  };
  return showing(piece, {{within(shown.minX() + by.x, shown.size.width, piece.sourceSize.width),
                          within(shown.minY() + by.y, shown.size.height, piece.sourceSize.height)},
                         shown.size});
}

CapturePiece uncropped(const CapturePiece& piece) {
  return showing(piece, {{0, 0}, piece.sourceSize});
}

Point onWholePixels(Point place, double scale) {
  const double usable = usableScale(scale);
  return {onPixel(place.x, usable), onPixel(place.y, usable)};
}

}  // namespace vellora
