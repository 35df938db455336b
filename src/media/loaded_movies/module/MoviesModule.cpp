#include "media/loaded_movies/Movies.h"
#include "media/movies/AudioTrackReader.h"
#include "media/movies/MovieRepair.h"
#include "media/movies/MovieSummary.h"
#include "media/movies/MovieWriter.h"
#include "media/movies/VideoTrackReader.h"

namespace vellora {
namespace {

class LibavMovies final : public Movies {
 public:
  Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                            const MovieWriter::Settings& settings,
                                                            MovieWriter::FailureHandler onFailure) override {
    return MovieWriter::create(path, settings, std::move(onFailure));
  }
  Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) override {
    return MovieRepair::repair(file);
  }
  Result<MovieSummary, MediaFailure> summarize(const std::filesystem::path& file) override {
    return summarizeMovie(file);
  }
  Result<std::unique_ptr<VideoReader>, MediaFailure> openVideo(const std::filesystem::path& file) override {
    return VideoTrackReader::open(file);
  }
  Result<std::unique_ptr<AudioReader>, MediaFailure> openAudio(const std::filesystem::path& file, std::size_t track,
                                                               AudioForm form) override {
    return AudioTrackReader::open(file, track, form);
  }
};

}  // namespace
}  // namespace vellora

extern "C" __attribute__((visibility("default"))) vellora::Movies* vellora_movies() {
  static vellora::LibavMovies movies;
  return &movies;
}
