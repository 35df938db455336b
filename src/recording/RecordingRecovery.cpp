#include "recording/RecordingRecovery.h"

#include <optional>

#include <QDir>
#include <QFileInfo>

#include "base/Log.h"
#include "record_editor/BundleFiles.h"
#include "record_editor/ProjectCompletion.h"
#include "recording/RecordingMarker.h"

namespace vellora {
namespace {

/// Nothing when the bundle holds no picture, or is no bundle.
std::optional<RecordProjectBundle> recovered(const QString& path, Movies& movies) {
  auto bundle = RecordProjectBundle::open(path);
  if (!bundle) return std::nullopt;
  const auto screen = movies.repair(QFile::encodeName(bundle->videoURL()).toStdString());
  if (!screen) {
    log::warning(QStringLiteral("%1: %2").arg(bundle->videoURL(), QString::fromStdString(screen.error().message)));
    return std::nullopt;
  }
  const QString camera = bundle->cameraURL();
  if (!camera.isEmpty() && !movies.repair(QFile::encodeName(camera).toStdString())) {
    // What cannot be played is no camera; it stays under another name.
    QFile::rename(camera, bundle->file(QStringLiteral("camera (unreadable).mov")));
  }
  projectCompletion::complete(*bundle);
  return *bundle;
}

}  // namespace

std::vector<RecordProjectBundle> RecordingRecovery::run(const RecordingFiles& files, Movies& movies) {
  std::vector<RecordProjectBundle> saved;
  const QStringList pattern{QStringLiteral("*.") + QString::fromUtf16(RecordingFiles::projectExtension)};
  const auto entries = QDir(files.projectsPath())
                           .entryInfoList(pattern, QDir::Dirs | QDir::NoDotAndDotDot | QDir::NoSymLinks, QDir::Time);
  for (const QFileInfo& entry : entries) {
    const auto marker = RecordingMarker::takeAbandoned(entry.absoluteFilePath());
    if (!marker) continue;
    if (auto bundle = recovered(entry.absoluteFilePath(), movies)) {
      marker->remove();
      saved.push_back(std::move(*bundle));
    } else if (QFileInfo(entry.absoluteFilePath() + u'/' + bundleFiles::screen).size() == 0) {
      QDir(entry.absoluteFilePath()).removeRecursively();
    } else {
      // There is something in it that this version cannot read: left alone, and tried again with the next start.
      log::error(QStringLiteral("recording not recovered: ") + entry.absoluteFilePath());
    }
  }
  return saved;
}

}  // namespace vellora
