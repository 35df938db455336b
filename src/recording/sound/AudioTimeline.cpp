#include "recording/sound/AudioTimeline.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vellora {
namespace {

/// Chunks whose times are off by less are taken as following each other.
constexpr double tolerance = 0.012;
/// Sound that is so late will not come any more; from a device that is gone, little is under way.
constexpr double patience = 1.0, patienceWhenLost = 0.2;
/// What is still under way when a recording ends is not missing.
constexpr double usualDelay = 0.25;
/// What is off is made up for within so many seconds, but never faster than this.
constexpr double correctionTime = 2.0, mostCorrection = 5e-4;
/// A gap longer than that is a time stamp gone wrong.
constexpr double longestGap = 3600;
constexpr double keptBeforeBegin = 2.0;
constexpr int fadeFrames = 96;
constexpr std::size_t blockFrames = 480;

}  // namespace

AudioTimeline::AudioTimeline(int channels, Output output)
    : channels_(static_cast<std::size_t>(std::clamp(channels, 1, 2))),
      output_(std::move(output)),
      resampler_(static_cast<int>(channels_)),
      block_(blockFrames * channels_),
      last_(channels_),
      offset_(channels_) {}

AudioTimeline::Frame AudioTimeline::frameAt(double hostTime) const {
  return std::llround((hostTime - epoch_.value_or(0)) * rate);
}

void AudioTimeline::begin(double hostTime) {
  if (hasBegun_ || !std::isfinite(hostTime)) return;
  if (!epoch_) epoch_ = hostTime;
  hasBegun_ = true;
  firstFrame_ = frameAt(hostTime);
  for (std::size_t i = 0; i < earlyBoundaries_.size(); i += 2) {
    const bool isOver = i + 1 < earlyBoundaries_.size();
    pauses_.push_back({frameAt(earlyBoundaries_[i]),
                       isOver ? frameAt(earlyBoundaries_[i + 1]) : std::numeric_limits<Frame>::max(), 0});
  }
  cutAt_ = earlyStart_;
  if (cutAt_ > firstFrame_) {
    // The device started later than the recording.
    ++report_.gaps;
    report_.gapSeconds += static_cast<double>(cutAt_ - firstFrame_) / rate;
    std::fill(block_.begin(), block_.end(), 0.0F);
    for (Frame missing = std::exchange(cutAt_, firstFrame_) - firstFrame_; missing > 0;) {
      const auto frames = static_cast<std::size_t>(std::min<Frame>(missing, blockFrames));
      cut(std::span(block_).first(frames * channels_));
      missing -= static_cast<Frame>(frames);
    }
    isBroken_ = true;
  }
  cut(std::exchange(early_, {}));
}

void AudioTimeline::append(const AudioChunk& chunk) {
  const std::size_t frames = chunk.samples.size() / channels_;
  if (isFinished_ || static_cast<std::size_t>(chunk.channels) != channels_ || frames == 0) return;
  if (!std::isfinite(chunk.hostTime)) return;
  if (epoch_ && std::abs(chunk.hostTime - timeOf(produced_)) > longestGap) {
    if (hasBegun_) return;
    epoch_.reset();
    produced_ = earlyStart_ = 0;
    early_.clear();
    isRunning_ = false;
  }
  if (!epoch_) epoch_ = chunk.hostTime;
  isDeviceLost_ = false;

  const double deviceTime = static_cast<double>(sourceFrames_) / rate;
  if (isRunning_ && std::abs(chunk.hostTime - clock_.hostTimeOf(deviceTime)) > tolerance) isRunning_ = false;
  if (!isRunning_) startSegment(chunk.hostTime);
  clock_.observe(static_cast<double>(sourceFrames_) / rate, chunk.hostTime);
  resampler_.push(chunk.samples.first(frames * channels_));
  sourceFrames_ += static_cast<std::int64_t>(frames);
  produce();
}

void AudioTimeline::startSegment(double hostTime) {
  const double late = hostTime - timeOf(produced_);
  if (produced_ != 0 && late < -0.5 / rate) {
    ++report_.overlaps;
    report_.overlapSeconds -= late;
  }
  fillTo(static_cast<Frame>(std::floor((hostTime - *epoch_) * rate)), true);
  clock_.restart();
  sourceFrames_ = 0;
  resampler_.restart((timeOf(produced_) - hostTime) * rate);
  isRunning_ = true;
  isBroken_ = true;
}

void AudioTimeline::produce() {
  for (;;) {
    const double wanted = clock_.deviceTimeOf(timeOf(produced_)) * rate;
    const double correction = (wanted - resampler_.position()) / (correctionTime * rate);
    const double step = 1 / (1 + clock_.drift()) + std::clamp(correction, -mostCorrection, mostCorrection);
    const std::size_t frames = resampler_.pull(block_, step);
    if (frames == 0) break;
    isSilent_ = false;
    put(std::span(block_).first(frames * channels_));
  }
  report_.driftPpm = (1 / (1 + clock_.drift()) - 1) * 1e6;
}

void AudioTimeline::advance(double hostTime) {
  if (isFinished_ || !epoch_ || !std::isfinite(hostTime)) return;
  const Frame due = frameAt(hostTime - (isDeviceLost_ ? patienceWhenLost : patience));
  if (due <= produced_ || due - produced_ > static_cast<Frame>(longestGap * rate)) return;
  fillTo(due, true);
}

void AudioTimeline::fillTo(Frame end, bool isMissing) {
  if (end <= produced_) return;
  if (isMissing) {
    report_.gaps += isSilent_ ? 0 : 1;
    report_.gapSeconds += static_cast<double>(end - produced_) / rate;
  }
  isBroken_ = isBroken_ || !isSilent_;
  isSilent_ = true;
  isRunning_ = false;
  std::fill(block_.begin(), block_.end(), 0.0F);
  while (produced_ < end) {
    const auto frames = static_cast<std::size_t>(std::min<Frame>(end - produced_, blockFrames));
    put(std::span(block_).first(frames * channels_));
  }
}

void AudioTimeline::pause(double hostTime) {
  if (isPaused_ || !std::isfinite(hostTime)) return;
  isPaused_ = true;
  if (!hasBegun_) return earlyBoundaries_.push_back(hostTime);
  const Frame from = frameAt(hostTime);
  const Frame reached = std::max(cutAt_, pauses_.empty() ? cutAt_ : pauses_.back().to);
  pauses_.push_back({from, std::numeric_limits<Frame>::max(), std::max<Frame>(0, reached - from)});
}

void AudioTimeline::resume(double hostTime) {
  if (!isPaused_ || !std::isfinite(hostTime)) return;
  isPaused_ = false;
  if (!hasBegun_) return earlyBoundaries_.push_back(hostTime);
  pauses_.back().to = frameAt(hostTime) + pauses_.back().tooMany;
}

void AudioTimeline::end(double hostTime) {
  if (!endTime_ && std::isfinite(hostTime)) endTime_ = hostTime;
}

void AudioTimeline::finish(double hostTime) {
  if (isFinished_) return;
  end(hostTime);
  if (hasBegun_ && endTime_) {
    const Frame last = frameAt(*endTime_);
    const double missing = static_cast<double>(last - produced_) / rate;
    if (missing <= longestGap) fillTo(last, missing > usualDelay);
  }
  isFinished_ = true;
}

void AudioTimeline::put(std::span<const float> samples) {
  produced_ += static_cast<Frame>(samples.size() / channels_);
  if (hasBegun_) {
    cut(samples);
  } else {
    keep(samples);
  }
}

void AudioTimeline::keep(std::span<const float> samples) {
  early_.insert(early_.end(), samples.begin(), samples.end());
  const auto most = static_cast<std::size_t>(keptBeforeBegin * rate) * channels_;
  if (early_.size() > 2 * most) {
    early_.erase(early_.begin(), early_.end() - static_cast<std::ptrdiff_t>(most));
  }
  earlyStart_ = produced_ - static_cast<Frame>(early_.size() / channels_);
}

void AudioTimeline::cut(std::span<const float> samples) {
  while (!samples.empty()) {
    while (!pauses_.empty() && pauses_.front().to <= cutAt_) pauses_.pop_front();
    Frame wantedFrom = firstFrame_, wantedTo = endTime_ ? frameAt(*endTime_) : std::numeric_limits<Frame>::max();
    if (!pauses_.empty()) {
      if (cutAt_ >= pauses_.front().from) {
        wantedFrom = std::max(wantedFrom, pauses_.front().to);
      } else {
        wantedTo = std::min(wantedTo, pauses_.front().from);
      }
    }
    const auto available = static_cast<Frame>(samples.size() / channels_);
    const bool isWanted = cutAt_ >= wantedFrom && cutAt_ < wantedTo;
    const Frame edge = isWanted ? wantedTo : cutAt_ < wantedFrom ? wantedFrom : std::numeric_limits<Frame>::max();
    const Frame frames = std::min(available, edge - cutAt_);
    const auto count = static_cast<std::size_t>(frames) * channels_;
    if (isWanted) {
      write(samples.first(count));
    } else {
      isBroken_ = true;
    }
    samples = samples.subspan(count);
    cutAt_ += frames;
  }
}

void AudioTimeline::write(std::span<const float> samples) {
  written_.assign(samples.begin(), samples.end());
  if (std::exchange(isBroken_, false)) {
    for (std::size_t channel = 0; channel < channels_; ++channel) offset_[channel] = last_[channel] - samples[channel];
    fading_ = fadeFrames;
  }
  for (std::size_t i = 0; i < written_.size() && fading_ > 0; i += channels_, --fading_) {
    const float share = static_cast<float>(fading_) / fadeFrames;
    for (std::size_t channel = 0; channel < channels_; ++channel) written_[i + channel] += share * offset_[channel];
  }
  std::copy(written_.end() - static_cast<std::ptrdiff_t>(channels_), written_.end(), last_.begin());
  output_(written_, static_cast<double>(writtenFrames_) / rate);
  writtenFrames_ += static_cast<Frame>(samples.size() / channels_);
  report_.seconds = static_cast<double>(writtenFrames_) / rate;
}

}  // namespace vellora
