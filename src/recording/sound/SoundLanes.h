#pragma once

#include <cstring>

namespace vellora {

/// Four floats that the processor handles at once.
using FloatLanes = float __attribute__((vector_size(16)));
inline constexpr int laneCount = 4;

inline FloatLanes loadLanes(const float* from) {
  FloatLanes lanes;
  std::memcpy(&lanes, from, sizeof lanes);
  return lanes;
}

inline float sumOf(const FloatLanes& lanes) {
  return (lanes[0] + lanes[2]) + (lanes[1] + lanes[3]);
}

}  // namespace vellora
