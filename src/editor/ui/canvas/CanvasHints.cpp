#include "editor/ui/canvas/CanvasHints.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

QString drawingText(Tool tool) {
  switch (tool) {
    case Tool::Select:
      break;
    case Tool::Arrow:
    case Tool::Line:
      //% "Drag to draw  ·  Shift keeps to steps of 45°"
      return qtTrId("canvas.hint.drawLine");
    case Tool::Box:
    case Tool::Ellipse:
      //% "Drag to draw  ·  Shift makes it even, Alt starts from the center"
      return qtTrId("canvas.hint.drawShape");
    case Tool::Blur:
      //% "Drag over what should not be read"
      return qtTrId("canvas.hint.blur");
    case Tool::Magnifier:
      //% "Drag a lens over what should be larger"
      return qtTrId("canvas.hint.magnifier");
    case Tool::Pen:
      //% "Drag to draw freehand"
      return qtTrId("canvas.hint.pen");
    case Tool::Counter:
      //% "Click to place the next number, drag to point it"
      return qtTrId("canvas.hint.counter");
    case Tool::Text:
      //% "Click to type, drag for a width"
      return qtTrId("canvas.hint.text");
  }
  return {};
}

QString lengths(double width, double height) {
  return QStringLiteral("%1 × %2").arg(std::lround(width)).arg(std::lround(height));
}

}  // namespace

QCursor cursorOf(PointerHint hint) {
  switch (hint) {
    case PointerHint::Select:
      break;
    case PointerHint::Draw:
      return Qt::CrossCursor;
    case PointerHint::Move:
      return Qt::SizeAllCursor;
    case PointerHint::ResizeDiagonalDown:
      return Qt::SizeFDiagCursor;
    case PointerHint::ResizeDiagonalUp:
      return Qt::SizeBDiagCursor;
    case PointerHint::ResizeHorizontal:
      return Qt::SizeHorCursor;
    case PointerHint::ResizeVertical:
      return Qt::SizeVerCursor;
    case PointerHint::MovePoint:
      return Qt::PointingHandCursor;
    case PointerHint::Turn:
      return Qt::OpenHandCursor;
    case PointerHint::EditText:
    case PointerHint::TypeText:
      return Qt::IBeamCursor;
  }
  return Qt::ArrowCursor;
}

QString hintText(PointerHint hint, Tool tool, bool cropping) {
  switch (hint) {
    case PointerHint::Select:
      if (cropping) {
        //% "Drag the edges to crop  ·  Return takes it  ·  Esc leaves"
        return qtTrId("canvas.hint.cropping");
      }
      //% "Click to select, drag to select several"
      return qtTrId("canvas.hint.select");
    case PointerHint::Draw:
      return drawingText(tool);
    case PointerHint::Move:
      //% "Drag to move  ·  the arrow keys nudge"
      return qtTrId("canvas.hint.move");
    case PointerHint::ResizeDiagonalDown:
    case PointerHint::ResizeDiagonalUp:
    case PointerHint::ResizeHorizontal:
    case PointerHint::ResizeVertical:
      if (cropping) {
        //% "Drag to crop"
        return qtTrId("canvas.hint.crop");
      }
      //% "Drag to resize  ·  Shift keeps it even, Alt keeps the center"
      return qtTrId("canvas.hint.resize");
    case PointerHint::MovePoint:
      //% "Drag to move this point"
      return qtTrId("canvas.hint.movePoint");
    case PointerHint::Turn:
      //% "Drag to turn"
      return qtTrId("canvas.hint.turn");
    case PointerHint::EditText:
      //% "Click to place the cursor, drag to select text"
      return qtTrId("canvas.hint.editText");
    case PointerHint::TypeText:
      return drawingText(Tool::Text);
  }
  return {};
}

QString sizeText(const CanvasModel& model) {
  if (const auto cropped = model.croppedPiece(); model.isCropping() && cropped) {
    const auto& pieces = model.document().pieces;
    const auto piece = std::ranges::find(pieces, *cropped, &CapturePiece::id);
    if (piece == pieces.end()) return {};
    return lengths(piece->pointSize.width * piece->scale, piece->pointSize.height * piece->scale);
  }
  if (model.selection().size() != 1) return {};
  const AnnotationPtr selected = model.document().annotation(*model.selection().begin());
  if (selected == nullptr || selected->kind == Annotation::Kind::Counter) return {};
  if (selected->kind == Annotation::Kind::Arrow || selected->kind == Annotation::Kind::Line) {
    return QString::number(std::lround(std::hypot(selected->p2.x - selected->p1.x, selected->p2.y - selected->p1.y)));
  }
  const std::optional<Rect> outline = model.outlineOf(selected->id);
  return outline ? lengths(outline->size.width, outline->size.height) : QString();
}

QString canvasDescription(const CanvasModel& model) {
  const ImageDocument& document = model.document();
  const Rect content = document.contentRect();
  const double scale = document.outputScale();
  //% "Picture of %1 pixels with %n annotation(s)"
  QString text = qtTrId("canvas.description", static_cast<int>(document.annotations.size()))
                     .arg(lengths(content.size.width * scale, content.size.height * scale));
  if (!model.selection().empty()) {
    //% "%n selected"
    text += QStringLiteral(", ") + qtTrId("canvas.description.selected", static_cast<int>(model.selection().size()));
  }
  return text;
}

}  // namespace vellora
