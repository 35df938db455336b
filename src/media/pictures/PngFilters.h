#pragma once

#include <cstdint>
#include <vector>

#include "media/pictures/PngRows.h"

namespace vellora {

/// How the filter of each row (W3C PNG, third edition, clause 9) is picked.
enum class PngFilterChoice : std::uint8_t {
  none,
  sub,
  up,
  average,
  paeth,
  leastSum,  ///< the smallest sum of differences, the recommended heuristic (12.7)
  entropy,   ///< the fewest bits if each byte were coded alone
  bigrams,   ///< the fewest different pairs of neighboring bytes
};

inline constexpr int filterChoices = 8;

/// The rows with their filter bytes in front, as they are deflated.
std::vector<std::uint8_t> filteredRows(const PngRows& rows, PngFilterChoice choice);

}  // namespace vellora
