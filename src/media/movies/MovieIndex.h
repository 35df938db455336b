#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "base/Result.h"
#include "media/movies/DiskFile.h"
#include "media/movies/FragmentReader.h"
#include "media/movies/MovieTrack.h"
#include "media/movies/MovieWriter.h"

namespace vellora {

/// All samples of a movie that consists of fragments, as far as they are whole.
class MovieIndex {
 public:
  /// Reads what startOfMovie and FragmentBuilder wrote, which may be cut anywhere.
  static Result<MovieIndex, MovieFailure> read(const DiskFile& file);

  std::vector<MovieTrack> tracks;
  std::vector<SampleTable> tables;  ///< of the tracks
  /// Where the last usable fragment ends; what follows is of no use.
  std::uint64_t end = 0;
  std::uint64_t lastData = 0;  ///< the "mdat" of that fragment
  bool isLastDataCut = false;  ///< it says it reaches further
  bool hasLost = false;        ///< samples that are not whole

  bool isEmpty() const;
  /// Seconds where the last sample of any track ends.
  double lastTime() const;
  /// Lets the last picture stay until `seconds`, at least a moment.
  void holdLastPicture(double seconds);

 private:
  struct Fragment {
    std::uint64_t start = 0;
    std::uint64_t data = 0;  // where its "mdat" is
    std::uint64_t end = 0;   // of it or of the file
    bool isCut = false;
    std::vector<FragmentRun> runs;
  };

  void readFragments(const DiskFile& file, std::uint64_t at, std::uint64_t size);
  std::optional<Fragment> fragmentAt(const DiskFile& file, std::uint64_t at, std::uint64_t size) const;
  bool removeDamaged(const DiskFile& file, Fragment& fragment) const;
  void keep(const Fragment& fragment);
  void keep(const FragmentRun& run, std::uint64_t start);
  void close();

  std::vector<std::int64_t> lastStarts_;  // decode time of each track's last sample
  std::vector<std::uint32_t> lastDurations_;
};

}  // namespace vellora
