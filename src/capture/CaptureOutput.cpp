#include "capture/CaptureOutput.h"

#include "base/AtomicFile.h"
#include "base/Log.h"

namespace vellora {

/// What the queue hands back to the main thread.
struct CaptureOutput::Written {
  QByteArray png;  // empty when the picture could not be encoded
  std::optional<QString> clipboardFile;
  CaptureOutcome outcome;
};

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
  auto finish = lifetime_.guard([this, request, done = std::move(done)](Written written) {
    if (request.copy && !written.png.isEmpty()) written.outcome.copied = copyToPasteboard(request, written);
    done(written.outcome);
  });
  queue_.async([this, request = std::move(request), finish = std::move(finish)]() mutable {
    Written written;
    written.outcome.copyRequested = request.copy;
    written.outcome.saveRequested = request.save;
    written.outcome.saveFolder = request.saveFolder;
    written.outcome.outputFile = request.outputFile;
    const auto encoded = request.png->bytes();
    if (!encoded) {
      log::error(QStringLiteral("capture output failed: the picture cannot be encoded"));
    } else {
      if (!request.outputFile.isEmpty()) {
        const auto file = AtomicFile::write(request.outputFile, *encoded);
        written.outcome.outputWritten = file.has_value();
        if (!file) log::error(QStringLiteral("capture output failed: %1").arg(file.error().description()));
      }
      if (request.save) {
        const auto path =
            AtomicFile::writeNew(request.saveFolder, captureFileStem(request.capturedAt, request.namePrecision),
                                 QStringLiteral("png"), *encoded);
        if (path) {
          written.outcome.saved = true;
          written.outcome.savedPath = *path;
        } else {
          log::error(QStringLiteral("automatic save failed: %1").arg(path.error().description()));
        }
      }
      if (request.copy) {
        written.png =
            QByteArray(reinterpret_cast<const char*>(encoded->data()), static_cast<qsizetype>(encoded->size()));
        if (request.clipboardMode != ClipboardMode::ImageOnly) {
          written.clipboardFile = clipboardFiles_.write(written.png, request.capturedAt);
        }
      }
    }
    request = {};
    runLoop_.post([finish = std::move(finish), written = std::move(written)]() mutable { finish(std::move(written)); });
  });
}

bool CaptureOutput::copyToPasteboard(const CaptureOutputRequest& request, const Written& written) {
  PasteboardContent content;
  if (written.clipboardFile) content.filePath = *written.clipboardFile;
  // Without its file, a copy that wants only a file still carries the picture: pasting something beats pasting nothing.
  if (request.clipboardMode != ClipboardMode::FileOnly || content.filePath.isEmpty()) {
    content.png = written.png;
  }
  return pasteboard_.write(std::move(content));
}

}  // namespace vellora
