#pragma once

#include <filesystem>
#include <memory>

#include "base/Result.h"
#include "media/movies/MovieRepair.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// Makes, repairs and looks at movies. What stands behind it brings many megabytes of codecs along, and is loaded when
/// it is first used.
class MovieWriters {
 public:
  virtual ~MovieWriters() = default;
  /// As MovieWriter::create.
  virtual Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                                    const MovieWriter::Settings& settings,
                                                                    MovieWriter::FailureHandler onFailure) = 0;
  /// As MovieRepair::repair.
  virtual Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) = 0;
  /// Whether a file of any kind holds a video that can be read.
  virtual bool hasVideo(const std::filesystem::path& file) = 0;
};

}  // namespace vellora
