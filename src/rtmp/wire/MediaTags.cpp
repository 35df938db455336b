#include "rtmp/wire/MediaTags.h"

#include <algorithm>
#include <initializer_list>

namespace vellora {
namespace {

enum FrameType : std::uint8_t { keyFrame = 1, interFrame = 2 };
enum CodecId : std::uint8_t { avc = 7 };
enum AVCPacketType : std::uint8_t { avcSequenceHeader = 0, avcNalUnits = 1, avcSequenceEnd = 2 };
enum AACPacketType : std::uint8_t { aacSequenceHeader = 0, aacRaw = 1 };
enum VideoPacketType : std::uint8_t {
  videoSequenceStart = 0,
  videoCodedFrames = 1,
  videoEnd = 2,
  videoCodedFramesX = 3
};
enum AudioPacketType : std::uint8_t { audioSequenceStart = 0, audioCodedFrames = 1, audioEnd = 2 };

/// AAC, 44 kHz, 16 bits, stereo: what every AAC tag says, whatever the stream really is.
constexpr std::uint8_t aacTag = 0xAF;
constexpr std::uint8_t extendedVideo = 0x80;
constexpr std::uint8_t extendedAudio = 9 << 4;

Bytes body(std::initializer_list<std::uint8_t> header, ByteView rest) {
  Bytes bytes;
  bytes.reserve(header.size() + rest.size());
  bytes.insert(bytes.end(), header);
  bytes.insert(bytes.end(), rest.begin(), rest.end());
  return bytes;
}

/// The bytes of a signed 24-bit number, highest first.
struct Offset {
  explicit Offset(std::chrono::milliseconds offset) {
    const auto bits = static_cast<std::uint32_t>(std::clamp<std::int64_t>(offset.count(), -0x800000, 0x7FFFFF));
    high = static_cast<std::uint8_t>(bits >> 16);
    middle = static_cast<std::uint8_t>(bits >> 8);
    low = static_cast<std::uint8_t>(bits);
  }
  std::uint8_t high, middle, low;
};

Bytes avcBody(FrameType frame, AVCPacketType packet, std::chrono::milliseconds compositionOffset, ByteView rest) {
  const Offset offset(compositionOffset);
  return body({static_cast<std::uint8_t>(frame << 4 | avc), packet, offset.high, offset.middle, offset.low}, rest);
}

Bytes hevcBody(FrameType frame, VideoPacketType packet, ByteView rest) {
  return body({static_cast<std::uint8_t>(extendedVideo | frame << 4 | packet), 'h', 'v', 'c', '1'}, rest);
}

Bytes opusBody(AudioPacketType packet, ByteView rest) {
  return body({static_cast<std::uint8_t>(extendedAudio | packet), 'O', 'p', 'u', 's'}, rest);
}

}  // namespace

Bytes videoSequenceHeader(RTMPVideoCodec codec, ByteView configuration) {
  if (codec == RTMPVideoCodec::hevc) return hevcBody(keyFrame, videoSequenceStart, configuration);
  return avcBody(keyFrame, avcSequenceHeader, {}, configuration);
}

Bytes videoFrameBody(RTMPVideoCodec codec, bool isKeyFrame, std::chrono::milliseconds compositionOffset,
                     ByteView frame) {
  const FrameType type = isKeyFrame ? keyFrame : interFrame;
  if (codec == RTMPVideoCodec::h264) return avcBody(type, avcNalUnits, compositionOffset, frame);
  if (compositionOffset.count() == 0) return hevcBody(type, videoCodedFramesX, frame);
  const Offset offset(compositionOffset);
  const auto first = static_cast<std::uint8_t>(extendedVideo | type << 4 | videoCodedFrames);
  return body({first, 'h', 'v', 'c', '1', offset.high, offset.middle, offset.low}, frame);
}

Bytes videoSequenceEnd(RTMPVideoCodec codec) {
  if (codec == RTMPVideoCodec::hevc) return hevcBody(keyFrame, videoEnd, {});
  return avcBody(keyFrame, avcSequenceEnd, {}, {});
}

Bytes audioSequenceHeader(RTMPAudioCodec codec, ByteView configuration) {
  if (codec == RTMPAudioCodec::opus) return opusBody(audioSequenceStart, configuration);
  return body({aacTag, aacSequenceHeader}, configuration);
}

Bytes audioFrameBody(RTMPAudioCodec codec, ByteView frame) {
  if (codec == RTMPAudioCodec::opus) return opusBody(audioCodedFrames, frame);
  return body({aacTag, aacRaw}, frame);
}

Bytes audioSequenceEnd(RTMPAudioCodec codec) {
  if (codec == RTMPAudioCodec::opus) return opusBody(audioEnd, {});
  return {};
}

std::uint32_t fourCcNumber(const char (&fourCc)[5]) {
  std::uint32_t number = 0;
  for (int i = 0; i < 4; ++i) number = number << 8 | static_cast<std::uint8_t>(fourCc[i]);
  return number;
}

}  // namespace vellora
