#pragma once

#include <cstdint>
#include <string>

namespace vellora {

/// Why a picture file could not be read, converted or written.
enum class PictureError : std::uint8_t {
  NotFound,
  NotPermitted,
  NotAFile,     ///< a folder, a device…
  NotAPicture,  ///< no known type
  TooLarge,     ///< the file, or the picture in it, is beyond the limits
  Unsupported,  ///< a known type, but this kind of it; `detail` says which
  Animated,     ///< several frames or pages, which the wanted output cannot hold
  Damaged,
  OutOfMemory,
  CannotEncode,  ///< the encoder gave up; `detail` says why
  DiskFull,
  WriteFailed,  ///< the output could not be written; `detail` says why
  Cancelled,
};

struct PictureFailure {
  PictureError error = PictureError::Damaged;
  std::string detail{};  ///< plain English, for logs and `--json`; may be empty
};

}  // namespace vellora
