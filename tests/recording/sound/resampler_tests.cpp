#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

#include "recording/sound/VariableResampler.h"

namespace vellora::test {
namespace {

constexpr double rate = 48000;

/// What is left of a resampled tone beside the tone, in decibels below it.
double noiseOf(double frequency, double step, int channels) {
  VariableResampler resampler(channels);
  const auto count = static_cast<std::size_t>(channels);
  std::vector<float> tone(960 * count), part(480 * count), out;
  for (std::size_t frame = 0, chunk = 0; chunk < 100; ++chunk) {
    for (std::size_t i = 0; i < 960; ++i, ++frame) {
      const double phase = 2 * std::numbers::pi * frequency * static_cast<double>(frame) / rate;
      for (std::size_t channel = 0; channel < count; ++channel) {
        tone[i * count + channel] = static_cast<float>(channel == 0 ? std::sin(phase) : std::cos(phase));
      }
    }
    resampler.push(tone);
    while (const std::size_t frames = resampler.pull(part, step)) {
      for (std::size_t i = 0; i < frames; ++i) out.push_back(part[i * count + count - 1]);
    }
  }
  double noise = 0, power = 0;
  for (std::size_t i = 1000; i < out.size(); ++i) {
    const double phase = 2 * std::numbers::pi * frequency * static_cast<double>(i) * step / rate;
    const double expected = channels == 1 ? std::sin(phase) : std::cos(phase);
    noise += (out[i] - expected) * (out[i] - expected);
    power += expected * expected;
  }
  EXPECT_NEAR(static_cast<double>(out.size()), 96000 / step, 60);
  return 10 * std::log10(noise / power);
}

TEST(VariableResamplerTest, ToneKeepsItsQualityAtAnyRatio) {
  for (const double step : {1.0, 1 + 500e-6, 1 - 500e-6, 1 + 3e-6}) {
    for (const int channels : {1, 2}) {
      SCOPED_TRACE(step);
      EXPECT_LT(noiseOf(1000, step, channels), -100);
      EXPECT_LT(noiseOf(15000, step, channels), -80);
    }
  }
}

TEST(VariableResamplerTest, BlocksOfAnySizeGiveTheSameSound) {
  std::mt19937 random(3);
  std::vector<float> sound(9600);
  for (float& sample : sound) sample = std::uniform_real_distribution<float>(-1, 1)(random);
  const auto resampled = [&](auto&& nextSize) {
    VariableResampler resampler(2);
    resampler.restart(-0.5);
    std::vector<float> out, part(200);
    for (std::size_t at = 0; at < sound.size();) {
      const std::size_t count = std::min(sound.size() - at, 2 * nextSize());
      resampler.push(std::span(sound).subspan(at, count));
      at += count;
      while (const std::size_t frames = resampler.pull(part, 1.0002)) {
        out.insert(out.end(), part.begin(), part.begin() + static_cast<std::ptrdiff_t>(2 * frames));
      }
    }
    return out;
  };
  const auto whole = resampled([] { return std::size_t{4800}; });
  const auto pieces = resampled([&] { return std::uniform_int_distribution<std::size_t>(1, 100)(random); });
  EXPECT_EQ(whole, pieces);
}

}  // namespace
}  // namespace vellora::test
