#include "editor/canvas/HitTesting.h"

#include <algorithm>
#include <array>
#include <limits>
#include <numbers>
#include <ranges>
#include <span>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

using Kind = Annotation::Kind;

double distanceToSegment(Point p, Point a, Point b) {
  const Point along = difference(b, a);
  const double square = along.x * along.x + along.y * along.y;
  if (!(square > 0)) return distance(p, a);
  const Point arm = difference(p, a);
  const double t = std::clamp((arm.x * along.x + arm.y * along.y) / square, 0.0, 1.0);
  return distance(p, sum(a, scaled(along, t)));
}

bool isNear(std::span<const Point> chain, Point p, double reach) {
  if (chain.size() == 1) return distance(chain.front(), p) <= reach;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    if (distanceToSegment(p, chain[i - 1], chain[i]) <= reach) return true;
  }
  return false;
}

bool isInTriangle(Point p, Point a, Point b, Point c) {
  const auto side = [p](Point from, Point to) {
    return (to.x - from.x) * (p.y - from.y) - (to.y - from.y) * (p.x - from.x);
  };
  const double first = side(a, b);
  const double second = side(b, c);
  const double third = side(c, a);
  return (first >= 0 && second >= 0 && third >= 0) || (first <= 0 && second <= 0 && third <= 0);
}

/// The part of the segment inside the rectangle is not empty (Liang and Barsky 1984).
bool segmentMeets(Point a, Point b, const Rect& rect) {
  const Point way = difference(b, a);
  double enter = 0;
  double leave = 1;
  const auto clip = [&](double direction, double room) {
    if (direction == 0) return room >= 0;
    const double t = room / direction;
    if (direction < 0) {
      enter = std::max(enter, t);
    } else {
      leave = std::min(leave, t);
    }
    return enter <= leave;
  };
  return clip(-way.x, a.x - rect.minX()) && clip(way.x, rect.maxX() - a.x) && clip(-way.y, a.y - rect.minY()) &&
         clip(way.y, rect.maxY() - a.y);
}

bool chainMeets(std::span<const Point> chain, const Rect& rect) {
  if (chain.size() == 1) return contains(rect, chain.front());
  for (std::size_t i = 1; i < chain.size(); ++i) {
    if (segmentMeets(chain[i - 1], chain[i], rect)) return true;
  }
  return false;
}

/// How far out a place lies in the ellipse inscribed in `rect`: 1 on its edge.
double ellipseRadius(const Rect& rect, Point p) {
  const Point middlePoint = center(rect);
  const double a = rect.size.width / 2;
  const double b = rect.size.height / 2;
  if (!(a > 0 && b > 0)) return std::numeric_limits<double>::infinity();
  return std::hypot((p.x - middlePoint.x) / a, (p.y - middlePoint.y) / b);
}

bool isInEllipse(const Rect& rect, Point p) {
  return ellipseRadius(rect, p) <= 1;
}

bool hitsShape(const Annotation& shape, const Rect& outline, Point place, double tolerance) {
  const double reach = shape.lineWidth / 2 + tolerance;
  const Rect outer = grown(outline, reach);
  const Rect inner = grown(outline, -reach);
  const bool isEllipse = shape.kind == Kind::Ellipse;
  if (!(isEllipse ? isInEllipse(outer, place) : contains(outer, place))) return false;
  if (shape.shapeFill.value_or(false) || inner.isEmpty()) return true;
  return !(isEllipse ? isInEllipse(inner, place) : contains(inner, place));
}

/// The head as the painter draws it, with the middle of the tip's rounding left aside.
bool hitsHead(const Annotation& arrow, Point place, double tolerance) {
  const Point from = arrow.control.value_or(middle(arrow.p1, arrow.p2));
  const double angle = std::atan2(arrow.p2.y - from.y, arrow.p2.x - from.x);
  const double t = std::clamp((distance(arrow.p1, arrow.p2) - 20) / 180, 0.0, 1.0);
  const double length = std::max((4 * arrow.lineWidth + 10) * (0.35 + 0.65 * t), 6.0);
  constexpr double halfAngle = std::numbers::pi / 7;
  const auto barb = [&](double turn) {
    return difference(arrow.p2, {std::cos(angle + turn) * length, std::sin(angle + turn) * length});
  };
  const std::array<Point, 4> head{arrow.p2, barb(-halfAngle), barb(halfAngle), arrow.p2};
  return isInTriangle(place, head[0], head[1], head[2]) || isNear(head, place, tolerance);
}

}  // namespace

bool hits(const Annotation& annotation, const Rect& outline, Point place, double tolerance) {
  if (!isFinite(outline) || !isFinite(place) || !std::isfinite(annotation.lineWidth)) return false;
  switch (annotation.kind) {
    case Kind::Arrow:
    case Kind::Line: {
      const double reach = annotation.lineWidth / 2 + tolerance;
      if (isNear(shaftOf(annotation), place, reach)) return true;
      return annotation.kind == Kind::Arrow && hitsHead(annotation, place, tolerance);
    }
    case Kind::Box:
    case Kind::Ellipse:
      return hitsShape(annotation, outline, place, tolerance);
    case Kind::Text:
      return contains(grown(outline, tolerance / 2), place);
    case Kind::Counter: {
      const std::array<Point, 2> tail{annotation.p1, tailTip(annotation)};
      return distance(place, annotation.p1) <= counterRadius(annotation) + tolerance / 2 ||
             isNear(tail, place, tolerance);
    }
    case Kind::Magnifier:
      return annotation.magnifierShape == MagnifierShape::Circle ? isInEllipse(grown(outline, tolerance / 2), place)
                                                                 : contains(grown(outline, tolerance / 2), place);
    case Kind::Blur:
      return contains(grown(outline, tolerance / 2), place);
    case Kind::Pen:
      return annotation.penPoints && contains(grown(outline, tolerance), place) &&
             isNear(*annotation.penPoints, place, 1.5 * annotation.lineWidth + tolerance);
  }
  return false;
}

bool touches(const Annotation& annotation, const Rect& outline, const Rect& marquee) {
  if (!isFinite(outline) || !intersects(outline, marquee)) return false;
  const bool isHollow = !annotation.shapeFill.value_or(false);
  const std::array<Point, 4> corners{marquee.origin,
                                     {marquee.maxX(), marquee.minY()},
                                     {marquee.maxX(), marquee.maxY()},
                                     {marquee.minX(), marquee.maxY()}};
  switch (annotation.kind) {
    case Kind::Arrow:
    case Kind::Line:
      return chainMeets(shaftOf(annotation), marquee);
    case Kind::Pen:
      return annotation.penPoints && chainMeets(*annotation.penPoints, marquee);
    case Kind::Box:
      return !(isHollow && contains(outline, corners[0]) && contains(outline, corners[2]));
    case Kind::Ellipse: {
      if (isHollow && std::ranges::all_of(corners, [&](Point p) { return isInEllipse(outline, p); })) return false;
      // The ellipse's place nearest to the marquee: exact for a circle, close enough for the rest.
      const Point toward = center(outline);
      return isInEllipse(outline, {std::clamp(toward.x, marquee.minX(), marquee.maxX()),
                                   std::clamp(toward.y, marquee.minY(), marquee.maxY())});
    }
    case Kind::Text:
    case Kind::Blur:
    case Kind::Counter:
    case Kind::Magnifier:
      break;
  }
  return true;
}

std::optional<AnnotationId> annotationAt(const ImageDocument& document, AnnotationOutlines& outlines, Point place,
                                         double tolerance, const std::set<AnnotationId>& preferred) {
  AnnotationPtr topmost;
  for (const AnnotationPtr& annotation : std::views::reverse(document.annotations)) {
    const bool isPreferred = preferred.empty() || preferred.contains(annotation->id);
    if (topmost && !isPreferred) continue;
    const Rect outline = outlines.of(annotation);
    if (!hits(*annotation, outline, place, tolerance)) continue;
    if (!topmost) topmost = annotation;
    if (!isPreferred) continue;
    const Rect top = outlines.of(topmost);
    const bool holdsTopmost =
        top != outline && contains(outline, top.origin) && contains(outline, {top.maxX(), top.maxY()});
    return holdsTopmost ? topmost->id : annotation->id;
  }
  return topmost ? std::optional(topmost->id) : std::nullopt;
}

std::optional<std::uint64_t> pieceAt(const ImageDocument& document, Point place) {
  for (const CapturePiece& piece : std::views::reverse(document.pieces)) {
    if (contains(piece.frame(), place)) return piece.id;
  }
  return std::nullopt;
}

std::set<AnnotationId> annotationsOn(const ImageDocument& document, AnnotationOutlines& outlines, std::uint64_t piece) {
  std::set<AnnotationId> found;
  for (const AnnotationPtr& annotation : document.annotations) {
    if (pieceAt(document, outlines.middleOf(annotation)) == piece) found.insert(annotation->id);
  }
  return found;
}

}  // namespace vellora
