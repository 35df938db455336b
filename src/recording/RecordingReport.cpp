#include "recording/RecordingReport.h"

#include "base/Json.h"
#include "record_editor/BundleFiles.h"

namespace vellora::recordingReport {

Result<void, FileError> save(const ScreenRecorderReport& report, const QString& bundle) {
  Json sounds = Json::array();
  for (const auto& [isSystemSound, isLost, sound] : report.sounds) {
    sounds.push_back({{"source", isSystemSound ? "systemSound" : "microphone"},
                      {"lost", isLost},
                      {"seconds", sound.seconds},
                      {"gaps", sound.gaps},
                      {"gapSeconds", sound.gapSeconds},
                      {"overlaps", sound.overlaps},
                      {"overlapSeconds", sound.overlapSeconds},
                      {"driftPpm", sound.driftPpm}});
  }
  const Json document{{"duration", report.duration},
                      {"frames",
                       {{"captured", report.stream.captured},
                        {"written", report.written},
                        {"dropped", report.stream.dropped},
                        {"late", report.stream.late},
                        {"notReady", report.notReady}}},
                      {"encoder", report.encoder.toStdString()},
                      {"lostSamples", report.lostSamples},
                      {"sounds", sounds}};
  return AtomicFile::write(bundle + u'/' + bundleFiles::report, json::serialize(document));
}

}  // namespace vellora::recordingReport
