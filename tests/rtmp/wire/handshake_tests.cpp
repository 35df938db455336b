#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <numeric>

#include "rtmp/wire/RTMPHandshake.h"

namespace vellora {
namespace {

Bytes slice(const Bytes& bytes, std::size_t from, std::size_t count) {
  const auto start = bytes.begin() + static_cast<std::ptrdiff_t>(from);
  return {start, start + static_cast<std::ptrdiff_t>(count)};
}

TEST(Handshake, StartsWithVersionTimeZerosAndRandomBytes) {
  RTMPHandshake handshake;
  handshake.timestamp = 1700000000.9;
  const Bytes packet = handshake.c0c1packet();
  ASSERT_EQ(packet.size(), 1537U);
  EXPECT_EQ(slice(packet, 0, 9), (Bytes{3, 0x65, 0x53, 0xF1, 0x00, 0, 0, 0, 0}));
  // 1528 bytes of 0 to 255 have 1528/256 of each on average; 40 of one never happen.
  int counts[256] = {};
  for (const std::uint8_t byte : slice(packet, 9, 1528)) ++counts[byte];
  EXPECT_LT(*std::max_element(std::begin(counts), std::end(counts)), 40);
  EXPECT_NE(packet, handshake.c0c1packet());
}

TEST(Handshake, AnswersWithWhatTheServerSaid) {
  RTMPHandshake handshake;
  handshake.timestamp = 1000;
  Bytes& input = handshake.inputBuffer;
  input.resize(1536);
  std::iota(input.begin(), input.end(), std::uint8_t{3});
  EXPECT_TRUE(handshake.c2packet(1000).empty());
  EXPECT_EQ(input.size(), 1536U);
  input.push_back(0x77);
  input.push_back(0x88);
  const Bytes server = input;
  const Bytes packet = handshake.c2packet(1258.75);
  ASSERT_EQ(packet.size(), 1536U);
  EXPECT_EQ(slice(packet, 0, 4), slice(server, 1, 4));
  EXPECT_EQ(slice(packet, 4, 4), (Bytes{0, 0, 1, 2}));
  EXPECT_EQ(slice(packet, 8, 1528), slice(server, 9, 1528));
  EXPECT_EQ(input, Bytes{0x88});
}

TEST(Handshake, SaysTimesOutOfRangeAsTheNearestThereIs) {
  RTMPHandshake handshake;
  const auto time = [&handshake](double seconds) {
    handshake.timestamp = seconds;
    return slice(handshake.c0c1packet(), 1, 4);
  };
  const Bytes latest{0x7F, 0xFF, 0xFF, 0xFF}, earliest{0x80, 0, 0, 0};
  EXPECT_EQ(time(2147483648.0), latest);
  EXPECT_EQ(time(std::numeric_limits<double>::infinity()), latest);
  EXPECT_EQ(time(-1e300), earliest);
  EXPECT_EQ(time(-1.5), (Bytes{0xFF, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(time(std::numeric_limits<double>::quiet_NaN()), Bytes(4));
}

}  // namespace
}  // namespace vellora
