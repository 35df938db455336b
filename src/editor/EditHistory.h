#pragma once

#include <string>
#include <vector>

#include "editor/ImageDocument.h"

namespace vellora {

/// Undo and redo of a document, without limit. Each step is the whole document before it, which shares everything the
/// step did not touch. Main thread.
class EditHistory {
 public:
  explicit EditHistory(ImageDocument document) : current_(std::move(document)) {}

  const ImageDocument& current() const { return current_; }

  /// Makes `next` the document as one undoable step; a document like the current one makes none. Steps that follow each
  /// other with the same non-empty `coalescingKey` ("lineWidth 17", one per slider, drag or run of typing) become one,
  /// or none when they end where they began; endCoalescing() or any other step ends the run.
  void apply(ImageDocument next, std::string coalescingKey = {});
  void endCoalescing() { openKey_.clear(); }

  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  /// False when there is nothing to take back (to do again).
  bool undo();
  bool redo();

  /// Tells two states of one history apart: the same number, the same document.
  std::uint64_t revision() const { return revision_; }

 private:
  struct Step {
    ImageDocument document;
    std::uint64_t revision;
  };
  ImageDocument current_;
  std::vector<Step> undo_;
  std::vector<Step> redo_;
  std::string openKey_;      // of the run under way
  bool runHasStep_ = false;  // the run's step is the last one; else it ended where it began, so far
  std::uint64_t revision_ = 0;
  std::uint64_t lastRevision_ = 0;
};

}  // namespace vellora
