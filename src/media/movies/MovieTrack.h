#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vellora {

/// Ticks per second of pictures and of the movie itself. Every usual frame rate has whole ticks, and 13 hours fit into
/// 32 bits.
inline constexpr std::uint32_t movieTimescale = 90000;

/// A track of a movie as its header describes it.
struct MovieTrack {
  bool isVideo = true;
  std::uint32_t timescale = movieTimescale;
  int width = 0;  ///< shown, in pixels
  int height = 0;
  /// Ticks at the start of the media that are not presented: what an encoder puts before the first sample.
  std::int64_t priming = 0;
  std::vector<std::uint8_t> description;  ///< the whole "stsd" box
};

/// Where the samples of a track are in the file, and when.
struct SampleTable {
  struct Run {
    std::uint32_t count = 0;
    std::uint32_t duration = 0;  ///< ticks
  };
  struct Chunk {
    std::uint64_t offset = 0;  ///< in the file
    std::uint32_t samples = 0;
  };
  std::vector<std::uint32_t> sizes;
  std::vector<Run> durations;       ///< of samples in a row
  std::vector<std::uint32_t> keys;  ///< samples that stand for themselves, counted from 1
  std::vector<Chunk> chunks;
  std::int64_t start = 0;  ///< ticks before the first sample
  std::int64_t end = 0;    ///< where the last one ends

  std::size_t count() const { return sizes.size(); }
  void addDuration(std::uint32_t duration) {
    if (durations.empty() || durations.back().duration != duration) durations.push_back({0, duration});
    ++durations.back().count;
  }
};

}  // namespace vellora
