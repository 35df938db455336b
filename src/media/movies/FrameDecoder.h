#pragma once

#include <memory>
#include <utility>

#include "base/Result.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/MovieFile.h"

namespace vellora {

/// Decodes one track. Time stamps of what goes in and comes out are microseconds.
class FrameDecoder {
 public:
  enum class Latency { any, low };  ///< low: one frame at a time, for tracks with seconds between frames

  /// Which of a packet's times the frames are to get theirs from.
  enum class Stamps { presentation, decode };

  /// Unsupported when there is no decoder.
  static Result<FrameDecoder, MediaFailure> open(const MovieFile& file, MediaKind kind, Latency latency);

  /// Takes the packet's bytes; what cannot be decoded is left out. All frames have to be received in between.
  void send(QueuedPacket packet, Stamps stamps = Stamps::presentation);
  /// No packet follows: the frames still held come out.
  void finish();
  /// The next frame, valid until the next call; null when more packets are needed.
  const AVFrame* receive();

 private:
  FrameDecoder(CodecPointer codec, FramePointer frame) : codec_(std::move(codec)), frame_(std::move(frame)) {}

  CodecPointer codec_;
  FramePointer frame_;
};

}  // namespace vellora
