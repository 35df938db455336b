#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>

#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureReader.h"

namespace vellora {
namespace {

/// A file opened for reading; waits for nobody, not even for the other end of a pipe.
class OpenFile {
 public:
  explicit OpenFile(const std::filesystem::path& path)
      : descriptor_(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
  ~OpenFile() {
    if (descriptor_ >= 0) ::close(descriptor_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  int descriptor() const { return descriptor_; }

 private:
  int descriptor_;
};

auto refusedBySystem(int error) {
  PictureError kind = PictureError::NotAFile;
  if (error == ENOENT || error == ENOTDIR) kind = PictureError::NotFound;
  if (error == EACCES || error == EPERM) kind = PictureError::NotPermitted;
  if (error == ENOMEM) kind = PictureError::OutOfMemory;
  return refused(kind, std::strerror(error));
}

}  // namespace

Result<std::vector<std::byte>, PictureFailure> readPictureFile(const std::filesystem::path& path) {
  // Opening a device can already do something: look first, and again at what was really opened.
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return refusedBySystem(errno);
  if (!S_ISREG(status.st_mode)) return refused(PictureError::NotAFile);
  const OpenFile file(path);
  if (file.descriptor() < 0 || ::fstat(file.descriptor(), &status) != 0) return refusedBySystem(errno);
  if (!S_ISREG(status.st_mode)) return refused(PictureError::NotAFile);
  const auto size = static_cast<std::uintmax_t>(status.st_size);
  if (size > pictureLimits::fileBytes) return refused(PictureError::TooLarge, "the file is too large");
  try {
    std::vector<std::byte> bytes(size);
    std::size_t done = 0;
    while (done < bytes.size()) {
      const ssize_t count = ::read(file.descriptor(), &bytes[done], bytes.size() - done);
      if (count < 0 && errno == EINTR) continue;
      if (count < 0) return refusedBySystem(errno);
      if (count == 0) return refused(PictureError::Damaged, "the file became shorter while it was read");
      done += static_cast<std::size_t>(count);
    }
    return bytes;
  } catch (const std::bad_alloc&) {
    return refused(PictureError::OutOfMemory);
  }
}

}  // namespace vellora
