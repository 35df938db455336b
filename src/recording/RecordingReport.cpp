#include "recording/RecordingReport.h"

#include "base/Json.h"
#include "record_editor/BundleFiles.h"

namespace vellora::recordingReport {

Result<void, FileError> save(const ScreenRecorderReport& report, const QString& bundle) {
  const Json document{{"duration", report.duration},
                      {"frames",
                       {{"captured", report.stream.captured},
                        {"written", report.written},
                        {"dropped", report.stream.dropped},
                        {"late", report.stream.late},
                        {"notReady", report.notReady}}}};
  return AtomicFile::write(bundle + u'/' + bundleFiles::report, json::serialize(document));
}

}  // namespace vellora::recordingReport
