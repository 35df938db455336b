#include "editor/painting/InkRibbon.h"

#include <algorithm>

#include "editor/painting/PerfectFreehand.h"
#include "editor/painting/Vector.h"

namespace vellora {
namespace {

QPointF toQt(Point point) {
  return {point.x, point.y};
}

}  // namespace

QPainterPath smoothClosedPath(std::span<const Point> outline) {
  QPainterPath path;
  path.setFillRule(Qt::WindingFill);
  const std::size_t count = outline.size();
  if (count == 0) return path;
  if (count < 3) {
    const Point a = outline.front();
    const Point b = outline.back();
    path.addEllipse(QRectF(toQt(a), toQt(b)).normalized().adjusted(-0.5, -0.5, 0.5, 0.5));
    return path;
  }
  path.reserve(static_cast<int>(3 * count + 2));
  path.moveTo(toQt(vec::mix(outline[0], outline[1], 0.5)));
  for (std::size_t k = 1; k <= count; ++k) {
    const Point corner = outline[k % count];
    path.quadTo(toQt(corner), toQt(vec::mix(corner, outline[(k + 1) % count], 0.5)));
  }
  path.closeSubpath();
  return path;
}

void fillInkRibbon(std::vector<std::vector<Point>>& ink, std::span<const Point> points,
                   std::span<const double> halfWidths, bool roundStart, bool roundEnd) {
  const std::size_t count = std::min(points.size(), halfWidths.size());
  if (count < 2) return;
  const double most = *std::max_element(halfWidths.begin(), halfWidths.begin() + static_cast<std::ptrdiff_t>(count));
  if (!(most > 0)) return;

  std::vector<PerfectFreehand::StrokePoint> stroke;
  stroke.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    PerfectFreehand::StrokePoint next{.point = points[i], .pressure = std::clamp(halfWidths[i] / (2 * most), 0.0, 1.0)};
    if (!stroke.empty()) {
      const PerfectFreehand::StrokePoint& before = stroke.back();
      if (before.point == next.point) continue;
      const Point step = vec::sub(next.point, before.point);
      next.distance = vec::length(step);
      next.vector = vec::unit(step);
      next.runningLength = before.runningLength + next.distance;
    }
    stroke.push_back(next);
  }
  if (stroke.size() > 1) stroke.front().vector = stroke[1].vector;

  std::vector<Point> outline = PerfectFreehand::strokeOutlinePoints(stroke, {.size = 2 * most,
                                                                             .thinning = 1,
                                                                             .smoothing = 0.5,
                                                                             .streamline = 0.5,
                                                                             .simulatePressure = false,
                                                                             .capStart = roundStart,
                                                                             .capEnd = roundEnd,
                                                                             .last = true});
  if (outline.size() >= 3) ink.push_back(std::move(outline));
}

}  // namespace vellora
