#include "record_editor/playback/SoundFeed.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace vellora {
namespace {

constexpr std::size_t channels = AudioPlayback::channels;
/// What is read ahead, in frames: 300 ms.
constexpr std::size_t ringFrames = AudioPlayback::sampleRate * 3 / 10;
constexpr std::size_t blockFrames = 1024;
/// How often the reading thread looks for room while it plays; the ring lasts many times longer.
constexpr std::chrono::milliseconds refill{15};

}  // namespace

std::size_t SoundFeed::Ring::room() {
  const std::lock_guard lock(mutex_);
  return samples_.size() - count_;
}

void SoundFeed::Ring::write(std::span<const float> samples) {
  const std::lock_guard lock(mutex_);
  for (const float sample : samples.first(std::min(samples.size(), samples_.size() - count_))) {
    samples_[(first_ + count_++) % samples_.size()] = sample;
  }
}

std::size_t SoundFeed::Ring::read(std::span<float> to) {
  const std::lock_guard lock(mutex_);
  const std::size_t count = std::min(to.size(), count_);
  for (float& sample : to.first(count)) {
    sample = samples_[first_];
    first_ = (first_ + 1) % samples_.size();
  }
  count_ -= count;
  return count;
}

void SoundFeed::Ring::clear() {
  const std::lock_guard lock(mutex_);
  first_ = count_ = 0;
}

SoundFeed::SoundFeed(std::vector<std::unique_ptr<AudioReader>> tracks, AudioPlayback& output)
    : output_(output), ring_(ringFrames * channels), block_(blockFrames * channels) {
  for (auto& track : tracks) tracks_.push_back({.reader = std::move(track)});
  thread_ = std::thread([this] { run(); });
}

SoundFeed::~SoundFeed() {
  {
    const std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  thread_.join();
}

void SoundFeed::play(double from) {
  {
    const std::lock_guard lock(mutex_);
    wanted_ = from;
    isWanted_ = true;
    hasFailed_ = false;
  }
  changed_.notify_all();
}

void SoundFeed::pause() {
  {
    const std::lock_guard lock(mutex_);
    wanted_.reset();
    isWanted_ = false;
  }
  changed_.notify_all();
}

std::optional<double> SoundFeed::position() {
  const std::lock_guard lock(mutex_);
  if (!isWanted_ || wanted_ || stream_ == nullptr) return std::nullopt;
  const std::int64_t heard = std::max<std::int64_t>(0, stream_->heardFrames() - missingFrames_);
  return from_ + static_cast<double>(heard) / AudioPlayback::sampleRate;
}

void SoundFeed::run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    const bool isPlaying = isWanted_ && stream_ != nullptr && !isRead_;
    const auto isNeeded = [&] { return isEnding_ || wanted_ || (!isWanted_ && stream_ != nullptr); };
    if (isPlaying) {
      changed_.wait_for(lock, refill, isNeeded);
    } else {
      changed_.wait(lock, isNeeded);
    }
    if (isEnding_ || wanted_ || !isWanted_) {
      // Ending a stream waits for its callback, which must not wait for this lock.
      auto ended = std::move(stream_);
      lock.unlock();
      ended.reset();
      lock.lock();
      if (isEnding_) return;
    }
    if (wanted_) {
      const double from = *wanted_;
      lock.unlock();
      start(from);
      lock.lock();
    } else if (isWanted_ && stream_ != nullptr) {
      lock.unlock();
      while (!isRead_ && ring_.room() >= block_.size()) isRead_ = !mix();
      lock.lock();
    }
  }
}

void SoundFeed::start(double from) {
  ring_.clear();
  missingFrames_ = 0;
  for (Track& track : tracks_) {
    track.left = {};
    track.hasEnded = !track.reader->seek(std::llround(from * AudioPlayback::sampleRate));
  }
  isRead_ = false;
  while (!isRead_ && ring_.room() >= block_.size()) isRead_ = !mix();
  auto stream = output_.start(
      {.fill = [this](std::span<float> to) { fill(to); }, .onLost = [this](AudioPlaybackError) { hasFailed_ = true; }});
  const std::lock_guard lock(mutex_);
  if (!stream) {
    hasFailed_ = true;
    if (wanted_ == from) wanted_.reset();
    return;
  }
  stream_ = std::move(*stream);
  from_ = from;
  if (wanted_ == from) wanted_.reset();
}

bool SoundFeed::mix() {
  std::fill(block_.begin(), block_.end(), 0.0F);
  std::size_t longest = 0;
  for (Track& track : tracks_) {
    std::size_t filled = 0;
    while (filled < block_.size() && !track.hasEnded) {
      if (track.left.empty()) {
        const auto read = track.reader->read();
        track.hasEnded = !read || read->empty();
        if (!track.hasEnded) track.left = *read;
        continue;
      }
      const std::size_t count = std::min(block_.size() - filled, track.left.size());
      for (std::size_t i = 0; i < count; ++i) block_[filled + i] += track.left[i];
      track.left = track.left.subspan(count);
      filled += count;
    }
    longest = std::max(longest, filled);
  }
  for (float& sample : block_) sample = std::clamp(sample, -1.0F, 1.0F);
  ring_.write(std::span(block_).first(longest));
  return longest == block_.size();
}

void SoundFeed::fill(std::span<float> to) {
  const std::size_t count = ring_.read(to);
  const auto silent = to.subspan(count);
  std::fill(silent.begin(), silent.end(), 0.0F);
  if (!isRead_) missingFrames_ += static_cast<std::int64_t>(silent.size() / channels);
  if (isMuted_) std::fill(to.begin(), to.end(), 0.0F);
}

}  // namespace vellora
