#include "editor/OpenDocument.h"

#include "editor/RecoveryFolder.h"
#include "editor/SessionStore.h"

namespace vellora {
namespace {

/// From a change to its writing; changes meanwhile are written with it.
constexpr double saveAfterSeconds = 0.5;

}  // namespace

OpenDocument::OpenDocument(SessionStore& store, std::shared_ptr<RecoveryFolder> folder, Date capturedAt)
    : store_(store), folder_(std::move(folder)), capturedAt_(capturedAt) {}

OpenDocument::~OpenDocument() {
  if (folder_) save();
}

void OpenDocument::update(const ImageDocument& document) {
  if (!folder_) return;
  const bool isWaiting = unsaved_.has_value();
  unsaved_ = document;
  if (!isWaiting) saving_ = store_.runLoop_.after(saveAfterSeconds, [this] { save(); });
}

void OpenDocument::save() {
  if (!unsaved_) return;
  store_.ioQueue_.async([folder = folder_, document = std::move(*unsaved_), capturedAt = capturedAt_,
                         now = store_.runLoop_.now()] { folder->save(document, capturedAt, now); });
  unsaved_.reset();
}

void OpenDocument::close(const ImageDocument& document) {
  if (!folder_) return;
  saving_.reset();
  unsaved_.reset();
  store_.record(document, capturedAt_, std::exchange(folder_, nullptr));
}

}  // namespace vellora
