#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "media/movies/MovieTrack.h"

namespace vellora {

// The layout of the file (ISO/IEC 14496-12; QuickTime File Format Specification):
//
//   while it is written   ftyp  free  moov (no samples)  moof mdat  moof mdat  …
//   when it is finished   ftyp  mdat (64-bit size, all of the above in it)  moov (all samples)
//
// The empty "free" box has the size of the header of a large "mdat". Writing one over the other, within the first
// sector of the file, is what turns the one into the other.

inline constexpr std::uint64_t reservedOffset = 20;  ///< of the "free" box
inline constexpr std::uint64_t reservedSize = 16;

/// "ftyp", "free" and a "moov" without samples, which fragments follow.
std::vector<std::uint8_t> startOfMovie(std::span<const MovieTrack> tracks);

/// The "moov" of a finished movie, `tables` in the order of `tracks`; tracks without samples are left out. `end`:
/// seconds beyond which nothing is presented.
std::vector<std::uint8_t> indexOfMovie(std::span<const MovieTrack> tracks, std::span<const SampleTable> tables,
                                       std::optional<double> end);

/// Seconds such a movie lasts.
double durationOfMovie(std::span<const MovieTrack> tracks, std::span<const SampleTable> tables,
                       std::optional<double> end);

}  // namespace vellora
