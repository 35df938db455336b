#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QStringList>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "capture/ClipboardFiles.h"
#include "editor/CapturePiece.h"
#include "media/SharedPng.h"
#include "platform/Pasteboard.h"
#include "preferences/AfterCaptureActions.h"
#include "preferences/ClipboardMode.h"

namespace vellora {

/// What is to be done with a finished capture's picture.
struct CaptureOutputRequest {
  std::shared_ptr<SharedPng> png;
  Date capturedAt;
  bool copy = false;
  bool save = false;
  QString saveFolder;
  NamePrecision namePrecision = NamePrecision::Milliseconds;  ///< of the saved file's name
  QString outputFile;                                         ///< absolute; written, or replaced, when not empty
  ClipboardMode clipboardMode = ClipboardMode::FileAndImage;
};

/// What became of it.
struct CaptureOutcome {
  bool copyRequested = false;
  bool copied = false;
  bool saveRequested = false;
  bool saved = false;
  QString saveFolder;
  QString savedPath;   ///< empty when nothing was saved
  QString outputFile;  ///< empty when none was asked for
  bool outputWritten = false;
  /// Whether a copy or save that was asked for is missing.
  bool hasFailure() const { return copied != copyRequested || saved != saveRequested; }
  /// The files that exist now because of the capture.
  QStringList writtenFiles() const {
    QStringList files;
    if (outputWritten) files << outputFile;
    if (saved) files << savedPath;
    return files;
  }
  friend bool operator==(const CaptureOutcome&, const CaptureOutcome&) = default;
};

/// One sentence for a person: a localisation key and what fills its places.
struct LocalizedMessage {
  const char* key = "";
  QStringList arguments;
};

/// The sentences that report an outcome, in order; shown joined by " — " in one toast.
std::vector<LocalizedMessage> outcomeMessages(const CaptureOutcome& outcome);
/// The toast's symbol.
const char* outcomeIcon(const CaptureOutcome& outcome);

/// Encodes, saves and copies captures, in the order they were taken, on the queue "dev.orlo.vellora.capture-output".
/// Main thread.
class CaptureOutput {
 public:
  CaptureOutput(RunLoop& runLoop, Pasteboard& pasteboard, ClipboardFiles& clipboardFiles);

  /// Does what `request` asks and reports on the main thread.
  void run(CaptureOutputRequest request, std::function<void(const CaptureOutcome&)> done);

  /// Waits until the work asked for so far is written.
  void waitForPendingWrites() { queue_.drain(); }

 private:
  CaptureOutcome write(const CaptureOutputRequest& request);
  bool copy(const CaptureOutputRequest& request, std::span<const std::byte> png);

  RunLoop& runLoop_;
  Pasteboard& pasteboard_;
  ClipboardFiles& clipboardFiles_;
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.capture-output"};
};

}  // namespace vellora
