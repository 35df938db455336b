#pragma once

#include <sys/types.h>

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

#include "base/Result.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// A movie's file, read and written at any place by nobody else. Closed by its destructor.
class DiskFile {
 public:
  /// A new file; it must not exist.
  static Result<DiskFile, MovieFailure> create(const std::filesystem::path& path);
  /// A regular file that exists, for reading and writing.
  static Result<DiskFile, MovieFailure> open(const std::filesystem::path& path);
  DiskFile(DiskFile&& other) noexcept;
  DiskFile& operator=(DiskFile&&) = delete;
  ~DiskFile();

  const std::string& name() const { return name_; }
  Result<std::uint64_t, MovieFailure> size() const;
  /// As many bytes as there are, up to the size of `to`.
  Result<std::size_t, MovieFailure> read(std::uint64_t at, std::span<std::uint8_t> to) const;
  Result<void, MovieFailure> write(std::uint64_t at, std::span<const std::uint8_t> bytes);
  Result<void, MovieFailure> truncate(std::uint64_t size);
  /// Waits until the disk has all that was written.
  Result<void, MovieFailure> sync();

 private:
  DiskFile(int descriptor, std::string name) : descriptor_(descriptor), name_(std::move(name)) {}
  /// Keeps other DiskFiles off the file, where the file system can.
  Result<void, MovieFailure> lock();

  int descriptor_;
  std::string name_;
};

/// Waits until the disk has the names of a folder's files.
void syncFolder(const std::filesystem::path& folder);

}  // namespace vellora
