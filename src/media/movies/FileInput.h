#pragma once

#include <cstdint>
#include <filesystem>

#include "base/Result.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// A regular file as libav reads it: through a descriptor opened here, so that no protocol of libav's is involved and
/// the same file is read again after rewinding even when another has taken its name.
class FileInput {
 public:
  static Result<FileInput, MediaFailure> open(const std::filesystem::path& file);
  ~FileInput();
  FileInput(FileInput&& other) noexcept;
  FileInput& operator=(FileInput&&) = delete;

  /// Bytes from the start of the file. The descriptor has one position: only the newest of these reads right. Null when
  /// memory is short. This object outlives it.
  InputPointer start();

 private:
  explicit FileInput(int descriptor) : descriptor_(descriptor) {}
  static int read(void* opaque, std::uint8_t* to, int bytes);
  static std::int64_t seek(void* opaque, std::int64_t to, int whence);

  int descriptor_;
};

}  // namespace vellora
