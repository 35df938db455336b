#include "media/movies/NalUnits.h"

#include <gtest/gtest.h>

#include <random>

namespace vellora::test {
namespace {

using Bytes = std::span<const std::uint8_t>;
using Data = std::vector<std::uint8_t>;

std::vector<Data> copies(const std::vector<Bytes>& units) {
  std::vector<Data> copied;
  for (const Bytes unit : units) copied.emplace_back(unit.begin(), unit.end());
  return copied;
}

TEST(NalUnits, SplitsByteStreamsAtEveryKindOfStartCode) {
  const Data stream{9, 9, 0, 0, 1, 0x67, 1, 0, 0, 0, 1, 0x68, 0, 2, 0, 0, 0, 0, 0, 1, 0, 0, 1, 0x65, 0, 0, 3, 1, 0, 0};
  std::vector<Bytes> units;
  splitByteStream(stream, units);
  EXPECT_EQ(copies(units), (std::vector<Data>{{0x67, 1}, {0x68, 0, 2}, {0x65, 0, 0, 3, 1}}));
}

TEST(NalUnits, RefusesLengthsThatDoNotFit) {
  std::vector<Bytes> units;
  const Data good{0, 2, 7, 8, 0, 0};
  EXPECT_TRUE(splitLengthPrefixed(good, 2, units));
  EXPECT_EQ(copies(units), (std::vector<Data>{{7, 8}, {}}));
  for (const Data& bad : {Data{0}, Data{0, 2, 7}, Data{0xFF, 0xFF, 1, 2}, Data{0, 1, 1, 0}}) {
    EXPECT_FALSE(splitLengthPrefixed(bad, 2, units));
  }
}

TEST(NalUnits, WritesWhatItReads) {
  // High profile, 4:2:2 with 10 bits: ue(0) ue(2) ue(2) ue(2).
  const Data sequence{0x67, 122, 0, 31, 0b10110110, 0b11000000, 0x80};
  const Data picture{0x68, 0xCE};
  ParameterSets sets;
  sets.collect(std::vector<Bytes>{sequence, picture, sequence}, NalCodec::h264);
  const auto record = sets.configuration(NalCodec::h264);
  ASSERT_TRUE(record);
  EXPECT_EQ(*record, (Data{1,          122,  0,    31, 0xFF, 0xE1, 0,    7,    0x67, 122,  0,    31,
                           0b10110110, 0xC0, 0x80, 1,  0,    2,    0x68, 0xCE, 0xFE, 0xFA, 0xFA, 0}));
  EXPECT_EQ(copies(unitsOfConfiguration(*record, NalCodec::h264)), (std::vector<Data>{sequence, picture}));
}

TEST(NalUnits, ReadsAnythingWithoutHarm) {
  std::mt19937 random(3);
  for (int i = 0; i < 20000; ++i) {
    Data bytes(random() % 60);
    for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() % 4 == 0 ? random() : random() % 3);
    for (const NalCodec codec : {NalCodec::h264, NalCodec::hevc}) {
      if (!bytes.empty()) bytes[0] = codec == NalCodec::h264 ? 0x67 : 0x42;
      ParameterSets sets;
      sets.video = {{0x40}};
      sets.sequence = {bytes};
      sets.picture = {{0x68}};
      sets.configuration(codec);
      std::size_t total = 0;
      for (const Bytes unit : unitsOfConfiguration(bytes, codec)) total += unit.size();
      EXPECT_LE(total, bytes.size());
    }
  }
}

}  // namespace
}  // namespace vellora::test
