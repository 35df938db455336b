#include <gtest/gtest.h>

#include "recording/DiskWatch.h"

namespace vellora {
namespace {

constexpr std::int64_t megabyte = 1 << 20;
using Advice = DiskWatch::Advice;

TEST(DiskWatchTest, warnsOnceFiveMinutesBeforeTheDiskIsFullAndStopsInTime) {
  DiskWatch watch(megabyte);
  std::int64_t free = DiskWatch::reserve + 400 * megabyte;
  double warnedAt = -1;
  double stoppedAt = -1;
  int warnings = 0;
  for (double time = 0; stoppedAt < 0 && time < 1000; time += 2) {
    const auto advice = watch.look(time, std::int64_t(time) * megabyte, free - std::int64_t(time) * megabyte);
    if (advice == Advice::low) {
      ++warnings;
      warnedAt = time;
    }
    if (advice == Advice::full) stoppedAt = time;
  }
  EXPECT_EQ(warnings, 1);
  EXPECT_NEAR(warnedAt, 100, 2);
  EXPECT_EQ(stoppedAt, 400);
}

TEST(DiskWatchTest, believesWhatItMeasures) {
  DiskWatch watch(megabyte);
  // Four times the expected rate, and others fill the disk too.
  for (double time = 0; time <= 20; time += 2) {
    watch.look(time, std::int64_t(time * 4) * megabyte, DiskWatch::reserve + 2000 * megabyte);
  }
  EXPECT_NEAR(watch.remaining(), 500, 1);
  EXPECT_EQ(watch.look(22, 88 * megabyte, DiskWatch::reserve), Advice::full);
}

}  // namespace
}  // namespace vellora
