#include "editor/canvas/PlaneGeometry.h"

#include <numbers>

namespace vellora::geometry {

Point inStepsOf45(Point from, Point to) {
  const Point way = difference(to, from);
  constexpr double step = std::numbers::pi / 4;
  const double angle = std::round(std::atan2(way.y, way.x) / step) * step;
  const Point direction{std::cos(angle), std::sin(angle)};
  return sum(from, scaled(direction, way.x * direction.x + way.y * direction.y));
}

}  // namespace vellora::geometry
