#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include <QString>

#include "base/Result.h"
#include "platform/CameraCapture.h"
#include "platform/ScreenStream.h"
#include "recording/RecordingError.h"

namespace vellora {

/// What a movie is made of.
struct MovieSettings {
  struct Video {
    int width = 0;  ///< pixels
    int height = 0;
    std::int64_t bitRate = 0;           ///< bits per second on average
    int maximumKeyFrameInterval = 120;  ///< frames
  };
  struct Sound {
    int channels = 1;
    std::int64_t bitRate = 128000;  ///< bits per second
  };
  Video video;
  std::vector<Sound> sounds{};  ///< one track each, 48,000 frames a second
};

/// A movie being written. Everything in it survives a kill but the last two seconds. One thread at a time.
class MovieOutput {
 public:
  virtual ~MovieOutput() = default;

  /// False while the encoder has enough to do: a frame is then dropped, never waited for.
  virtual bool isReadyForMoreVideo() const = 0;
  /// `time` is in seconds from the movie's start and grows. Does not block.
  virtual void appendVideo(std::shared_ptr<const ScreenFrame> frame, double time) = 0;
  virtual void appendVideo(std::shared_ptr<const CameraFrame> frame, double time) = 0;
  /// Samples that follow those before them without a gap, the first ones at 0; interleaved.
  virtual void appendSound(std::size_t track, std::span<const float> samples) = 0;

  /// Ends the movie at `end` seconds, which is how long its last picture stays, and makes it an ordinary file with one
  /// index. `done` comes on a thread of the movie's own.
  virtual void finish(double end, std::function<void(Result<void, RecordingError>)> done) = 0;
};

/// Makes movies.
class MovieOutputs {
 public:
  virtual ~MovieOutputs() = default;
  /// `onFailure` comes once, on a thread of the movie's own, when nothing more can be written.
  virtual Result<std::unique_ptr<MovieOutput>, RecordingError> create(
      const QString& path, const MovieSettings& settings, std::function<void(RecordingError)> onFailure) = 0;
  /// Makes an ordinary file of a movie whose program was killed; one that is whole stays as it is. Its length in
  /// seconds. Any thread but the main one.
  virtual Result<double, RecordingError> repair(const QString& path) = 0;
  /// Bits per second for a screen of this size, by the codec that would be taken for it.
  virtual std::int64_t screenBitRate(int width, int height) = 0;
};

}  // namespace vellora
