#include "recording/sound/PeakScan.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "recording/sound/SoundLanes.h"

namespace vellora {

float peakOf(std::span<const float> samples) {
  // Several maxima side by side: each waits for its own last comparison only.
  constexpr std::size_t parts = 4, step = parts * laneCount;
  std::array<FloatLanes, parts> highest{}, lowest{};
  std::size_t i = 0;
  for (; i + step <= samples.size(); i += step) {
    for (std::size_t part = 0; part < parts; ++part) {
      const FloatLanes lanes = loadLanes(samples.data() + i + part * laneCount);
      highest[part] = lanes > highest[part] ? lanes : highest[part];
      lowest[part] = lanes < lowest[part] ? lanes : lowest[part];
    }
  }
  float peak = 0;
  for (std::size_t part = 0; part < parts; ++part) {
    for (int lane = 0; lane < laneCount; ++lane) peak = std::max({peak, highest[part][lane], -lowest[part][lane]});
  }
  for (; i < samples.size(); ++i) {
    const float size = std::abs(samples[i]);
    if (size > peak) peak = size;
  }
  return peak;
}

}  // namespace vellora
