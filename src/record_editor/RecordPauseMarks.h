#pragma once

#include <vector>

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// "pauses.json" of a bundle: the source seconds at which the person paused, as an array of numbers. Any thread.
class RecordPauseMarks {
 public:
  static Result<void, FileError> save(const std::vector<double>& marks, const QString& bundle);
  /// In ascending order; what is no finite number from 0 on is skipped, and a file that cannot be read gives none.
  static std::vector<double> load(const QString& bundle);
};

}  // namespace vellora
