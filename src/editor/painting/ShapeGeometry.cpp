#include "editor/painting/ShapeGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "editor/painting/Vector.h"

namespace vellora {

double arrowLengthFactor(Point tail, Point tip) {
  return std::clamp((vec::distance(tail, tip) - 20) / 180, 0.0, 1.0);
}

ArrowGeometry arrowGeometry(Point tail, Point tip, std::optional<Point> control, double lineWidth) {
  constexpr double headHalfAngle = std::numbers::pi / 7;
  const Point bend = control.value_or(vec::mix(tail, tip, 0.5));
  const double direction = std::atan2(tip.y - bend.y, tip.x - bend.x);
  const double factor = arrowLengthFactor(tail, tip);

  ArrowGeometry arrow;
  arrow.direction = direction;
  arrow.shaftWidth = std::max(lineWidth * (0.5 + 0.5 * factor), 1.0);
  arrow.headOutline = std::max(arrow.shaftWidth, 1.5);
  arrow.headLength = std::max((4 * lineWidth + 10) * (0.35 + 0.65 * factor), 6.0);
  // Pulled back so that the rounded outline ends at the tip.
  arrow.headTip = vec::sub(tip, vec::polar(direction, arrow.headOutline / 2));
  const double side = std::max(arrow.headLength - arrow.headOutline / 2, 3.0);
  arrow.barb1 = vec::sub(arrow.headTip, vec::polar(direction - headHalfAngle, side));
  arrow.barb2 = vec::sub(arrow.headTip, vec::polar(direction + headHalfAngle, side));
  arrow.shaftStart = tail;
  arrow.shaftEnd = vec::sub(tip, vec::polar(direction, arrow.headLength * 0.8));
  arrow.shaftControl1 = vec::mix(tail, bend, 2.0 / 3);
  arrow.shaftControl2 = vec::mix(arrow.shaftEnd, bend, 2.0 / 3);
  return arrow;
}

CounterGeometry counterGeometry(Point center, double lineWidth, double tailAngle) {
  const double radius = 1.5 * lineWidth + 11;
  const double tip = 1.5 * radius;
  // Where the tangents through the tip touch the circle.
  const double halfAngle = std::acos(std::min(radius / tip, 0.999));
  return {.radius = radius,
          .tailStart = vec::add(center, vec::polar(tailAngle + halfAngle, radius)),
          .tailTip = vec::add(center, vec::polar(tailAngle, tip)),
          .tailEnd = vec::add(center, vec::polar(tailAngle - halfAngle, radius))};
}

}  // namespace vellora
