#include "media/movies/DiskFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

#include "media/movies/MovieFailures.h"

namespace vellora {

Result<DiskFile, MovieFailure> DiskFile::create(const std::filesystem::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (descriptor < 0) {
    MovieFailure reason = writeFailure(errno, path.string());
    if (reason.error != MovieError::diskFull) reason.error = MovieError::cannotCreate;
    return failure(std::move(reason));
  }
  DiskFile file(descriptor, path.string());
  if (auto locked = file.lock(); !locked) return failure(std::move(locked.error()));
  return file;
}

Result<DiskFile, MovieFailure> DiskFile::open(const std::filesystem::path& path) {
  const int descriptor = ::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0) return failure(readFailure(errno, path.string()));
  DiskFile file(descriptor, path.string());
  struct stat status {};
  if (::fstat(descriptor, &status) != 0) return failure(readFailure(errno, file.name_));
  if (!S_ISREG(status.st_mode)) return failure(MovieFailure{MovieError::notAMovie, file.name_ + " is not a file"});
  if (auto locked = file.lock(); !locked) return failure(std::move(locked.error()));
  return file;
}

Result<void, MovieFailure> DiskFile::lock() {
  if (::flock(descriptor_, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    return failure(MovieFailure{MovieError::inUse, name_ + " is still being written"});
  }
  return {};
}

DiskFile::DiskFile(DiskFile&& other) noexcept
    : descriptor_(std::exchange(other.descriptor_, -1)), name_(std::move(other.name_)) {}

DiskFile::~DiskFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
}

Result<std::uint64_t, MovieFailure> DiskFile::size() const {
  struct stat status {};
  if (::fstat(descriptor_, &status) != 0) return failure(readFailure(errno, name_));
  return static_cast<std::uint64_t>(status.st_size);
}

Result<std::size_t, MovieFailure> DiskFile::read(std::uint64_t at, std::span<std::uint8_t> to) const {
  std::size_t done = 0;
  while (done < to.size()) {
    const ssize_t count = ::pread(descriptor_, to.data() + done, to.size() - done, static_cast<off_t>(at + done));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return failure(readFailure(errno, name_));
    if (count == 0) break;
    done += static_cast<std::size_t>(count);
  }
  return done;
}

Result<void, MovieFailure> DiskFile::write(std::uint64_t at, std::span<const std::uint8_t> bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(at));
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) return failure(writeFailure(errno, name_));
    at += static_cast<std::uint64_t>(count);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

Result<void, MovieFailure> DiskFile::truncate(std::uint64_t size) {
  if (::ftruncate(descriptor_, static_cast<off_t>(size)) != 0) return failure(writeFailure(errno, name_));
  return {};
}

Result<void, MovieFailure> DiskFile::sync() {
  if (::fdatasync(descriptor_) != 0) return failure(writeFailure(errno, name_));
  return {};
}

void syncFolder(const std::filesystem::path& folder) {
  const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) return;
  ::fsync(descriptor);
  ::close(descriptor);
}

}  // namespace vellora
