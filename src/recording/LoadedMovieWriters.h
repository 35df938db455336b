#pragma once

#include "recording/MovieWriters.h"

namespace vellora {

/// The module's movie writers, loaded by the first call that needs them. Where it is not installed every call fails.
class LoadedMovieWriters final : public MovieWriters {
 public:
  Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                            const MovieWriter::Settings& settings,
                                                            MovieWriter::FailureHandler onFailure) override;
  Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) override;
  bool hasVideo(const std::filesystem::path& file) override;
};

}  // namespace vellora
