#include <algorithm>

#include "editor/SessionDocument.h"
#include "editor/canvas/AnnotationClip.h"
#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/CanvasModelPrivate.h"
#include "editor/canvas/Cropping.h"
#include "editor/canvas/DragGestures.h"
#include "editor/canvas/HitTesting.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

std::vector<AnnotationId> newIds(std::size_t count) {
  std::vector<AnnotationId> ids(count);
  std::ranges::generate(ids, newAnnotationId);
  return ids;
}

}  // namespace

void CanvasModel::Private::changeSelected(const std::function<ImageDocument(const ImageDocument&)>& change,
                                          const std::string& coalescingKey) {
  settle();
  if (!selection.empty()) commit(change(document()), coalescingKey);
}

/// Puts copies of annotations on top of all and selects them.
void CanvasModel::Private::addCopies(const std::vector<AnnotationPtr>& originals, Point by) {
  if (originals.empty()) return;
  const auto ids = newIds(originals.size());
  ImageDocument next = document();
  const auto copies = copiesOf(next, originals, by, ids);
  next.annotations.insert(next.annotations.end(), copies.begin(), copies.end());
  commit(std::move(next));
  setSelection({ids.begin(), ids.end()});
}

bool CanvasModel::canDelete() const {
  return !d_->selection.empty() || (d_->piece && document().pieces.size() > 1);
}

void CanvasModel::deleteSelection() {
  const Private::Call call(*d_);
  d_->settle();
  if (!canDelete()) return;
  ImageDocument next = document();
  std::set<AnnotationId> gone = d_->selection;
  if (d_->piece) {
    gone = annotationsOn(document(), d_->outlines, *d_->piece);
    std::erase_if(next.pieces, [this](const CapturePiece& piece) { return piece.id == d_->piece; });
  }
  std::erase_if(next.annotations, [&](const AnnotationPtr& annotation) { return gone.contains(annotation->id); });
  d_->commit(std::move(next));
  d_->setSelection({});
  d_->hovered.reset();
}

void CanvasModel::duplicateSelection() {
  const Private::Call call(*d_);
  d_->settle();
  d_->addCopies(annotationsOf(document(), d_->selection), {copyOffset, copyOffset});
}

void CanvasModel::nudge(double dx, double dy) {
  if (!isFinite(Point{dx, dy})) return;
  const Private::Call call(*d_);
  d_->settle();
  d_->nudge({dx, dy});
}

void CanvasModel::Private::nudge(Point by) {
  ImageDocument next = document();
  if (piece) {
    next = withPieceMoved(next, *piece, onWholePixels(by, next.outputScale()), annotationsOn(next, outlines, *piece));
  }
  const LensSource source = selection.size() == 1 ? LensSource::Stays : LensSource::Moves;
  for (AnnotationPtr& annotation : next.annotations) {
    if (selection.contains(annotation->id)) annotation = makeAnnotation(moved(*annotation, by, source));
  }
  commit(std::move(next), "nudge");
}

void CanvasModel::align(Alignment alignment) {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return aligned(now, d_->selection, alignment, d_->outlines); });
}

void CanvasModel::distribute(Distribution way) {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return distributed(now, d_->selection, way, d_->outlines); });
}

void CanvasModel::bringForward() {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return restacked(now, d_->selection, StackMove::Forward); });
}

void CanvasModel::sendBackward() {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return restacked(now, d_->selection, StackMove::Backward); });
}

void CanvasModel::bringToFront() {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return restacked(now, d_->selection, StackMove::ToFront); });
}

void CanvasModel::sendToBack() {
  const Private::Call call(*d_);
  d_->changeSelected([&](const ImageDocument& now) { return restacked(now, d_->selection, StackMove::ToBack); });
}

std::optional<CanvasClip> CanvasModel::copySelection() const {
  if (d_->typing || d_->selection.empty()) return std::nullopt;
  return CanvasClip{encodeClip(annotationsOf(document(), d_->selection))};
}

bool CanvasModel::paste(const CanvasClip& clip, std::optional<Point> place) {
  const auto pasted = decodeClip(clip.annotations);
  if (!pasted) return false;
  const Private::Call call(*d_);
  d_->settle();
  const bool isRepeated = clip.annotations == d_->pastedLast;
  d_->pasteCount = isRepeated ? d_->pasteCount + 1 : 0;
  d_->pastedLast = clip.annotations;

  const Rect bounds = unitedOutline(*pasted, d_->outlines);
  const Rect content = document().contentRect();
  Point by;
  if (place && isFinite(*place)) {
    by = difference(*place, center(bounds));
  } else if (!intersects(bounds, content)) {
    by = difference(center(content), center(bounds));
  } else if (coversLike(document(), *pasted)) {
    by = {copyOffset, copyOffset};
  }
  const double further = d_->pasteCount * copyOffset;
  d_->addCopies(*pasted, sum(by, {further, further}));
  return true;
}

// Pieces

void CanvasModel::addPiece(CapturePiece piece) {
  const Private::Call call(*d_);
  d_->settle();
  piece.origin = addedPieceOrigin(document());
  d_->insertPiece(std::move(piece));
}

void CanvasModel::addPiece(CapturePiece piece, Point center) {
  const Private::Call call(*d_);
  d_->settle();
  piece.origin = isFinite(center) ? difference(center, scaled({piece.pointSize.width, piece.pointSize.height}, 0.5))
                                  : addedPieceOrigin(document());
  d_->insertPiece(std::move(piece));
}

void CanvasModel::Private::insertPiece(CapturePiece added) {
  ImageDocument next = document();
  // More could be shown, but not read back from the history.
  if (next.pieces.size() >= sessionLimits::pieces) return;
  const std::uint64_t id = added.id;
  next.pieces.push_back(std::move(added));
  next.pieces.back().origin = onWholePixels(next.pieces.back().origin, next.outputScale());
  commit(std::move(next));
  tool = Tool::Select;
  locked = false;
  setSelection({}, id);
}

void CanvasModel::beginCrop(std::optional<std::uint64_t> piece) {
  const Private::Call call(*d_);
  d_->settle();
  if (!piece) piece = d_->piece;
  if (!piece && !document().pieces.empty()) piece = document().pieces.front().id;
  if (!piece || !d_->hasPiece(*piece)) return;
  d_->tool = Tool::Select;
  d_->locked = false;
  d_->hovered.reset();
  d_->setSelection({}, piece);
  d_->cropped = piece;
}

bool CanvasModel::isCropping() const {
  return d_->cropped.has_value();
}

std::optional<std::uint64_t> CanvasModel::croppedPiece() const {
  return d_->cropped;
}

void CanvasModel::resetCrop() {
  const Private::Call call(*d_);
  d_->settle();
  ImageDocument next = document();
  for (CapturePiece& piece : next.pieces) {
    if (!d_->piece || piece.id == d_->piece) piece = uncropped(piece);
  }
  d_->commit(std::move(next));
}

void CanvasModel::endCrop() {
  const Private::Call call(*d_);
  d_->settle();
  d_->cropped.reset();
}

}  // namespace vellora
