#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>

#include "base/Result.h"
#include "media/movies/AudioReader.h"
#include "media/movies/MovieRepair.h"
#include "media/movies/MovieSummary.h"
#include "media/movies/MovieWriter.h"
#include "media/movies/VideoReader.h"

namespace vellora {

/// Makes, repairs and reads movies. What stands behind it brings many megabytes of codecs along, and is loaded when it
/// is first used. Any thread.
class Movies {
 public:
  virtual ~Movies() = default;
  /// As MovieWriter::create.
  virtual Result<std::unique_ptr<MovieWriter>, MovieFailure> create(const std::filesystem::path& path,
                                                                    const MovieWriter::Settings& settings,
                                                                    MovieWriter::FailureHandler onFailure) = 0;
  /// As MovieRepair::repair.
  virtual Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& file) = 0;
  /// As summarizeMovie.
  virtual Result<MovieSummary, MediaFailure> summarize(const std::filesystem::path& file) = 0;
  /// The first video track; `noStreams` when there is none. The first picture is the current one.
  virtual Result<std::unique_ptr<VideoReader>, MediaFailure> openVideo(const std::filesystem::path& file) = 0;
  /// An audio track, counted in the file's order; `noStreams` when there is none with this number.
  virtual Result<std::unique_ptr<AudioReader>, MediaFailure> openAudio(const std::filesystem::path& file,
                                                                       std::size_t track, AudioForm form = {}) = 0;
};

}  // namespace vellora
