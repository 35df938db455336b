#include "platform/linux/audio/SampleClock.h"

#include <algorithm>
#include <cmath>

namespace vellora {

void SampleClock::observe(double position, double hostTime) {
  const double start = hostTime - position / sampleRate_;
  starts_.at(next_) = start;
  next_ = (next_ + 1) % window;
  count_ = std::min(count_ + 1, window);
  const double passed = std::max(0.0, hostTime - observedAt_);
  observedAt_ = hostTime;

  if (count_ <= settledCount) {
    start_ = leastOf(count_);
    return;
  }
  astray_ = std::abs(start - start_) > jump ? astray_ + 1 : 0;
  if (astray_ >= jumpCount) {
    count_ = jumpCount;
    astray_ = 0;
    start_ = leastOf(count_);
    return;
  }
  const double most = steepestSlew * passed;
  start_ += std::clamp(leastOf(count_) - start_, -most, most);
}

double SampleClock::leastOf(std::size_t count) const {
  double least = starts_.at((next_ + window - 1) % window);
  for (std::size_t i = 2; i <= count; ++i) least = std::min(least, starts_.at((next_ + window - i) % window));
  return least;
}

}  // namespace vellora
