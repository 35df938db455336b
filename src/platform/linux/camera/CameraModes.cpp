#include "platform/linux/camera/CameraModes.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

constexpr double fluentRate = 24, usualRate = 30;

/// How far a mode is from the wish; the parts outweigh each other in this order.
double distanceOf(const CameraMode& mode, int width, int height) {
  const double size = std::abs(mode.width - width) / static_cast<double>(std::max(width, 1)) +
                      std::abs(mode.height - height) / static_cast<double>(std::max(height, 1));
  const double rate = mode.rate > 0 ? mode.rate : usualRate;
  const double slowness = 2 * std::max(0.0, 1 - rate / fluentRate);
  return size + slowness + std::abs(rate - usualRate) * 1e-4 + (mode.isCompressed ? 1e-5 : 0);
}

}  // namespace

std::optional<CameraMode> bestMode(std::span<const CameraMode> modes, int width, int height) {
  const auto best = std::min_element(modes.begin(), modes.end(), [&](const CameraMode& a, const CameraMode& b) {
    return distanceOf(a, width, height) < distanceOf(b, width, height);
  });
  if (best == modes.end()) return std::nullopt;
  return *best;
}

}  // namespace vellora
