#include "editor/OpenDocument.h"

#include "editor/RecoveryFolder.h"
#include "editor/SessionStore.h"

namespace vellora {
namespace {

/// From a change to its writing; changes meanwhile are written with it.
constexpr double saveAfterSeconds = 0.5;
/// To another try when a state could not be written and no change comes.
constexpr double retryAfterSeconds = 30;

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
  // While one state is being written the next ones replace each other: a slow disk never has more than one to write.
  if (!isWaiting && !isSaving_) saveSoon();
}

void OpenDocument::saveSoon() {
  nextSave_ = store_.runLoop_.after(saveAfterSeconds, [this] { save(); });
}

void OpenDocument::save() {
  nextSave_.reset();
  if (!unsaved_) return;
  isSaving_ = true;
  store_.ioQueue_.async([&runLoop = store_.runLoop_, folder = folder_, document = std::move(*unsaved_),
                         capturedAt = capturedAt_, now = store_.runLoop_.now(),
                         report = lifetime_.guard(
                             [this](bool success, const ImageDocument& state) { saved(success, state); })]() mutable {
    const bool success = folder->save(document, capturedAt, now);
    folder.reset();
    runLoop.post(
        [report = std::move(report), success, document = std::move(document)]() mutable { report(success, document); });
  });
  unsaved_.reset();
}

void OpenDocument::saved(bool success, const ImageDocument& document) {
  isSaving_ = false;
  if (!folder_) return;
  if (unsaved_) {
    saveSoon();
  } else if (!success) {
    nextSave_ = store_.runLoop_.after(retryAfterSeconds, [this, document] {
      unsaved_ = document;
      save();
    });
  }
}

void OpenDocument::close(const ImageDocument& document) {
  if (!folder_) return;
  nextSave_.reset();
  unsaved_.reset();
  store_.record(document, capturedAt_, std::exchange(folder_, nullptr));
}

}  // namespace vellora
