#pragma once

#include <algorithm>
#include <cmath>

#include "base/Geometry.h"

namespace vellora::geometry {

inline Point sum(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}
inline Point difference(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
inline Point scaled(Point a, double factor) {
  return {a.x * factor, a.y * factor};
}
inline Point middle(Point a, Point b) {
  return {(a.x + b.x) / 2, (a.y + b.y) / 2};
}
inline double distance(Point a, Point b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}
inline bool isFinite(Point a) {
  return std::isfinite(a.x) && std::isfinite(a.y);
}
inline bool isFinite(const Rect& rect) {
  return isFinite(rect.origin) && std::isfinite(rect.size.width) && std::isfinite(rect.size.height);
}
inline Point center(const Rect& rect) {
  return {rect.minX() + rect.size.width / 2, rect.minY() + rect.size.height / 2};
}
inline Rect grown(const Rect& rect, double by) {
  return {{rect.minX() - by, rect.minY() - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}
inline Rect rectBetween(Point a, Point b) {
  return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::abs(a.x - b.x), std::abs(a.y - b.y)}};
}
inline bool contains(const Rect& rect, Point p) {
  return p.x >= rect.minX() && p.x <= rect.maxX() && p.y >= rect.minY() && p.y <= rect.maxY();
}
inline bool intersects(const Rect& a, const Rect& b) {
  return a.minX() <= b.maxX() && b.minX() <= a.maxX() && a.minY() <= b.maxY() && b.minY() <= a.maxY();
}

/// The place nearest to `to` that lies in one of eight directions from `from`.
Point inStepsOf45(Point from, Point to);

}  // namespace vellora::geometry
