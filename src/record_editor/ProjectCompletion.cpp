#include "record_editor/ProjectCompletion.h"

#include <QFile>

#include "base/Log.h"
#include "record_editor/AgentGuideFile.h"
#include "record_editor/BundleFiles.h"

namespace vellora {

void projectCompletion::complete(const RecordProjectBundle& bundle) {
  if (const auto written = AgentGuideFile::ensure(bundle.path()); !written) {
    log::error(QStringLiteral("guide not written: ") + written.error().description());
  }
  if (QFile::exists(bundle.file(bundleFiles::project))) return;
  RecordProjectState state;
  state.name = bundle.directoryName();
  if (const auto saved = bundle.save(state); !saved) {
    log::error(QStringLiteral("project save failed: ") + saved.error().description());
  }
}

}  // namespace vellora
