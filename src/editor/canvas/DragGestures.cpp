#include "editor/canvas/DragGestures.h"

#include <algorithm>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/Arrangement.h"
#include "editor/canvas/Cropping.h"
#include "editor/canvas/HitTesting.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

CapturePiece* findPiece(ImageDocument& document, std::uint64_t id) {
  const auto found = std::ranges::find(document.pieces, id, &CapturePiece::id);
  return found == document.pieces.end() ? nullptr : &*found;
}

/// The lesser of the two components becomes none.
Point alongOneAxis(Point by) {
  return std::abs(by.x) >= std::abs(by.y) ? Point{by.x, 0} : Point{0, by.y};
}

/// A snap only where the movement is free to follow it.
Snapper::Snap allowed(Snapper::Snap snap, Point by, bool oneAxis) {
  if (!oneAxis) return snap;
  const bool isLevel = by.y == 0;
  if (isLevel) snap.shift.y = 0;
  if (!isLevel) snap.shift.x = 0;
  std::erase_if(snap.guides, [isLevel](const Guide& guide) { return (guide.from.x == guide.to.x) != isLevel; });
  return snap;
}

}  // namespace

ImageDocument withPieceMoved(const ImageDocument& document, std::uint64_t piece, Point by,
                             const std::set<AnnotationId>& riding) {
  ImageDocument result = document;
  if (CapturePiece* found = findPiece(result, piece)) found->origin = sum(found->origin, by);
  for (AnnotationPtr& annotation : result.annotations) {
    if (riding.contains(annotation->id)) annotation = makeAnnotation(moved(*annotation, by));
  }
  return result;
}

MoveGesture::MoveGesture(GestureState start, const PointerEvent& press, AnnotationOutlines& outlines,
                         std::set<AnnotationId> clicked)
    : Gesture(std::move(start)),
      from_(press.position),
      moving_(annotationsOf(start_.document, start_.selection)),
      bounds_(unitedOutline(moving_, outlines)),
      snapper_(start_.document, outlines, start_.selection),
      clicked_(std::move(clicked)) {
  for (std::size_t i = 0; i < moving_.size(); ++i) copyIds_.push_back(newAnnotationId());
}

void MoveGesture::drag(const PointerEvent& event) {
  state_ = start_;
  Point by = difference(event.position, from_);
  if (!isFinite(by)) return;
  if (event.modifiers.shift) by = alongOneAxis(by);
  if (!event.modifiers.control) {
    const Rect there{sum(bounds_.origin, by), bounds_.size};
    const auto snap =
        allowed(snapper_.moving(there, snapReach * event.pointsPerScreenPoint), by, event.modifiers.shift);
    by = sum(by, snap.shift);
    state_.guides = snap.guides;
  }
  if (event.modifiers.alt) {
    const auto copies = copiesOf(state_.document, moving_, by, copyIds_);
    state_.selection = {copyIds_.begin(), copyIds_.end()};
    state_.document.annotations.insert(state_.document.annotations.end(), copies.begin(), copies.end());
    return;
  }
  const LensSource source = moving_.size() == 1 ? LensSource::Stays : LensSource::Moves;
  for (AnnotationPtr& annotation : state_.document.annotations) {
    if (start_.selection.contains(annotation->id)) annotation = makeAnnotation(moved(*annotation, by, source));
  }
}

void MoveGesture::click(const PointerEvent&) {
  state_.selection = clicked_;
}

PieceGesture::PieceGesture(GestureState start, std::uint64_t piece, const PointerEvent& press,
                           AnnotationOutlines& outlines)
    : Gesture(std::move(start)),
      from_(press.position),
      piece_(piece),
      riding_(annotationsOn(start_.document, outlines, piece)),
      snapper_(start_.document, outlines, riding_, piece) {}

void PieceGesture::drag(const PointerEvent& event) {
  const CapturePiece* piece = findPiece(start_.document, piece_);
  state_ = start_;
  state_.selection.clear();
  state_.piece = piece_;
  Point by = difference(event.position, from_);
  if (piece == nullptr || !isFinite(by)) return;
  if (event.modifiers.shift) by = alongOneAxis(by);
  if (!event.modifiers.control) {
    const Rect there{sum(piece->origin, by), piece->pointSize};
    const auto snap =
        allowed(snapper_.moving(there, snapReach * event.pointsPerScreenPoint), by, event.modifiers.shift);
    by = sum(by, snap.shift);
    state_.guides = snap.guides;
  }
  const double scale = start_.document.outputScale();
  by = difference(onWholePixels(sum(piece->origin, by), scale), piece->origin);
  state_.document =
      withPieceMoved(start_.document, piece_, by, event.modifiers.alt ? std::set<AnnotationId>{} : riding_);
}

void PieceGesture::click(const PointerEvent&) {
  state_.selection.clear();
  state_.piece = start_.selection.empty() ? std::optional(piece_) : std::nullopt;
}

HandleGesture::HandleGesture(GestureState start, AnnotationPtr annotation, const Handle& handle,
                             const PointerEvent& press, AnnotationOutlines& outlines)
    : Gesture(std::move(start)),
      annotation_(std::move(annotation)),
      outline_(outlines.of(annotation_)),
      handle_(handle),
      offset_(difference(handle.position, press.position)),
      snapper_(start_.document, outlines, {annotation_->id}) {}

void HandleGesture::drag(const PointerEvent& event) {
  state_ = start_;
  Point to = sum(event.position, offset_);
  if (!isFinite(to)) return;
  const bool isEnd = handle_.role == Handle::Role::Start || handle_.role == Handle::Role::End;
  const MovedEdges edges = isEnd ? MovedEdges{1, 1} : movedEdges(handle_.role);
  if (!event.modifiers.control && !event.modifiers.shift) {
    const auto snap = snapper_.resizing(to, edges, snapReach * event.pointsPerScreenPoint);
    to = sum(to, snap.shift);
    state_.guides = snap.guides;
  }
  place(state_.document,
        withHandleAt(*annotation_, outline_, handle_.role, to, event.modifiers, event.pointsPerScreenPoint));
}

MarqueeGesture::MarqueeGesture(GestureState start, const PointerEvent& press, AnnotationOutlines& outlines,
                               std::optional<std::uint64_t> clickedPiece)
    : Gesture(std::move(start)),
      from_(press.position),
      adds_(press.modifiers.shift),
      outlines_(outlines),
      clickedPiece_(clickedPiece) {}

void MarqueeGesture::drag(const PointerEvent& event) {
  const Rect marquee = rectBetween(from_, event.position);
  state_.marquee = marquee;
  state_.piece.reset();
  state_.selection = adds_ ? start_.selection : std::set<AnnotationId>{};
  for (const AnnotationPtr& annotation : start_.document.annotations) {
    if (touches(*annotation, outlines_.of(annotation), marquee)) state_.selection.insert(annotation->id);
  }
}

void MarqueeGesture::click(const PointerEvent&) {
  if (adds_) return;
  state_.selection.clear();
  state_.piece = clickedPiece_;
}

CropGesture::CropGesture(GestureState start, std::uint64_t piece, std::optional<Handle> handle,
                         const PointerEvent& press)
    : Gesture(std::move(start)), piece_(piece), handle_(handle), from_(press.position) {}

void CropGesture::drag(const PointerEvent& event) {
  state_ = start_;
  CapturePiece* piece = findPiece(state_.document, piece_);
  if (piece == nullptr) return;
  const Point by = difference(event.position, from_);
  *piece = handle_ ? cropped(*piece, handle_->role, sum(handle_->position, by)) : cropShifted(*piece, by);
}

}  // namespace vellora
