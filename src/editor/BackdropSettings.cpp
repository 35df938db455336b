#include "editor/BackdropSettings.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

double limited(double value, double least, double greatest, double fallback) {
  return std::isfinite(value) ? std::clamp(value, least, greatest) : fallback;
}

ColorComponents limited(const ColorComponents& color) {
  const auto part = [](double value, double fallback) { return limited(value, 0, 1, fallback); };
  return {part(color.red, 0), part(color.green, 0), part(color.blue, 0), part(color.alpha, 1)};
}

struct BackgroundLimiter {
  void operator()(BackdropBackground::Solid& solid) const { solid.color = limited(solid.color); }
  void operator()(BackdropBackground::Gradient& gradient) const {
    gradient.angle = std::isfinite(gradient.angle) ? std::remainder(gradient.angle, 360.0) : 135;
    if (gradient.angle < 0) gradient.angle += 360;
    if (gradient.stops.size() > backdropLimits::gradientStops) gradient.stops.resize(backdropLimits::gradientStops);
    for (GradientStop& stop : gradient.stops) stop = {limited(stop.position, 0, 1, 0), limited(stop.color)};
    std::ranges::stable_sort(gradient.stops, {}, &GradientStop::position);
  }
  void operator()(BackdropBackground::Image& image) const { image.path.truncate(backdropLimits::pathLength); }
  void operator()(BackdropBackground::BuiltInImage& picture) const { picture.identifier.truncate(64); }
};

constexpr ColorComponents rgb(unsigned value) {
  return {((value >> 16) & 0xFF) / 255.0, ((value >> 8) & 0xFF) / 255.0, (value & 0xFF) / 255.0, 1};
}

}  // namespace

std::optional<double> aspectRatio(BackdropSettings::Aspect aspect) {
  switch (aspect) {
    case BackdropSettings::Aspect::Auto:
      return std::nullopt;
    case BackdropSettings::Aspect::Square:
      return 1.0;
    case BackdropSettings::Aspect::ThreeFour:
      return 0.75;
    case BackdropSettings::Aspect::FourThree:
      return 4.0 / 3.0;
    case BackdropSettings::Aspect::SixteenNine:
      return 16.0 / 9.0;
  }
  return std::nullopt;
}

Size BackdropSettings::documentSize(Size image) const {
  if (!enabled) return image;
  const double margin =
      std::max(image.width, image.height) * limited(insetFraction, 0, backdropLimits::insetFraction, 0);
  const Size padded{image.width + 2 * margin, image.height + 2 * margin};
  const auto ratio = aspectRatio(aspect);
  if (!ratio) return padded;
  if (padded.width / padded.height < *ratio) return {padded.height * *ratio, padded.height};
  return {padded.width, padded.width / *ratio};
}

BackdropSettings BackdropSettings::clamped() const {
  static const BackdropSettings defaults;
  BackdropSettings result = *this;
  const auto limit = [](double& value, double least, double greatest, double fallback) {
    value = limited(value, least, greatest, fallback);
  };
  std::visit(BackgroundLimiter{}, result.background.value);
  limit(result.insetFraction, 0, backdropLimits::insetFraction, defaults.insetFraction);
  limit(result.shadow, 0, 1, defaults.shadow);
  limit(result.innerRadius, 0, backdropLimits::innerRadius, defaults.innerRadius);
  limit(result.tiltX, -backdropLimits::tilt, backdropLimits::tilt, 0);
  limit(result.tiltY, -backdropLimits::tilt, backdropLimits::tilt, 0);
  limit(result.rotation, -backdropLimits::rotation, backdropLimits::rotation, 0);
  for (double* strength : {&result.edgeBlurStrength, &result.noiseIntensity, &result.glowIntensity}) {
    limit(*strength, 0, 1, 0);
  }
  limit(result.glowCenter.x, 0, 1, defaults.glowCenter.x);
  limit(result.glowCenter.y, 0, 1, defaults.glowCenter.y);
  limit(result.contentScale, backdropLimits::minimumContentScale, backdropLimits::contentScale, 1);
  limit(result.contentOffset.x, -backdropLimits::contentOffset, backdropLimits::contentOffset, 0);
  limit(result.contentOffset.y, -backdropLimits::contentOffset, backdropLimits::contentOffset, 0);
  return result;
}

const std::vector<BackdropGradientPreset>& backdropGradientPresets() {
  static const std::vector<BackdropGradientPreset> presets{
      {"Dawn", {{{0, rgb(0xFFD9B8)}, {0.5, rgb(0xF9A8B4)}, {1, rgb(0xA78BDA)}}, 45}},
      {"Peach", {{{0, rgb(0xFFE9D6)}, {1, rgb(0xFFB199)}}, 60}},
      {"Coral", {{{0, rgb(0xFF9A76)}, {1, rgb(0xE0486E)}}, 45}},
      {"Dusk", {{{0, rgb(0xF58A6B)}, {0.48, rgb(0xB0457E)}, {1, rgb(0x3B2470)}}, 40}},
      {"Iris", {{{0, rgb(0xC8B6FF)}, {1, rgb(0x6A5AE0)}}, 45}},
      {"Indigo", {{{0, rgb(0x7C8CF8)}, {1, rgb(0x2B2F8F)}}, 45}},
      {"Ocean", {{{0, rgb(0x7FD8F0)}, {0.55, rgb(0x3E8EE6)}, {1, rgb(0x2A4BB8)}}, 45}},
      {"Mist", {{{0, rgb(0xEDF3F8)}, {1, rgb(0xB7C6D8)}}, 45}},
      {"Mint", {{{0, rgb(0xC9F5DC)}, {1, rgb(0x57BFA8)}}, 45}},
      {"Forest", {{{0, rgb(0x8CC98A)}, {1, rgb(0x14604F)}}, 50}},
      {"Slate", {{{0, rgb(0x6B7789)}, {1, rgb(0x252C38)}}, 45}},
      {"Night", {{{0, rgb(0x3D4470)}, {0.6, rgb(0x1B1E3B)}, {1, rgb(0x0B0C19)}}, 65}},
  };
  return presets;
}

}  // namespace vellora
