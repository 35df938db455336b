#include "editor/backdrop/Grain.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace vellora {
namespace {

constexpr int grains = 512;  // along a side
constexpr int pointsPerTile = grains / 2;
constexpr int mostPixels = 2048;  // along a side; beyond, grains are many pixels wide anyway

/// Even noise from -sqrt(3) to sqrt(3): it deviates by 1.
std::vector<float> noise() {
  std::vector<float> values(static_cast<std::size_t>(grains) * grains);
  std::uint32_t state = 0x2545F491U;
  for (float& value : values) {
    state ^= state << 13;
    state ^= state >> 17;
    state ^= state << 5;
    value = (static_cast<float>(state >> 8) / 8388608.0F - 1) * 1.7320508F;
  }
  return values;
}

/// Each of `side` values the mean of the part of the repeating `line` it covers, at least one grain wide.
void resample(const float* line, std::size_t lineStep, float* target, std::size_t targetStep, int side) {
  const double step = static_cast<double>(grains) / side;
  const double width = std::max(step, 1.0);
  for (int i = 0; i < side; ++i) {
    const double from = (i + 0.5) * step - width / 2 + grains;
    const double to = from + width;
    double sum = 0;
    for (int k = static_cast<int>(from); k < to; ++k) {
      const double covered = std::min(to, k + 1.0) - std::max(from, static_cast<double>(k));
      sum += covered * static_cast<double>(line[static_cast<std::size_t>(k % grains) * lineStep]);
    }
    target[static_cast<std::size_t>(i) * targetStep] = static_cast<float>(sum / width);
  }
}

}  // namespace

Grain::Grain(double scale)
    : scale_(scale), side_(static_cast<int>(std::clamp(std::round(scale * pointsPerTile), 16.0, double{mostPixels}))) {
  const std::vector<float> source = noise();
  const auto side = static_cast<std::size_t>(side_);
  std::vector<float> narrowed(side * grains);
  for (std::size_t y = 0; y < grains; ++y) resample(&source[y * grains], 1, &narrowed[y * side], 1, side_);
  values_.resize(side * side);
  for (std::size_t x = 0; x < side; ++x) resample(&narrowed[x], side, &values_[x], side, side_);
}

}  // namespace vellora
