#include "base/AtomicFile.h"

#include <fcntl.h>
#include <stdio.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include "base/FileName.h"

namespace vellora {

FileError FileError::fromErrno(int error, const QString& path) {
  Kind kind = Kind::Other;
  if (error == ENOENT || error == ENOTDIR) kind = Kind::NotFound;
  if (error == EACCES || error == EPERM || error == EROFS) kind = Kind::NotPermitted;
  if (error == ENOSPC || error == EDQUOT) kind = Kind::NoSpace;
  if (error == EFBIG || error == EOVERFLOW) kind = Kind::TooLarge;
  return {kind, path, QString::fromLocal8Bit(std::strerror(error))};
}

QString FileError::description() const {
  return path + QStringLiteral(": ") + message;
}

namespace AtomicFile {
namespace {

constexpr mode_t newFileMode = 0666;  // narrowed by the user's umask
constexpr int nameAttempts = 10000;

std::filesystem::path encoded(const QString& path) {
  return QFile::encodeName(path).toStdString();
}

QString decoded(const std::filesystem::path& path) {
  return QFile::decodeName(path.c_str());
}

/// A temporary file beside its future place; removed again unless it was moved there.
class TemporaryFile {
 public:
  static Result<TemporaryFile, FileError> create(const std::filesystem::path& folder, mode_t mode) {
    for (int tries = 0; tries < 100; ++tries) {
      const QString name =
          QStringLiteral(".vellora-%1.tmp").arg(QRandomGenerator::global()->generate64(), 16, 16, QChar(u'0'));
      QByteArray path((folder / name.toStdString()).c_str());
      const int fd = ::open(path.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, mode);
      if (fd >= 0) return TemporaryFile(fd, std::move(path));
      if (errno != EEXIST) return failure(FileError::fromErrno(errno, decoded(folder)));
    }
    return failure(FileError::fromErrno(EEXIST, decoded(folder)));
  }

  TemporaryFile(TemporaryFile&& other) noexcept
      : fd_(std::exchange(other.fd_, -1)), path_(std::exchange(other.path_, {})) {}
  TemporaryFile& operator=(TemporaryFile&&) = delete;
  ~TemporaryFile() {
    if (fd_ >= 0) ::close(fd_);
    if (!path_.isEmpty()) ::unlink(path_.constData());
  }

  /// 0 or an errno.
  int fill(std::span<const std::byte> data, Durability durability) {
    while (!data.empty()) {
      const ssize_t written = ::write(fd_, data.data(), data.size());
      if (written < 0) {
        if (errno == EINTR) continue;
        return errno;
      }
      data = data.subspan(static_cast<std::size_t>(written));
    }
    if (durability == Durability::PowerCut && ::fsync(fd_) != 0) return errno;
    if (::close(std::exchange(fd_, -1)) != 0) return errno;
    return 0;
  }

  void allow(mode_t mode) const { [[maybe_unused]] const int done = ::fchmod(fd_, mode); }

  int moveReplacing(const QByteArray& target) {
    if (::rename(path_.constData(), target.constData()) != 0) return errno;
    path_.clear();
    return 0;
  }

  /// EEXIST when the name is taken.
  int moveToFreeName(const QByteArray& target) {
    if (::renameat2(AT_FDCWD, path_.constData(), AT_FDCWD, target.constData(), RENAME_NOREPLACE) == 0) {
      path_.clear();
      return 0;
    }
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // File systems without that flag: a hard link refuses a taken name as well.
    return ::link(path_.constData(), target.constData()) == 0 ? 0 : errno;
  }

 private:
  TemporaryFile(int fd, QByteArray path) : fd_(fd), path_(std::move(path)) {}
  int fd_;
  QByteArray path_;
};

/// An open file, closed with it.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }

 private:
  const int number_;
};

void syncFolder(const std::filesystem::path& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number() >= 0) ::fsync(opened.number());
}

std::span<const std::byte> bytesOf(const QByteArray& data) {
  return {reinterpret_cast<const std::byte*>(data.constData()), static_cast<std::size_t>(data.size())};
}

}  // namespace

Result<void, FileError> write(const QString& path, std::span<const std::byte> data, Durability durability) {
  const QFileInfo existing(path);
  const QString target = existing.isSymLink() && existing.exists() ? existing.canonicalFilePath() : path;
  const QString folder = QFileInfo(target).absolutePath();
  auto file = TemporaryFile::create(encoded(folder), newFileMode);
  if (!file) return failure(file.error());
  struct stat old {};
  if (::stat(QFile::encodeName(target).constData(), &old) == 0) file->allow(old.st_mode & 07777);
  if (const int error = file->fill(data, durability)) return failure(FileError::fromErrno(error, path));
  if (const int error = file->moveReplacing(QFile::encodeName(target)))
    return failure(FileError::fromErrno(error, path));
  if (durability == Durability::PowerCut) syncFolder(encoded(folder));
  return {};
}

Result<void, FileError> write(const QString& path, const QByteArray& data, Durability durability) {
  return write(path, bytesOf(data), durability);
}

Result<std::filesystem::path, FileError> writeNew(const std::filesystem::path& folder, const std::string& stem,
                                                  const std::string& extension, std::span<const std::byte> data,
                                                  mode_t permissions, Durability durability) {
  auto file = TemporaryFile::create(folder, permissions);
  if (!file) return failure(file.error());
  if (const int error = file->fill(data, durability)) return failure(FileError::fromErrno(error, decoded(folder)));
  for (int attempt = 1; attempt <= nameAttempts; ++attempt) {
    const QString end = numberedFileName(QString(), QString::fromStdString(extension), attempt);
    std::filesystem::path path = folder / (stem + end.toStdString());
    const int error = file->moveToFreeName(path.c_str());
    if (error == EEXIST) continue;
    if (error != 0) return failure(FileError::fromErrno(error, decoded(path)));
    if (durability == Durability::PowerCut) syncFolder(folder);
    return path;
  }
  return failure(FileError::fromErrno(EEXIST, decoded(folder)));
}

Result<QString, FileError> writeNew(const QString& folder, const QString& stem, const QString& extension,
                                    std::span<const std::byte> data, Durability durability) {
  const auto written =
      writeNew(encoded(folder), encoded(stem).string(), extension.toStdString(), data, newFileMode, durability);
  if (!written) return failure(written.error());
  return decoded(*written);
}

Result<QString, FileError> writeNew(const QString& folder, const QString& stem, const QString& extension,
                                    const QByteArray& data, Durability durability) {
  return writeNew(folder, stem, extension, bytesOf(data), durability);
}

Result<QByteArray, FileError> read(const QString& path, qint64 limit) {
  const Descriptor file(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (file.number() < 0) return failure(FileError::fromErrno(errno, path));
  struct stat info {};
  if (::fstat(file.number(), &info) != 0) return failure(FileError::fromErrno(errno, path));
  if (!S_ISREG(info.st_mode)) return failure(FileError::fromErrno(S_ISDIR(info.st_mode) ? EISDIR : EINVAL, path));
  if (info.st_size > limit) return failure(FileError::fromErrno(EFBIG, path));
  // One byte more than the size, so that the end shows without growing; files of the system state no size.
  constexpr qint64 leastRoom = 4096;
  QByteArray data;
  data.resize(std::min(std::max<qint64>(info.st_size + 1, leastRoom), limit + 1));
  qint64 filled = 0;
  while (true) {
    const ssize_t count = ::read(file.number(), data.data() + filled, static_cast<std::size_t>(data.size() - filled));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return failure(FileError::fromErrno(errno, path));
    filled += count;
    if (filled > limit) return failure(FileError::fromErrno(EFBIG, path));
    if (count == 0) break;
    if (filled == data.size()) data.resize(std::min(data.size() * 2, limit + 1));
  }
  data.resize(filled);
  return data;
}

}  // namespace AtomicFile
}  // namespace vellora
