#include "media/movies/Interleaver.h"

#include <gtest/gtest.h>

namespace vellora::test {
namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

QueuedPacket packetAt(MediaKind kind, milliseconds time, int bytes = 100) {
  PacketPointer packet(av_packet_alloc());
  EXPECT_EQ(av_new_packet(packet.get(), bytes), 0);
  return {std::move(packet), kind, {time, time + milliseconds(80), milliseconds(40)}};
}

class InterleaverTest : public testing::Test {
 protected:
  InterleaverTest() {
    interleaver.expect(MediaKind::video);
    interleaver.expect(MediaKind::audio);
  }
  milliseconds pop() {
    const auto packet = interleaver.pop();
    return packet ? std::chrono::duration_cast<milliseconds>(packet->times.decode) : milliseconds(-1);
  }

  Interleaver interleaver;
};

TEST_F(InterleaverTest, WaitsForBothKindsAndStartsAtTheEarlier) {
  interleaver.push(packetAt(MediaKind::video, milliseconds(-80)));
  interleaver.push(packetAt(MediaKind::video, milliseconds(-40)));
  EXPECT_FALSE(interleaver.isReady());
  interleaver.push(packetAt(MediaKind::audio, milliseconds(-100)));
  ASSERT_TRUE(interleaver.isReady());
  EXPECT_EQ(pop(), milliseconds(0));
  EXPECT_FALSE(interleaver.isReady());
  interleaver.finish(MediaKind::audio);
  EXPECT_TRUE(interleaver.isReady());
  EXPECT_EQ(pop(), milliseconds(20));
  EXPECT_EQ(pop(), milliseconds(60));
  EXPECT_EQ(pop(), milliseconds(-1));
}

TEST_F(InterleaverTest, HoldsNoMoreThanItsLimits) {
  for (int i = 0; i <= 10; ++i) interleaver.push(packetAt(MediaKind::video, std::chrono::seconds(i)));
  EXPECT_FALSE(interleaver.isReady());
  interleaver.push(packetAt(MediaKind::video, milliseconds(10001)));
  EXPECT_TRUE(interleaver.isReady());
  pop();
  EXPECT_FALSE(interleaver.isReady());

  Interleaver heavy;
  heavy.expect(MediaKind::video);
  heavy.expect(MediaKind::audio);
  const int megabyte = 1 << 20;
  for (int i = 0; i < 63; ++i) heavy.push(packetAt(MediaKind::video, milliseconds(i), megabyte));
  EXPECT_FALSE(heavy.isReady());
  heavy.push(packetAt(MediaKind::video, milliseconds(63), megabyte));
  EXPECT_TRUE(heavy.isReady());
  heavy.pop();
  EXPECT_FALSE(heavy.isReady());
}

TEST_F(InterleaverTest, LetsATrackThatComesTooLateGrowFromTheOrigin) {
  for (int i = 0; i <= 11; ++i) interleaver.push(packetAt(MediaKind::video, std::chrono::seconds(i)));
  pop();
  interleaver.push(packetAt(MediaKind::audio, milliseconds(-40)));
  interleaver.push(packetAt(MediaKind::audio, milliseconds(-20)));
  const auto first = interleaver.pop();
  const auto second = interleaver.pop();
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first->times.decode, microseconds(0));
  EXPECT_EQ(first->times.presentation, milliseconds(40));
  EXPECT_EQ(second->times.decode, microseconds(1));
}

}  // namespace
}  // namespace vellora::test
