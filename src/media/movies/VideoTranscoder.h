#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

#include "media/movies/FrameDecoder.h"
#include "media/movies/FrameEncoder.h"
#include "media/movies/MovieFile.h"
#include "media/movies/PictureConverter.h"
#include "media/movies/Transcoder.h"

namespace vellora {

/// Makes H.264 of any video: High profile, 8 bits and 4:2:0, no B-frames, a key frame every two seconds, and a bit rate
/// that goes with size and frame rate. Frames keep their times, whether these are regular or not. Colours are tagged as
/// the file has them, HDR included; interlaced pictures are encoded as they are, both fields in one.
class VideoTranscoder : public Transcoder {
 public:
  static Result<std::unique_ptr<Transcoder>, MediaFailure> create(const MovieFile& file);

  const MediaTrack& description() const override { return description_; }
  Result<void, MediaFailure> put(QueuedPacket packet, Interleaver& output) override;
  Result<void, MediaFailure> finish(Interleaver& output) override;

 private:
  VideoTranscoder(FrameDecoder decoder, FrameEncoder encoder, PictureConverter converter, MediaTrack description,
                  bool lacksPresentationTimes);

  Result<void, MediaFailure> encodeDecoded(Interleaver& output);
  void collect(Interleaver& output);
  std::int64_t timeOf(const AVFrame& frame);

  FrameDecoder decoder_;
  FrameEncoder encoder_;
  PictureConverter converter_;
  MediaTrack description_;
  bool lacksPresentationTimes_;
  std::int64_t nominal_;  // all microseconds
  std::int64_t step_;     // between the last two frames
  std::optional<std::int64_t> firstDecode_, decoderDelay_;
  std::optional<std::int64_t> last_, lastKey_;
  std::deque<std::int64_t> durations_;  // of the frames in the encoder
};

}  // namespace vellora
