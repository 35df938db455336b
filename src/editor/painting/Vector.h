#pragma once

#include <cmath>

#include "base/Geometry.h"

/// Arithmetic on points taken as vectors.
namespace vellora::vec {

inline Point add(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
inline Point sub(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point mul(Point a, double factor) {
  return {a.x * factor, a.y * factor};
}
inline double dot(Point a, Point b) {
  return a.x * b.x + a.y * b.y;
}
inline double length(Point a) {
  return std::sqrt(dot(a, a));
}
inline double distance(Point a, Point b) {
  return length(sub(a, b));
}
/// From `a` (0) to `b` (1).
inline Point mix(Point a, Point b, double part) {
  return {a.x + (b.x - a.x) * part, a.y + (b.y - a.y) * part};
}
/// Length 1 in the same direction; zero stays zero.
inline Point unit(Point a) {
  const double size = length(a);
  return size > 0 ? mul(a, 1 / size) : Point{};
}
/// A quarter turn clockwise on screen: to the right of somebody who walks along `a`.
inline Point rightOf(Point a) {
  return {-a.y, a.x};
}
inline Point polar(double angle, double radius) {
  return {std::cos(angle) * radius, std::sin(angle) * radius};
}
inline Point rotated(Point a, Point center, double angle) {
  const double s = std::sin(angle);
  const double c = std::cos(angle);
  const Point d = sub(a, center);
  return {center.x + d.x * c - d.y * s, center.y + d.x * s + d.y * c};
}
/// The quadratic curve from `a` through the pull of `control` to `b`.
inline Point quadratic(Point a, Point control, Point b, double part) {
  return mix(mix(a, control, part), mix(control, b, part), part);
}

}  // namespace vellora::vec
