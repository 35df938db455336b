#include "recording/LoadedMovieWriters.h"

#include <utility>

#include "base/Module.h"

namespace vellora {
namespace {

MovieWriters* loaded() {
  static MovieWriters* const writers = [] {
    auto* const entry = moduleFunction<MovieWriters*()>("libvellora_recording_movies.so", "vellora_movie_writers");
    return entry == nullptr ? nullptr : entry();
  }();
  return writers;
}

MovieFailure notInstalled() {
  return {MovieError::noEncoder, "the part of the program that writes movies is not installed"};
}

}  // namespace

Result<std::unique_ptr<MovieWriter>, MovieFailure> LoadedMovieWriters::create(const std::filesystem::path& path,
                                                                              const MovieWriter::Settings& settings,
                                                                              MovieWriter::FailureHandler onFailure) {
  MovieWriters* const writers = loaded();
  if (writers == nullptr) return failure(notInstalled());
  return writers->create(path, settings, std::move(onFailure));
}

Result<RepairedMovie, MovieFailure> LoadedMovieWriters::repair(const std::filesystem::path& file) {
  MovieWriters* const writers = loaded();
  if (writers == nullptr) return failure(notInstalled());
  return writers->repair(file);
}

bool LoadedMovieWriters::hasVideo(const std::filesystem::path& file) {
  MovieWriters* const writers = loaded();
  return writers != nullptr && writers->hasVideo(file);
}

}  // namespace vellora
