#pragma once

#include <limits>
#include <optional>
#include <vector>

#include <QString>
#include <QStringList>

#include "base/AtomicFile.h"
#include "base/Result.h"

namespace vellora {

/// One key combination of a recording, with the time it is shown, in source seconds.
struct RecordedKeyCue {
  /// The end of a cue whose keys are still held.
  static constexpr double open = std::numeric_limits<double>::max();

  double start = 0;
  double end = open;
  QStringList keys;  ///< labels in the order they are shown: modifiers first

  /// The cue to show at `time`: of those that contain it the last one, so that a new combination wins over one that
  /// lingers; nullptr when there is none.
  static const RecordedKeyCue* visible(const std::vector<RecordedKeyCue>& cues, double time);

  /// "keyboard.json" of a bundle: an array of objects with "start", "end" and "keys". Any thread.
  static Result<void, FileError> save(const std::vector<RecordedKeyCue>& cues, const QString& bundle);
  /// In the order of their starts; cues that cannot be read are skipped.
  static std::vector<RecordedKeyCue> load(const QString& bundle);

  friend bool operator==(const RecordedKeyCue&, const RecordedKeyCue&) = default;
};

}  // namespace vellora
