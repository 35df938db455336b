#include "media/loaded_movies/LoadedMovies.h"

#include <string>
#include <utility>

#include "base/Module.h"

namespace vellora {
namespace {

const std::string notInstalled = "The part of the program that reads and writes movies is not installed";

Movies* loaded() {
  static Movies* const movies = [] {
    auto* const entry = moduleFunction<Movies*()>("libvellora_movies_module.so", "vellora_movies");
    return entry == nullptr ? nullptr : entry();
  }();
  return movies;
}

}  // namespace

Result<std::unique_ptr<MovieWriter>, MovieFailure> LoadedMovies::create(const std::filesystem::path& path,
                                                                        const MovieWriter::Settings& settings,
                                                                        MovieWriter::FailureHandler onFailure) {
  Movies* const movies = loaded();
  if (movies == nullptr) return failure(MovieFailure{MovieError::noEncoder, notInstalled});
  return movies->create(path, settings, std::move(onFailure));
}

Result<RepairedMovie, MovieFailure> LoadedMovies::repair(const std::filesystem::path& file) {
  Movies* const movies = loaded();
  if (movies == nullptr) return failure(MovieFailure{MovieError::noEncoder, notInstalled});
  return movies->repair(file);
}

Result<MovieSummary, MediaFailure> LoadedMovies::summarize(const std::filesystem::path& file) {
  Movies* const movies = loaded();
  if (movies == nullptr) return failure(MediaFailure{MediaError::unsupported, notInstalled});
  return movies->summarize(file);
}

Result<std::unique_ptr<VideoReader>, MediaFailure> LoadedMovies::openVideo(const std::filesystem::path& file) {
  Movies* const movies = loaded();
  if (movies == nullptr) return failure(MediaFailure{MediaError::unsupported, notInstalled});
  return movies->openVideo(file);
}

Result<std::unique_ptr<AudioReader>, MediaFailure> LoadedMovies::openAudio(const std::filesystem::path& file,
                                                                           std::size_t track, AudioForm form) {
  Movies* const movies = loaded();
  if (movies == nullptr) return failure(MediaFailure{MediaError::unsupported, notInstalled});
  return movies->openAudio(file, track, form);
}

}  // namespace vellora
