#pragma once

#include <memory>
#include <utility>

#include "base/Result.h"
#include "media/movies/Interleaver.h"
#include "media/movies/LibavPointers.h"
#include "media/movies/PacketFormat.h"

namespace vellora {

/// An encoder that is set up, with the form of packets a reader gives out.
class FrameEncoder {
 public:
  /// Opens what the caller has set up. Unsupported when the encoder refuses it. Takes `options` over.
  static Result<FrameEncoder, MediaFailure> open(CodecPointer codec, MediaKind kind, AVDictionary* options);

  const std::vector<std::uint8_t>& configuration() const { return form_->configuration(); }
  int frameSize() const { return codec_->frame_size; }
  /// Samples of sound that come out before the first one put in.
  int initialPadding() const { return codec_->initial_padding; }

  /// Null at the end. Time stamps count in the codec's time base.
  Result<void, MediaFailure> send(const AVFrame* frame);
  /// The next packet, its times in microseconds; nothing when more frames are needed.
  std::optional<QueuedPacket> receive();

 private:
  FrameEncoder(CodecPointer codec, MediaKind kind, std::unique_ptr<PacketFormat> form)
      : codec_(std::move(codec)), kind_(kind), form_(std::move(form)) {}

  CodecPointer codec_;
  MediaKind kind_;
  std::unique_ptr<PacketFormat> form_;
};

/// A codec context to set up, or null where the encoder is missing.
CodecPointer encoderNamed(const char* name);

}  // namespace vellora
