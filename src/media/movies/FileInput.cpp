#include "media/movies/FileInput.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace vellora {
namespace {

constexpr int bufferBytes = 32 * 1024;

MediaFailure unreadable(const std::filesystem::path& file, int error) {
  if (error == ENOENT || error == ENOTDIR) return {MediaError::unreadable, "There is no file " + file.string()};
  if (error == EACCES || error == EPERM) return {MediaError::unreadable, "No permission to read " + file.string()};
  return {MediaError::unreadable, "Cannot read " + file.string() + ": " + std::generic_category().message(error)};
}

}  // namespace

Result<FileInput, MediaFailure> FileInput::open(const std::filesystem::path& file) {
  // Without O_NONBLOCK, opening a pipe would wait for its other end.
  FileInput input(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (input.descriptor_ < 0) return failure(unreadable(file, errno));
  struct stat status {};
  if (fstat(input.descriptor_, &status) != 0) return failure(unreadable(file, errno));
  if (S_ISDIR(status.st_mode)) return failure(MediaFailure{MediaError::unreadable, file.string() + " is a folder"});
  if (!S_ISREG(status.st_mode)) {
    return failure(MediaFailure{MediaError::unreadable, file.string() + " is not a regular file"});
  }
  if (status.st_size == 0) return failure(MediaFailure{MediaError::notMedia, file.string() + " is empty"});
  return input;
}

FileInput::~FileInput() {
  if (descriptor_ >= 0) close(descriptor_);
}

FileInput::FileInput(FileInput&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

InputPointer FileInput::start() {
  if (lseek(descriptor_, 0, SEEK_SET) != 0) return nullptr;
  auto* buffer = static_cast<unsigned char*>(av_malloc(bufferBytes));
  if (buffer == nullptr) return nullptr;
  InputPointer input(avio_alloc_context(buffer, bufferBytes, 0, this, &FileInput::read, nullptr, &FileInput::seek));
  if (input == nullptr) av_free(buffer);
  return input;
}

int FileInput::read(void* opaque, std::uint8_t* to, int bytes) {
  const int descriptor = static_cast<FileInput*>(opaque)->descriptor_;
  for (;;) {
    const ssize_t count = ::read(descriptor, to, static_cast<std::size_t>(bytes));
    if (count > 0) return static_cast<int>(count);
    if (count == 0) return AVERROR_EOF;
    if (errno != EINTR) return AVERROR(errno);
  }
}

std::int64_t FileInput::seek(void* opaque, std::int64_t to, int whence) {
  const int descriptor = static_cast<FileInput*>(opaque)->descriptor_;
  if ((whence & AVSEEK_SIZE) != 0) {
    struct stat status {};
    return fstat(descriptor, &status) == 0 ? status.st_size : AVERROR(errno);
  }
  const off_t position = lseek(descriptor, to, whence & ~AVSEEK_FORCE);
  return position >= 0 ? position : AVERROR(errno);
}

}  // namespace vellora
