#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "base/Result.h"
#include "media/frames/I420.h"
#include "media/movies/FrameEncoder.h"
#include "media/movies/MovieWriter.h"
#include "media/movies/VideoEncoderChoice.h"

namespace vellora {

/// Encodes the pictures of a movie. Used by one thread.
class VideoEncoder {
 public:
  /// Takes a coded picture: bytes, ticks of movieTimescale, and whether it stands for itself.
  using Output = std::function<void(std::span<const std::uint8_t>, std::int64_t, bool)>;

  /// Opens the first encoder, in the order of VideoEncoderChoice, that takes the settings.
  static Result<std::unique_ptr<VideoEncoder>, MovieFailure> open(const MovieWriter::VideoSettings& settings);
  /// Opens a certain one.
  static std::unique_ptr<VideoEncoder> open(const VideoEncoderChoice& choice,
                                            const MovieWriter::VideoSettings& settings);

  const VideoEncoderChoice& choice() const { return choice_; }
  const std::vector<std::uint8_t>& configuration() const { return encoder_.configuration(); }

  /// The picture that is encoded next. It keeps what is drawn on it from one to the next. Its size is even. Null planes
  /// when memory is short.
  I420View picture();
  /// Encodes the picture as it is, shown from `time` on, which grows.
  Result<void, MovieFailure> encode(std::int64_t time, const Output& output);
  /// Gives out what the encoder still holds. Nothing may follow.
  Result<void, MovieFailure> finish(const Output& output);

 private:
  /// How an encoder takes pictures.
  enum class Input { i420, nv12, surface };

  VideoEncoder(FrameEncoder encoder, VideoEncoderChoice choice)
      : encoder_(std::move(encoder)), choice_(std::move(choice)) {}
  /// Null when memory is short.
  AVFrame* uploaded();
  void receive(const Output& output);

  FrameEncoder encoder_;
  VideoEncoderChoice choice_;
  Input input_ = Input::i420;
  FramePointer picture_;
  FramePointer interleaved_;  // NV12
  FramePointer surface_;      // in the memory of the graphics hardware
  BufferPointer surfaces_;
};

/// The encoders in the order in which they are tried.
std::span<const VideoEncoderChoice> knownVideoEncoders();

}  // namespace vellora
