#include "media/pictures/LinearLight.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vellora {
namespace {

double lightOf(double sample) {
  return sample <= 0.04045 ? sample / 12.92 : std::pow((sample + 0.055) / 1.055, 2.4);
}

double sampleOf(double light) {
  return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

template <std::size_t size>
std::vector<float> lights() {
  std::vector<float> table(size);
  for (std::size_t i = 0; i < size; ++i) table[i] = static_cast<float>(lightOf(static_cast<double>(i) / (size - 1)));
  return table;
}

/// Read between its entries.
constexpr int entries16 = 1 << 16;

}  // namespace

const float* linearOf8Bits() {
  static const std::vector<float> table = lights<256>();
  return table.data();
}

const float* linearOf16Bits() {
  static const std::vector<float> table = lights<65536>();
  return table.data();
}

const std::uint8_t* samplesOfLightSteps() {
  static const std::vector<std::uint8_t> table = [] {
    std::vector<std::uint8_t> samples(lightSteps + 1);
    for (int i = 0; i <= lightSteps; ++i)
      samples[static_cast<std::size_t>(i)] =
          static_cast<std::uint8_t>(std::lround(sampleOf(static_cast<double>(i) / lightSteps) * 255));
    return samples;
  }();
  return table.data();
}

std::uint8_t sampleOf8Bits(float light) {
  return samplesOfLightSteps()[static_cast<std::size_t>(std::clamp(light, 0.0F, 1.0F) * lightSteps + 0.5F)];
}

std::uint16_t sampleOf16Bits(float light) {
  static const std::vector<float> table = [] {
    std::vector<float> samples(entries16 + 2);
    for (int i = 0; i <= entries16 + 1; ++i)
      samples[static_cast<std::size_t>(i)] =
          static_cast<float>(sampleOf(std::min(1.0, static_cast<double>(i) / entries16)) * 65535);
    return samples;
  }();
  const float place = std::clamp(light, 0.0F, 1.0F) * entries16;
  const auto entry = static_cast<std::size_t>(place);
  const float part = place - static_cast<float>(entry);
  return static_cast<std::uint16_t>(table[entry] + (table[entry + 1] - table[entry]) * part + 0.5F);
}

}  // namespace vellora
