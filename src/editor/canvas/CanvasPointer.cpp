#include <algorithm>
#include <utility>

#include "editor/canvas/CanvasModelPrivate.h"
#include "editor/canvas/Cropping.h"
#include "editor/canvas/DragGestures.h"
#include "editor/canvas/DrawGestures.h"
#include "editor/canvas/HitTesting.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

/// How far the pointer moves before a press becomes a drag, in screen points.
constexpr double dragThreshold = 3;

bool isUsable(const PointerEvent& event) {
  return isFinite(event.position) && std::isfinite(event.pointsPerScreenPoint) && event.pointsPerScreenPoint > 0;
}

const CapturePiece* findPiece(const ImageDocument& document, std::uint64_t id) {
  const auto found = std::ranges::find(document.pieces, id, &CapturePiece::id);
  return found == document.pieces.end() ? nullptr : &*found;
}

}  // namespace

GestureState CanvasModel::Private::gestureStart() const {
  return {history.current(), selection, piece, {}, {}, {}, {}};
}

/// The handles of the one selected thing, or of the crop; none while typing.
std::vector<Handle> CanvasModel::Private::handles() const {
  if (typing) return {};
  const auto framed = cropped ? cropped : piece;
  if (framed) {
    const CapturePiece* found = findPiece(document(), *framed);
    // With a backdrop the picture lies elsewhere than while it is cropped, so its edges are no place to begin.
    if (found == nullptr || (!cropped && document().backdrop.enabled)) return {};
    return rectHandles(found->frame());
  }
  if (selection.size() != 1) return {};
  const AnnotationPtr selected = document().annotation(*selection.begin());
  if (selected == nullptr) return {};
  return handlesOf(*selected, outlines.of(selected));
}

std::optional<Handle> CanvasModel::Private::handleUnder(const PointerEvent& event) const {
  std::optional<Rect> body;
  if (selection.size() == 1 && !cropped) {
    if (const AnnotationPtr selected = document().annotation(*selection.begin())) body = outlines.of(selected);
  }
  return handleAt(handles(), body, event);
}

std::optional<AnnotationId> CanvasModel::Private::annotationUnder(const PointerEvent& event) const {
  return annotationAt(document(), outlines, event.position, hitTolerance * event.pointsPerScreenPoint, selection);
}

std::unique_ptr<Gesture> CanvasModel::Private::cropGesture(const PointerEvent& event) {
  const CapturePiece* found = findPiece(document(), *cropped);
  const auto handle = handleAt(handles(), std::nullopt, event);
  if (found != nullptr && (handle || contains(found->frame(), event.position))) {
    return std::make_unique<CropGesture>(gestureStart(), *cropped, handle, event);
  }
  cropped.reset();
  return nullptr;
}

std::unique_ptr<Gesture> CanvasModel::Private::handleGesture(const Handle& handle, const PointerEvent& event) {
  if (piece) {
    cropped = piece;
    return std::make_unique<CropGesture>(gestureStart(), *piece, handle, event);
  }
  return std::make_unique<HandleGesture>(gestureStart(), document().annotation(*selection.begin()), handle, event,
                                         outlines);
}

std::unique_ptr<Gesture> CanvasModel::Private::drawingGesture(const PointerEvent& event) {
  if (const auto under = hoveredAt(event)) {
    if (tool == Tool::Counter) {
      setSelection({*under});
      return std::make_unique<MoveGesture>(gestureStart(), event, outlines, selection);
    }
    beginTyping(*document().annotation(*under));
    pressWhileTyping(event);
    return nullptr;
  }
  Annotation drawn = newAnnotation(*drawnKind(tool));
  switch (tool) {
    case Tool::Pen:
      return std::make_unique<PenGesture>(gestureStart(), std::move(drawn), event);
    case Tool::Counter:
      return std::make_unique<CounterGesture>(gestureStart(), std::move(drawn), event);
    case Tool::Text:
      return std::make_unique<TextGesture>(gestureStart(), std::move(drawn), event, services.text);
    default:
      return std::make_unique<ShapeGesture>(gestureStart(), std::move(drawn), event);
  }
}

std::unique_ptr<Gesture> CanvasModel::Private::selectingGesture(const PointerEvent& event) {
  if (const auto under = annotationUnder(event)) {
    // A drag takes what is selected, a click what is on top of it.
    const auto top = annotationAt(document(), outlines, event.position, hitTolerance * event.pointsPerScreenPoint);
    std::set<AnnotationId> clicked{*top};
    if (event.modifiers.shift) {
      clicked = selection;
      if (!clicked.insert(*top).second) clicked.erase(*top);
    }
    if (!selection.contains(*under)) setSelection(event.modifiers.shift ? clicked : std::set{*under});
    return std::make_unique<MoveGesture>(gestureStart(), event, outlines, std::move(clicked));
  }
  const auto pieceUnder = pieceAt(document(), event.position);
  if (pieceUnder && document().pieces.size() > 1 && !event.modifiers.shift) {
    return std::make_unique<PieceGesture>(gestureStart(), *pieceUnder, event, outlines);
  }
  const bool endsSelection = !selection.empty() || piece;
  return std::make_unique<MarqueeGesture>(gestureStart(), event, outlines, endsSelection ? std::nullopt : pieceUnder);
}

std::unique_ptr<Gesture> CanvasModel::Private::gestureFor(const PointerEvent& event) {
  if (cropped) return cropGesture(event);
  const auto handle = tool == Tool::Pen ? std::nullopt : handleUnder(event);
  if (handle) return handleGesture(*handle, event);
  return tool == Tool::Select ? selectingGesture(event) : drawingGesture(event);
}

/// True when the press was meant for the text.
bool CanvasModel::Private::pressWhileTyping(const PointerEvent& event) {
  const AnnotationPtr text = document().annotation(typing->annotation().id);
  if (text == nullptr) return false;
  const double reach = hitTolerance / 2 * event.pointsPerScreenPoint;
  if (!contains(grown(outlines.of(text), reach), event.position)) return false;
  if (event.clicks >= 3) {
    typing->selectAll();
    return true;
  }
  typing->placeCursor(event.position, event.modifiers.shift);
  selectingText = true;
  return true;
}

void CanvasModel::Private::press(const PointerEvent& event) {
  endGesture();
  history.endCoalescing();
  hovered.reset();
  if (typing) {
    if (pressWhileTyping(event)) return;
    endTyping();
  }
  pressed = event;
  dragging = false;
  gesture = gestureFor(event);
  if (gesture && gesture->startsOnPress()) {
    dragging = true;
    take(gesture->state());
  }
}

/// Shows what the gesture has come to.
void CanvasModel::Private::take(const GestureState& state) {
  show(state.document);
  selection = state.selection;
  piece = state.piece;
}

void CanvasModel::Private::finishGesture(const PointerEvent& event) {
  if (!dragging) gesture->click(event);
  const auto finished = std::exchange(gesture, nullptr);
  dragging = false;
  const GestureState& state = finished->state();
  commit(state.document);
  history.endCoalescing();
  setSelection(state.selection, state.piece);
  if (state.typing) {
    beginTyping(*state.typing);
  } else if (state.drawn && document().indexOf(*state.drawn)) {
    afterDrawing();
  }
}

/// Forgets the gesture: everything is as it was when the pointer was pressed.
void CanvasModel::Private::dropGesture() {
  if (!gesture) return;
  const auto dropped = std::exchange(gesture, nullptr);
  dragging = false;
  showHistory();
  setSelection(dropped->start().selection, dropped->start().piece);
}

/// Ends what the pointer does before it is let go: what was dragged stays, a press alone comes to nothing.
void CanvasModel::Private::endGesture() {
  selectingText = false;
  if (gesture && dragging) {
    finishGesture(*pressed);
  } else {
    dropGesture();
  }
}

void CanvasModel::Private::afterDrawing() {
  const bool stays = locked || tool == Tool::Pen || tool == Tool::Counter;
  if (!stays) tool = Tool::Select;
}

/// What a press would select or edit.
std::optional<AnnotationId> CanvasModel::Private::hoveredAt(const PointerEvent& event) const {
  const bool takes = tool == Tool::Select || tool == Tool::Text || tool == Tool::Counter;
  if (!takes || typing || cropped) return std::nullopt;
  const auto under = annotationUnder(event);
  const bool takesAny = tool == Tool::Select;
  if (!under || takesAny || document().annotation(*under)->kind == drawnKind(tool)) return under;
  return std::nullopt;
}

PointerHint CanvasModel::Private::hintForTool(const PointerEvent& event) const {
  const bool takes = hoveredAt(event).has_value();
  if (tool == Tool::Text) return takes ? PointerHint::EditText : PointerHint::TypeText;
  return takes ? PointerHint::Move : PointerHint::Draw;
}

void CanvasModel::press(const PointerEvent& event) {
  if (!isUsable(event)) return;
  const Private::Call call(*d_);
  d_->press(event);
}

void CanvasModel::move(const PointerEvent& event) {
  if (!isUsable(event)) return;
  const Private::Call call(*d_);
  if (d_->selectingText && d_->typing) {
    d_->typing->placeCursor(event.position, true);
    return;
  }
  if (!d_->gesture) {
    d_->hovered = d_->hoveredAt(event);
    return;
  }
  const double threshold = dragThreshold * event.pointsPerScreenPoint;
  if (!d_->dragging && distance(event.position, d_->pressed->position) < threshold) return;
  d_->dragging = true;
  d_->gesture->drag(event);
  d_->take(d_->gesture->state());
}

void CanvasModel::release(const PointerEvent& event) {
  const Private::Call call(*d_);
  d_->selectingText = false;
  if (!d_->gesture) return;
  if (isUsable(event)) move(event);
  d_->finishGesture(event);
}

void CanvasModel::doubleClick(const PointerEvent& event) {
  if (!isUsable(event)) return;
  const Private::Call call(*d_);
  if (d_->typing && d_->pressWhileTyping(event)) {
    d_->selectingText = false;
    d_->typing->selectWordAt(event.position);
    return;
  }
  d_->settle();
  if (d_->cropped) {
    d_->cropped.reset();
    return;
  }
  const auto handle = d_->handleUnder(event);
  if (handle && handle->role == Handle::Role::TextWidth) {
    // Back to as wide as the text.
    Annotation text = *document().annotation(*d_->selection.begin());
    text.textBoxWidth = 0;
    ImageDocument next = document();
    place(next, text);
    d_->commit(std::move(next));
    return;
  }
  if (const auto under = d_->annotationUnder(event)) {
    editText(*under);
    if (d_->typing) d_->typing->placeCursor(event.position, false);
  } else if (const auto pieceUnder = pieceAt(document(), event.position)) {
    beginCrop(pieceUnder);
  }
}

PointerHint CanvasModel::hintAt(const PointerEvent& event) const {
  if (!isUsable(event)) return PointerHint::Select;
  if (d_->typing) {
    const auto outline = outlineOf(d_->typing->annotation().id);
    if (outline && contains(*outline, event.position)) return PointerHint::EditText;
  }
  const auto handle = d_->tool == Tool::Pen && !d_->cropped ? std::nullopt : d_->handleUnder(event);
  if (handle) return hintOf(handle->role);
  if (d_->cropped) {
    const CapturePiece* found = findPiece(document(), *d_->cropped);
    return found != nullptr && contains(found->frame(), event.position) ? PointerHint::Move : PointerHint::Select;
  }
  if (d_->tool != Tool::Select) return d_->hintForTool(event);
  if (d_->annotationUnder(event)) return PointerHint::Move;
  const bool movesPiece = document().pieces.size() > 1 && pieceAt(document(), event.position);
  return movesPiece ? PointerHint::Move : PointerHint::Select;
}

void CanvasModel::cancelGesture() {
  const Private::Call call(*d_);
  d_->selectingText = false;
  d_->dropGesture();
}

}  // namespace vellora
