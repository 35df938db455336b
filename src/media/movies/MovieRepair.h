#pragma once

#include <filesystem>

#include "base/Result.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

struct RepairedMovie {
  double duration = 0;      ///< seconds
  bool wasWhole = false;    ///< an ordinary movie already; nothing was changed
  bool hasLost = false;     ///< something that stood at its end could not be used
  std::uint64_t bytes = 0;  ///< of the file
};

/// Movies that were not finished.
namespace MovieRepair {

/// Makes an ordinary movie with one index of what a MovieWriter left: in place, without copying what is in it, and so
/// that a kill or a power cut at any moment leaves a file that can be repaired again. Takes some milliseconds for each
/// hour. A movie that is whole stays as it is, and so does one that a MovieWriter of any process still
/// writes. Any thread.
Result<RepairedMovie, MovieFailure> repair(const std::filesystem::path& path);

}  // namespace MovieRepair
}  // namespace vellora
