#include <gtest/gtest.h>

#include "rtmp/wire/RTMPTimestamp.h"

namespace vellora {
namespace {

using std::chrono::hours;
using std::chrono::microseconds;

TEST(Timestamp, RoundsFromTheStartSoThatNothingAddsUp) {
  RTMPTimestamp timestamp;
  std::uint64_t sum = 0;
  for (std::int64_t frame = 0; frame <= 30 * 3600; ++frame) {
    sum += timestamp.update(microseconds(frame * 1'000'000 / 30));
    ASSERT_EQ(sum, timestamp.value());
    ASSERT_LE(sum * 1000, static_cast<std::uint64_t>(frame * 1'000'000 / 30) + 500);
  }
  EXPECT_EQ(sum, 3'600'000U);
}

TEST(Timestamp, StartsAtZeroAndNeverGoesBack) {
  RTMPTimestamp timestamp;
  EXPECT_EQ(timestamp.update(microseconds(21'333)), 0U);
  EXPECT_EQ(timestamp.update(microseconds(42'666)), 43U) << "the second message is where it belongs";
  EXPECT_EQ(timestamp.update(microseconds(30'000)), 0U);
  EXPECT_EQ(timestamp.update(microseconds::min()), 0U);
  EXPECT_EQ(timestamp.update(microseconds(43'499)), 0U);
  EXPECT_EQ(timestamp.update(microseconds(43'500)), 1U);
}

TEST(Timestamp, GoesOnPastWhat24BitsHoldAndMakesUpForGaps) {
  RTMPTimestamp timestamp;
  std::uint64_t sum = 0;
  for (int minute = 0; minute <= 60 * 24 * 30; ++minute) sum += timestamp.update(std::chrono::minutes(minute));
  EXPECT_EQ(sum, 30ULL * 24 * 3600 * 1000);

  RTMPTimestamp sleeper;
  sleeper.update({});
  EXPECT_EQ(sleeper.update(hours(5)), RTMPTimestamp::maximumDelta);
  EXPECT_EQ(sleeper.update(hours(5)), 5U * 3600 * 1000 - RTMPTimestamp::maximumDelta);
  EXPECT_EQ(sleeper.update(microseconds::max()), RTMPTimestamp::maximumDelta);
}

}  // namespace
}  // namespace vellora
