#pragma once

#include <map>
#include <memory>
#include <vector>

#include <QFile>

#include "recording/MovieOutput.h"

namespace vellora::test {

/// What was written to one movie; it outlives the movie.
struct WrittenMovie {
  MovieSettings settings;
  std::vector<double> videoTimes;
  std::vector<std::size_t> soundSamples;  ///< by track
  std::optional<double> end;
  std::size_t capacity = SIZE_MAX;  ///< pictures it takes
  std::optional<RecordingError> finishFailure;
  std::function<void(RecordingError)> onFailure;
};

/// Keeps what would be written to movies in memory. Movies end at once.
class FakeMovies final : public MovieOutputs {
 public:
  Result<std::unique_ptr<MovieOutput>, RecordingError> create(const QString& path, const MovieSettings& settings,
                                                              std::function<void(RecordingError)> onFailure) override {
    if (refusal) return failure(*refusal);
    auto written = std::make_shared<WrittenMovie>();
    written->settings = settings;
    written->soundSamples.resize(settings.sounds.size());
    written->onFailure = std::move(onFailure);
    movies[path] = written;
    return std::make_unique<Movie>(written);
  }
  /// Files that begin with "movie" can be repaired.
  Result<double, RecordingError> repair(const QString& path) override {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || !file.readAll().startsWith("movie")) {
      return failure(RecordingError::writeFailed);
    }
    return 1.0;
  }
  std::int64_t screenBitRate(int width, int height) override { return std::int64_t{width} * height * 8; }

  std::optional<RecordingError> refusal;
  std::map<QString, std::shared_ptr<WrittenMovie>> movies;

 private:
  class Movie final : public MovieOutput {
   public:
    explicit Movie(std::shared_ptr<WrittenMovie> written) : written_(std::move(written)) {}
    bool isReadyForMoreVideo() const override { return written_->videoTimes.size() < written_->capacity; }
    void appendVideo(std::shared_ptr<const ScreenFrame>, double time) override { written_->videoTimes.push_back(time); }
    void appendVideo(std::shared_ptr<const CameraFrame>, double time) override { written_->videoTimes.push_back(time); }
    void appendSound(std::size_t track, std::span<const float> samples) override {
      written_->soundSamples[track] += samples.size();
    }
    void finish(double end, std::function<void(Result<void, RecordingError>)> done) override {
      written_->end = end;
      if (written_->finishFailure) return done(failure(*written_->finishFailure));
      done({});
    }

   private:
    std::shared_ptr<WrittenMovie> written_;
  };
};

}  // namespace vellora::test
