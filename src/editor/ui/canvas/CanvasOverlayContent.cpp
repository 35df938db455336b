#include <algorithm>
#include <cmath>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/Cropping.h"
#include "editor/ui/canvas/CanvasOverlay.h"

namespace vellora {
namespace {

constexpr double lensCornerRadius = 14;  // document points
constexpr double roomAroundText = 0.12;  // of a line's height

QPolygonF placed(const Rect& rect, const QTransform& toView) {
  const QRectF box(rect.minX(), rect.minY(), rect.size.width, rect.size.height);
  return toView.map(QPolygonF({box.topLeft(), box.topRight(), box.bottomRight(), box.bottomLeft()}));
}

QLineF placedLine(Point from, Point to, const QTransform& toView) {
  return {toView.map(QPointF(from.x, from.y)), toView.map(QPointF(to.x, to.y))};
}

QPolygonF placedShaft(const Annotation& annotation, const QTransform& toView) {
  QPolygonF placed;
  for (const Point& point : shaftOf(annotation)) placed << toView.map(QPointF(point.x, point.y));
  return placed;
}

/// What a lens shows, in the lens's own shape.
void addLens(OverlayContent& content, const Annotation& lens, const QTransform& toView) {
  const Rect frame = spannedRect(lens);
  const double zoom = std::isfinite(lens.magnification) && lens.magnification > 1 ? lens.magnification : 1;
  const QPointF middle(frame.origin.x + frame.size.width / 2, frame.origin.y + frame.size.height / 2);
  QRectF shown({}, QSizeF(frame.size.width, frame.size.height) / zoom);
  shown.moveCenter(lens.control ? QPointF(lens.control->x, lens.control->y) : middle);
  QPainterPath outline;
  if (lens.magnifierShape == MagnifierShape::Circle) {
    outline.addEllipse(shown);
  } else {
    const double radius = std::min({lensCornerRadius / zoom, shown.width() / 4, shown.height() / 4});
    outline.addRoundedRect(shown, radius, radius);
  }
  content.lensSources.push_back(toView.map(outline));
}

/// Of what has a handle at each end the box around it says nothing more.
bool isToldByItsEnds(const Annotation& annotation) {
  return annotation.kind == Annotation::Kind::Arrow || annotation.kind == Annotation::Kind::Line;
}

void addHovered(OverlayContent& content, const CanvasModel& model, AnnotationId id, const QTransform& toView) {
  const AnnotationPtr annotation = model.document().annotation(id);
  const auto outline = model.outlineOf(id);
  if (annotation == nullptr || !outline) return;
  if (!isToldByItsEnds(*annotation)) {
    content.hovered = placed(*outline, toView);
    return;
  }
  content.hoveredShaft = placedShaft(*annotation, toView);
}

Rect grown(const Rect& rect, double by) {
  return {{rect.minX() - by, rect.minY() - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

void addText(OverlayContent& content, const CanvasModel& model, const CanvasModel::TextEdit& edit,
             const QTransform& toView) {
  const Rect& cursor = edit.cursorRect;
  const double room = cursor.size.height * roomAroundText;
  if (const auto outline = model.outlineOf(edit.id)) content.textFrame = placed(grown(*outline, room), toView);
  for (const Rect& rect : edit.selected) content.textSelection.push_back(placed(rect, toView));
  for (const Rect& rect : edit.composed) {
    content.composing.push_back(placedLine({rect.minX(), rect.maxY()}, {rect.maxX(), rect.maxY()}, toView));
  }
  content.cursor = placedLine(cursor.origin, {cursor.minX(), cursor.maxY()}, toView);
}

void addCrop(OverlayContent& content, const CanvasModel& model, std::uint64_t id, const QTransform& toView) {
  const auto onPixels = [&](const Rect& rect) {
    const QRectF mapped = toView.mapRect(QRectF(rect.minX(), rect.minY(), rect.size.width, rect.size.height));
    return QRect(mapped.topLeft().toPoint(), mapped.bottomRight().toPoint() - QPoint(1, 1));
  };
  for (const CapturePiece& piece : model.document().pieces) {
    if (piece.id == id) content.crop = OverlayContent::Crop{onPixels(piece.frame()), onPixels(sourceFrame(piece))};
  }
}

}  // namespace

OverlayContent overlayOf(const CanvasModel& model, const QTransform& toView, bool showsHovered) {
  OverlayContent content;
  const auto edit = model.textEdit();
  for (const Handle& handle : model.handles()) {
    content.marks.push_back({handle.role, toView.map(QPointF(handle.position.x, handle.position.y))});
  }
  if (const auto cropped = model.croppedPiece(); model.isCropping() && cropped) {
    addCrop(content, model, *cropped, toView);
    if (content.crop) return content;
  }
  for (const AnnotationId id : model.selection()) {
    const AnnotationPtr annotation = model.document().annotation(id);
    if (annotation == nullptr || (edit && edit->id == id)) continue;
    if (isToldByItsEnds(*annotation)) {
      if (model.selection().size() > 1) content.shafts.push_back(placedShaft(*annotation, toView));
    } else if (const auto outline = model.outlineOf(id)) {
      content.outlines.push_back(placed(*outline, toView));
    }
    if (annotation->kind == Annotation::Kind::Magnifier) addLens(content, *annotation, toView);
  }
  if (const auto piece = model.selectedPiece()) {
    for (const CapturePiece& each : model.document().pieces) {
      if (each.id == *piece) content.outlines.push_back(placed(each.frame(), toView));
    }
  }
  const auto hovered = model.hovered();
  if (hovered && showsHovered && !model.selection().contains(*hovered)) {
    addHovered(content, model, *hovered, toView);
  }
  if (const auto marquee = model.marquee()) content.marquee = placed(*marquee, toView);
  for (const Guide& guide : model.guides()) content.guides.push_back(placedLine(guide.from, guide.to, toView));
  if (edit) addText(content, model, *edit, toView);
  return content;
}

}  // namespace vellora
