#pragma once

#include <optional>

#include "base/Geometry.h"

/// The measures of plain shapes, in points.
namespace vellora {

/// How far an arrow is from short (0: at most 20 points) to full (1: 200 and more).
double arrowLengthFactor(Point tail, Point tip);

/// A plain arrow: a shaft that ends inside a filled triangle with rounded corners.
struct ArrowGeometry {
  double direction;   ///< in which the shaft arrives at the tip, radians
  double shaftWidth;  ///< the caps are round
  Point shaftStart;
  Point shaftControl1;
  Point shaftControl2;
  Point shaftEnd;
  double headLength;
  double headOutline;  ///< the width of the head's outline, which is drawn around it
  Point headTip;
  Point barb1;
  Point barb2;
};
ArrowGeometry arrowGeometry(Point tail, Point tip, std::optional<Point> control, double lineWidth);

/// A counter's badge: a circle with a tail.
struct CounterGeometry {
  double radius;
  Point tailStart;  ///< on the circle
  Point tailTip;
  Point tailEnd;  ///< on the circle
};
CounterGeometry counterGeometry(Point center, double lineWidth, double tailAngle);

}  // namespace vellora
