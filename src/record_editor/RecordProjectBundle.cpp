#include "record_editor/RecordProjectBundle.h"

#include <sys/stat.h>

#include <cerrno>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/FileName.h"
#include "base/Log.h"
#include "record_editor/BundleFiles.h"

namespace vellora {
namespace {

/// What is kept of a document that could not be read.
const QString unreadableStem = QStringLiteral("project (unreadable)");

QString suffix() {
  return QString::fromUtf16(RecordingFiles::projectExtension);
}

/// Whether the entry is a regular file inside `folder`, links followed.
bool isFileWithin(const QFileInfo& entry, const QString& folder) {
  if (!entry.isFile()) return false;
  return !entry.isSymLink() || entry.canonicalFilePath().startsWith(QFileInfo(folder).canonicalFilePath() + u'/');
}

/// Keeps a document that could not be read, once however often the project is opened.
void keepUnreadable(const QString& folder, const QByteArray& text) {
  const QStringList earlier = QDir(folder).entryList({unreadableStem + QStringLiteral("*.json")}, QDir::Files);
  for (const QString& name : earlier) {
    const auto kept = AtomicFile::read(folder + u'/' + name, bundleFiles::largestDocument);
    if (kept && *kept == text) return;
  }
  const auto kept = AtomicFile::writeNew(folder, unreadableStem, QStringLiteral("json"), text);
  if (!kept) log::error(QStringLiteral("unreadable project not kept: ") + kept.error().description());
}

}  // namespace

QString RecordProjectBundle::nonClobberingURL(const QString& folder, const QString& name, const QString& excluding) {
  return freeName::path(folder, sanitizedFileName(name), suffix(), excluding);
}

Result<RecordProjectBundle, FileError> RecordProjectBundle::create(const RecordingFiles& files, const QString& name) {
  const auto folder = files.projectsDirectory();
  if (!folder) return failure(folder.error());
  for (int attempt = 0;; ++attempt) {
    const QString path = nonClobberingURL(*folder, name);
    if (::mkdir(QFile::encodeName(path).constData(), 0777) == 0) return RecordProjectBundle(path);
    // Another program took the name in between: the next free one.
    if (errno != EEXIST || attempt == freeName::attempts) return failure(FileError::fromErrno(errno, path));
  }
}

Result<RecordProjectBundle, RecordProjectBundle::OpenError> RecordProjectBundle::open(const QString& path) {
  const QFileInfo info(QDir::cleanPath(QFileInfo(path).absoluteFilePath()));  // "." too has a name
  if (!info.isDir() || info.suffix() != suffix()) return failure(OpenError::NotABundle);
  RecordProjectBundle bundle(info.absoluteFilePath());
  if (bundle.videoURL().isEmpty()) return failure(OpenError::NoFootage);
  return bundle;
}

QString RecordProjectBundle::directoryName() const {
  return QFileInfo(path_).completeBaseName();
}

QString RecordProjectBundle::videoURL() const {
  if (isFileWithin(QFileInfo(file(bundleFiles::screen)), path_)) return file(bundleFiles::screen);
  const QStringList pattern{QStringLiteral("screen.*")};
  for (const QFileInfo& entry : QDir(path_).entryInfoList(pattern, QDir::Files, QDir::Name)) {
    if (entry.completeBaseName() == u"screen" && isFileWithin(entry, path_)) return entry.absoluteFilePath();
  }
  return {};
}

QString RecordProjectBundle::cameraURL() const {
  return isFileWithin(QFileInfo(file(bundleFiles::camera)), path_) ? file(bundleFiles::camera) : QString();
}

RecordProjectState RecordProjectBundle::load() const {
  RecordProjectState fresh;
  fresh.name = directoryName();
  const QString path = file(bundleFiles::project);
  const auto text = AtomicFile::read(path, bundleFiles::largestDocument);
  if (!text && text.error().kind == FileError::Kind::NotFound) return fresh;
  if (text) {
    if (auto decoded = RecordProjectState::decode(*text)) {
      if (decoded->skipped == 0) return std::move(decoded->state);
      log::warning(QStringLiteral("%1: %2 parts of the project could not be read").arg(path).arg(decoded->skipped));
      fresh = std::move(decoded->state);
    } else {
      log::warning(QStringLiteral("%1: not a project document").arg(path));
    }
    // The next save replaces the document; what it held is not to be lost.
    keepUnreadable(path_, *text);
  } else {
    log::warning(QStringLiteral("project not read: ") + text.error().description());
  }
  return fresh;
}

Result<void, FileError> RecordProjectBundle::save(const RecordProjectState& state) const {
  return AtomicFile::write(file(bundleFiles::project), state.encode(), Durability::PowerCut);
}

RecordProjectBundle RecordProjectBundle::renamed(const QString& name) const {
  const QString folder = QFileInfo(path_).path();
  const QString target = nonClobberingURL(folder, name, path_);
  if (target == path_) return *this;
  if (::rename(QFile::encodeName(path_).constData(), QFile::encodeName(target).constData()) == 0) {
    return RecordProjectBundle(target);
  }
  log::error(QStringLiteral("project rename failed: ") + FileError::fromErrno(errno, target).description());
  return *this;
}

Result<void, FileError> RecordProjectBundle::trash(Trash& trash) const {
  return trash.moveToTrash(path_);
}

Result<void, FileError> RecordProjectBundle::remove() const {
  errno = 0;
  if (QDir(path_).removeRecursively()) return {};
  return failure(FileError::fromErrno(errno != 0 ? errno : EACCES, path_));
}

}  // namespace vellora
