#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "MovieSamples.h"
#include "media/movies/MovieSummary.h"
#include "media/movies/VideoTrackReader.h"

namespace vellora::test {
namespace {

/// Two seconds at 25 frames a second; frame n is a flat gray of 16 + 4 n in the file.
constexpr char counted[] = "-f lavfi -i nullsrc=s=96x64:r=25:d=2,format=yuv420p,geq=lum=16+4*N:cb=128:cr=128 ";

/// The number of the current picture of `counted`; -1 when it cannot be drawn.
int numberOf(VideoReader& reader) {
  std::array<std::uint32_t, 16 * 3> pixels{};
  if (!reader.draw(pixels.data(), 4, 3)) return -1;
  const double gray = pixels[16 + 1] & 0xFF;
  return static_cast<int>(std::lround(gray * 219 / 255 / 4));
}

TEST(VideoTrackReaderTest, GoesToThePictureThatIsSeenAtAnyTime) {
  const std::vector<std::pair<std::string, std::string>> formats{
      {"counted.mp4", "-c:v libx264 -qp 1 -g 30 -bf 3"},
      {"counted.mov", "-c:v libx264 -qp 1 -g 1000 -bf 0 -movflags frag_keyframe"},
      {"counted.mkv", "-c:v libx264 -qp 1 -g 12 -bf 2"},
      {"counted.webm", "-c:v libvpx-vp9 -lossless 1 -g 50 -cpu-used 8"},
      {"counted.avi", "-c:v mpeg4 -q:v 1 -g 25"},
  };
  for (const auto& [name, options] : formats) {
    SCOPED_TRACE(name);
    const auto opened = VideoTrackReader::open(makeSample(name, counted + options));
    ASSERT_TRUE(opened);
    VideoReader& reader = **opened;
    EXPECT_EQ(reader.width(), 96);
    EXPECT_NEAR(reader.duration(), 2, 0.1);
    for (int frame = 0; frame < 50; ++frame) {
      ASSERT_EQ(numberOf(reader), frame);
      EXPECT_NEAR(reader.span().start, frame / 25.0, 0.002);
      EXPECT_NEAR(reader.span().end, (frame + 1) / 25.0, 0.002);
      EXPECT_EQ(reader.next(), frame < 49);
    }
    for (const int frame : {25, 26, 24, 0, 49, 7, 48, 13, 13, 12}) {
      ASSERT_TRUE(reader.seek(frame / 25.0 + 0.02));
      EXPECT_EQ(numberOf(reader), frame);
    }
    for (const double beyond : {2.0, 1e9, double{INFINITY}}) {
      ASSERT_TRUE(reader.seek(beyond));
      EXPECT_EQ(numberOf(reader), 49);
    }
    for (const double before : {-1.0, -double{INFINITY}, double{NAN}}) {
      ASSERT_TRUE(reader.seek(before));
      EXPECT_EQ(numberOf(reader), 0);
    }
  }
}

TEST(VideoTrackReaderTest, FillsPicturesOfEverySizeToTheirEdges) {
  const auto opened =
      VideoTrackReader::open(makeSample("white.mp4", "-f lavfi -i color=white:s=100x62:d=1 -c:v libx264"));
  ASSERT_TRUE(opened);
  for (int width = 84; width <= 116; ++width) {
    std::vector<std::uint32_t> pixels(static_cast<std::size_t>(VideoReader::pixelsPerRow(width)) * 62);
    ASSERT_TRUE((*opened)->draw(pixels.data(), width, 62));
    for (int y = 0; y < 62; ++y) {
      const auto* row = &pixels[static_cast<std::size_t>(y * VideoReader::pixelsPerRow(width))];
      ASSERT_EQ(std::count_if(row, row + width, [](std::uint32_t color) { return (color & 255) > 250; }), width) << y;
    }
  }
}

TEST(VideoTrackReaderTest, ShowsPicturesUprightInTheirColors) {
  // Red above blue, turned by a quarter: red is on the left.
  const std::string halves = "-f lavfi -i color=red:s=96x32:r=10:d=1 -f lavfi -i color=blue:s=96x32:r=10:d=1 ";
  makeSample("halves.mp4", halves +
                               "-filter_complex vstack,scale=out_color_matrix=bt709 -colorspace bt709 -c:v libx264 "
                               "-qp 1 -pix_fmt yuv420p");
  const auto turned = makeSample("turned.mp4", "-i @halves.mp4 -c copy -metadata:s:v rotate=90");
  const auto opened = VideoTrackReader::open(turned);
  ASSERT_TRUE(opened);
  VideoReader& reader = **opened;
  const bool isTurned = reader.width() == 64 && reader.height() == 96;
  std::array<std::uint32_t, 64 * 96> pixels{};
  ASSERT_TRUE(reader.draw(pixels.data(), reader.width(), reader.height()));
  const auto isNear = [](std::uint32_t color, int red, int green, int blue) {
    return std::abs(int((color >> 16) & 255) - red) < 6 && std::abs(int((color >> 8) & 255) - green) < 6 &&
           std::abs(int(color & 255) - blue) < 6 && color >> 24 == 255;
  };
  ASSERT_TRUE(isTurned) << reader.width();
  EXPECT_TRUE(isNear(pixels[48 * 64 + 4], 255, 0, 0)) << std::hex << pixels[48 * 64 + 4];
  EXPECT_TRUE(isNear(pixels[48 * 64 + 60], 0, 0, 255)) << std::hex << pixels[48 * 64 + 60];
}

TEST(VideoTrackReaderTest, DamagedFilesGiveWhatTheyHave) {
  const auto errorOf = [](const std::filesystem::path& file) {
    const auto opened = VideoTrackReader::open(file);
    EXPECT_FALSE(opened);
    return opened ? MediaError::notMedia : opened.error().error;
  };
  EXPECT_EQ(errorOf(makeSample("sound.m4a", "-f lavfi -i sine=d=1 -c:a aac")), MediaError::noStreams);
  EXPECT_EQ(errorOf(writeSample("text.mp4", "no movie")), MediaError::notMedia);
  EXPECT_EQ(errorOf(sampleFolder() / "missing.mp4"), MediaError::unreadable);

  std::string bytes = readFile(makeSample("lines.mkv", "-f lavfi -i testsrc2=s=96x64:r=25:d=4 -c:v libx264 -g 12"));
  for (std::size_t at = bytes.size() / 3; at < bytes.size() * 2 / 3; at += 7) bytes[at] = static_cast<char>(at);
  const auto noisy = VideoTrackReader::open(writeSample("noise.mkv", bytes));
  ASSERT_TRUE(noisy);
  int pictures = 1;
  double last = (*noisy)->span().start;
  while ((*noisy)->next() && pictures < 200) {
    ++pictures;
    last = (*noisy)->span().start;
  }
  EXPECT_LT(pictures, 200);
  EXPECT_GT(last, 0.5);
  EXPECT_TRUE((*noisy)->seek(0.1));
  EXPECT_NEAR((*noisy)->span().start, 0.08, 0.002);
}

TEST(MovieSummaryTest, NamesEveryTrack) {
  const auto summary = summarizeMovie(
      makeSample("summary.mov",
                 "-f lavfi -i testsrc2=s=96x64:r=25:d=2 -f lavfi -i sine=d=2:sample_rate=48000 -map 0:v -map 1:a "
                 "-map 1:a -c:v libx264 -c:a aac -ac:a:1 2"));
  ASSERT_TRUE(summary);
  EXPECT_NEAR(summary->duration, 2, 0.1);
  ASSERT_TRUE(summary->video);
  EXPECT_EQ(summary->video->codec, "h264");
  EXPECT_EQ(summary->video->width, 96);
  EXPECT_NEAR(summary->video->frameRate, 25, 0.01);
  ASSERT_EQ(summary->audio.size(), 2U);
  EXPECT_EQ(summary->audio[1].channels, 2);
  EXPECT_EQ(summarizeMovie(writeSample("text.mov", "no movie")).error().error, MediaError::notMedia);
}

}  // namespace
}  // namespace vellora::test
