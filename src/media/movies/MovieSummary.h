#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/Result.h"
#include "media/movies/MediaReader.h"

namespace vellora {

/// What a media file says of itself.
struct MovieSummary {
  struct Video {
    std::string codec;
    int width = 0;  ///< pixels as they are coded
    int height = 0;
    double frameRate = 0;  ///< on average; 0: not known
  };
  struct Audio {
    std::string codec;
    int sampleRate = 0;
    int channels = 0;
  };
  double duration = 0;         ///< seconds; 0: not known
  std::optional<Video> video;  ///< the first one; covers do not count
  std::vector<Audio> audio;    ///< in the file's order
};

/// Looks into a file of any kind without decoding all of it. `noStreams` when it has neither video nor audio. Any
/// thread.
Result<MovieSummary, MediaFailure> summarizeMovie(const std::filesystem::path& file);

}  // namespace vellora
