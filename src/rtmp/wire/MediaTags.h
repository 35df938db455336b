#pragma once

#include <chrono>
#include <cstdint>

#include "rtmp/wire/Bytes.h"

namespace vellora {

enum class RTMPVideoCodec { h264, hevc };
enum class RTMPAudioCodec { aac, opus };

/// Bodies of audio and video messages: for H.264 and AAC the classic ones of the published "Adobe Flash Video File
/// Format Specification 10.1" (annex E), for HEVC ("hvc1") and Opus the extended ones of the published "Enhanced RTMP"
/// (v1 and v2).

/// The decoder configuration (avcC or hvcC record), to be sent before the first frame.
Bytes videoSequenceHeader(RTMPVideoCodec codec, ByteView configuration);
/// One frame of length-prefixed NAL units. `compositionOffset`: presentation time minus decode time, at most 24 bits
/// with sign; what is beyond is shortened to that.
Bytes videoFrameBody(RTMPVideoCodec codec, bool isKeyFrame, std::chrono::milliseconds compositionOffset,
                     ByteView frame);
/// After the last frame.
Bytes videoSequenceEnd(RTMPVideoCodec codec);

/// The AudioSpecificConfig of AAC, or the OpusHead of Opus.
Bytes audioSequenceHeader(RTMPAudioCodec codec, ByteView configuration);
/// One raw AAC frame (no ADTS) or Opus packet.
Bytes audioFrameBody(RTMPAudioCodec codec, ByteView frame);
/// After the last frame. Empty for AAC, which has no such tag.
Bytes audioSequenceEnd(RTMPAudioCodec codec);

/// "hvc1" as the number metadata calls it by.
std::uint32_t fourCcNumber(const char (&fourCc)[5]);

}  // namespace vellora
