#include "editor/backdrop/OkLab.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vellora {
namespace {

double linear(double value) {
  return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

/// From linear light to sRGB, 0 to 255. Looked up by the square root, in which the curve is nearly straight.
float encoded(float value) {
  constexpr int steps = 1024;
  static const auto table = [] {
    std::array<float, steps + 2> values{};
    for (std::size_t i = 0; i < values.size(); ++i) {
      const double root = static_cast<double>(i) / steps;
      const double light = root * root;
      const double srgb = light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
      values[i] = static_cast<float>(255 * srgb);
    }
    return values;
  }();
  const float place = std::sqrt(std::clamp(value, 0.0F, 1.0F)) * steps;
  const auto index = static_cast<std::size_t>(place);
  const float part = place - static_cast<float>(index);
  return table[index] * (1 - part) + table[index + 1] * part;
}

}  // namespace

OkLab toOkLab(const ColorComponents& color) {
  const double r = linear(color.red);
  const double g = linear(color.green);
  const double b = linear(color.blue);
  const double l = std::cbrt(0.4122214708 * r + 0.5363325363 * g + 0.0514459929 * b);
  const double m = std::cbrt(0.2119034982 * r + 0.6806995451 * g + 0.1073969566 * b);
  const double s = std::cbrt(0.0883024619 * r + 0.2817188376 * g + 0.6299787005 * b);
  return {static_cast<float>(0.2104542553 * l + 0.7936177850 * m - 0.0040720468 * s),
          static_cast<float>(1.9779984951 * l - 2.4285922050 * m + 0.4505937099 * s),
          static_cast<float>(0.0259040371 * l + 0.7827717662 * m - 0.8086757660 * s)};
}

OkLab okLab(unsigned rgb) {
  return toOkLab({((rgb >> 16) & 0xFF) / 255.0, ((rgb >> 8) & 0xFF) / 255.0, (rgb & 0xFF) / 255.0, 1});
}

Rgba toRgba(const OkLab& color) {
  const auto cube = [](float value) { return value * value * value; };
  const float l = cube(color.lightness + 0.3963377774F * color.a + 0.2158037573F * color.b);
  const float m = cube(color.lightness - 0.1055613458F * color.a - 0.0638541728F * color.b);
  const float s = cube(color.lightness - 0.0894841775F * color.a - 1.2914855480F * color.b);
  return {encoded(4.0767416621F * l - 3.3077115913F * m + 0.2309699292F * s),
          encoded(-1.2684380046F * l + 2.6097574011F * m - 0.3413193965F * s),
          encoded(-0.0041960863F * l - 0.7034186147F * m + 1.7076147010F * s), 255};
}

}  // namespace vellora
