#pragma once

#include <array>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include "media/movies/MovieEncoding.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// A MovieWriter with a queue of limited length and a thread that encodes what is in it.
class QueuedMovieWriter final : public MovieWriter {
 public:
  QueuedMovieWriter(std::unique_ptr<MovieEncoding> encoding, const Settings& settings, FailureHandler onFailure);
  ~QueuedMovieWriter() override;

  bool isReadyForMoreVideo() const override;
  bool appendVideo(MoviePicture picture, double time) override;
  bool appendSound(std::size_t track, std::span<const float> samples, double time) override;
  void advance(double time) override;
  Counts counts() const override;
  void finish(double end, std::function<void(Result<Summary, MovieFailure>)> done) override;

 private:
  struct Picture {
    MoviePicture picture;
    double time = 0;
  };
  struct Sound {
    std::vector<float> samples;
    double time = 0;
  };
  struct SoundTrack {
    std::deque<Sound> waiting;
    std::size_t waitingFrames = 0;
  };

  /// What the thread does without the lock.
  struct Work {
    std::array<std::deque<Sound>, mostSoundTracks> sounds;
    std::optional<Picture> picture;
    std::optional<double> reached;
  };

  void run();
  // With mutex_ held:
  bool takesMore() const { return !isEnding_ && !hasFailed_; }
  bool hasWork() const;
  Work takeWork();
  void giveUp();
  // Without:
  Result<void, MovieFailure> encode(const Work& work);
  void end(bool mayDrain);

  const std::unique_ptr<MovieEncoding> encoding_;  // of the thread
  const Settings settings_;
  FailureHandler onFailure_;

  mutable std::mutex mutex_;
  // Guarded by mutex_:
  std::condition_variable changed_;
  std::deque<Picture> pictures_;
  std::array<SoundTrack, mostSoundTracks> sounds_;
  std::optional<double> reached_;  // by the recording, in seconds
  Counts counts_;
  bool hasFailed_ = false;
  bool isEnding_ = false;
  double end_ = 0;
  std::function<void(Result<Summary, MovieFailure>)> done_;

  std::thread thread_;
};

}  // namespace vellora
