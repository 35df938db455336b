#pragma once

#include "media/loaded_movies/Movies.h"

namespace vellora {

/// The module's movies, loaded by the first call that needs them. Where it is not installed every call fails.
class LoadedMovies final : public Movies {
 public:
  Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                            const MovieWriter::Settings& settings,
                                                            MovieWriter::FailureHandler onFailure) override;
  Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) override;
  Result<MovieSummary, MediaFailure> summarize(const std::filesystem::path& file) override;
  Result<std::unique_ptr<VideoReader>, MediaFailure> openVideo(const std::filesystem::path& file) override;
  Result<std::unique_ptr<AudioReader>, MediaFailure> openAudio(const std::filesystem::path& file, std::size_t track,
                                                               AudioForm form) override;
};

}  // namespace vellora
