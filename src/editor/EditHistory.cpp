#include "editor/EditHistory.h"

namespace vellora {

void EditHistory::apply(ImageDocument next, std::string coalescingKey) {
  const bool continues = !coalescingKey.empty() && coalescingKey == openKey_;
  if (!continues) undo_.push_back({std::move(current_), revision_});
  openKey_ = std::move(coalescingKey);
  current_ = std::move(next);
  revision_ = ++lastRevision_;
  redo_.clear();
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
