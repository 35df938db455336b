#include "editor/painting/Measures.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

bool isFinite(Point point) {
  return std::isfinite(point.x) && std::isfinite(point.y);
}

Point limited(Point point) {
  constexpr double most = Measures::mostCoordinate;
  return {std::clamp(point.x, -most, most), std::clamp(point.y, -most, most)};
}

}  // namespace

Rect Measures::rect() const {
  return {{std::min(p1.x, p2.x), std::min(p1.y, p2.y)}, {std::abs(p1.x - p2.x), std::abs(p1.y - p2.y)}};
}

std::optional<Measures> measuresOf(const Annotation& annotation) {
  Measures measures;
  if (!std::isfinite(annotation.lineWidth)) return std::nullopt;
  measures.lineWidth = std::clamp(annotation.lineWidth, 0.0, Measures::mostLineWidth);
  if (annotation.kind == Annotation::Kind::Pen) return measures;

  const bool isAtOnePoint = annotation.kind == Annotation::Kind::Text || annotation.kind == Annotation::Kind::Counter;
  if (!isFinite(annotation.p1) || !(isAtOnePoint || isFinite(annotation.p2))) return std::nullopt;
  measures.p1 = limited(annotation.p1);
  measures.p2 = isAtOnePoint ? measures.p1 : limited(annotation.p2);
  if (annotation.control && isFinite(*annotation.control)) measures.control = limited(*annotation.control);
  if (std::isfinite(annotation.tailAngle)) measures.tailAngle = annotation.tailAngle;
  return measures;
}

PenSamples penSamplesOf(const Annotation& annotation) {
  constexpr double ordinaryPressure = 0.5;
  PenSamples samples;
  if (!annotation.penPoints || annotation.penPoints->empty()) return samples;
  const std::vector<Point>& points = *annotation.penPoints;
  const std::size_t count = std::min(points.size(), PenSamples::most);
  samples.points.reserve(count);
  samples.pressures.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    // The first and the last sample are always among them.
    const std::size_t source = count == points.size() ? i : i * (points.size() - 1) / (count - 1);
    if (!isFinite(points[source])) continue;
    samples.points.push_back(limited(points[source]));
    const bool hasPressure = annotation.penPressures && source < annotation.penPressures->size() &&
                             std::isfinite((*annotation.penPressures)[source]);
    samples.pressures.push_back(hasPressure ? (*annotation.penPressures)[source] : ordinaryPressure);
  }
  return samples;
}

}  // namespace vellora
