#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <cmath>

#include "MovieSamples.h"
#include "RecordedMovies.h"
#include "media/movies/VideoEncoderChoice.h"

namespace vellora::test {
namespace {

namespace fs = std::filesystem;

std::unique_ptr<MovieWriter> writerFor(const fs::path& file, const MovieWriter::Settings& settings) {
  auto writer = MovieWriter::create(file, settings);
  EXPECT_TRUE(writer) << (writer ? "" : writer.error().message);
  return writer ? std::move(*writer) : nullptr;
}

double clickIn(const std::vector<float>& samples) {
  const auto loudest = std::ranges::max_element(samples, {}, [](float sample) { return std::abs(sample); });
  return static_cast<double>(loudest - samples.begin()) / MovieWriter::sampleRate;
}

TEST(MovieWriter, KeepsEveryPictureAtItsTime) {
  const fs::path file = sampleFolder() / "times.mov";
  const auto writer = writerFor(file, settingsFor(320, 240));
  NumberedPictures pictures(320, 240);
  std::vector<double> times;
  for (std::uint32_t i = 0; i < 300; ++i) {
    // Neither regular nor whole ticks.
    times.push_back(i / 60.0 + (i % 3) * 0.0031 + (i >= 200 ? 0.7 : 0));
    ASSERT_TRUE(append(*writer, pictures, i, times.back()));
  }
  const auto summary = finish(*writer, 6.25);
  ASSERT_TRUE(summary) << summary.error().message;
  EXPECT_NEAR(summary->duration, 6.25, 1e-4);
  EXPECT_EQ(summary->bytes, fs::file_size(file));

  const DecodedMovie movie = decode(file);
  EXPECT_EQ(movie.errors, "");
  EXPECT_NEAR(movie.duration, 6.25, 1e-4);
  ASSERT_EQ(movie.video.size(), 300U);
  ASSERT_EQ(movie.numbers.size(), 300U);
  int sinceKey = 0;
  for (std::uint32_t i = 0; i < 300; ++i) {
    EXPECT_NEAR(movie.video[i].time, times[i], 0.5 / 90000 + 1e-6);
    EXPECT_EQ(movie.video[i].time, movie.video[i].decodeTime);
    EXPECT_EQ(movie.numbers[i], i);
    sinceKey = movie.video[i].isKey ? 0 : sinceKey + 1;
    EXPECT_LT(sinceKey, 120);
  }
  EXPECT_NEAR(movie.video.back().duration, 6.25 - times.back(), 1e-4);
  EXPECT_EQ(probeEntries(file, "v:0", "codec_name,has_b_frames"), "h264,0");
  EXPECT_EQ(probeEntries(file, "v:0", "color_range,color_space,color_transfer,color_primaries"),
            "tv,bt709,bt709,bt709");
}

TEST(MovieWriter, PutsSoundWherePicturesAre) {
  const fs::path file = sampleFolder() / "sound.mov";
  const auto writer =
      writerFor(file, {.video = {.width = 64, .height = 64}, .sounds = {{.channels = 1}, {.channels = 2}}});
  NumberedPictures pictures(64, 64);
  const double clicks[] = {1.5, 2.25};
  for (int i = 0; i < 30; ++i) {
    ASSERT_TRUE(append(*writer, pictures, static_cast<std::uint32_t>(i), i * 0.1));
    const double start = i * 0.1, end = start + 0.1;
    ASSERT_TRUE(writer->appendSound(0, soundBetween(start, end, clicks[0]), start + (i % 2) * 0.004));
    // The second one begins before the movie does and has a gap.
    if (i == 0) {
      EXPECT_TRUE(writer->appendSound(1, soundBetween(-0.3, end, clicks[1], 2), -0.3));
    } else if (i < 5 || i > 12) {
      EXPECT_TRUE(writer->appendSound(1, soundBetween(start, end, clicks[1], 2), start));
    }
  }
  EXPECT_FALSE(writer->appendSound(2, std::vector<float>(480), 0));
  ASSERT_TRUE(finish(*writer, 2.95));

  EXPECT_EQ(probeEntries(file, "a", "codec_name,sample_rate,channels"), "aac,48000,1\naac,48000,2");
  for (const std::size_t track : {0U, 1U}) {
    const auto samples = decodeSound(file, track);
    EXPECT_NEAR(clickIn(samples), clicks[track], 0.001);
    EXPECT_NEAR(static_cast<double>(samples.size()) / MovieWriter::sampleRate, 2.95, 0.03);
  }
  EXPECT_NEAR(decode(file).duration, 2.95, 0.001);
}

TEST(MovieWriter, KeepsTheLastRowAndColumnOfOddPictures) {
  const fs::path file = sampleFolder() / "odd.mov";
  const auto writer = writerFor(file, settingsFor(321, 241));
  NumberedPictures pictures(321, 241);
  for (std::uint32_t i = 0; i < 3; ++i) ASSERT_TRUE(append(*writer, pictures, i, i / 60.0));
  ASSERT_TRUE(finish(*writer, 1));
  EXPECT_EQ(probeEntries(file, "v:0", "width,height"), "322,242");
  const std::string bytes = readFile(file);
  EXPECT_NE(bytes.find(std::string("clap\0\0\1\x41\0\0\0\1\0\0\0\xf1", 16)), std::string::npos);
  EXPECT_THAT(decode(file).numbers, testing::ElementsAre(0, 1, 2));
}

TEST(MovieWriter, ShowsPicturesThatStandInTheFileAsTimeGoesOn) {
  const fs::path file = sampleFolder() / "still.mov";
  auto writer = writerFor(file, settingsFor(64, 64));
  NumberedPictures pictures(64, 64);
  ASSERT_TRUE(append(*writer, pictures, 0, 0));
  ASSERT_TRUE(append(*writer, pictures, 7, 0.1));
  for (int i = 1; i <= 40; ++i) writer->advance(i * 0.25);
  writer.reset();  // as a kill would leave it
  const auto repaired = MovieRepair::repair(file);
  ASSERT_TRUE(repaired) << repaired.error().message;
  EXPECT_GE(repaired->duration, 8);
  const DecodedMovie movie = decode(file);
  EXPECT_EQ(movie.numbers.front(), 0);
  EXPECT_EQ(std::ranges::count(movie.numbers, 7U), static_cast<int>(movie.numbers.size()) - 1);
}

TEST(MovieWriter, RefusesWhatItCannotTakeAtOnce) {
  const fs::path file = sampleFolder() / "busy.mov";
  const auto writer = writerFor(file, settingsFor(1920, 1080, 1));
  NumberedPictures pictures(1920, 1080);
  const MoviePicture picture = pictures.at(0);
  std::uint64_t taken = 0, refused = 0;
  for (int i = 0; i < 60; ++i) (writer->appendVideo(picture, i / 60.0) ? taken : refused) += 1;
  EXPECT_GT(refused, 0U);
  EXPECT_EQ(writer->counts().pictures, taken);
  EXPECT_EQ(writer->counts().notReady, refused);
  EXPECT_FALSE(writer->appendVideo(picture, NAN));
  EXPECT_FALSE(writer->appendSound(0, std::vector<float>(10 * 48000), 0));
  EXPECT_TRUE(writer->appendSound(0, std::vector<float>{NAN, INFINITY, 1e30F}, 0));
  ASSERT_TRUE(finish(*writer, 1.5));
  EXPECT_FALSE(writer->isReadyForMoreVideo());
  EXPECT_EQ(decode(file).video.size(), taken);
}

TEST(MovieWriter, SaysWhyItCannotStart) {
  const auto errorFor = [](const fs::path& file, const MovieWriter::Settings& settings) {
    const auto writer = MovieWriter::create(file, settings);
    return writer ? std::nullopt : std::optional(writer.error().error);
  };
  const fs::path existing = writeSample("existing.mov", "something");
  EXPECT_EQ(errorFor(existing, settingsFor(64, 64)), MovieError::cannotCreate);
  EXPECT_EQ(readFile(existing), "something");
  EXPECT_EQ(errorFor(sampleFolder() / "none" / "a.mov", settingsFor(64, 64)), MovieError::cannotCreate);
  EXPECT_EQ(errorFor(sampleFolder() / "a.mov", settingsFor(0, 64)), MovieError::noEncoder);
  EXPECT_EQ(errorFor(sampleFolder() / "a.mov", settingsFor(1 << 20, 64)), MovieError::noEncoder);
  EXPECT_EQ(errorFor(sampleFolder() / "a.mov", settingsFor(64, 64, 3)), MovieError::noEncoder);
  EXPECT_FALSE(fs::exists(sampleFolder() / "a.mov"));
}

TEST(VideoEncoderChoice, TakesHardwareOnlyWhereItTakesTheSize) {
  constexpr std::int64_t beyond = std::int64_t{1} << 31;
  EXPECT_FALSE(hasHardwareHEVCEncoder(beyond, 1080));
  EXPECT_FALSE(hasHardwareHEVCEncoder(1920, (std::int64_t{1} << 32) + 1080));
  EXPECT_FALSE(hasHardwareHEVCEncoder(0, -1));
  EXPECT_EQ(VideoEncoderChoice::make(beyond, 1080).name, "libx264");
  const VideoEncoderChoice choice = VideoEncoderChoice::make(1920, 1080);
  EXPECT_EQ(choice.codec == VideoEncoderChoice::Codec::hevc, hasHardwareHEVCEncoder(1920, 1080));
  EXPECT_EQ(choice.isHardware, choice.name != "libx264");
  EXPECT_EQ(VideoEncoderChoice::bitRate(VideoEncoderChoice::Codec::hevc, 1920, 1080), 8'294'400);
  EXPECT_EQ(VideoEncoderChoice::bitRate(VideoEncoderChoice::Codec::h264, 7680, 4320), 265'420'800);
}

TEST(MovieWriter, EndsEmptyMoviesWithAnError) {
  const fs::path file = sampleFolder() / "empty.mov";
  const auto summary = finish(*writerFor(file, settingsFor(64, 64, 1)), 2);
  ASSERT_FALSE(summary);
  EXPECT_EQ(summary.error().error, MovieError::empty);
}

}  // namespace
}  // namespace vellora::test
