#include <gtest/gtest.h>

#include "rtmp/wire/MediaTags.h"

namespace vellora {
namespace {

using std::chrono::milliseconds;

constexpr auto h264 = RTMPVideoCodec::h264;
constexpr auto hevc = RTMPVideoCodec::hevc;
constexpr auto aac = RTMPAudioCodec::aac;
constexpr auto opus = RTMPAudioCodec::opus;
const Bytes data{0xDE, 0xAD};

TEST(MediaTags, ClassicVideo) {
  EXPECT_EQ(videoSequenceHeader(h264, data), (Bytes{0x17, 0, 0, 0, 0, 0xDE, 0xAD}));
  EXPECT_EQ(videoFrameBody(h264, true, milliseconds(0x10203), data), (Bytes{0x17, 1, 1, 2, 3, 0xDE, 0xAD}));
  EXPECT_EQ(videoFrameBody(h264, false, milliseconds(-2), data), (Bytes{0x27, 1, 0xFF, 0xFF, 0xFE, 0xDE, 0xAD}));
  EXPECT_EQ(videoSequenceEnd(h264), (Bytes{0x17, 2, 0, 0, 0}));
}

TEST(MediaTags, ClassicAudio) {
  EXPECT_EQ(audioSequenceHeader(aac, data), (Bytes{0xAF, 0, 0xDE, 0xAD}));
  EXPECT_EQ(audioFrameBody(aac, data), (Bytes{0xAF, 1, 0xDE, 0xAD}));
  EXPECT_TRUE(audioSequenceEnd(aac).empty());
}

TEST(MediaTags, ExtendedVideo) {
  EXPECT_EQ(videoSequenceHeader(hevc, data), (Bytes{0x90, 'h', 'v', 'c', '1', 0xDE, 0xAD}));
  EXPECT_EQ(videoFrameBody(hevc, true, milliseconds(40), data),
            (Bytes{0x91, 'h', 'v', 'c', '1', 0, 0, 40, 0xDE, 0xAD}));
  EXPECT_EQ(videoFrameBody(hevc, false, milliseconds(-1), data),
            (Bytes{0xA1, 'h', 'v', 'c', '1', 0xFF, 0xFF, 0xFF, 0xDE, 0xAD}));
  EXPECT_EQ(videoFrameBody(hevc, false, {}, data), (Bytes{0xA3, 'h', 'v', 'c', '1', 0xDE, 0xAD}));
  EXPECT_EQ(videoSequenceEnd(hevc), (Bytes{0x92, 'h', 'v', 'c', '1'}));
  EXPECT_EQ(fourCcNumber("hvc1"), 1752589105U);
}

TEST(MediaTags, ExtendedAudio) {
  EXPECT_EQ(audioSequenceHeader(opus, data), (Bytes{0x90, 'O', 'p', 'u', 's', 0xDE, 0xAD}));
  EXPECT_EQ(audioFrameBody(opus, data), (Bytes{0x91, 'O', 'p', 'u', 's', 0xDE, 0xAD}));
  EXPECT_EQ(audioSequenceEnd(opus), (Bytes{0x92, 'O', 'p', 'u', 's'}));
}

TEST(MediaTags, CompositionOffsetsStayWithin24Bits) {
  const auto offset = [](milliseconds time) {
    const Bytes body = videoFrameBody(h264, true, time, {});
    return Bytes(body.begin() + 2, body.end());
  };
  const Bytes longest{0x7F, 0xFF, 0xFF}, earliest{0x80, 0, 0};
  EXPECT_EQ(offset(milliseconds(0x7FFFFF)), longest);
  EXPECT_EQ(offset(milliseconds(0x800000)), longest);
  EXPECT_EQ(offset(milliseconds::max()), longest);
  EXPECT_EQ(offset(milliseconds(-0x800000)), earliest);
  EXPECT_EQ(offset(milliseconds::min()), earliest);
}

}  // namespace
}  // namespace vellora
