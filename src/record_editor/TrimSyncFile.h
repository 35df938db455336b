#pragma once

#include <vector>

#include <QByteArray>
#include <QString>

#include "record_editor/TimelineElements.h"

namespace vellora {

/// "cuts.txt" of a bundle: the trims as text that people and other programs edit, one line each,
/// "HH:MM:SS,mmm --> HH:MM:SS,mmm" in source time, then white space and a note if there is one. Lines that begin with
/// "#" and blank lines mean nothing. Values only. Any thread.
class TrimSyncFile {
 public:
  /// Sorted by start, one line each, ending in a line feed; line breaks in a note become spaces.
  static QByteArray serialize(const std::vector<TrimElement>& trims);
  struct Content {
    std::vector<TrimElement> trims;  ///< sorted by start
    std::vector<int> skippedLines;   ///< that say something else, counted from 1
  };
  /// Takes every line that can be read and skips the others. A line that says what one of `known` says is that one,
  /// identity included, so that reading back what was written changes nothing.
  static Content parse(const QByteArray& text, const std::vector<TrimElement>& known = {});
};

}  // namespace vellora
