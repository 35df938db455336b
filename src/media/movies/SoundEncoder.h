#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "base/Result.h"
#include "media/movies/FrameEncoder.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// Encodes one sound track of a movie as AAC, without gaps. Used by one thread.
class SoundEncoder {
 public:
  static constexpr int frameSamples = 1024;
  /// Takes a coded frame and the place of its first sample, counted from the start of the media, which begins with the
  /// priming.
  using Output = std::function<void(std::span<const std::uint8_t>, std::int64_t)>;

  static Result<std::unique_ptr<SoundEncoder>, MovieFailure> open(const MovieWriter::SoundSettings& settings);

  const std::vector<std::uint8_t>& configuration() const { return encoder_.configuration(); }
  /// Samples of the media before the first one that was put in.
  int priming() const { return encoder_.initialPadding(); }
  /// Seconds of sound so far.
  double position() const { return static_cast<double>(position_) / MovieWriter::sampleRate; }

  /// As MovieWriter::appendSound.
  Result<void, MovieFailure> encode(std::span<const float> samples, double time, const Output& output);
  Result<void, MovieFailure> finish(const Output& output);

 private:
  SoundEncoder(FrameEncoder encoder, int channels);
  /// `frames` frames, silence when `samples` is null.
  Result<void, MovieFailure> put(const float* samples, std::int64_t frames, const Output& output);
  Result<void, MovieFailure> encodeFrame(const Output& output);
  void receive(const Output& output);

  FrameEncoder encoder_;
  int channels_;
  FramePointer frame_;
  int filled_ = 0;             // frames of sound in frame_
  std::int64_t position_ = 0;  // all frames of sound
};

}  // namespace vellora
