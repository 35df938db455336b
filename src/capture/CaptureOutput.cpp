#include "capture/CaptureOutput.h"

#include "base/AtomicFile.h"
#include "base/Log.h"

namespace vellora {

std::vector<LocalizedMessage> outcomeMessages(const CaptureOutcome& outcome) {
  std::vector<LocalizedMessage> messages;
  if (outcome.copied && outcome.saved) {
    messages.push_back({"toast.copiedAndSavedTo", {outcome.saveFolder}});
  } else if (outcome.copied) {
    messages.push_back({"toast.copied", {}});
  } else if (outcome.saved && !outcome.copyRequested) {
    messages.push_back({"toast.savedTo", {outcome.saveFolder}});
  }
  if (outcome.hasFailure()) messages.push_back({"toast.captureOutputFailed", {}});
  return messages;
}

const char* outcomeIcon(const CaptureOutcome& outcome) {
  return outcome.hasFailure() ? "exclamationmark.triangle.fill" : "checkmark.circle.fill";
}

CaptureOutput::CaptureOutput(RunLoop& runLoop, Pasteboard& pasteboard, ClipboardFiles& clipboardFiles)
    : runLoop_(runLoop), pasteboard_(pasteboard), clipboardFiles_(clipboardFiles) {}

void CaptureOutput::run(CaptureOutputRequest request, std::function<void(const CaptureOutcome&)> done) {
  queue_.async([this, request = std::move(request), done = lifetime_.guard(std::move(done))]() mutable {
    CaptureOutcome outcome = write(request);
    request = {};
    runLoop_.post([done = std::move(done), outcome = std::move(outcome)]() mutable { done(outcome); });
  });
}

CaptureOutcome CaptureOutput::write(const CaptureOutputRequest& request) {
  CaptureOutcome outcome;
  outcome.copyRequested = request.copy;
  outcome.saveRequested = request.save;
  outcome.saveFolder = request.saveFolder;
  outcome.outputFile = request.outputFile;
  const auto png = request.png->bytes();
  if (!png) {
    log::error(QStringLiteral("capture output failed: the picture cannot be encoded"));
    return outcome;
  }
  if (!request.outputFile.isEmpty()) {
    const auto file = AtomicFile::write(request.outputFile, *png);
    outcome.outputWritten = file.has_value();
    if (!file) log::error(QStringLiteral("capture output failed: %1").arg(file.error().description()));
  }
  if (request.save) {
    const auto path = AtomicFile::writeNew(
        request.saveFolder, captureFileStem(request.capturedAt, request.namePrecision), QStringLiteral("png"), *png);
    outcome.saved = path.has_value();
    if (path) {
      outcome.savedPath = *path;
    } else {
      log::error(QStringLiteral("automatic save failed: %1").arg(path.error().description()));
    }
  }
  if (request.copy) outcome.copied = copy(request, *png);
  return outcome;
}

bool CaptureOutput::copy(const CaptureOutputRequest& request, std::span<const std::byte> png) {
  const QByteArray bytes(reinterpret_cast<const char*>(png.data()), static_cast<qsizetype>(png.size()));
  PasteboardContent content;
  if (request.clipboardMode != ClipboardMode::ImageOnly) {
    content.filePath = clipboardFiles_.write(bytes, request.capturedAt).value_or(QString());
  }
  // Without its file, a copy that wants only a file still carries the picture: pasting something beats pasting nothing.
  if (request.clipboardMode != ClipboardMode::FileOnly || content.filePath.isEmpty()) content.png = bytes;
  return pasteboard_.write(std::move(content));
}

}  // namespace vellora
