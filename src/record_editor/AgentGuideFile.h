#pragma once

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// "AGENTS.md" of a bundle: how another program, or a person with a text editor, edits the project through its files.
class AgentGuideFile {
 public:
  /// Writes the guide unless the file is there, so that an edited one is kept.
  static Result<void, FileError> ensure(const QString& bundleURL);
};

}  // namespace vellora
