#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "MovieSamples.h"
#include "media/movies/MediaReader.h"
#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

std::unique_ptr<MediaReader> opened(const std::filesystem::path& file) {
  auto reader = openForStreaming(file);
  if (!reader) {
    ADD_FAILURE() << file << ": " << reader.error().message;
    return nullptr;
  }
  return std::move(*reader);
}

/// The RGB value of a place in a picture of the file, places in parts of its size.
std::vector<int> colorAt(const std::filesystem::path& file, double x, double y) {
  const int width = std::stoi(probeStream(file, "width"));
  const int height = std::stoi(probeStream(file, "height"));
  const Finished decoded = runProgram({"ffmpeg", "-nostdin", "-v", "error", "-i", file.string(), "-frames:v", "1", "-f",
                                       "rawvideo", "-pix_fmt", "rgb24", "-"},
                                      {});
  const auto at = 3 * (static_cast<std::size_t>(y * height) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(x * width));
  std::vector<int> color;
  for (std::size_t i = at; i < at + 3 && i < decoded.output.size(); ++i) {
    color.push_back(static_cast<unsigned char>(decoded.output[i]));
  }
  return color;
}

testing::Matcher<std::vector<int>> isAbout(int red, int green, int blue) {
  const auto near = [](int value) { return testing::AllOf(testing::Ge(value - 12), testing::Le(value + 12)); };
  return testing::ElementsAre(near(red), near(green), near(blue));
}

/// Level of the decoded sound's tone of 440 Hz in [from, to) seconds, 1 for full scale.
double toneIn(const std::filesystem::path& file, double from, double to) {
  const Finished decoded = runProgram(
      {"ffmpeg", "-nostdin", "-v", "error", "-i", file.string(), "-f", "s16le", "-ac", "1", "-ar", "48000", "-"}, {});
  double sine = 0;
  double cosine = 0;
  const auto first = static_cast<std::size_t>(from * 48000);
  const auto last = std::min(static_cast<std::size_t>(to * 48000), decoded.output.size() / 2);
  for (std::size_t i = first; i < last; ++i) {
    const auto low = static_cast<unsigned char>(decoded.output[2 * i]);
    const double value = static_cast<signed char>(decoded.output[2 * i + 1]) * 256 + low;
    const double angle = 2 * M_PI * 440 * static_cast<double>(i) / 48000;
    sine += value * std::sin(angle);
    cosine += value * std::cos(angle);
  }
  return std::hypot(sine, cosine) * 2 / 32768 /
         std::max<double>(1, static_cast<double>(last) - static_cast<double>(first));
}

TEST(StreamingReader, LetsWhatServersTakePassUntouched) {
  const auto file = plainMovie();
  const auto reader = opened(file);
  const auto direct = MediaReader::open(file);
  ASSERT_TRUE(reader && direct);
  EXPECT_TRUE(reader->video()->encodedFrom.empty());
  EXPECT_TRUE(reader->audio()->encodedFrom.empty());
  const ReadMovie movie = readAll(*reader);
  const ReadMovie expected = readAll(**direct);
  ASSERT_EQ(movie.order, expected.order);
  for (std::size_t i = 0; i < movie.video.size(); ++i) EXPECT_EQ(movie.video[i].data, expected.video[i].data);
}

TEST(StreamingReader, EncodesOtherCodecsAgainWithEveryFrameAtItsTime) {
  plainMovie();
  const auto file = makeSample("vp9-vorbis.mkv",
                               "-i @plain.mp4 -vf loop=3:50:0 -af aloop=3:88200,apad=whole_dur=8 -t 8 -c:v libvpx-vp9 "
                               "-deadline realtime -cpu-used 8 -s 321x181 -pix_fmt yuv444p -c:a libvorbis -ac 2");
  auto source = MediaReader::open(file);
  const auto reader = opened(file);
  ASSERT_TRUE(source && reader);
  const ReadMovie before = readAll(**source);
  const MediaTrack video = *reader->video();
  const MediaTrack audio = *reader->audio();
  EXPECT_EQ(video.codec, "h264");
  EXPECT_EQ(video.encodedFrom, "vp9");
  EXPECT_EQ(video.width, 320);
  EXPECT_EQ(video.height, 180);
  EXPECT_EQ(audio.codec, "aac");
  EXPECT_EQ(audio.encodedFrom, "vorbis");
  EXPECT_EQ(audio.sampleRate, 44100);

  const ReadMovie movie = readAll(*reader);
  EXPECT_FALSE(movie.failure);
  EXPECT_TRUE(movie.isInOrder);
  ASSERT_EQ(movie.video.size(), before.video.size());
  // The encoder's delay moves both tracks alike.
  const std::int64_t shift = movie.video[0].presentation - before.video[0].presentation;
  EXPECT_LT(std::abs(shift), 50'000);
  std::int64_t lastKey = -2'000'000;
  for (std::size_t i = 0; i < movie.video.size(); ++i) {
    const ReadPacket& packet = movie.video[i];
    EXPECT_LE(std::abs(packet.presentation - before.video[i].presentation - shift), 2);
    EXPECT_EQ(packet.decode, packet.presentation);
    const std::int64_t since = packet.presentation - movie.video[0].presentation - lastKey;
    EXPECT_EQ(packet.isKeyFrame, since > 1'980'000) << i;
    if (packet.isKeyFrame) lastKey = packet.presentation - movie.video[0].presentation;
  }
  const auto pictures = writeByteStream("vp9-vorbis.h264", video, movie.video);
  EXPECT_EQ(probeStream(pictures, "nb_read_frames"), std::to_string(before.video.size()));
  EXPECT_EQ(probeStream(pictures, "profile"), "High");
  EXPECT_EQ(probeStream(pictures, "pix_fmt"), "yuv420p");
  EXPECT_EQ(probeStream(pictures, "has_b_frames"), "0");

  const double length = 8.0 * 44100 / 1024;
  EXPECT_NEAR(static_cast<double>(movie.audio.size()), length, 3);
  for (std::size_t i = 1; i < movie.audio.size(); ++i) {
    EXPECT_LE(std::abs(movie.audio[i].decode - movie.audio[i - 1].decode - 23220), 2) << i;
  }
  const auto sound = writeAdts("vp9-vorbis.aac", audio, movie.audio);
  EXPECT_EQ(probeStream(sound, "nb_read_frames"), std::to_string(movie.audio.size()));
  EXPECT_GT(toneIn(sound, 0.5, 7.5), 0.08);
}

TEST(StreamingReader, StaysWithinTheBitRateItSays) {
  const auto reader = opened(makeSample("noisy.mkv",
                                        "-f lavfi -i nullsrc=s=320x240:r=30:d=6,geq=random(1)*255:128:128 "
                                        "-c:v mjpeg -q:v 3"));
  ASSERT_NE(reader, nullptr);
  EXPECT_EQ(reader->video()->bitRate, 230'400);
  const ReadMovie movie = readAll(*reader);
  std::size_t bytes = 0;
  for (const ReadPacket& packet : movie.video) bytes += packet.data.size();
  EXPECT_LT(static_cast<double>(bytes) * 8 / 6, 230'400 * 1.25);
}

TEST(StreamingReader, TurnsPicturesUpright) {
  makeSample("sides.mp4",
             "-f lavfi -i color=red:s=80x90:r=10:d=1 -f lavfi -i color=blue:s=80x90:r=10:d=1 -filter_complex hstack "
             "-c:v mpeg4 -q:v 2");
  // What is to be done to show it, counterclockwise: the left half comes to the bottom, the right side, the top.
  const std::vector<std::tuple<int, double, double, double, double>> cases{
      {90, 0.5, 0.8, 0.5, 0.2}, {180, 0.8, 0.5, 0.2, 0.5}, {270, 0.5, 0.2, 0.5, 0.8}};
  for (const auto& [degrees, redX, redY, blueX, blueY] : cases) {
    SCOPED_TRACE(degrees);
    const std::string name = "turned-" + std::to_string(degrees);
    const auto reader =
        opened(makeSample(name + ".mp4", "-i @sides.mp4 -c copy -metadata:s:v rotate=" + std::to_string(degrees)));
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->video()->width, degrees == 180 ? 160 : 90);
    EXPECT_EQ(reader->video()->height, degrees == 180 ? 90 : 160);
    const MediaTrack track = *reader->video();
    const auto shown = writeByteStream(name + ".h264", track, readAll(*reader).video);
    EXPECT_THAT(colorAt(shown, redX, redY), isAbout(254, 0, 0));
    EXPECT_THAT(colorAt(shown, blueX, blueY), isAbout(0, 0, 254));
  }
}

TEST(StreamingReader, KeepsColorsOfScreensAndOfHdr) {
  const auto screen =
      opened(makeSample("screen.mkv", "-f lavfi -i color=0x20C060:s=161x91:r=5:d=1 -c:v ffv1 -pix_fmt bgr0"));
  ASSERT_NE(screen, nullptr);
  EXPECT_EQ(screen->video()->width, 160);
  EXPECT_EQ(screen->video()->height, 90);
  const MediaTrack track = *screen->video();
  const auto shown = writeByteStream("screen.h264", track, readAll(*screen).video);
  EXPECT_EQ(probeStream(shown, "color_space"), "bt709");
  EXPECT_THAT(colorAt(shown, 0.5, 0.5), isAbout(0x20, 0xC0, 0x60));

  const auto hdr =
      opened(makeSample("hdr.mkv",
                        "-f lavfi -i testsrc2=s=160x90:r=10:d=1 -c:v libvpx-vp9 -deadline realtime -cpu-used "
                        "8 -pix_fmt yuv420p10le -color_primaries bt2020 -color_trc smpte2084 -colorspace "
                        "bt2020nc"));
  ASSERT_NE(hdr, nullptr);
  const MediaTrack wide = *hdr->video();
  const auto pictures = writeByteStream("hdr.h264", wide, readAll(*hdr).video);
  EXPECT_EQ(probeStream(pictures, "pix_fmt"), "yuv420p");
  EXPECT_EQ(probeStream(pictures, "color_transfer"), "smpte2084");
  EXPECT_EQ(probeStream(pictures, "color_space"), "bt2020nc");
}

TEST(StreamingReader, KeepsPausesAndUnevenFrames) {
  plainMovie();
  const auto pause = opened(makeSample(
      "pause.mkv", "-f lavfi -i sine=r=32000:d=4 -af aselect=not(between(t\\,1\\,3)) -c:a libmp3lame -ac 2"));
  ASSERT_NE(pause, nullptr);
  EXPECT_EQ(pause->audio()->sampleRate, 48000);
  const ReadMovie sound = readAll(*pause);
  ASSERT_GT(sound.audio.size(), 80U);
  int gaps = 0;
  for (std::size_t i = 1; i < sound.audio.size(); ++i) {
    const std::int64_t step = sound.audio[i].decode - sound.audio[i - 1].decode;
    if (step > 25'000) {
      ++gaps;
      EXPECT_NEAR(static_cast<double>(step), 2e6, 1e5);
    }
  }
  EXPECT_EQ(gaps, 1);

  const auto file = makeSample("uneven.avi.mkv",
                               "-i @plain.mp4 -vf select='gt(mod(n,7),2)' -vsync vfr -c:v mpeg4 -bf 2 "
                               "-an");
  const auto uneven = opened(file);
  ASSERT_NE(uneven, nullptr);
  const ReadMovie movie = readAll(*uneven);
  std::vector<std::int64_t> times;
  const auto probed = probePackets(file);
  for (const auto& packet : probed.at(MediaKind::video)) times.push_back(packet.presentation.value_or(-1));
  std::ranges::sort(times);
  ASSERT_EQ(movie.video.size(), times.size());
  for (std::size_t i = 0; i < times.size(); ++i)
    ASSERT_LE(std::abs(movie.video[i].presentation - (times[i] - times[0])), 2);
}

TEST(StreamingReader, GivesPicturesTimesWhereTheFileHasNone) {
  // Pictures that change places, in formats that do not say when they are shown.
  for (const char* name : {"bare.h264", "bare.avi"}) {
    SCOPED_TRACE(name);
    const auto reader = opened(copiedSample(name, "-an"));
    ASSERT_NE(reader, nullptr);
    EXPECT_EQ(reader->video()->encodedFrom, "h264");
    const ReadMovie movie = readAll(*reader);
    ASSERT_EQ(movie.video.size(), 50U);
    for (std::size_t i = 0; i < movie.video.size(); ++i) {
      EXPECT_NEAR(static_cast<double>(movie.video[i].presentation), static_cast<double>(i) * 40'000, 5'000);
    }
  }
}

TEST(StreamingReader, StartsEncodersAnewWhenRewound) {
  plainMovie();
  const auto reader = opened(makeSample("old.avi", "-i @plain.mp4 -c:v mpeg4 -c:a libmp3lame"));
  ASSERT_NE(reader, nullptr);
  const ReadMovie first = readAll(*reader);
  ASSERT_TRUE(reader->rewind());
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(reader->read());
  ASSERT_TRUE(reader->rewind());
  const ReadMovie second = readAll(*reader);
  EXPECT_EQ(first.order, second.order);
  ASSERT_EQ(first.audio.size(), second.audio.size());
  for (std::size_t i = 0; i < first.audio.size(); ++i) EXPECT_EQ(first.audio[i].data, second.audio[i].data);
  ASSERT_FALSE(second.video.empty());
  EXPECT_TRUE(second.video[0].isKeyFrame);
}

TEST(StreamingReader, SurvivesDamageInWhatItDecodes) {
  plainMovie();
  std::string content = readFile(makeSample("old.avi", "-i @plain.mp4 -c:v mpeg4 -c:a libmp3lame"));
  for (std::size_t i = 12'000; i < content.size(); i += 701) content[i] = static_cast<char>(content[i] ^ 0x5A);
  auto reader = openForStreaming(writeSample("old-damaged.avi", content));
  if (!reader) return;
  const ReadMovie movie = readAll(**reader);
  EXPECT_TRUE(movie.isInOrder);
}

}  // namespace
}  // namespace vellora::test
