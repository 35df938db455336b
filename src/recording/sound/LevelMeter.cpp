#include "recording/sound/LevelMeter.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/AudioCapture.h"
#include "recording/sound/PeakScan.h"

namespace vellora {
namespace {

float decibelsOf(double level) {
  if (!(level > 0)) return SoundLevel::silence;
  return static_cast<float>(std::max<double>(20 * std::log10(level), SoundLevel::silence));
}

}  // namespace

LevelMeter::LevelMeter(int channels, std::function<void(SoundLevel)> onLevel)
    : needed_(static_cast<std::size_t>(std::lround(interval * AudioChunk::sampleRate)) *
              static_cast<std::size_t>(channels)),
      onLevel_(std::move(onLevel)) {}

void LevelMeter::append(std::span<const float> samples) {
  while (!samples.empty()) {
    const auto part = samples.first(std::min(samples.size(), needed_ - count_));
    samples = samples.subspan(part.size());
    for (const float sample : part) squares_ += static_cast<double>(sample) * static_cast<double>(sample);
    peak_ = std::max(peak_, peakOf(part));
    count_ += part.size();
    if (count_ < needed_) return;
    const double rms = std::sqrt(std::exchange(squares_, 0) / static_cast<double>(std::exchange(count_, 0)));
    onLevel_({decibelsOf(std::min(1.0F, std::exchange(peak_, 0.0F))), decibelsOf(rms)});
  }
}

}  // namespace vellora
