#pragma once

#include <QDateTime>
#include <QString>

#include "base/AtomicFile.h"
#include "base/Result.h"
#include "platform/FileNames.h"

namespace vellora {

/// Where recordings lie and what they are called. Any thread.
class RecordingFiles {
 public:
  /// The extension of a project's directory, without the dot.
  static constexpr auto projectExtension = u"vellorav";

  explicit RecordingFiles(const FileNames& folders);

  /// "Vellora" in the user's movies folder, made when it is missing.
  Result<QString, FileError> directory() const;
  /// "Projects" in `directory`, made when it is missing.
  Result<QString, FileError> projectsDirectory() const;
  /// Where the projects are, whether or not the folder exists.
  QString projectsPath() const;

  /// A free path in `directory` for an exported movie: "name.mp4", "name (2).mp4", … "name (10000).mp4", then the name
  /// with a UUID. A blank name is "Recording".
  Result<QString, FileError> exportURL(const QString& name) const;

  /// "2026-11-22 at 21.26.23", in any language.
  static QString timestamp(const QDateTime& moment);
  /// "Recording " and the moment it was started.
  static QString projectName(const QDateTime& startedAt);

 private:
  QString movies_;
};

namespace freeName {

/// The numbers tried before a UUID makes a name unique.
inline constexpr int attempts = 10000;

/// The first of "stem.extension", "stem (2).extension", … in `folder` that is not there, or is `excluded` (a path);
/// after `attempts` of them the stem with a UUID.
QString path(const QString& folder, const QString& stem, const QString& extension, const QString& excluded = {});

}  // namespace freeName
}  // namespace vellora
