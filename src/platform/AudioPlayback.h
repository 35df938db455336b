#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>

#include "base/Result.h"

namespace vellora {

enum class AudioPlaybackError {
  notAvailable,  ///< no sound server
  failed,        ///< it refused, or is gone
};

/// Sound on its way to the default output. Destroying it silences it at once; after that no callback comes. Any one
/// thread at a time, but not the stream's own.
class PlaybackStream {
 public:
  virtual ~PlaybackStream() = default;
  /// Frames of the stream that have left the speakers, by the server's clock, smooth and never less than before. Does
  /// not wait for the server.
  virtual std::int64_t heardFrames() = 0;
};

/// Speakers.
class AudioPlayback {
 public:
  static constexpr int sampleRate = 48000;
  static constexpr int channels = 2;

  struct Callbacks {
    /// Fills the span with interleaved 32-bit float frames, all of it, with silence where there is nothing; on a thread
    /// of the stream's, some 20 ms before they are heard. Must not wait.
    std::function<void(std::span<float>)> fill{};
    /// The sound server is gone; no sound follows. On the same thread.
    std::function<void(AudioPlaybackError)> onLost{};
  };
  virtual ~AudioPlayback() = default;

  /// Begins to play. May take some milliseconds: not on the main thread.
  virtual Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> start(Callbacks callbacks) = 0;
};

}  // namespace vellora
