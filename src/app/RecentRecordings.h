#pragma once

#include <vector>

#include <QDateTime>
#include <QString>

namespace vellora {

/// A recording project as the menu lists it.
struct RecordingBundle {
  QString name;  ///< without its extension
  QString path;
  QDateTime modified;  ///< invalid when unknown
};

/// The project bundles in a folder, newest first; those without a date come last. What is still being recorded is left
/// out.
std::vector<RecordingBundle> listRecordings(const QString& directory);

/// The size of every file below `path`, in bytes; links are not followed.
qint64 totalSize(const QString& path);

}  // namespace vellora
