#pragma once

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"
#include "recording/ScreenRecorder.h"

namespace vellora::recordingReport {

/// Writes "report.json" into a bundle: what became of the recording's frames and sound. An object with "frames":
/// {"captured", "written", "dropped" by the stream because the receiver was busy, "late" moments of the frame clock,
/// "notReady" because the encoder was} and "duration" in seconds.
Result<void, FileError> save(const ScreenRecorderReport& report, const QString& bundle);

}  // namespace vellora::recordingReport
