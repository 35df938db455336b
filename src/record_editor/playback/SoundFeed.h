#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <vector>

#include "media/movies/AudioReader.h"
#include "platform/AudioPlayback.h"

namespace vellora {

/// Plays audio tracks together, from any place, and tells how far they are heard: the clock of playback. Reads and
/// opens the output on a thread of its own. Main thread, unless said otherwise.
class SoundFeed {
 public:
  /// The form tracks are to be read in.
  static constexpr AudioForm form{AudioPlayback::sampleRate, AudioPlayback::channels};

  /// `output` outlives this.
  SoundFeed(std::vector<std::unique_ptr<AudioReader>> tracks, AudioPlayback& output);
  ~SoundFeed();

  /// Plays from this time on, in seconds of the movie.
  void play(double from);
  void pause();
  void setMuted(bool muted) { isMuted_ = muted; }
  bool isMuted() const { return isMuted_; }

  /// What is heard at the moment, in seconds of the movie; nothing while it is paused, and until the output runs.
  std::optional<double> position();
  /// There is no output, or it is gone; another play() tries again.
  bool hasFailed() const { return hasFailed_; }

 private:
  /// Interleaved frames on their way from the reading thread to the output's.
  class Ring {
   public:
    explicit Ring(std::size_t samples) : samples_(samples) {}
    std::size_t room();
    void write(std::span<const float> samples);
    /// Fills `to` as far as it reaches; returns how much that is.
    std::size_t read(std::span<float> to);
    void clear();

   private:
    std::mutex mutex_;
    std::vector<float> samples_;
    std::size_t first_ = 0;
    std::size_t count_ = 0;
  };

  /// One track and what of it is read already.
  struct Track {
    std::unique_ptr<AudioReader> reader;
    std::span<const float> left{};
    bool hasEnded = false;
  };

  void run();
  void start(double from);
  /// Mixes another block into the ring. False when no track has more.
  bool mix();
  void fill(std::span<float> to);

  AudioPlayback& output_;
  std::vector<Track> tracks_;
  Ring ring_;
  std::vector<float> block_;
  std::atomic<bool> isMuted_ = false;
  std::atomic<bool> hasFailed_ = false;
  std::atomic<bool> isRead_ = false;             ///< every track, to its end
  std::atomic<std::int64_t> missingFrames_ = 0;  ///< silence that stands for sound that came too late

  std::mutex mutex_;
  // Guarded by mutex_:
  std::condition_variable changed_;
  std::optional<double> wanted_;  ///< a play() that is not begun
  bool isWanted_ = false;         ///< playing, rather than paused
  bool isEnding_ = false;
  double from_ = 0;
  std::unique_ptr<PlaybackStream> stream_;

  std::thread thread_;
};

}  // namespace vellora
