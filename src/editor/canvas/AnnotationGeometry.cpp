#include "editor/canvas/AnnotationGeometry.h"

#include <algorithm>
#include <limits>

#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

using Kind = Annotation::Kind;

constexpr int curvePieces = 32;
constexpr double nowhere = std::numeric_limits<double>::quiet_NaN();

/// Holds places in the smallest rectangle; one that is not finite makes the whole not finite.
class Bounds {
 public:
  void add(Point p) {
    if (!isFinite(p)) broken_ = true;
    left_ = std::min(left_, p.x);
    top_ = std::min(top_, p.y);
    right_ = std::max(right_, p.x);
    bottom_ = std::max(bottom_, p.y);
  }
  Rect rect() const {
    if (broken_ || right_ < left_) return {{nowhere, nowhere}, {nowhere, nowhere}};
    return {{left_, top_}, {right_ - left_, bottom_ - top_}};
  }

 private:
  double left_ = std::numeric_limits<double>::max();
  double top_ = std::numeric_limits<double>::max();
  double right_ = std::numeric_limits<double>::lowest();
  double bottom_ = std::numeric_limits<double>::lowest();
  bool broken_ = false;
};

}  // namespace

std::vector<Point> shaftOf(const Annotation& annotation) {
  const Point a = annotation.p1;
  const Point b = annotation.p2;
  if (annotation.kind != Kind::Arrow || !annotation.control) return {a, b};
  const Point c = *annotation.control;
  std::vector<Point> chain;
  chain.reserve(curvePieces + 1);
  for (int i = 0; i <= curvePieces; ++i) {
    const double t = static_cast<double>(i) / curvePieces;
    const double s = 1 - t;
    chain.push_back({s * s * a.x + 2 * s * t * c.x + t * t * b.x, s * s * a.y + 2 * s * t * c.y + t * t * b.y});
  }
  return chain;
}

Point bendOf(const Annotation& arrow) {
  const Point straight = middle(arrow.p1, arrow.p2);
  return arrow.control ? middle(straight, *arrow.control) : straight;
}

Point controlFor(Point p1, Point p2, Point bend) {
  return difference(scaled(bend, 2), middle(p1, p2));
}

void moveEnds(Annotation& annotation, Point p1, Point p2) {
  const Point before = difference(annotation.p2, annotation.p1);
  const Point after = difference(p2, p1);
  const double square = before.x * before.x + before.y * before.y;
  if (annotation.control && square > 0) {
    // The similarity that takes one chord to the other, as a product of complex numbers.
    const Point factor{(after.x * before.x + after.y * before.y) / square,
                       (after.y * before.x - after.x * before.y) / square};
    const Point arm = difference(*annotation.control, annotation.p1);
    annotation.control = sum(p1, {arm.x * factor.x - arm.y * factor.y, arm.x * factor.y + arm.y * factor.x});
  }
  annotation.p1 = p1;
  annotation.p2 = p2;
}

double counterRadius(const Annotation& counter) {
  return 1.5 * counter.lineWidth + 11;
}

Point tailTip(const Annotation& counter) {
  const double reach = 1.5 * counterRadius(counter);
  return sum(counter.p1, {std::cos(counter.tailAngle) * reach, std::sin(counter.tailAngle) * reach});
}

Point lensSource(const Annotation& lens) {
  return lens.control.value_or(center(spannedRect(lens)));
}

double textPadding(const Annotation& text) {
  return text.textBackground ? std::round(textFontSize(text.lineWidth) * 0.45) : 0;
}

Annotation moved(const Annotation& annotation, Point by, LensSource source) {
  Annotation result = annotation;
  result.p1 = sum(result.p1, by);
  result.p2 = sum(result.p2, by);
  const bool isLens = annotation.kind == Kind::Magnifier;
  if (result.control && !(isLens && source == LensSource::Stays)) result.control = sum(*result.control, by);
  if (result.penPoints) {
    for (Point& sample : *result.penPoints) sample = sum(sample, by);
  }
  return result;
}

Rect outlineRect(const Annotation& annotation, TextMeasurer& measurer) {
  Bounds bounds;
  switch (annotation.kind) {
    case Kind::Arrow:
    case Kind::Line:
      for (const Point& place : shaftOf(annotation)) bounds.add(place);
      return bounds.rect();
    case Kind::Text:
      if (!isFinite(annotation.p1) || !std::isfinite(annotation.lineWidth)) return Bounds().rect();
      return {annotation.p1, measurer.boxSize(annotation)};
    case Kind::Counter: {
      const double radius = counterRadius(annotation);
      bounds.add(sum(annotation.p1, {-radius, -radius}));
      bounds.add(sum(annotation.p1, {radius, radius}));
      return bounds.rect();
    }
    case Kind::Pen:
      if (annotation.penPoints) {
        for (const Point& sample : *annotation.penPoints) bounds.add(sample);
      }
      return grown(bounds.rect(), 2 * annotation.lineWidth);
    case Kind::Box:
    case Kind::Ellipse:
    case Kind::Blur:
    case Kind::Magnifier:
      break;
  }
  bounds.add(annotation.p1);
  bounds.add(annotation.p2);
  return bounds.rect();
}

}  // namespace vellora
