#include <gtest/gtest.h>

#include "record_editor/SubRipTime.h"
#include "record_editor/TrimSyncFile.h"

namespace vellora {
namespace {

TrimElement trim(double start, double end, std::optional<QString> note = {}) {
  return {QUuid::createUuid(), start, end, std::move(note)};
}

TEST(SubRipTimeTest, writesMilliseconds) {
  EXPECT_EQ(SubRipTime::format(3725.4567), QStringLiteral("01:02:05,457"));
  EXPECT_EQ(SubRipTime::format(-1), QStringLiteral("00:00:00,000"));
  EXPECT_EQ(SubRipTime::format(59.9996), QStringLiteral("00:01:00,000"));
  EXPECT_EQ(SubRipTime::format(360'000), QStringLiteral("100:00:00,000"));
  EXPECT_EQ(SubRipTime::format(std::numeric_limits<double>::infinity()), QStringLiteral("00:00:00,000"));
}

TEST(SubRipTimeTest, readsRangesAsPeopleWriteThem) {
  const auto range = SubRipTime::firstRange(QStringLiteral("x 00:00:01.5-->123:00:02,25"));
  ASSERT_TRUE(range.has_value());
  EXPECT_EQ(range->start, 1.5);
  EXPECT_EQ(range->end, 123 * 3600 + 2.25);
  EXPECT_EQ(range->position, 2);
  EXPECT_FALSE(SubRipTime::firstRange(QStringLiteral("00:00:01 --> 00:00:02")).has_value());
}

TEST(TrimSyncFileTest, writesOneSortedLineACutAndReadsItBackUnchanged) {
  const std::vector<TrimElement> trims{trim(63.5, 64.1), trim(12.34, 15.02, QStringLiteral("said\ntwice")),
                                       trim(0.0004, 360'000)};
  const QByteArray text = TrimSyncFile::serialize(trims);
  EXPECT_EQ(text,
            "00:00:00,000 --> 100:00:00,000\n"
            "00:00:12,340 --> 00:00:15,020  said twice\n"
            "00:01:03,500 --> 00:01:04,100\n");
  // Identities, finer times and notes come from what is known.
  EXPECT_EQ(TrimSyncFile::parse(text, trims).trims, (std::vector<TrimElement>{trims[2], trims[1], trims[0]}));
  EXPECT_EQ(TrimSyncFile::serialize(TrimSyncFile::parse(text).trims), text);
  EXPECT_TRUE(TrimSyncFile::serialize({}).isEmpty());
}

TEST(TrimSyncFileTest, skipsLinesThatAreNoCuts) {
  const QByteArray text =
      "\xEF\xBB\xBF# comment\r\n"
      "\r\n"
      "  00:00:01.5 --> 00:00:02,25\tno good\r\n"
      "00:00:03,000 --> 00:00:03,000\n"
      "00:00:05,000 --> 00:00:04,000 backwards\n"
      "from 00:00:06,000 --> 00:00:07,000\n"
      "00:00:08,000 --> 00:00:09,000glued\n"
      "\xFF\xFE\n"
      "999999999:00:00,000 --> 999999999:00:01,000\n" +
      QByteArray(20'000, 'x') +
      "\n"
      "00:00:10,000-->00:00:11,000";
  const auto [trims, skipped] = TrimSyncFile::parse(text);
  ASSERT_EQ(trims.size(), 2U);
  EXPECT_EQ(trims[0].start, 1.5);
  EXPECT_EQ(trims[0].note, QStringLiteral("no good"));
  EXPECT_EQ(trims[1].end, 11);
  EXPECT_EQ(skipped, (std::vector{4, 5, 6, 7, 8, 9, 10}));
}

}  // namespace
}  // namespace vellora
