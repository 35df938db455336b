#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "media/movies/MovieTrack.h"

namespace vellora {

/// The samples of one track in a fragment.
struct FragmentRun {
  struct Sample {
    std::uint32_t size = 0;
    std::uint32_t duration = 0;
    bool isKey = true;
  };
  std::size_t track = 0;
  std::int64_t decodeTime = 0;  ///< of the first sample
  std::uint64_t offset = 0;     ///< of the first sample, from the start of the "moof"
  std::vector<Sample> samples;
};

/// The content of a "moof" as FragmentBuilder writes it; nothing when it is damaged or another kind.
std::optional<std::vector<FragmentRun>> readFragment(std::span<const std::uint8_t> moof, std::size_t tracks);

/// The tracks in the content of a "moov" as startOfMovie writes it; nothing when it is damaged or another kind.
std::optional<std::vector<MovieTrack>> readStartOfMovie(std::span<const std::uint8_t> moov);

}  // namespace vellora
