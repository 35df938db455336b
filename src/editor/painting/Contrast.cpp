#include "editor/painting/Contrast.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

double linear(double component) {
  const double value = std::clamp(component, 0.0, 1.0);
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

}  // namespace

double relativeLuminance(const ColorComponents& color) {
  return 0.2126 * linear(color.red) + 0.7152 * linear(color.green) + 0.0722 * linear(color.blue);
}

ColorComponents readableOn(const ColorComponents& ground) {
  const double luminance = relativeLuminance(ground);
  const double againstWhite = 1.05 / (luminance + 0.05);
  const double againstBlack = (luminance + 0.05) / 0.05;
  return againstWhite >= againstBlack ? ColorComponents{1, 1, 1, 1} : ColorComponents{0, 0, 0, 1};
}

}  // namespace vellora
