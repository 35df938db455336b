#pragma once

#include <QByteArray>
#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"
#include "platform/Trash.h"
#include "record_editor/RecordProjectState.h"
#include "record_editor/RecordingFiles.h"

namespace vellora {

/// A recording project on disk: a directory with the raw footage, the state document and plain-text files that other
/// programs may read and edit. A path and nothing more; what is read from it is checked. Any thread.
class RecordProjectBundle {
 public:
  enum class OpenError {
    NotABundle,  ///< no directory with the extension of projects
    NoFootage,   ///< a bundle without its movie
  };

  /// Makes a new directory named after the project, "name (2)" and so on when that is taken.
  static Result<RecordProjectBundle, FileError> create(const RecordingFiles& files, const QString& name);
  /// An existing bundle. A link to one counts as the bundle it leads to.
  static Result<RecordProjectBundle, OpenError> open(const QString& path);

  /// A free directory for a project of this name in `folder`; `excluding`, the project's own when it is renamed, counts
  /// as free.
  static QString nonClobberingURL(const QString& folder, const QString& name, const QString& excluding = {});

  const QString& path() const { return path_; }
  /// The directory's name without its extension.
  QString directoryName() const;
  QString file(const QString& name) const { return path_ + u'/' + name; }

  /// "screen.mov", or the first file named "screen" with another extension, as imported videos have; empty when there
  /// is none. Links that lead out of the bundle do not count.
  QString videoURL() const;
  /// "camera.mov", empty when there is none.
  QString cameraURL() const;

  /// The state document. A project without one, or with one that cannot be read, is a fresh one named after its
  /// directory; an unreadable document is kept as "project (unreadable).json".
  RecordProjectState load() const;
  /// Writes "project.json" in one step.
  Result<void, FileError> save(const RecordProjectState& state) const;

  /// Moves the directory to a free name for `name`; a failure is logged and leaves everything as it was.
  RecordProjectBundle renamed(const QString& name) const;
  Result<void, FileError> trash(Trash& trash) const;
  /// Removes the directory for good.
  Result<void, FileError> remove() const;

  friend bool operator==(const RecordProjectBundle&, const RecordProjectBundle&) = default;

 private:
  explicit RecordProjectBundle(QString path) : path_(std::move(path)) {}
  QString path_;
};

}  // namespace vellora
