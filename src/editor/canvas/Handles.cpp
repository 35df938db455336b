#include "editor/canvas/Handles.h"

#include <algorithm>

#include "editor/ToolStyle.h"
#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

using Kind = Annotation::Kind;
using Role = Handle::Role;

/// A bend nearer to the straight line than this, in screen points, is none.
constexpr double straightBelow = 4;

double signedAtLeast(double value, double least) {
  if (std::abs(value) >= least) return value;
  return std::signbit(value) ? -least : least;
}

/// One axis of a resizing: where the lesser and the greater edge go.
struct Span {
  double first;
  double second;
};

/// `edge`: the edge that moves. `extent`: how long the span becomes, negative when it turns over.
Span spanAround(double from, double to, int edge, double extent, bool keepsCenter) {
  if (keepsCenter || edge == 0) {
    const double middleValue = (from + to) / 2;
    return {middleValue - extent / 2, middleValue + extent / 2};
  }
  return edge > 0 ? Span{from, from + extent} : Span{to - extent, to};
}

void moveEnd(Annotation& annotation, Role role, Point to, const Modifiers& modifiers) {
  const bool isStart = role == Role::Start;
  const Point kept = isStart ? annotation.p2 : annotation.p1;
  const Point pivot = modifiers.alt ? middle(annotation.p1, annotation.p2) : kept;
  if (modifiers.shift) to = inStepsOf45(pivot, to);
  const Point other = modifiers.alt ? difference(scaled(pivot, 2), to) : kept;
  if (!(distance(to, other) >= 1)) return;
  moveEnds(annotation, isStart ? to : other, isStart ? other : to);
}

/// Where a text wraps, else where it ends.
double textEdge(const Annotation& text, const Rect& outline) {
  if (!(text.textBoxWidth > 0)) return outline.maxX();
  return text.p1.x + text.textBoxWidth + 2 * textPadding(text);
}

void scaleText(Annotation& text, const Rect& outline, Point to) {
  const Point diagonal{outline.size.width, outline.size.height};
  const double square = diagonal.x * diagonal.x + diagonal.y * diagonal.y;
  if (!(square > 0)) return;
  const Point arm = difference(to, text.p1);
  const double factor = (arm.x * diagonal.x + arm.y * diagonal.y) / square;
  const double before = textFontSize(text.lineWidth);
  text.lineWidth = std::clamp((before * factor - 12) / 4, minimumLineWidth, maximumLineWidth);
  if (text.textBoxWidth > 0) text.textBoxWidth *= textFontSize(text.lineWidth) / before;
}

void resize(Annotation& annotation, const RectChange& change) {
  annotation.p1 = change.map(annotation.p1);
  annotation.p2 = change.map(annotation.p2);
  if (!annotation.penPoints) return;
  for (Point& sample : *annotation.penPoints) sample = change.map(sample);
}

}  // namespace

MovedEdges movedEdges(Role role) {
  switch (role) {
    case Role::TopLeft:
      return {-1, -1};
    case Role::Top:
      return {0, -1};
    case Role::TopRight:
      return {1, -1};
    case Role::Right:
      return {1, 0};
    case Role::BottomRight:
      return {1, 1};
    case Role::Bottom:
      return {0, 1};
    case Role::BottomLeft:
      return {-1, 1};
    case Role::Left:
      return {-1, 0};
    case Role::Start:
    case Role::End:
    case Role::Bend:
    case Role::Tail:
    case Role::TextWidth:
    case Role::Source:
      break;
  }
  return {};
}

std::vector<Handle> rectHandles(const Rect& rect) {
  const Point mid = center(rect);
  return {{Role::TopLeft, rect.origin},
          {Role::Top, {mid.x, rect.minY()}},
          {Role::TopRight, {rect.maxX(), rect.minY()}},
          {Role::Right, {rect.maxX(), mid.y}},
          {Role::BottomRight, {rect.maxX(), rect.maxY()}},
          {Role::Bottom, {mid.x, rect.maxY()}},
          {Role::BottomLeft, {rect.minX(), rect.maxY()}},
          {Role::Left, {rect.minX(), mid.y}}};
}

std::vector<Handle> handlesOf(const Annotation& annotation, const Rect& outline) {
  if (!isFinite(outline)) return {};
  switch (annotation.kind) {
    case Kind::Arrow:
      return {{Role::Start, annotation.p1}, {Role::End, annotation.p2}, {Role::Bend, bendOf(annotation)}};
    case Kind::Line:
      return {{Role::Start, annotation.p1}, {Role::End, annotation.p2}};
    case Kind::Text:
      return {{Role::TextWidth, {textEdge(annotation, outline), center(outline).y}},
              {Role::BottomRight, {outline.maxX(), outline.maxY()}}};
    case Kind::Counter:
      return {{Role::Tail, tailTip(annotation)}};
    case Kind::Magnifier: {
      auto handles = rectHandles(outline);
      handles.push_back({Role::Source, lensSource(annotation)});
      return handles;
    }
    case Kind::Box:
    case Kind::Ellipse:
    case Kind::Blur:
    case Kind::Pen:
      break;
  }
  return rectHandles(outline);
}

std::optional<Handle> handleAt(const std::vector<Handle>& handles, const std::optional<Rect>& body,
                               const PointerEvent& event) {
  const double reach = handleReach * event.pointsPerScreenPoint;
  const Handle* nearest = nullptr;
  double least = reach;
  for (const Handle& handle : handles) {
    const double away = distance(handle.position, event.position);
    if (!(away <= least)) continue;
    least = away;
    nearest = &handle;
  }
  if (nearest == nullptr) return std::nullopt;
  const MovedEdges edges = movedEdges(nearest->role);
  if (body && (edges.x != 0 || edges.y != 0)) {
    const Rect core{{body->minX() + body->size.width / 3, body->minY() + body->size.height / 3},
                    {body->size.width / 3, body->size.height / 3}};
    if (contains(core, event.position)) return std::nullopt;
  }
  return *nearest;
}

PointerHint hintOf(Role role) {
  switch (role) {
    case Role::TopLeft:
    case Role::BottomRight:
      return PointerHint::ResizeDiagonalDown;
    case Role::TopRight:
    case Role::BottomLeft:
      return PointerHint::ResizeDiagonalUp;
    case Role::Left:
    case Role::Right:
    case Role::TextWidth:
      return PointerHint::ResizeHorizontal;
    case Role::Top:
    case Role::Bottom:
      return PointerHint::ResizeVertical;
    case Role::Tail:
      return PointerHint::Turn;
    case Role::Start:
    case Role::End:
    case Role::Bend:
    case Role::Source:
      break;
  }
  return PointerHint::MovePoint;
}

Point RectChange::map(Point p) const {
  const auto along = [](double value, double start, double length, double low, double high) {
    return length > 0 ? low + (value - start) / length * (high - low) : low;
  };
  return {along(p.x, from.minX(), from.size.width, first.x, second.x),
          along(p.y, from.minY(), from.size.height, first.y, second.y)};
}

RectChange resizedRect(const Rect& rect, Role role, Point to, const Modifiers& modifiers) {
  const MovedEdges edges = movedEdges(role);
  const auto extentAlong = [&](int edge, double from, double length, double place) {
    if (edge == 0) return length;
    const double pivot = modifiers.alt ? from + length / 2 : edge > 0 ? from : from + length;
    return signedAtLeast((place - pivot) * edge * (modifiers.alt ? 2 : 1), leastExtent);
  };
  double width = extentAlong(edges.x, rect.minX(), rect.size.width, to.x);
  double height = extentAlong(edges.y, rect.minY(), rect.size.height, to.y);
  if (modifiers.shift && !rect.isEmpty()) {
    const double across = edges.x == 0 ? 0 : std::abs(width) / rect.size.width;
    const double down = edges.y == 0 ? 0 : std::abs(height) / rect.size.height;
    const double factor = std::max(across, down);
    width = std::copysign(rect.size.width * factor, width);
    height = std::copysign(rect.size.height * factor, height);
  }
  const Span x = spanAround(rect.minX(), rect.maxX(), edges.x, width, modifiers.alt);
  const Span y = spanAround(rect.minY(), rect.maxY(), edges.y, height, modifiers.alt);
  return {rect, {x.first, y.first}, {x.second, y.second}};
}

Annotation withHandleAt(const Annotation& annotation, const Rect& outline, Role role, Point to,
                        const Modifiers& modifiers, double pointsPerScreenPoint) {
  Annotation result = annotation;
  switch (role) {
    case Role::Start:
    case Role::End:
      moveEnd(result, role, to, modifiers);
      return result;
    case Role::Bend: {
      const bool isStraight = distance(to, middle(annotation.p1, annotation.p2)) < straightBelow * pointsPerScreenPoint;
      result.control = isStraight ? std::nullopt : std::optional(controlFor(annotation.p1, annotation.p2, to));
      return result;
    }
    case Role::Tail: {
      if (distance(annotation.p1, to) < 1) return result;
      const Point aim = modifiers.shift ? inStepsOf45(annotation.p1, to) : to;
      result.tailAngle = std::atan2(aim.y - annotation.p1.y, aim.x - annotation.p1.x);
      return result;
    }
    case Role::TextWidth:
      result.textBoxWidth =
          std::max(to.x - annotation.p1.x - 2 * textPadding(annotation), textFontSize(annotation.lineWidth));
      return result;
    case Role::Source:
      result.control = to;
      return result;
    default:
      break;
  }
  if (annotation.kind == Kind::Text) {
    scaleText(result, outline, to);
  } else {
    resize(result, resizedRect(outline, role, to, modifiers));
  }
  return result;
}

}  // namespace vellora
