#include "record_editor/RecordingFiles.h"

#include <cerrno>

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QUuid>

#include "base/FileName.h"

namespace vellora {
namespace {

Result<QString, FileError> made(const QString& folder) {
  errno = 0;
  if (QDir().mkpath(folder)) return folder;
  return failure(FileError::fromErrno(errno != 0 ? errno : EACCES, folder));
}

}  // namespace

RecordingFiles::RecordingFiles(const FileNames& folders)
    : movies_(folders.movies().isEmpty() ? folders.home() : folders.movies()) {}

QString RecordingFiles::projectsPath() const {
  return movies_ + QStringLiteral("/Vellora/Projects");
}

Result<QString, FileError> RecordingFiles::directory() const {
  return made(movies_ + QStringLiteral("/Vellora"));
}

Result<QString, FileError> RecordingFiles::projectsDirectory() const {
  return made(projectsPath());
}

Result<QString, FileError> RecordingFiles::exportURL(const QString& name) const {
  const QString trimmed = name.trimmed();
  const QString stem = trimmed.isEmpty() ? QStringLiteral("Recording") : sanitizedFileName(trimmed);
  return directory().map([&](const QString& folder) { return freeName::path(folder, stem, QStringLiteral("mp4")); });
}

QString RecordingFiles::timestamp(const QDateTime& moment) {
  return QLocale::c().toString(moment, QStringLiteral("yyyy-MM-dd 'at' HH.mm.ss"));
}

QString RecordingFiles::projectName(const QDateTime& startedAt) {
  return QStringLiteral("Recording ") + timestamp(startedAt);
}

QString freeName::path(const QString& folder, const QString& stem, const QString& extension, const QString& excluded) {
  const QDir directory(folder);
  for (int attempt = 1; attempt <= attempts; ++attempt) {
    QString candidate = directory.filePath(numberedFileName(stem, extension, attempt));
    const QFileInfo info(candidate);
    if (candidate == excluded || !(info.exists() || info.isSymLink())) return candidate;
  }
  const QString unique = stem + u'-' + QUuid::createUuid().toString(QUuid::WithoutBraces);
  return directory.filePath(numberedFileName(unique, extension, 1));
}

}  // namespace vellora
