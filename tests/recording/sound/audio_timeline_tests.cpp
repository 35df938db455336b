#include "recording/sound/AudioTimeline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace vellora::test {
namespace {

constexpr int rate = AudioChunk::sampleRate;
constexpr int chunkFrames = rate / 50;

/// A microphone in virtual time: its clock is off, its time stamps tremble, and it hears a click each second of the
/// host's clock, or a tone.
class Microphone {
 public:
  explicit Microphone(double ppm = 0, double jitter = 0) : speed_(1 + ppm * 1e-6), jitter_(-jitter, jitter) {}

  double now() const { return start_ + static_cast<double>(taken_) / (rate * speed_); }

  /// Records the next 20 ms; `lost`: nobody gets them.
  void record(AudioTimeline& timeline, bool lost = false) {
    std::vector<float> samples(chunkFrames);
    const double time = now();
    for (int i = 0; i < chunkFrames; ++i) {
      const double heard = start_ + static_cast<double>(taken_ + i) / (rate * speed_);
      samples[static_cast<std::size_t>(i)] = sound ? sound(heard) : clickAt(heard);
    }
    taken_ += chunkFrames;
    if (!lost) timeline.append({.samples = samples, .hostTime = time + jitter_(random_)});
  }
  void recordUntil(AudioTimeline& timeline, double hostTime) {
    while (now() < hostTime) {
      record(timeline);
      timeline.advance(now() + 0.03);
    }
  }

  std::function<float(double)> sound;

 private:
  /// A smooth pulse of 2 ms around every whole second.
  static float clickAt(double time) {
    const double distance = (time - std::round(time)) / 1e-3;
    return std::abs(distance) < 1 ? static_cast<float>(0.5 + 0.5 * std::cos(std::numbers::pi * distance)) : 0;
  }

  static constexpr double start_ = 1000.25;
  double speed_;
  std::uniform_real_distribution<double> jitter_;
  std::mt19937 random_{7};
  std::int64_t taken_ = 0;
};

/// Everything a timeline puts out.
class Recording {
 public:
  AudioTimeline timeline{1, [this](std::span<const float> more, double time) {
                           EXPECT_NEAR(time, static_cast<double>(samples.size()) / rate, 1e-9);
                           samples.insert(samples.end(), more.begin(), more.end());
                         }};
  std::vector<float> samples;

  /// The recorded seconds of all clicks, by the middle of each.
  std::vector<double> clicks() const {
    std::vector<double> found;
    double weight = 0, sum = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
      if (samples[i] > 0.05F) {
        weight += samples[i];
        sum += samples[i] * static_cast<double>(i) / rate;
      } else if (weight > 0) {
        found.push_back(sum / weight);
        weight = sum = 0;
      }
    }
    return found;
  }
  /// The largest step from one sample to the next.
  float steepest() const {
    float most = 0;
    for (std::size_t i = 1; i < samples.size(); ++i) most = std::max(most, std::abs(samples[i] - samples[i - 1]));
    return most;
  }
  float loudest(double from, double to) const {
    float most = 0;
    for (auto i = static_cast<std::size_t>(from * rate); i < static_cast<std::size_t>(to * rate); ++i) {
      most = std::max(most, std::abs(samples.at(i)));
    }
    return most;
  }
};

/// How far the clicks are from where whole host seconds are in a recording that began at `begin`.
double worstOffset(const std::vector<double>& clicks, double begin) {
  double worst = 0;
  for (const double click : clicks) {
    const double host = click + begin;
    worst = std::max(worst, std::abs(host - std::round(host)));
  }
  return worst;
}

TEST(AudioTimelineTest, SoundStaysWithTheHostClockForTenMinutes) {
  for (const double ppm : {300.0, -300.0}) {
    SCOPED_TRACE(ppm);
    Microphone microphone(ppm, 0.002);
    Recording recording;
    const double begin = microphone.now() + 0.5;
    microphone.recordUntil(recording.timeline, begin + 0.06);
    recording.timeline.begin(begin);
    microphone.recordUntil(recording.timeline, begin + 599.95);
    recording.timeline.finish(begin + 600);

    const auto clicks = recording.clicks();
    EXPECT_EQ(clicks.size(), 600U);
    EXPECT_LT(worstOffset(clicks, begin), 0.003);
    EXPECT_EQ(recording.samples.size(), 600U * rate);
    const AudioTimelineReport& report = recording.timeline.report();
    EXPECT_NEAR(report.driftPpm, ppm, 15);
    EXPECT_EQ(report.gaps + report.overlaps, 0U);
    EXPECT_DOUBLE_EQ(report.seconds, 600);
  }
}

TEST(AudioTimelineTest, LostChunksBecomeSilenceAndWhatComesTwiceIsCut) {
  Microphone microphone;
  microphone.sound = [](double) { return 0.5F; };
  Recording recording;
  const double begin = microphone.now();
  recording.timeline.begin(begin);
  microphone.recordUntil(recording.timeline, begin + 1);
  for (int i = 0; i < 5; ++i) microphone.record(recording.timeline, true);
  microphone.recordUntil(recording.timeline, begin + 2);
  EXPECT_EQ(recording.timeline.report().gaps, 1U);
  EXPECT_NEAR(recording.timeline.report().gapSeconds, 0.1, 0.002);
  EXPECT_LT(recording.loudest(1.01, 1.09), 1e-6F);
  EXPECT_NEAR(recording.samples.at(rate * 3 / 2), 0.5F, 1e-4F);
  EXPECT_LT(recording.steepest(), 0.01F) << "a gap must not click";

  // A device that starts anew gives 200 ms once more.
  const std::size_t before = recording.samples.size();
  const std::vector<float> again(rate / 2, 0.25F);
  recording.timeline.append({.samples = again, .hostTime = microphone.now() - 0.2});
  EXPECT_EQ(recording.timeline.report().overlaps, 1U);
  EXPECT_NEAR(recording.timeline.report().overlapSeconds, 0.2, 0.003);
  EXPECT_NEAR(static_cast<double>(recording.samples.size() - before), 0.3 * rate, 60);
  EXPECT_LT(recording.steepest(), 0.01F);
}

TEST(AudioTimelineTest, GoesOnSilentlyWithoutTheDeviceAndTakesItUpAgain) {
  Microphone microphone(100);
  Recording recording;
  const double begin = microphone.now() - 0.4;
  recording.timeline.begin(begin);
  microphone.recordUntil(recording.timeline, begin + 3);
  recording.timeline.loseDevice();
  const double lost = microphone.now();
  while (microphone.now() < lost + 4) microphone.record(recording.timeline, true);
  recording.timeline.advance(microphone.now());
  EXPECT_NEAR(static_cast<double>(recording.samples.size()) / rate, microphone.now() - begin, 0.25);
  microphone.recordUntil(recording.timeline, begin + 11.95);
  recording.timeline.finish(begin + 12);

  EXPECT_EQ(recording.timeline.report().gaps, 2U) << "the late start and the loss";
  EXPECT_NEAR(recording.timeline.report().gapSeconds, 4.4, 0.2);
  EXPECT_EQ(recording.samples.size(), 12U * rate);
  EXPECT_LT(worstOffset(recording.clicks(), begin), 0.003);
  EXPECT_EQ(recording.clicks().size(), 7U);
}

TEST(AudioTimelineTest, PausesAreCutOutWhenTheirSoundComesLate) {
  Microphone microphone;
  microphone.sound = [](double time) { return static_cast<float>(0.5 * std::sin(2 * std::numbers::pi * 200 * time)); };
  Recording recording;
  const double begin = microphone.now() + 1;
  microphone.recordUntil(recording.timeline, begin);
  recording.timeline.begin(begin);
  // Paused and resumed before the sound of either moment is there.
  microphone.recordUntil(recording.timeline, begin + 2);
  recording.timeline.pause(begin + 2.105);
  recording.timeline.resume(begin + 2.210);
  recording.timeline.pause(begin + 2.305);
  microphone.recordUntil(recording.timeline, begin + 5);
  const std::size_t paused = recording.samples.size();
  EXPECT_EQ(paused, static_cast<std::size_t>(std::lround(2.2 * rate)));
  recording.timeline.advance(begin + 5);
  EXPECT_EQ(recording.samples.size(), paused);
  recording.timeline.resume(begin + 6);
  microphone.recordUntil(recording.timeline, begin + 6.95);
  recording.timeline.finish(begin + 7);
  EXPECT_EQ(recording.samples.size(), static_cast<std::size_t>(std::lround(3.2 * rate)));
  EXPECT_LT(recording.steepest(), 0.05F) << "a cut must not click";
  EXPECT_EQ(recording.timeline.report().gaps, 0U) << "what is still under way at the end is not missing";
}

TEST(AudioTimelineTest, WhatWasHeardBeforeTheEndMayComeAfterIt) {
  Microphone microphone;
  microphone.sound = [](double) { return 0.5F; };
  for (const bool isBegunLate : {false, true}) {
    Recording recording;
    const double begin = microphone.now();
    if (!isBegunLate) recording.timeline.begin(begin);
    microphone.recordUntil(recording.timeline, begin + 0.9);
    recording.timeline.end(begin + 1);
    microphone.recordUntil(recording.timeline, begin + 1.1);
    if (isBegunLate) recording.timeline.begin(begin);
    recording.timeline.finish(begin + 1.05);
    ASSERT_EQ(recording.samples.size(), static_cast<std::size_t>(rate));
    EXPECT_NEAR(recording.samples.back(), 0.5, 0.01);
  }
}

TEST(AudioTimelineTest, APauseToldLateCostsNoStep) {
  Recording recording;
  Microphone microphone;
  const double begin = microphone.now();
  recording.timeline.begin(begin);
  for (int i = 0; i < 20; ++i) {
    // 40 ms too late, and the next one before what came too much is made up for.
    microphone.recordUntil(recording.timeline, begin + i + 0.5);
    recording.timeline.pause(begin + i + 0.46);
    recording.timeline.resume(begin + i + 0.48);
    recording.timeline.pause(begin + i + 0.49);
    microphone.recordUntil(recording.timeline, begin + i + 0.7);
    recording.timeline.resume(begin + i + 0.7);
  }
  microphone.recordUntil(recording.timeline, begin + 20.95);
  recording.timeline.finish(begin + 21);
  EXPECT_EQ(recording.samples.size(), static_cast<std::size_t>(std::lround((21 - 20 * 0.23) * rate)));
}

TEST(AudioTimelineTest, APauseMayBeToldBeforeTheBegin) {
  for (const bool isOver : {true, false}) {
    Recording recording;
    Microphone microphone;
    const double begin = microphone.now() + 0.2;
    microphone.recordUntil(recording.timeline, begin + 0.5);
    recording.timeline.pause(begin + 0.5);
    if (isOver) recording.timeline.resume(begin + 0.6);
    microphone.recordUntil(recording.timeline, begin + 0.7);
    recording.timeline.begin(begin);
    if (!isOver) recording.timeline.resume(begin + 0.8);
    microphone.recordUntil(recording.timeline, begin + 0.95);
    recording.timeline.finish(begin + 1);
    EXPECT_EQ(recording.samples.size(), static_cast<std::size_t>(std::lround((isOver ? 0.9 : 0.7) * rate)));
  }
}

TEST(AudioTimelineTest, ASilentDeviceAndNonsenseDoNotStopIt) {
  Recording recording;
  const std::vector<float> samples(chunkFrames * 2, 0.1F);
  const float nan = std::numeric_limits<float>::quiet_NaN();
  // A stamp from another clock, before anything else, must not keep the true ones out.
  recording.timeline.append({.samples = samples, .hostTime = 3});
  Microphone microphone;
  const double begin = microphone.now();
  recording.timeline.begin(begin);
  recording.timeline.append({.samples = samples, .hostTime = nan});
  recording.timeline.append({.channels = 2, .samples = samples, .hostTime = begin});
  recording.timeline.append({.samples = {}, .hostTime = begin});
  recording.timeline.append({.samples = samples, .hostTime = begin + 1e9});
  recording.timeline.append({.samples = samples, .hostTime = -1e300});
  recording.timeline.advance(begin + 5);
  EXPECT_NEAR(static_cast<double>(recording.samples.size()) / rate, 4, 0.01) << "a second is waited for the device";
  microphone.recordUntil(recording.timeline, begin + 6);
  recording.timeline.advance(1e300);
  recording.timeline.finish(begin + 6);
  EXPECT_EQ(recording.samples.size(), 6U * rate);
}

TEST(AudioTimelineTest, KeepsEarlySoundForALateBeginOnly) {
  Microphone microphone;
  Recording recording;
  const double begin = microphone.now() + 60.3;
  microphone.recordUntil(recording.timeline, begin + 1.5);
  recording.timeline.begin(begin);
  microphone.recordUntil(recording.timeline, begin + 3);
  recording.timeline.finish(begin + 3);
  EXPECT_EQ(recording.samples.size(), 3U * rate);
  EXPECT_EQ(recording.clicks().size(), 3U);
  EXPECT_LT(worstOffset(recording.clicks(), begin), 0.001);
}

}  // namespace
}  // namespace vellora::test
