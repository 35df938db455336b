#pragma once

#include <fstream>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <QString>

#include "media/loaded_movies/Movies.h"

namespace vellora::test {

/// What was written to one movie; it outlives the movie.
struct WrittenMovie {
  MovieWriter::Settings settings;
  std::vector<double> videoTimes;
  std::vector<std::uint64_t> numbers;     ///< of the pictures
  std::vector<std::size_t> soundSamples;  ///< by track
  double advanced = 0;
  std::optional<double> end;
  std::size_t capacity = SIZE_MAX;  ///< pictures it takes
  bool finishFails = false;
};

/// Keeps what would be written to movies in memory. Movies end at once.
class FakeMovies final : public Movies {
 public:
  Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                            const MovieWriter::Settings& settings,
                                                            MovieWriter::FailureHandler) override {
    if (isRefused) return failure(MovieFailure{MovieError::noEncoder, "no encoder"});
    auto written = std::make_shared<WrittenMovie>();
    written->settings = settings;
    written->soundSamples.resize(settings.sounds.size());
    const std::lock_guard lock(mutex_);
    movies[QString::fromStdString(path.string())] = written;
    return std::make_unique<Movie>(written);
  }
  /// Files that begin with "movie" can be repaired.
  Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& path) override {
    std::string start(5, ' ');
    std::ifstream(path, std::ios::binary).read(start.data(), 5);
    if (start != "movie") return failure(MovieFailure{MovieError::notAMovie, "no movie"});
    return RepairedMovie{.duration = 1};
  }

  /// As for repair(): a video of one second.
  Result<MovieSummary, MediaFailure> summarize(const std::filesystem::path& path) override {
    if (!repair(path)) return failure(MediaFailure{MediaError::notMedia, "no movie"});
    return MovieSummary{1, MovieSummary::Video{"h264", 320, 240, 60}, {}};
  }
  Result<std::unique_ptr<VideoReader>, MediaFailure> openVideo(const std::filesystem::path& path) override {
    auto video = readVideo ? readVideo(path) : nullptr;
    if (!video) return failure(MediaFailure{MediaError::noStreams, "no video"});
    return video;
  }
  Result<std::unique_ptr<AudioReader>, MediaFailure> openAudio(const std::filesystem::path& path, std::size_t track,
                                                               AudioForm) override {
    auto audio = readAudio ? readAudio(path, track) : nullptr;
    if (!audio) return failure(MediaFailure{MediaError::noStreams, "no audio"});
    return audio;
  }

  /// While recorders still run.
  bool isEmpty() const {
    const std::lock_guard lock(mutex_);
    return movies.empty();
  }

  /// What files are to hold; null for nothing. On any thread.
  std::function<std::unique_ptr<VideoReader>(const std::filesystem::path&)> readVideo;
  std::function<std::unique_ptr<AudioReader>(const std::filesystem::path&, std::size_t track)> readAudio;
  bool isRefused = false;
  std::map<QString, std::shared_ptr<WrittenMovie>> movies;

 private:
  class Movie final : public MovieWriter {
   public:
    explicit Movie(std::shared_ptr<WrittenMovie> written) : written_(std::move(written)) {}
    bool isReadyForMoreVideo() const override { return written_->videoTimes.size() < written_->capacity; }
    bool appendVideo(MoviePicture picture, double time) override {
      if (!isReadyForMoreVideo()) return false;
      written_->videoTimes.push_back(time);
      written_->numbers.push_back(picture.number);
      return true;
    }
    bool appendSound(std::size_t track, std::span<const float> samples, double) override {
      written_->soundSamples[track] += samples.size();
      return true;
    }
    void advance(double time) override { written_->advanced = time; }
    Counts counts() const override { return {}; }
    void finish(double end, std::function<void(Result<Summary, MovieFailure>)> done) override {
      written_->end = end;
      if (written_->finishFails) return done(failure(MovieFailure{MovieError::writeFailed, "the disk failed"}));
      done(Summary{.duration = end});
    }

   private:
    std::shared_ptr<WrittenMovie> written_;
  };

  mutable std::mutex mutex_;  // of movies
};

}  // namespace vellora::test
