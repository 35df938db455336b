#include "editor/EditHistory.h"

#include <algorithm>

namespace vellora {
namespace {

bool isSamePiece(const CapturePiece& a, const CapturePiece& b) {
  return a.id == b.id && a.scale == b.scale && a.origin == b.origin && a.pointSize == b.pointSize &&
         a.sourceSize == b.sourceSize && a.visibleRect == b.visibleRect;
}

bool isSameAnnotation(const AnnotationPtr& a, const AnnotationPtr& b) {
  return a == b || *a == *b;
}

bool isSame(const ImageDocument& a, const ImageDocument& b) {
  return std::ranges::equal(a.pieces, b.pieces, isSamePiece) &&
         std::ranges::equal(a.annotations, b.annotations, isSameAnnotation) && a.backdrop == b.backdrop;
}

}  // namespace

void EditHistory::apply(ImageDocument next, std::string coalescingKey) {
  const bool continues = !coalescingKey.empty() && coalescingKey == openKey_;
  if (isSame(current_, next)) return;
  openKey_ = std::move(coalescingKey);
  redo_.clear();
  if (continues && runHasStep_) {
    if (isSame(undo_.back().document, next)) {
      current_ = std::move(undo_.back().document);
      revision_ = undo_.back().revision;
      undo_.pop_back();
      runHasStep_ = false;
      return;
    }
  } else {
    undo_.push_back({std::move(current_), revision_});
  }
  runHasStep_ = true;
  current_ = std::move(next);
  revision_ = ++lastRevision_;
}

bool EditHistory::undo() {
  if (undo_.empty()) return false;
  redo_.push_back({std::move(current_), revision_});
  current_ = std::move(undo_.back().document);
  revision_ = undo_.back().revision;
  undo_.pop_back();
  openKey_.clear();
  return true;
}

bool EditHistory::redo() {
  if (redo_.empty()) return false;
  undo_.push_back({std::move(current_), revision_});
  current_ = std::move(redo_.back().document);
  revision_ = redo_.back().revision;
  redo_.pop_back();
  openKey_.clear();
  return true;
}

}  // namespace vellora
