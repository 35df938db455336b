#pragma once

#include <algorithm>
#include <atomic>
#include <cmath>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

#include "media/movies/AudioReader.h"
#include "media/movies/VideoReader.h"
#include "platform/AudioPlayback.h"

namespace vellora::test {

/// A video whose pictures are of one color each: the number of the picture.
class ScriptedVideo final : public VideoReader {
 public:
  ScriptedVideo(int pictures, double rate, int width = 320, int height = 180)
      : pictures_(pictures), rate_(rate), width_(width), height_(height) {}

  int width() const override { return width_; }
  int height() const override { return height_; }
  double duration() const override { return pictures_ / rate_; }
  bool next() override {
    if (current_ + 1 >= pictures_) return false;
    ++current_;
    return true;
  }
  bool seek(double time) override {
    current_ = std::clamp(static_cast<int>(std::floor(time * rate_ + 1e-9)), 0, pictures_ - 1);
    return true;
  }
  PictureSpan span() const override { return {current_ / rate_, (current_ + 1) / rate_}; }
  bool draw(std::uint32_t* pixels, int width, int height) override {
    std::fill_n(pixels, pixelsPerRow(width) * height, 0xFF000000U + static_cast<std::uint32_t>(current_));
    return true;
  }

 private:
  const int pictures_;
  const double rate_;
  const int width_, height_;
  int current_ = 0;
};

/// A track whose every sample is its frame's number in hundred thousandths.
class ScriptedTrack final : public AudioReader {
 public:
  explicit ScriptedTrack(double seconds) : frames_(std::llround(seconds * AudioPlayback::sampleRate)) {}

  int sampleRate() const override { return AudioPlayback::sampleRate; }
  int channels() const override { return AudioPlayback::channels; }
  std::int64_t expectedFrames() const override { return frames_; }
  Result<std::span<const float>, MediaFailure> read() override {
    samples_.clear();
    for (int i = 0; i < 700 && next_ < frames_; ++i, ++next_) {
      samples_.insert(samples_.end(), 2, static_cast<float>(next_) * 1e-5F);
    }
    return std::span<const float>(samples_);
  }
  Result<void, MediaFailure> seek(std::int64_t frame) override {
    next_ = std::min(frame, frames_);
    return {};
  }

 private:
  const std::int64_t frames_;
  std::int64_t next_ = 0;
  std::vector<float> samples_;
};

/// Speakers whose sound the test takes, at whatever pace.
class ScriptedSpeakers final : public AudioPlayback {
 public:
  Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> start(Callbacks callbacks) override {
    const std::lock_guard lock(mutex_);
    if (isRefused) return failure(AudioPlaybackError::notAvailable);
    callbacks_ = std::move(callbacks);
    heard_ = 0;
    ++starts_;
    return std::make_unique<Stream>(*this);
  }

  bool isPlaying() {
    const std::lock_guard lock(mutex_);
    return static_cast<bool>(callbacks_.fill);
  }
  int starts() {
    const std::lock_guard lock(mutex_);
    return starts_;
  }
  /// Takes and "hears" so much sound; empty when nothing plays.
  std::vector<float> take(double seconds) {
    const std::lock_guard lock(mutex_);
    if (!callbacks_.fill) return {};
    const auto frames = static_cast<std::size_t>(std::llround(seconds * sampleRate));
    std::vector<float> sound(frames * channels);
    callbacks_.fill(sound);
    heard_ += static_cast<std::int64_t>(frames);
    return sound;
  }
  void lose() {
    const std::lock_guard lock(mutex_);
    if (callbacks_.onLost) callbacks_.onLost(AudioPlaybackError::failed);
  }

  std::atomic<bool> isRefused = false;

 private:
  class Stream final : public PlaybackStream {
   public:
    explicit Stream(ScriptedSpeakers& speakers) : speakers_(speakers) {}
    ~Stream() override {
      const std::lock_guard lock(speakers_.mutex_);
      speakers_.callbacks_ = {};
    }
    std::int64_t heardFrames() override {
      const std::lock_guard lock(speakers_.mutex_);
      return speakers_.heard_;
    }

   private:
    ScriptedSpeakers& speakers_;
  };

  std::mutex mutex_;
  Callbacks callbacks_;
  std::int64_t heard_ = 0;
  int starts_ = 0;
};

}  // namespace vellora::test
