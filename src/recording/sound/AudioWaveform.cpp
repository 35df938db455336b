#include "recording/sound/AudioWaveform.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "recording/sound/PeakScan.h"

namespace vellora {
namespace {

constexpr double displayedDecibels = 48;
/// What is below counts as silence, of the loudest peak and of full scale.
constexpr double relativeGate = 0.07, leastGate = 0.015;

float displayLevelOf(float peak) {
  if (peak <= 0) return 0;
  const double level = (20 * std::log10(static_cast<double>(peak)) + displayedDecibels) / displayedDecibels;
  return static_cast<float>(std::clamp(level, 0.0, 1.0));
}

}  // namespace

AudioWaveform::Envelope AudioWaveform::envelope(std::span<const float> peaks) {
  Envelope envelope;
  envelope.displayLevels.reserve(peaks.size());
  envelope.linearLevels.reserve(peaks.size());
  const auto sane = [](float peak) { return std::isfinite(peak) && peak > 0 ? peak : 0.0F; };
  float most = 0;
  for (const float peak : peaks) most = std::max(most, sane(peak));
  const double gate = std::max(relativeGate * most, leastGate);
  for (const float raw : peaks) {
    const float peak = sane(raw);
    envelope.displayLevels.push_back(displayLevelOf(peak));
    envelope.linearLevels.push_back(peak < gate || most <= 0 ? 0.0F : peak / most);
  }
  return envelope;
}

std::vector<float> AudioWaveform::extract(AudioReader& track, double rate, const GoesOn& goesOn) {
  PeakAccumulator peaks(track.sampleRate(), track.channels(), rate);
  for (;;) {
    const auto samples = track.read();
    if (!samples || samples->empty() || (goesOn && !goesOn())) return peaks.finish();
    peaks.append(*samples);
  }
}

AudioWaveform::Envelope AudioWaveform::load(Movies& movies, const std::filesystem::path& file, double rate,
                                            const GoesOn& goesOn) {
  const auto track = movies.openAudio(file, 0);
  if (!track) return {};
  const std::vector<float> peaks = extract(**track, rate, goesOn);
  return goesOn && !goesOn() ? Envelope() : envelope(peaks);
}

AudioWaveform::PeakAccumulator::PeakAccumulator(int sampleRate, int channels, double rate)
    : channels_(std::max(channels, 1)),
      framesPerWindow_(std::max(1.0, std::max(sampleRate, 1) / (rate > 0 ? rate : samplesPerSecond))) {}

std::int64_t AudioWaveform::PeakAccumulator::windowEnd() const {
  const double end = std::ceil(static_cast<double>(peaks_.size() + 1) * framesPerWindow_ - 1e-9);
  return static_cast<std::int64_t>(end);
}

void AudioWaveform::PeakAccumulator::close() {
  peaks_.push_back(std::exchange(peak_, 0.0F));
}

void AudioWaveform::PeakAccumulator::append(std::span<const float> samples) {
  const auto channels = static_cast<std::size_t>(channels_);
  for (auto left = static_cast<std::int64_t>(samples.size() / channels); left > 0;) {
    const std::int64_t end = windowEnd();
    const std::int64_t taken = std::min(left, end - frame_);
    const std::size_t count = static_cast<std::size_t>(taken) * channels;
    peak_ = std::max(peak_, peakOf(samples.first(count)));
    samples = samples.subspan(count);
    left -= taken;
    frame_ += taken;
    if (frame_ == end) close();
  }
}

void AudioWaveform::PeakAccumulator::appendSilence(std::int64_t frames) {
  if (frames <= 0) return;
  frame_ += frames;
  while (windowEnd() <= frame_) close();
}

std::vector<float> AudioWaveform::PeakAccumulator::finish() {
  const auto windows = static_cast<double>(peaks_.size());
  if (static_cast<double>(frame_) > std::ceil(windows * framesPerWindow_ - 1e-9)) close();
  return std::move(peaks_);
}

}  // namespace vellora
