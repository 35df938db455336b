#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include <QElapsedTimer>

#include "base/QtRunLoop.h"
#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/audio/LoadedAudioPlayback.h"
#include "support/PulseServer.h"
#include "support/XServer.h"

namespace vellora::test {
namespace {

using Clock = std::chrono::steady_clock;

double secondsSince(Clock::time_point moment) {
  return std::chrono::duration<double>(Clock::now() - moment).count();
}

/// A tone of 1 kHz without a break.
class Tone {
 public:
  AudioPlayback::Callbacks callbacks() {
    return {.fill = [this](std::span<float> to) { fill(to); }, .onLost = [this](AudioPlaybackError) { ++losses; }};
  }

  std::atomic<int> losses = 0;
  std::atomic<std::int64_t> frames = 0;

 private:
  void fill(std::span<float> to) {
    for (std::size_t i = 0; i + 1 < to.size(); i += 2) {
      const double phase = static_cast<double>(frames++) * 2 * M_PI * 1000 / AudioPlayback::sampleRate;
      to[i] = to[i + 1] = static_cast<float>(0.5 * std::sin(phase));
    }
  }
};

/// The speakers' sound as the server gives it back.
class Monitor {
 public:
  explicit Monitor(RunLoop& loop) : capture_(loop) {
    auto opened = capture_.start(AudioCapture::systemSound, 1, {.onChunk = [this](const AudioChunk& chunk) {
                                   const std::lock_guard lock(mutex_);
                                   samples_.insert(samples_.end(), chunk.samples.begin(), chunk.samples.end());
                                 }});
    EXPECT_TRUE(opened);
    if (opened) stream_ = std::move(*opened);
  }
  std::vector<float> samples() {
    const std::lock_guard lock(mutex_);
    return samples_;
  }

 private:
  std::mutex mutex_;
  std::vector<float> samples_;
  LoadedAudioCapture capture_;
  std::unique_ptr<AudioStream> stream_;
};

TEST(PulsePlayback, WhatIsPlayedIsHeardWithoutABreakAndByTheClock) {
  const auto server = PulseServer::start();
  ASSERT_TRUE(server);
  QtRunLoop loop;
  Monitor monitor(loop);
  LoadedAudioPlayback speakers;
  Tone tone;
  auto stream = speakers.start(tone.callbacks());
  ASSERT_TRUE(stream);

  ASSERT_TRUE(waitFor([&] { return (*stream)->heardFrames() > AudioPlayback::sampleRate / 10; }));
  const auto began = Clock::now();
  const std::int64_t first = (*stream)->heardFrames();
  std::int64_t last = first;
  while (secondsSince(began) < 2) {
    const std::int64_t heard = (*stream)->heardFrames();
    ASSERT_GE(heard, last);
    ASSERT_LE(heard, tone.frames);
    last = heard;
    const double passed = secondsSince(began);
    ASSERT_NEAR(static_cast<double>(heard - first) / AudioPlayback::sampleRate, passed, 0.05);
    std::this_thread::sleep_for(std::chrono::milliseconds(3));
  }

  const std::vector<float> heard = monitor.samples();
  const auto isLoud = [](float sample) { return std::abs(sample) > 0.3F; };
  const auto start = std::find_if(heard.begin(), heard.end(), isLoud);
  ASSERT_GT(heard.end() - start, AudioPlayback::sampleRate);
  // Ten milliseconds of a tone are never silent, and cross zero upwards ten times.
  constexpr std::ptrdiff_t block = AudioPlayback::sampleRate / 100;
  int crossings = 0;
  std::ptrdiff_t counted = 0;
  for (auto at = start + block; at + block < heard.end(); at += block, counted += block) {
    ASSERT_TRUE(std::any_of(at, at + block, isLoud)) << (at - start);
    for (auto sample = at; sample < at + block; ++sample) crossings += *sample >= 0 && *(sample - 1) < 0 ? 1 : 0;
  }
  EXPECT_NEAR(crossings, 1000.0 * static_cast<double>(counted) / AudioPlayback::sampleRate, 3);
  EXPECT_EQ(tone.losses, 0);
}

TEST(PulsePlayback, EndsAtAnyMomentAndWithTheServer) {
  const auto server = PulseServer::start();
  ASSERT_TRUE(server);
  LoadedAudioPlayback speakers;
  for (int i = 0; i < 30; ++i) {
    Tone tone;
    auto stream = speakers.start(tone.callbacks());
    ASSERT_TRUE(stream);
    std::this_thread::sleep_for(std::chrono::milliseconds(i % 7));
    std::thread([&] { stream->reset(); }).join();
    const std::int64_t frames = tone.frames;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(tone.frames, frames);
  }

  Tone tone;
  auto stream = speakers.start(tone.callbacks());
  ASSERT_TRUE(stream);
  server->kill();
  EXPECT_TRUE(waitFor([&] { return tone.losses == 1; }));
  const std::int64_t heard = (*stream)->heardFrames();
  EXPECT_EQ((*stream)->heardFrames(), heard);
  stream->reset();
  Tone next;
  const auto without = speakers.start(next.callbacks());
  ASSERT_FALSE(without);
  EXPECT_EQ(without.error(), AudioPlaybackError::notAvailable);
}

}  // namespace
}  // namespace vellora::test
