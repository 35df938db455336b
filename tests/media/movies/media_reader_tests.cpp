#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include "MovieSamples.h"
#include "media/movies/MediaReader.h"

namespace vellora::test {
namespace {

std::unique_ptr<MediaReader> opened(const std::filesystem::path& file) {
  auto reader = MediaReader::open(file);
  if (!reader) {
    ADD_FAILURE() << file << ": " << reader.error().message;
    return nullptr;
  }
  return std::move(*reader);
}

/// Containers round their times each on their own.
constexpr std::int64_t rounding = 2;

/// Same packets as ffprobe finds, all times moved by the same amount so that the first one decodes at 0.
void expectAsProbed(const std::filesystem::path& file, bool withBytes, bool withDecodeTimes = true) {
  SCOPED_TRACE(file.filename());
  const auto reader = opened(file);
  ASSERT_NE(reader, nullptr);
  const ReadMovie movie = readAll(*reader);
  EXPECT_FALSE(movie.failure);
  EXPECT_TRUE(movie.isInOrder);
  auto probed = probePackets(file);
  ASSERT_EQ(movie.video.size(), probed[MediaKind::video].size());
  ASSERT_EQ(movie.audio.size(), probed[MediaKind::audio].size());

  std::optional<std::int64_t> shift;
  std::int64_t first = INT64_MAX;
  for (const MediaKind kind : {MediaKind::video, MediaKind::audio}) {
    const auto& packets = kind == MediaKind::video ? movie.video : movie.audio;
    for (std::size_t i = 0; i < packets.size(); ++i) {
      SCOPED_TRACE(i);
      const ProbedPacket& expected = probed[kind][i];
      first = std::min(first, packets[i].decode);
      EXPECT_EQ(packets[i].isKeyFrame, expected.isKeyFrame);
      EXPECT_LE(packets[i].decode, packets[i].presentation);
      EXPECT_GT(packets[i].duration, 0);
      EXPECT_TRUE(!withBytes || packets[i].data.size() == expected.bytes);
      EXPECT_TRUE(i == 0 || packets[i].decode > packets[i - 1].decode);
      if (expected.presentation) {
        if (!shift) shift = packets[i].presentation - *expected.presentation;
        EXPECT_LE(std::abs(packets[i].presentation - *expected.presentation - *shift), rounding);
      }
      if (expected.decode && shift && withDecodeTimes) {
        EXPECT_LE(std::abs(packets[i].decode - *expected.decode - *shift), rounding);
      }
    }
  }
  EXPECT_EQ(first, 0);
}

TEST(MediaReader, ReadsEveryContainerAsItIs) {
  expectAsProbed(plainMovie(), true);
  for (const char* name : {"copy.mov", "copy.mkv", "copy.flv"}) expectAsProbed(copiedSample(name), true);
  expectAsProbed(copiedSample("fragments.mp4", "-movflags frag_keyframe+empty_moov"), true);
  expectAsProbed(copiedSample("copy.ts"), false);  // other bytes: no start codes, no ADTS
  expectAsProbed(copiedSample("audio.m4a", "-vn"), true);
  expectAsProbed(copiedSample("video.mkv", "-an"), true);
  expectAsProbed(makeSample("web.webm", "-i @plain.mp4 -c:v libvpx-vp9 -deadline realtime -cpu-used 8 -c:a libopus"),
                 true);
  expectAsProbed(makeSample("old.avi", "-i @plain.mp4 -c:v mpeg4 -c:a libmp3lame"), true);
  expectAsProbed(makeSample("sound.mp3", "-i @plain.mp4 -vn"), true);
  expectAsProbed(makeSample("sound.ogg", "-i @plain.mp4 -vn -c:a libopus"), true);
  expectAsProbed(makeSample("sound.wav", "-i @plain.mp4 -vn"), true);
}

TEST(MediaReader, KeepsTheOffsetOfSoundAndUnevenFrames) {
  plainMovie();
  for (const char* name : {"late.mp4", "late.mkv", "late.ts"}) {
    const auto file = makeSample(name, "-i @plain.mp4 -itsoffset 1.25 -i @plain.mp4 -map 0:v -map 1:a -c copy");
    expectAsProbed(file, false);
  }
  // Sound first, by more than is held back, and by more than ffprobe looks ahead for the pictures' delay.
  expectAsProbed(
      makeSample("late-video.mkv",
                 "-f lavfi -i sine=r=48000:d=14 -itsoffset 12 -i @plain.mp4 -map 0:a -map 1:v -c:v copy -c:a "
                 "libopus -b:a 16k"),
      true, false);
  for (const char* name : {"uneven.mp4", "uneven.mkv"}) {
    expectAsProbed(makeSample(name, "-i @plain.mp4 -vf select='gt(mod(n,7),2)' -vsync vfr -c:v libx264 -c:a copy"),
                   true);
  }
}

TEST(MediaReader, DescribesTracksTheSameInEveryContainer) {
  const auto plain = opened(plainMovie());
  ASSERT_NE(plain, nullptr);
  const MediaTrack& video = *plain->video();
  const MediaTrack& audio = *plain->audio();
  EXPECT_EQ(video.codec, "h264");
  EXPECT_EQ(video.width, 192);
  EXPECT_EQ(video.height, 108);
  EXPECT_NEAR(video.frameRate, 25, 0.01);
  EXPECT_EQ(audio.codec, "aac");
  EXPECT_EQ(audio.sampleRate, 44100);
  EXPECT_EQ(audio.channels, 1);
  EXPECT_NEAR(static_cast<double>(plain->duration().count()), 2e6, 5e4);

  // From parameter sets and ADTS headers in the packets, to the byte what the muxer of the other file wrote.
  const auto stream = opened(copiedSample("copy.ts"));
  ASSERT_NE(stream, nullptr);
  EXPECT_EQ(stream->video()->configuration, video.configuration);
  const auto& full = audio.configuration;  // may say more, such as that there is no extension
  EXPECT_THAT(full, testing::Not(testing::IsEmpty()));
  EXPECT_EQ(stream->audio()->configuration, std::vector<std::uint8_t>(full.begin(), full.begin() + 2));
}

TEST(MediaReader, TurnsByteStreamsIntoTheSameUnits) {
  const auto plain = opened(plainMovie());
  const auto stream = opened(copiedSample("copy.ts"));
  ASSERT_TRUE(plain && stream);
  const ReadMovie expected = readAll(*plain);
  const ReadMovie movie = readAll(*stream);
  ASSERT_EQ(movie.video.size(), expected.video.size());
  const auto isRepeated = [](const std::vector<std::uint8_t>& unit) {
    const int type = unit.at(0) & 0x1F;
    EXPECT_NE(type, 9);
    return type == 7 || type == 8;
  };
  for (std::size_t i = 0; i < movie.video.size(); ++i) {
    auto units = unitsOf(movie.video[i]);
    std::erase_if(units, isRepeated);
    EXPECT_EQ(units, unitsOf(expected.video[i])) << i;
  }
  ASSERT_EQ(movie.audio.size(), expected.audio.size());
  for (std::size_t i = 0; i < movie.audio.size(); ++i) EXPECT_EQ(movie.audio[i].data, expected.audio[i].data) << i;
}

TEST(MediaReader, MakesTheHevcRecordFromTheParameterSets) {
  plainMovie();
  makeSample("high.mp4",
             "-i @plain.mp4 -c:v libx265 -preset ultrafast -pix_fmt yuv422p10le -x265-params log-level=none -c:a copy");
  const auto plain = opened(sampleFolder() / "high.mp4");
  const auto stream = opened(makeSample("high.ts", "-i @high.mp4 -c copy"));
  ASSERT_TRUE(plain && stream);
  const auto& expected = plain->video()->configuration;
  const auto& made = stream->video()->configuration;
  EXPECT_EQ(stream->video()->codec, "hevc");
  ASSERT_GT(expected.size(), 23U);
  ASSERT_GT(made.size(), 23U);
  // Profile, tier, level; chroma and depths; layers. Between them is what only a muxer may know.
  EXPECT_TRUE(std::equal(made.begin(), made.begin() + 13, expected.begin()));
  EXPECT_TRUE(std::equal(made.begin() + 16, made.begin() + 19, expected.begin() + 16));
  EXPECT_EQ(made[21], expected[21]);
  EXPECT_EQ(readAll(*stream).video.size(), readAll(*plain).video.size());
}

TEST(MediaReader, FollowsParameterSetsThatChange) {
  plainMovie();
  makeSample("first.flv", "-i @plain.mp4 -c copy");
  makeSample("second.flv", "-i @plain.mp4 -c:v libx264 -profile:v baseline -s 128x96 -c:a copy");
  // Tags may follow each other as they are, their clock starting anew.
  const auto file = writeSample(
      "joined.flv", readFile(sampleFolder() / "first.flv") + readFile(sampleFolder() / "second.flv").substr(13));
  const auto first = opened(sampleFolder() / "first.flv");
  const auto joined = opened(file);
  ASSERT_TRUE(first && joined);
  const ReadMovie movie = readAll(*joined);
  const std::size_t half = readAll(*first).video.size();
  ASSERT_EQ(movie.video.size(), 2 * half);
  EXPECT_EQ(unitsOf(movie.video[half]).at(0).at(0) & 0x1F, 7);
  EXPECT_EQ(unitsOf(movie.video[half]).at(1).at(0) & 0x1F, 8);
  EXPECT_EQ(joined->video()->configuration, first->video()->configuration);
  EXPECT_TRUE(movie.isInOrder);
  EXPECT_NEAR(static_cast<double>(movie.video.back().decode), 4e6, 2e5);
  EXPECT_NEAR(static_cast<double>(movie.audio.back().decode - movie.video.back().decode), 0, 2e5);
}

TEST(MediaReader, LeavesPicturesOfSongsOut) {
  plainMovie();
  makeSample("cover.png", "-i @plain.mp4 -frames:v 1");
  const auto reader = opened(makeSample("song.m4a",
                                        "-i @plain.mp4 -i @cover.png -map 0:a -map 1 -c:a copy -c:v png "
                                        "-disposition:v attached_pic"));
  ASSERT_NE(reader, nullptr);
  EXPECT_FALSE(reader->video());
  EXPECT_TRUE(reader->audio());
}

TEST(MediaReader, StartsAnewAfterRewinding) {
  for (const char* name : {"copy.mkv", "copy.ts", "plain.mp4"}) {
    SCOPED_TRACE(name);
    const auto file = copiedSample(name);
    const auto reader = opened(file);
    ASSERT_NE(reader, nullptr);
    const ReadMovie first = readAll(*reader);
    // Half way as well as at the end, and when another file has taken the name.
    ASSERT_TRUE(reader->rewind());
    for (int i = 0; i < 30; ++i) ASSERT_TRUE(reader->read());
    std::filesystem::rename(file, sampleFolder() / "elsewhere");
    ASSERT_TRUE(reader->rewind());
    const ReadMovie second = readAll(*reader);
    std::filesystem::rename(sampleFolder() / "elsewhere", file);
    ASSERT_EQ(first.video.size(), second.video.size());
    ASSERT_EQ(first.audio.size(), second.audio.size());
    EXPECT_EQ(first.order, second.order);
    for (std::size_t i = 0; i < first.video.size(); ++i) {
      EXPECT_EQ(first.video[i].decode, second.video[i].decode);
      EXPECT_EQ(first.video[i].data, second.video[i].data);
    }
  }
}

}  // namespace
}  // namespace vellora::test
