#include <QPainterPath>

#include "editor/painting/AnnotationPainter.h"
#include "editor/painting/PaintCache.h"
#include "editor/painting/ShapeGeometry.h"
#include "editor/painting/TextBox.h"

namespace vellora {
namespace {

using Kind = Annotation::Kind;

/// Smoothing spreads letters and edges over the next pixel.
constexpr double margin = 1;

Rect grown(const Rect& rect, double reach) {
  return {{rect.minX() - reach, rect.minY() - reach}, {rect.size.width + 2 * reach, rect.size.height + 2 * reach}};
}

Rect around(std::initializer_list<Point> points) {
  Rect rect{*points.begin(), {}};
  for (const Point& point : points) rect = rect.united({point, {}});
  return rect;
}

Rect fromQt(const QRectF& rect) {
  return {{rect.x(), rect.y()}, {rect.width(), rect.height()}};
}

Rect inkBounds(const Annotation& annotation, const Measures& measures) {
  const auto ink = PaintCache::ofThisThread().ink(annotation, measures);
  if (ink->lines.isEmpty()) return {};
  const Rect lines = fromQt(ink->lines.bounds());
  const bool hasGround = annotation.shapeFill.value_or(false) && !ink->ground.isEmpty();
  return hasGround ? lines.united(fromQt(ink->ground.controlPointRect())) : lines;
}

Rect arrowBounds(const Measures& measures) {
  const ArrowGeometry arrow = arrowGeometry(measures.p1, measures.p2, measures.control, measures.lineWidth);
  QPainterPath path({arrow.shaftStart.x, arrow.shaftStart.y});
  path.cubicTo(arrow.shaftControl1.x, arrow.shaftControl1.y, arrow.shaftControl2.x, arrow.shaftControl2.y,
               arrow.shaftEnd.x, arrow.shaftEnd.y);
  const Rect shaft = fromQt(path.boundingRect());
  const Rect head = around({arrow.headTip, arrow.barb1, arrow.barb2});
  return grown(shaft, arrow.shaftWidth / 2).united(grown(head, arrow.headOutline / 2));
}

Rect textBounds(const Annotation& annotation, const Measures& measures) {
  const TextBox box = textBoxOf(annotation, measures.lineWidth);
  Rect letters = box.text->inkBounds();
  letters.origin.x += measures.p1.x + box.padding.width;
  letters.origin.y += measures.p1.y + box.padding.height;
  return annotation.textBackground ? letters.united({measures.p1, box.size}) : letters;
}

}  // namespace

Rect paintedBounds(const Annotation& annotation) {
  const auto measures = measuresOf(annotation);
  if (!measures) return {};
  switch (annotation.kind) {
    case Kind::Arrow:
      return grown(annotation.sketch ? inkBounds(annotation, *measures) : arrowBounds(*measures), margin);
    case Kind::Box:
    case Kind::Ellipse:
      if (annotation.sketch) return grown(inkBounds(annotation, *measures), margin);
      return grown(measures->rect(), measures->lineWidth / 2 + margin);
    case Kind::Line:
      return grown(measures->rect(), measures->lineWidth / 2 + margin);
    case Kind::Text:
      return grown(textBounds(annotation, *measures), margin);
    case Kind::Counter: {
      const CounterGeometry badge = counterGeometry(measures->p1, measures->lineWidth, measures->tailAngle);
      return grown(grown({measures->p1, {}}, badge.radius).united({badge.tailTip, {}}), margin);
    }
    case Kind::Pen: {
      const Rect ink = inkBounds(annotation, *measures);
      return ink.isEmpty() ? Rect{} : grown(ink, margin);
    }
    case Kind::Blur:
    case Kind::Magnifier:
      return measures->rect();
  }
  return {};
}

Rect changedBounds(const Annotation& before, const Annotation& after) {
  const auto first = measuresOf(before);
  const auto second = measuresOf(after);
  if (first && second && before.kind == Kind::Pen && after.kind == Kind::Pen && before.color == after.color) {
    PaintCache& cache = PaintCache::ofThisThread();
    const QRectF changed = cache.ink(after, *second)->lines.changedFrom(cache.ink(before, *first)->lines);
    return changed.isNull() ? Rect{} : grown(fromQt(changed), margin);
  }
  const Rect old = paintedBounds(before);
  const Rect next = paintedBounds(after);
  if (old.isEmpty()) return next;
  return next.isEmpty() ? old : old.united(next);
}

}  // namespace vellora
