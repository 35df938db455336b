#include "capture/ClipboardFiles.h"

#include <algorithm>

#include <QDir>
#include <QFileInfo>

#include "base/AtomicFile.h"
#include "base/Log.h"

namespace vellora {

ClipboardFiles::ClipboardFiles(const QString& applicationSupport)
    : directory_(applicationSupport + QStringLiteral("/Vellora/Clipboard")) {}

std::optional<QString> ClipboardFiles::write(const QByteArray& data, Date capturedAt) {
  if (!QDir().mkpath(directory_)) {
    log::error(QStringLiteral("clipboard file failed: cannot create %1").arg(directory_));
    return std::nullopt;
  }
  const auto path = AtomicFile::writeNew(directory_, captureFileStem(capturedAt, NamePrecision::Milliseconds),
                                         QStringLiteral("png"), data);
  if (!path) {
    log::error(QStringLiteral("clipboard file failed: %1").arg(path.error().description()));
    return std::nullopt;
  }
  queue_.async([this, keep = *path] { prune(keep); });
  return *path;
}

void ClipboardFiles::sweep() {
  queue_.async([this] { prune({}); });
}

void ClipboardFiles::prune(const QString& keep) {
  auto files = QDir(directory_).entryInfoList(QDir::Files | QDir::NoSymLinks);
  if (files.size() <= keptFiles) return;
  std::ranges::stable_sort(files, [&keep](const QFileInfo& a, const QFileInfo& b) {
    const bool keepA = a.absoluteFilePath() == keep;
    const bool keepB = b.absoluteFilePath() == keep;
    if (keepA != keepB) return keepA;
    return a.lastModified() > b.lastModified();
  });
  for (qsizetype index = keptFiles; index < files.size(); ++index) QFile::remove(files[index].absoluteFilePath());
}

}  // namespace vellora
