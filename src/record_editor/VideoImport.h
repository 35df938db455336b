#pragma once

#include <functional>
#include <optional>

#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"
#include "record_editor/RecordProjectBundle.h"

namespace vellora {

/// Makes a project of a video file that is there already. The file is copied and never changed.
class VideoImport {
 public:
  enum class Error {
    Unreadable,  ///< not a file, or no video that can be read
    NotCopied,   ///< the disk refused, or the copy was cancelled
  };
  /// Whether a file holds a video that can be read.
  using Inspect = std::function<bool(const QString& file)>;
  /// Called now and then with what is copied, 0 to 1; false ends it.
  using Progress = std::function<bool(double)>;

  /// The file's name without its extension.
  static QString projectName(const QString& file);

  /// A new bundle with the video in it, as "screen" with the file's extension. On a file system that shares blocks the
  /// copy takes no time and no room. After a failure nothing is left. Takes as long as copying: not on the main thread.
  static Result<RecordProjectBundle, Error> run(const RecordingFiles& files, const QString& file,
                                                const Inspect& inspect, const Progress& progress = {});
};

}  // namespace vellora
