#include "recording/RecordingMarker.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <utility>

#include <QFile>

namespace vellora {
namespace {

QString markerPath(const QString& bundle) {
  return bundle + QStringLiteral("/.recording");
}

}  // namespace

bool RecordingMarker::isPresent(const QString& bundle) {
  return QFile::exists(markerPath(bundle));
}

Result<RecordingMarker, FileError> RecordingMarker::place(const QString& bundle) {
  const QString path = markerPath(bundle);
  const QByteArray name = QFile::encodeName(path);
  if (QFile::exists(path)) return failure(FileError::fromErrno(EEXIST, path));
  const QByteArray unlocked = name + ".new";
  const int fd = ::open(unlocked.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0666);
  if (fd < 0) return failure(FileError::fromErrno(errno, path));
  RecordingMarker marker(fd, path);
  // A file system without locks only costs the certainty that a second program leaves this recording alone.
  ::flock(fd, LOCK_EX | LOCK_NB);
  // Nobody sees it without its lock.
  if (::rename(unlocked.constData(), name.constData()) != 0) {
    const int reason = errno;
    ::unlink(unlocked.constData());
    return failure(FileError::fromErrno(reason, path));
  }
  return marker;
}

std::unique_ptr<RecordingMarker> RecordingMarker::takeAbandoned(const QString& bundle) {
  const QString path = markerPath(bundle);
  const int fd = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
  if (fd < 0) return nullptr;
  std::unique_ptr<RecordingMarker> marker(new RecordingMarker(fd, path));
  if (::flock(fd, LOCK_EX | LOCK_NB) != 0) return nullptr;
  return marker;
}

RecordingMarker::RecordingMarker(RecordingMarker&& other) noexcept
    : fd_(std::exchange(other.fd_, -1)), path_(std::move(other.path_)) {}

RecordingMarker& RecordingMarker::operator=(RecordingMarker&& other) noexcept {
  std::swap(fd_, other.fd_);
  std::swap(path_, other.path_);
  return *this;
}

RecordingMarker::~RecordingMarker() {
  if (fd_ >= 0) ::close(fd_);
}

void RecordingMarker::remove() {
  if (fd_ >= 0) QFile::remove(path_);
}

}  // namespace vellora
