#pragma once

#include <vector>

#include "media/loaded_movies/Movies.h"
#include "record_editor/RecordProjectBundle.h"

namespace vellora {

/// Makes whole projects of recordings whose program was killed, or whose machine lost its power.
class RecordingRecovery {
 public:
  /// Looks through the projects folder, repairs the movies of abandoned recordings and completes their projects. Those
  /// without a single picture are removed. Takes up to seconds: not on the main thread. Gives the projects saved, the
  /// newest first.
  static std::vector<RecordProjectBundle> run(const RecordingFiles& files, Movies& movies);
};

}  // namespace vellora
