#include "platform/linux/camera/CameraClock.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

/// A picture is no older when it comes, and stamps of the host's clock are no further off.
constexpr double mostDelay = 1.0;
/// Pictures are never closer to each other.
constexpr double leastStep = 1e-4;

}  // namespace

double CameraClock::hostTimeOf(std::optional<double> stamp, double arrival) {
  double time = stamp && std::isfinite(*stamp) ? moved(*stamp, arrival) : arrival;
  if (last_) time = std::max(time, *last_ + leastStep);
  last_ = time;
  return time;
}

double CameraClock::moved(double stamp, double arrival) {
  const double delay = arrival - stamp;
  if (delay >= 0 && delay < mostDelay) return stamp;
  const bool hasJumped = offset_ && std::abs(delay - *offset_) > mostDelay;
  offset_ = offset_ && !hasJumped ? std::min(*offset_, delay) : delay;
  return stamp + *offset_;
}

}  // namespace vellora
