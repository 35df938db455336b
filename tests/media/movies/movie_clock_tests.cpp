#include "media/movies/MovieClock.h"

#include <gtest/gtest.h>

namespace vellora::test {
namespace {

using std::chrono::microseconds;

/// A clock with video of 25 frames a second and audio of 20 ms, times in milliseconds.
class ClockTest : public testing::Test {
 protected:
  explicit ClockTest(bool mayJump = false) {
    clock.addTrack(MediaKind::video, {{1, 1000}, microseconds(40000), 1, mayJump});
    clock.addTrack(MediaKind::audio, {{1, 1000}, microseconds(20000), 0, mayJump});
  }

  PacketTimes next(MediaKind kind, std::int64_t decode, std::int64_t presentation) {
    AVPacket packet{};
    packet.dts = decode;
    packet.pts = presentation;
    return clock.next(kind, packet);
  }
  std::int64_t video(std::int64_t time) { return next(MediaKind::video, time, time).decode.count() / 1000; }
  std::int64_t audio(std::int64_t time) { return next(MediaKind::audio, time, time).decode.count() / 1000; }

  static constexpr std::int64_t none = AV_NOPTS_VALUE;
  MovieClock clock;
};

class JumpingClockTest : public ClockTest {
 protected:
  JumpingClockTest() : ClockTest(true) {}
};

TEST_F(ClockTest, FillsInWhatIsMissing) {
  const auto first = next(MediaKind::video, none, 80);
  EXPECT_EQ(first.decode, microseconds(40000));  // one picture earlier: the file's pictures change places
  EXPECT_EQ(first.presentation, microseconds(80000));
  EXPECT_EQ(next(MediaKind::video, none, none).decode, microseconds(80000));
  EXPECT_EQ(next(MediaKind::video, none, 200).decode, microseconds(120000));
  EXPECT_EQ(next(MediaKind::audio, none, 15).decode, microseconds(15000));
  EXPECT_EQ(next(MediaKind::audio, none, none).decode, microseconds(35000));
}

TEST_F(ClockTest, LetsTimesGrowAndNothingBeShownBeforeItIsDecoded) {
  EXPECT_EQ(next(MediaKind::video, 100, 100).decode, microseconds(100000));
  EXPECT_EQ(next(MediaKind::video, 100, 140).decode, microseconds(100001));
  EXPECT_EQ(next(MediaKind::video, 60, 60).decode, microseconds(100002));
  const auto early = next(MediaKind::video, 200, 160);
  EXPECT_EQ(early.decode, microseconds(160000));
  EXPECT_EQ(early.presentation, microseconds(160000));
  EXPECT_EQ(next(MediaKind::video, INT64_MAX - 5, INT64_MIN + 5).decode, microseconds(200000));  // no times at all
}

TEST_F(ClockTest, GoesOnTheSameInBothTracksWhenTheFileStartsAnew) {
  video(60000);
  audio(59990);
  EXPECT_EQ(video(0), 60040);
  EXPECT_EQ(audio(60010), 60010);  // the other track is still before the new start
  EXPECT_EQ(audio(5), 60045);
  EXPECT_EQ(video(40), 60080);
  EXPECT_EQ(audio(25), 60065);
}

TEST_F(ClockTest, KeepsPausesUnlessTheFormatsClockJumps) {
  video(0);
  EXPECT_EQ(video(60000), 60000);
  EXPECT_EQ(video(34'000'000), 60040);  // nobody waits for hours
}

TEST_F(JumpingClockTest, ClosesJumpsAhead) {
  video(0);
  audio(0);
  EXPECT_EQ(video(9000), 9000);
  EXPECT_EQ(audio(9000), 9000);
  EXPECT_EQ(video(95443000), 9040);
  EXPECT_EQ(audio(95442990), 9030);
}

}  // namespace
}  // namespace vellora::test
