#pragma once

#include <cmath>
#include <vector>

#include "editor/Annotation.h"
#include "editor/TextMeasurer.h"

namespace vellora {

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

/// The arrow's shaft (or the line) as a chain of short straight pieces from `p1` to `p2`.
std::vector<Point> shaftOf(const Annotation& annotation);
/// The middle of an arrow's curve, where its bend is taken hold of.
Point bendOf(const Annotation& arrow);
/// The control point of the curve from `p1` to `p2` whose middle lies at `bend`.
Point controlFor(Point p1, Point p2, Point bend);
/// Puts the ends of an arrow or line elsewhere; the bend turns and grows with them.
void moveEnds(Annotation& annotation, Point p1, Point p2);

double counterRadius(const Annotation& counter);
/// The tip of a counter's tail.
Point tailTip(const Annotation& counter);

/// The middle of what a lens shows.
Point lensSource(const Annotation& lens);

/// The padding left and right of the text on a filled ground; 0 without one.
double textPadding(const Annotation& text);

enum class LensSource { Stays, Moves };

/// The annotation shifted by `by`. A lens whose source was put somewhere moves alone where the source stays.
Annotation moved(const Annotation& annotation, Point by, LensSource source = LensSource::Moves);

/// The rectangle an annotation is selected, aligned and resized by: tight around shapes without the width of their
/// line, around a freehand stroke with it. Not finite where the annotation is not.
Rect outlineRect(const Annotation& annotation, TextMeasurer& measurer);

}  // namespace vellora
