#include "app/RecentRecordings.h"

#include <algorithm>

#include <QDir>
#include <QDirIterator>
#include <QFileInfo>

#include "record_editor/RecordingFiles.h"
#include "recording/RecordingMarker.h"

namespace vellora {

std::vector<RecordingBundle> listRecordings(const QString& directory) {
  std::vector<RecordingBundle> bundles;
  for (const QFileInfo& entry : QDir(directory).entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
    if (entry.suffix() != RecordingFiles::projectExtension || RecordingMarker::isPresent(entry.filePath())) continue;
    bundles.push_back({entry.completeBaseName(), entry.absoluteFilePath(), entry.lastModified()});
  }
  std::ranges::stable_sort(bundles, [](const RecordingBundle& a, const RecordingBundle& b) {
    if (a.modified.isValid() != b.modified.isValid()) return a.modified.isValid();
    return a.modified > b.modified;
  });
  return bundles;
}

qint64 totalSize(const QString& path) {
  qint64 total = 0;
  QDirIterator files(path, QDir::Files | QDir::Hidden | QDir::NoSymLinks, QDirIterator::Subdirectories);
  while (files.hasNext()) {
    files.next();
    total += files.fileInfo().size();
  }
  return total;
}

}  // namespace vellora
