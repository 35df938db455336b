#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vellora {

/// What is held on the clipboard; empty parts are not offered.
struct ClipboardParts {
  std::span<const std::byte> png;  ///< also offered as TIFF, which is made when a program asks for it
  std::string filePath;            ///< absolute
};

/// A file descriptor that closes itself.
class FileHandle {
 public:
  explicit FileHandle(int fd = -1) : fd_(fd) {}
  FileHandle(FileHandle&& other) noexcept : fd_(other.release()) {}
  FileHandle& operator=(FileHandle&& other) noexcept;
  ~FileHandle();
  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  int release();

 private:
  int fd_;
};

/// Clipboard parts in a sealed memory file, the form in which they go from one process to another.
class ClipboardPayload {
 public:
  /// Copies `parts` into a new memory file; nothing when memory is short.
  static std::optional<FileHandle> pack(const ClipboardParts& parts);

  /// Maps a packed memory file; nothing when it is not one. The descriptor may be closed afterwards.
  static std::optional<ClipboardPayload> open(int fd);

  ClipboardPayload(ClipboardPayload&& other) noexcept;
  ClipboardPayload& operator=(ClipboardPayload&&) = delete;
  ~ClipboardPayload();

  /// The parts point into this object.
  const ClipboardParts& parts() const { return parts_; }

 private:
  ClipboardPayload() = default;
  void* memory_ = nullptr;
  std::size_t size_ = 0;
  ClipboardParts parts_;
};

}  // namespace vellora
