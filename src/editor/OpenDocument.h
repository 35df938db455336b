#pragma once

#include <memory>
#include <optional>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "editor/ImageDocument.h"

namespace vellora {

class RecoveryFolder;
class SessionStore;

/// A document that a window has open. Its latest state is on disk within a second, where the next start finds it should
/// the program be killed. Made by the session store, which outlives it; its end without a close leaves the document to
/// the next start. Main thread.
class OpenDocument {
 public:
  ~OpenDocument();
  OpenDocument(const OpenDocument&) = delete;
  OpenDocument& operator=(const OpenDocument&) = delete;

  /// Keeps a later state of the document, soon.
  void update(const ImageDocument& document);

  /// Ends it: `document` becomes the newest entry of the history, at once in the list, on disk a little later. One
  /// without pieces becomes nothing.
  void close(const ImageDocument& document);

 private:
  friend class SessionStore;
  OpenDocument(SessionStore& store, std::shared_ptr<RecoveryFolder> folder, Date capturedAt);
  void saveSoon();
  void save();
  void saved(bool success, const ImageDocument& document);

  SessionStore& store_;
  std::shared_ptr<RecoveryFolder> folder_;  // used on the store's queue; null once closed
  const Date capturedAt_;
  std::optional<ImageDocument> unsaved_;
  TimerHandle nextSave_;
  bool isSaving_ = false;
  Lifetime lifetime_;
};

}  // namespace vellora
