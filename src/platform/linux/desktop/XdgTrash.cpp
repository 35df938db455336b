#include "platform/linux/desktop/XdgTrash.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "base/FileName.h"

namespace vellora {
namespace {

constexpr mode_t privateFolder = 0700;
constexpr mode_t privateFile = 0600;
constexpr int nameAttempts = 10000;

/// One trash folder, and what the paths recorded in it start from (empty: the root).
struct TrashFolder {
  QString path;
  QString top;
};

QByteArray native(const QString& path) {
  return QFile::encodeName(path);
}

bool inspect(const QString& path, struct stat& info) {
  return ::lstat(native(path).constData(), &info) == 0;
}

bool makeFolder(const QString& path) {
  return ::mkdir(native(path).constData(), privateFolder) == 0 || errno == EEXIST;
}

/// Whether `path` is a real folder with both parts of a trash in it, made where they are missing.
bool prepare(const QString& path) {
  struct stat info {};
  return makeFolder(path) && inspect(path, info) && S_ISDIR(info.st_mode) && info.st_uid == ::geteuid() &&
         makeFolder(path + QStringLiteral("/files")) && makeFolder(path + QStringLiteral("/info"));
}

/// The highest folder above `path` on the same disk.
QString topFolder(const QString& path, dev_t disk) {
  QString top = QFileInfo(path).absolutePath();
  while (top != QStringLiteral("/")) {
    const QString parent = QFileInfo(top).absolutePath();
    struct stat info {};
    if (!inspect(parent, info) || info.st_dev != disk) break;
    top = parent;
  }
  return top;
}

/// The trash a file on `disk` belongs to; the folder is there and usable.
Result<TrashFolder, FileError> trashFor(const QString& path, dev_t disk) {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  QDir().mkpath(data);
  struct stat home {};
  if (::stat(native(data).constData(), &home) == 0 && home.st_dev == disk) {
    const QString trash = data + QStringLiteral("/Trash");
    if (!prepare(trash)) return failure(FileError::fromErrno(errno, trash));
    return TrashFolder{trash, {}};
  }
  const QString top = topFolder(path, disk);
  const QString prefix = top.endsWith(u'/') ? top : top + u'/';
  const QString user = QString::number(::geteuid());
  // A folder an administrator made for everybody counts only as a real one with the sticky bit.
  struct stat shared {};
  if (inspect(prefix + QStringLiteral(".Trash"), shared) && S_ISDIR(shared.st_mode) &&
      (shared.st_mode & S_ISVTX) != 0) {
    const QString trash = prefix + QStringLiteral(".Trash/") + user;
    if (prepare(trash)) return TrashFolder{trash, prefix};
  }
  const QString trash = prefix + QStringLiteral(".Trash-") + user;
  if (!prepare(trash)) return failure(FileError::fromErrno(errno, trash));
  return TrashFolder{trash, prefix};
}

QByteArray record(const QString& path, const TrashFolder& trash) {
  const QString recorded = path.mid(trash.top.size());
  return "[Trash Info]\nPath=" + native(recorded).toPercentEncoding("/") +
         "\nDeletionDate=" + QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")).toLatin1() +
         "\n";
}

/// 0, or an errno; EEXIST when the name is taken.
int writeRecord(const QString& file, const QByteArray& content) {
  const int fd = ::open(native(file).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, privateFile);
  if (fd < 0) return errno;
  const bool written = ::write(fd, content.constData(), static_cast<size_t>(content.size())) == content.size();
  const int error = written ? 0 : EIO;
  ::close(fd);
  return error;
}

}  // namespace

Result<void, FileError> XdgTrash::moveToTrash(const QString& path) {
  const QString source = QDir::cleanPath(QFileInfo(path).absoluteFilePath());
  struct stat info {};
  if (!inspect(source, info)) return failure(FileError::fromErrno(errno, path));
  const auto trash = trashFor(source, info.st_dev);
  if (!trash) return failure(trash.error());

  const QByteArray content = record(source, *trash);
  const QString name = sanitizedFileName(QFileInfo(source).fileName());
  for (int attempt = 1; attempt <= nameAttempts; ++attempt) {
    const QString free = numberedFileName(name, {}, attempt);
    // The record first: whoever has made it owns the name.
    const QString recordFile = trash->path + QStringLiteral("/info/%1.trashinfo").arg(free);
    const QString target = trash->path + QStringLiteral("/files/") + free;
    int error = writeRecord(recordFile, content);
    if (error == EEXIST) continue;
    if (error == 0 && ::renameat2(AT_FDCWD, native(source).constData(), AT_FDCWD, native(target).constData(),
                                  RENAME_NOREPLACE) != 0) {
      error = errno;
    }
    if (error == 0) return {};
    ::unlink(native(recordFile).constData());
    if (error != EEXIST) return failure(FileError::fromErrno(error, path));
  }
  return failure(FileError::fromErrno(EEXIST, path));
}

}  // namespace vellora
