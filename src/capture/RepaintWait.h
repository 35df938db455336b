#pragma once

#include <algorithm>

namespace vellora {

/// Seconds from hiding the overlays until a screen of `refreshRate` Hz surely shows what was under them: two frames, at
/// the pace of 60 Hz at least, and a little more. A rate that is not a number counts as 60.
inline double repaintWait(double refreshRate) {
  constexpr double slowest = 60;
  constexpr double margin = 0.008;
  return 2.0 / std::max(slowest, refreshRate) + margin;
}

}  // namespace vellora
