#pragma once

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"
#include "recording/ScreenRecorder.h"

namespace vellora::recordingReport {

/// Writes "report.json" into a bundle: what became of the recording's frames and sound. An object with "frames":
/// {"captured", "written", "dropped" by the stream because the receiver was busy, "late" moments of the frame clock,
/// "notReady" because the encoder was}, "duration" in seconds, the video's "encoder", "lostSamples" of sound that it
/// could not take, and for each sound track in "sounds" its "source" ("microphone" or "systemSound"), whether it was
/// "lost" before the end, and what AudioTimelineReport holds.
Result<void, FileError> save(const ScreenRecorderReport& report, const QString& bundle);

}  // namespace vellora::recordingReport
