#include "recording/sound/VariableResampler.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "recording/sound/SoundLanes.h"

namespace vellora {
namespace {

constexpr std::size_t tapCount = 48;
constexpr std::size_t phases = 256;
/// Of the Kaiser window: what is folded back lies 100 dB lower.
constexpr double beta = 10;

/// The weights for each position between two source frames, the last row being the first one shifted by a frame.
using Table = std::array<std::array<float, tapCount>, phases + 1>;

Table makeTable() {
  Table table{};
  constexpr double half = tapCount / 2;
  for (std::size_t phase = 0; phase <= phases; ++phase) {
    std::array<double, tapCount> weights{};
    double sum = 0;
    for (std::size_t tap = 0; tap < tapCount; ++tap) {
      const double distance =
          static_cast<double>(tap) - (half - 1) - static_cast<double>(phase) / static_cast<double>(phases);
      const double angle = std::numbers::pi * distance;
      const double sinc = std::abs(distance) < 1e-12 ? 1 : std::sin(angle) / angle;
      const double inside = std::max(0.0, 1 - distance * distance / (half * half));
      weights[tap] = sinc * std::cyl_bessel_i(0, beta * std::sqrt(inside));
      sum += weights[tap];
    }
    for (std::size_t tap = 0; tap < tapCount; ++tap) table[phase][tap] = static_cast<float>(weights[tap] / sum);
  }
  return table;
}

const Table& table() {
  static const Table made = makeTable();
  return made;
}

}  // namespace

VariableResampler::VariableResampler(int channels) : channels_(channels) {
  static_assert(taps == tapCount);
  restart(0);
}

void VariableResampler::restart(double position) {
  whole_ = static_cast<std::ptrdiff_t>(std::floor(position));
  fraction_ = position - static_cast<double>(whole_);
  first_ = std::min<std::ptrdiff_t>(0, whole_ - before);
  for (auto& channel : held_) channel.assign(static_cast<std::size_t>(-first_), 0.0F);
}

void VariableResampler::push(std::span<const float> samples) {
  forgetOld();
  const auto count = static_cast<std::size_t>(channels_);
  const std::size_t frames = samples.size() / count;
  for (std::size_t channel = 0; channel < count; ++channel) {
    auto& held = held_[channel];
    const std::size_t old = held.size();
    held.resize(old + frames);
    for (std::size_t i = 0; i < frames; ++i) held[old + i] = samples[i * count + channel];
  }
}

void VariableResampler::forgetOld() {
  const auto most = static_cast<std::ptrdiff_t>(held_[0].size());
  const std::ptrdiff_t old = std::clamp<std::ptrdiff_t>(whole_ - before - first_, 0, most);
  for (int channel = 0; channel < channels_; ++channel) {
    auto& held = held_[static_cast<std::size_t>(channel)];
    held.erase(held.begin(), held.begin() + old);
  }
  first_ += old;
}

std::size_t VariableResampler::pull(std::span<float> to, double step) {
  return channels_ == 1 ? pullFrames<1>(to, step) : pullFrames<2>(to, step);
}

template <int channelCount>
std::size_t VariableResampler::pullFrames(std::span<float> to, double step) {
  const Table& weights = table();
  const std::ptrdiff_t end = first_ + static_cast<std::ptrdiff_t>(held_[0].size());
  const std::size_t most = to.size() / channelCount;
  std::size_t done = 0;
  for (; done < most && whole_ - before + taps <= end; ++done) {
    const double place = fraction_ * phases;
    const std::size_t phase = std::min(static_cast<std::size_t>(place), phases - 1);
    const auto share = static_cast<float>(place - static_cast<double>(phase));
    const float* low = weights[phase].data();
    const float* high = weights[phase + 1].data();
    const std::ptrdiff_t start = whole_ - before - first_;
    std::array<FloatLanes, channelCount> sums{};
    for (std::size_t tap = 0; tap < tapCount; tap += laneCount) {
      const FloatLanes lower = loadLanes(low + tap);
      const FloatLanes weight = lower + share * (loadLanes(high + tap) - lower);
      for (std::size_t channel = 0; channel < channelCount; ++channel) {
        sums[channel] += weight * loadLanes(held_[channel].data() + start + tap);
      }
    }
    for (std::size_t channel = 0; channel < channelCount; ++channel) {
      to[done * channelCount + channel] = sumOf(sums[channel]);
    }
    fraction_ += step;
    const double moved = std::floor(fraction_);
    whole_ += static_cast<std::ptrdiff_t>(moved);
    fraction_ -= moved;
  }
  return done;
}

}  // namespace vellora
