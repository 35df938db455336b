#include "editor/painting/Contrast.h"

#include <algorithm>
#include <cmath>

namespace vellora {

double luminance(const ColorComponents& color) {
  const auto linear = [](double component) { return std::pow(std::clamp(component, 0.0, 1.0), 2.4); };
  return 0.2126729 * linear(color.red) + 0.7151522 * linear(color.green) + 0.0721750 * linear(color.blue);
}

ColorComponents readableOn(const ColorComponents& ground) {
  // Very dark colours look brighter than they are: light scatters on every screen.
  constexpr double darkest = 0.022;
  const auto seen = [](double y) { return y < darkest ? y + std::pow(darkest - y, 1.414) : y; };
  const double bright = seen(luminance(ground));
  const double againstBlack = std::pow(bright, 0.56) - std::pow(seen(0), 0.57);
  const double againstWhite = 1 - std::pow(bright, 0.65);
  return againstWhite >= againstBlack ? ColorComponents{1, 1, 1, 1} : ColorComponents{0, 0, 0, 1};
}

}  // namespace vellora
