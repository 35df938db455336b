#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "recording/sound/AudioWaveform.h"
#include "recording/sound/LevelMeter.h"
#include "recording/sound/PeakScan.h"
#include "recording/sound/WaveformFile.h"

namespace vellora::test {
namespace {

using testing::ElementsAre;
using testing::FloatNear;

constexpr float infinity = std::numeric_limits<float>::infinity();
constexpr float nan = std::numeric_limits<float>::quiet_NaN();

TEST(AudioWaveformTest, LevelsFollowDecibelsAndTheGate) {
  const std::vector<float> peaks{1.0F, 0.5F, 0.0039F, 0.069F, 0.071F, -1.0F, nan, infinity, 0};
  const auto envelope = AudioWaveform::envelope(peaks);
  EXPECT_THAT(envelope.displayLevels, ElementsAre(1, FloatNear(0.8746F, 1e-3F), FloatNear(0, 0.01F),
                                                  FloatNear(0.516F, 1e-2F), FloatNear(0.521F, 1e-2F), 0, 0, 0, 0));
  EXPECT_THAT(envelope.linearLevels, ElementsAre(1, 0.5F, 0, 0, 0.071F, 0, 0, 0, 0));

  // Below full scale the gate is absolute, and the loudest window is 1.
  const std::vector<float> quiet{0.02F, 0.0151F, 0.0149F};
  EXPECT_THAT(AudioWaveform::envelope(quiet).linearLevels, ElementsAre(1, FloatNear(0.755F, 1e-5F), 0));
  const std::vector<float> silent{0, nan};
  EXPECT_THAT(AudioWaveform::envelope(silent).linearLevels, ElementsAre(0, 0));
  EXPECT_TRUE(AudioWaveform::envelope({}).displayLevels.empty());
}

TEST(AudioWaveformTest, PeaksAreOfWindowsAcrossPiecesAndChannels) {
  AudioWaveform::PeakAccumulator stereo(100, 2, 20);  // five frames, ten samples
  std::vector<float> samples(2 * 23);
  samples[3] = -0.5F;
  samples[9] = 0.25F;
  samples[10] = 0.125F;
  samples[45] = 1.5F;
  for (std::size_t at = 0; at < samples.size(); at += 6) {
    stereo.append(std::span(samples).subspan(at, std::min<std::size_t>(6, samples.size() - at)));
  }
  EXPECT_EQ(stereo.frames(), 23);
  EXPECT_THAT(stereo.finish(), ElementsAre(0.5F, 0.125F, 0, 0, 1.5F)) << "the last window is not full, and counts";

  // 11025 Hz has no whole number of samples in a window; after an hour the windows still are where they belong.
  AudioWaveform::PeakAccumulator uneven(11025, 1, 50);
  uneven.appendSilence(std::int64_t{11025} * 3600);
  uneven.append(std::vector<float>(1, 1.0F));
  const auto peaks = uneven.finish();
  ASSERT_EQ(peaks.size(), 180001U);
  EXPECT_EQ(peaks.back(), 1);
}

TEST(AudioWaveformTest, PeakScanFindsTheLargestSampleAnywhere) {
  std::mt19937 random(1);
  for (std::size_t size = 0; size < 70; ++size) {
    std::vector<float> samples(size + 1);
    for (float& sample : samples) sample = std::uniform_real_distribution<float>(-0.5F, 0.5F)(random);
    for (std::size_t at = 0; at < samples.size(); ++at) {
      const float before = std::exchange(samples[at], at % 2 == 0 ? -0.75F : 0.75F);
      EXPECT_EQ(peakOf(samples), 0.75F) << at << " of " << samples.size();
      samples[at] = before;
    }
  }
  std::vector<float> broken(40, nan);
  EXPECT_EQ(peakOf(broken), 0);
  broken[17] = -0.5F;
  EXPECT_EQ(peakOf(broken), 0.5F);
}

TEST(WaveformFileTest, WritesThisText) {
  const std::vector<float> levels{0.004F, 0.1F, 0.18F, 0.126F, 0, 0, 0, 0, 0.5F, 1, 0, 0, 0, 0, 0, 0, 0, 0.19F};
  EXPECT_EQ(WaveformFile::serialize(levels, 50),
            "{\"samplesPerSecond\":50,\"duration\":0.36,\"peaks\":[0,0.1,0.18,0.13,0,0,0,0,0.5,1,0,0,0,0,0,0,0,0.19],"
            "\"silences\":[{\"start\":0,\"end\":0.16}]}\n");
  EXPECT_EQ(WaveformFile::serialize({}, 50), "{\"samplesPerSecond\":50,\"duration\":0,\"peaks\":[],\"silences\":[]}\n");
  const std::vector<float> silent(3, 0.0F);
  EXPECT_EQ(WaveformFile::serialize(silent, 20),
            "{\"samplesPerSecond\":20,\"duration\":0.15,\"peaks\":[0,0,0],"
            "\"silences\":[{\"start\":0,\"end\":0.15}]}\n");
  // Windows of 0.02 s where the rate says nothing.
  const std::vector<float> ten(10, 0.0F);
  EXPECT_EQ(WaveformFile::serialize(ten, 0),
            "{\"samplesPerSecond\":0,\"duration\":0.2,\"peaks\":[0,0,0,0,0,0,0,0,0,0],"
            "\"silences\":[{\"start\":0,\"end\":0.2}]}\n");
}

TEST(WaveformFileTest, SilencesAreLongEnoughWhereverTheyStart) {
  for (std::size_t start = 0; start < 200; ++start) {
    std::vector<float> levels(start + 15, 1.0F);
    std::fill(levels.begin() + static_cast<std::ptrdiff_t>(start), levels.end(), 0.1F);
    EXPECT_TRUE(WaveformFile::serialize(levels, 100).contains("\"start\"")) << "0.15 s from window " << start;
    levels.pop_back();
    EXPECT_FALSE(WaveformFile::serialize(levels, 100).contains("\"start\"")) << "0.14 s from window " << start;
  }
}

TEST(LevelMeterTest, MeasuresEachFiftiethPartOfASecond) {
  std::vector<SoundLevel> levels;
  LevelMeter meter(2, [&](SoundLevel level) { levels.push_back(level); });
  std::vector<float> samples(2 * 48000 / 10);
  for (std::size_t i = 0; i < samples.size() / 2; ++i) {
    samples[2 * i] = samples[2 * i + 1] = static_cast<float>(0.5 * std::sin(static_cast<double>(i) * 0.1308996939));
  }
  meter.append(std::span(samples).first(1234));
  meter.append(std::span(samples).subspan(1234));
  ASSERT_EQ(levels.size(), 2U);
  EXPECT_NEAR(levels[0].peak, -6.02, 0.01);
  EXPECT_NEAR(levels[1].rms, -9.03, 0.05);
  levels.clear();
  meter.append(std::vector<float>(4800, 0.0F));
  meter.append(std::vector<float>(4800, nan));
  meter.append(std::vector<float>(4800, 4.0F));
  ASSERT_EQ(levels.size(), 3U);
  EXPECT_EQ(levels[0], SoundLevel());
  EXPECT_EQ(levels[1], SoundLevel());
  EXPECT_EQ(levels[2].peak, 0);
}

}  // namespace
}  // namespace vellora::test
