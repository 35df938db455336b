#pragma once

#include <optional>

#include "base/Result.h"
#include "media/movies/DiskFile.h"
#include "media/movies/MovieRepair.h"

namespace vellora {

/// Makes an ordinary movie of the fragments in a file, in place: the index goes behind them, and one write of a few
/// bytes makes it count. `end`: seconds at which the movie ends; nothing: with the last of its samples.
Result<RepairedMovie, MovieFailure> finishMovie(DiskFile& file, std::optional<double> end);

}  // namespace vellora
