#pragma once

#include <cstdint>
#include <span>

#include "base/Result.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// What a track is to be converted to while it is read; 0: as the file has it.
struct AudioForm {
  int sampleRate = 0;
  int channels = 0;
};

/// One audio track decoded into interleaved floats, from the file's start to the track's end, at one rate and with one
/// number of channels. Gaps come as silence. Used by one thread at a time.
class AudioReader {
 public:
  virtual ~AudioReader() = default;
  virtual int sampleRate() const = 0;
  virtual int channels() const = 0;
  /// Frames, as far as the file says; 0: not known.
  virtual std::int64_t expectedFrames() const = 0;
  /// The samples that follow those before, valid until the next call; empty at the end. `damaged` or `unreadable` comes
  /// where nothing more can be got.
  virtual Result<std::span<const float>, MediaFailure> read() = 0;
  /// The next samples are those from this frame on, counted from the file's start.
  virtual Result<void, MediaFailure> seek(std::int64_t frame) = 0;
};

}  // namespace vellora
