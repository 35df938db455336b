#include "platform/linux/clipboard/ClipboardPayload.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

namespace vellora {
namespace {

struct Header {
  std::array<char, 8> magic;
  std::uint64_t pngBytes;
  std::uint64_t pathBytes;
};

constexpr std::array<char, 8> magicBytes{'V', 'l', 'r', 'C', 'l', 'i', 'p', '2'};
// A receiver may map the file without fear that it shrinks under its hands.
constexpr int seals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE | F_SEAL_SEAL;

bool writeAll(int fd, std::span<const std::byte> bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(fd, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) return false;
    bytes = bytes.subspan(static_cast<std::size_t>(written));
  }
  return true;
}

}  // namespace

FileHandle& FileHandle::operator=(FileHandle&& other) noexcept {
  if (this != &other) {
    if (fd_ >= 0) ::close(fd_);
    fd_ = other.release();
  }
  return *this;
}

FileHandle::~FileHandle() {
  if (fd_ >= 0) ::close(fd_);
}

int FileHandle::release() {
  return std::exchange(fd_, -1);
}

std::optional<FileHandle> ClipboardPayload::pack(const ClipboardParts& parts) {
  FileHandle file(::memfd_create("vellora-clipboard", MFD_CLOEXEC | MFD_ALLOW_SEALING));
  if (!file) return std::nullopt;
  const Header header{magicBytes, parts.png.size(), parts.filePath.size()};
  const bool written = writeAll(file.get(), std::as_bytes(std::span(&header, 1))) && writeAll(file.get(), parts.png) &&
                       writeAll(file.get(), std::as_bytes(std::span(parts.filePath)));
  if (!written || ::fcntl(file.get(), F_ADD_SEALS, seals) != 0) return std::nullopt;
  return file;
}

std::optional<ClipboardPayload> ClipboardPayload::open(int fd) {
  struct stat info {};
  if (::fstat(fd, &info) != 0 || ::fcntl(fd, F_GET_SEALS) != seals) return std::nullopt;
  const auto size = static_cast<std::uint64_t>(info.st_size);
  if (size < sizeof(Header)) return std::nullopt;
  ClipboardPayload payload;
  payload.memory_ = ::mmap(nullptr, size, PROT_READ, MAP_SHARED, fd, 0);
  if (payload.memory_ == MAP_FAILED) {
    payload.memory_ = nullptr;
    return std::nullopt;
  }
  payload.size_ = size;

  Header header{};
  std::memcpy(&header, payload.memory_, sizeof(header));
  std::uint64_t left = size - sizeof(header);
  for (const std::uint64_t part : {header.pngBytes, header.pathBytes}) {
    if (part > left) return std::nullopt;
    left -= part;
  }
  if (header.magic != magicBytes || left != 0) return std::nullopt;
  const auto* png = static_cast<const std::byte*>(payload.memory_) + sizeof(header);
  const auto* path = png + header.pngBytes;
  payload.parts_.png = {png, header.pngBytes};
  payload.parts_.filePath.assign(reinterpret_cast<const char*>(path), header.pathBytes);
  return payload;
}

ClipboardPayload::ClipboardPayload(ClipboardPayload&& other) noexcept
    : memory_(std::exchange(other.memory_, nullptr)), size_(other.size_), parts_(std::move(other.parts_)) {}

ClipboardPayload::~ClipboardPayload() {
  if (memory_) ::munmap(memory_, size_);
}

}  // namespace vellora
