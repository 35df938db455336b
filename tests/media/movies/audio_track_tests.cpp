#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "MovieSamples.h"
#include "media/movies/AudioTrackReader.h"

namespace vellora::test {
namespace {

struct DecodedTrack {
  int rate = 0;
  int channels = 0;
  std::vector<float> samples;
  std::optional<MediaError> error;

  double seconds() const { return static_cast<double>(samples.size()) / channels / rate; }
  float loudest(double from, double to) const {
    const auto at = [&](double time) {
      return std::min(samples.size(), static_cast<std::size_t>(time * rate) * static_cast<std::size_t>(channels));
    };
    float most = 0;
    for (std::size_t i = at(from); i < at(to); ++i) most = std::max(most, std::abs(samples[i]));
    return most;
  }
};

DecodedTrack decode(const std::filesystem::path& file, std::size_t track = 0) {
  DecodedTrack decoded;
  const auto reader = AudioTrackReader::open(file, track);
  if (!reader) {
    decoded.error = reader.error().error;
    return decoded;
  }
  decoded.rate = (*reader)->sampleRate();
  decoded.channels = (*reader)->channels();
  for (;;) {
    const auto samples = (*reader)->read();
    if (!samples) decoded.error = samples.error().error;
    if (!samples || samples->empty()) return decoded;
    decoded.samples.insert(decoded.samples.end(), samples->begin(), samples->end());
  }
}

/// Silence but for a tone of a quarter of full scale from 1 to 1.5 s, two seconds long.
std::filesystem::path burst(const std::string& name, const std::string& options) {
  return makeSample(name, "-f lavfi -i aevalsrc=0.25*sin(2*PI*440*t)*between(t\\,1\\,1.5):d=2:s=44100 " + options);
}

TEST(AudioTrackReaderTest, DecodesEveryFormatWithSoundWhereItIs) {
  const std::vector<std::pair<std::string, std::string>> formats{
      {"burst.wav", "-c:a pcm_s16le"},
      {"burst.mov", "-c:a pcm_s24be -ar 96000 -ac 2"},
      {"burst.m4a", "-c:a aac -ac 2 -ar 48000"},
      {"burst.mp3", "-c:a libmp3lame -ar 22050"},
      {"burst.flac", "-c:a flac"},
      {"burst.mka", "-c:a libopus -ac 2"},
      {"burst.avi", "-c:a pcm_u8 -ar 11025"},
      {"six.wav", "-c:a pcm_f32le -ac 6"},
      {"burst.ts", "-c:a aac -f mpegts"},
  };
  for (const auto& [name, options] : formats) {
    SCOPED_TRACE(name);
    const DecodedTrack decoded = decode(burst(name, options));
    EXPECT_FALSE(decoded.error);
    EXPECT_EQ(std::to_string(decoded.rate), probeStream(sampleFolder() / name, "sample_rate"));
    EXPECT_EQ(std::to_string(decoded.channels), probeStream(sampleFolder() / name, "channels"));
    EXPECT_NEAR(decoded.seconds(), 2, 0.08);
    EXPECT_LT(decoded.loudest(0, 0.93), 0.02);
    EXPECT_NEAR(decoded.loudest(1.02, 1.48), 0.25, 0.09);
    EXPECT_LT(decoded.loudest(1.58, 2), 0.02);
  }
}

TEST(AudioTrackReaderTest, TakesTheTrackThatIsAskedForThoughAnotherIsBetter) {
  burst("tone.wav", "-c:a pcm_s16le");
  const auto both = makeSample("tracks.mov",
                               "-f lavfi -i testsrc2=s=64x64:r=25:d=2 -i @tone.wav -f lavfi "
                               "-i sine=frequency=1000:sample_rate=48000:duration=2 -map 0:v -map 1:a -map 2:a -c:v "
                               "mpeg4 -c:a aac -ac:a:1 2 -b:a:0 32k -b:a:1 192k");
  EXPECT_EQ(decode(both).channels, 1);
  EXPECT_LT(decode(both).loudest(0, 0.9), 0.02);
  EXPECT_EQ(decode(both, 1).channels, 2);
  EXPECT_GT(decode(both, 1).loudest(0.1, 0.9), 0.05);
  EXPECT_EQ(decode(both, 2).error, MediaError::noStreams);
}

TEST(AudioTrackReaderTest, SoundThatStartsLateIsPrecededBySilence) {
  plainMovie();
  for (const std::string name : {"late-sound.mov", "late-sound.mkv"}) {
    SCOPED_TRACE(name);
    const DecodedTrack late =
        decode(makeSample(name, "-i @plain.mp4 -itsoffset 1.25 -i @plain.mp4 -map 0:v -map 1:a -c copy"));
    EXPECT_NEAR(late.seconds(), 3.25, 0.06);
    EXPECT_LT(late.loudest(0, 1.2), 1e-3);
    EXPECT_GT(late.loudest(1.3, 1.4), 0.05);
  }
}

TEST(AudioTrackReaderTest, GoesOnFromAnyPlace) {
  for (const auto& [name, options] : std::vector<std::pair<std::string, std::string>>{
           {"burst.wav", "-c:a pcm_s16le"}, {"burst.m4a", "-c:a aac -ac 2 -ar 48000"}, {"burst.flac", "-c:a flac"}}) {
    SCOPED_TRACE(name);
    const auto file = burst(name, options);
    const DecodedTrack whole = decode(file);
    const auto reader = AudioTrackReader::open(file, 0);
    ASSERT_TRUE(reader);
    const auto total = static_cast<std::int64_t>(whole.samples.size()) / whole.channels;
    for (const std::int64_t frame : {total / 2 + 17, std::int64_t{5}, total * 3 / 4, total / 2 + 18, std::int64_t{0}}) {
      ASSERT_TRUE((*reader)->seek(frame));
      std::int64_t at = frame * whole.channels;
      for (;;) {
        const auto samples = (*reader)->read();
        ASSERT_TRUE(samples);
        if (samples->empty()) break;
        for (const float sample : *samples) {
          ASSERT_LT(at, static_cast<std::int64_t>(whole.samples.size()));
          ASSERT_NEAR(sample, whole.samples[static_cast<std::size_t>(at++)], 1e-4) << frame;
        }
      }
      EXPECT_EQ(at, static_cast<std::int64_t>(whole.samples.size()));
    }
    ASSERT_TRUE((*reader)->seek(total * 2));
    const auto behind = (*reader)->read();
    ASSERT_TRUE(behind);
    EXPECT_TRUE(behind->empty());
  }
}

TEST(AudioTrackReaderTest, DamagedFilesGiveWhatTheyHave) {
  EXPECT_EQ(decode(makeSample("mute.mp4", "-f lavfi -i testsrc2=s=64x64:d=1 -c:v mpeg4")).error, MediaError::noStreams);
  EXPECT_EQ(decode(writeSample("text.mov", "no movie")).error, MediaError::notMedia);
  EXPECT_EQ(decode(sampleFolder() / "missing.mov").error, MediaError::unreadable);

  std::string bytes = readFile(burst("long.mka", "-c:a aac -ac 1"));
  EXPECT_LT(decode(writeSample("cut.mka", bytes.substr(0, bytes.size() * 2 / 3))).seconds(), 1.8);
  for (std::size_t at = bytes.size() / 3; at < bytes.size() * 2 / 3; at += 7) bytes[at] = static_cast<char>(at);
  const DecodedTrack noisy = decode(writeSample("noise.mka", bytes));
  EXPECT_LT(noisy.seconds(), 10);
}

}  // namespace
}  // namespace vellora::test
