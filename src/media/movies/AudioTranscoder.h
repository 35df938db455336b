#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "media/movies/FrameDecoder.h"
#include "media/movies/FrameEncoder.h"
#include "media/movies/MovieFile.h"
#include "media/movies/Transcoder.h"

namespace vellora {

/// Makes AAC-LC of any audio: 128 kbit/s at 44.1 or 48 kHz with up to two channels. Gaps stay gaps in the time stamps;
/// what overlaps is left out.
class AudioTranscoder : public Transcoder {
 public:
  static Result<std::unique_ptr<Transcoder>, MediaFailure> create(const MovieFile& file);
  ~AudioTranscoder() override;

  const MediaTrack& description() const override { return description_; }
  Result<void, MediaFailure> put(QueuedPacket packet, Interleaver& output) override;
  Result<void, MediaFailure> finish(Interleaver& output) override;

 private:
  AudioTranscoder(FrameDecoder decoder, FrameEncoder encoder, SampleQueuePointer samples, MediaTrack description);

  Result<void, MediaFailure> encodeDecoded(Interleaver& output);
  Result<void, MediaFailure> take(const AVFrame& frame, Interleaver& output);
  /// Makes the resampler fit the frame; false when it cannot.
  bool prepareResampler(const AVFrame& frame);
  /// Converts a frame, or with null what the resampler still holds, into samples_.
  Result<void, MediaFailure> convert(const AVFrame* frame);
  Result<void, MediaFailure> encodeWholeFrames(Interleaver& output);
  /// Encodes all that is held, the last frame filled up with silence.
  Result<void, MediaFailure> encodeRest(Interleaver& output);
  Result<void, MediaFailure> encodeFrame(int count, Interleaver& output);

  FrameDecoder decoder_;
  FrameEncoder encoder_;
  SampleQueuePointer samples_;
  MediaTrack description_;
  ResamplerPointer resampler_;
  // What the resampler is set to.
  int format_ = -1;
  int rate_ = 0;
  AVChannelLayout layout_{};
  std::optional<std::int64_t> position_;  // of the first sample held, in samples of the output
};

}  // namespace vellora
