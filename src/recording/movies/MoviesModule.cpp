#include "media/movies/MovieFile.h"
#include "media/movies/MovieRepair.h"
#include "media/movies/MovieWriter.h"
#include "recording/MovieWriters.h"

namespace vellora {
namespace {

class LibavMovieWriters final : public MovieWriters {
 public:
  Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                            const MovieWriter::Settings& settings,
                                                            MovieWriter::FailureHandler onFailure) override {
    return MovieWriter::create(path, settings, std::move(onFailure));
  }
  Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) override {
    return MovieRepair::repair(file);
  }
  bool hasVideo(const std::filesystem::path& file) override {
    const auto opened = MovieFile::open(file);
    return opened && (*opened)->track(MediaKind::video).has_value();
  }
};

}  // namespace
}  // namespace vellora

extern "C" __attribute__((visibility("default"))) vellora::MovieWriters* vellora_movie_writers() {
  static vellora::LibavMovieWriters writers;
  return &writers;
}
