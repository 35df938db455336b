#pragma once

#include <cstdint>

namespace vellora {

/// Four samples that are worked on together: red, green, blue, alpha in linear light, colors multiplied by alpha.
using LinearPixel = float __attribute__((vector_size(16)));

/// The light of sRGB samples (IEC 61966-2-1), 0 to 1, by table.
const float* linearOf8Bits();   ///< 256 values
const float* linearOf16Bits();  ///< 65,536 values

/// The nearest samples of 8 bits to lights in steps from 0 to 1, so many and one more: fine enough that the steepest
/// part of the curve, near black, moves by a fifth of a level from step to step.
constexpr int lightSteps = 1 << 14;
const std::uint8_t* samplesOfLightSteps();

/// The nearest sample to a light; what is outside 0 to 1 is held at the end.
std::uint8_t sampleOf8Bits(float light);
std::uint16_t sampleOf16Bits(float light);

}  // namespace vellora
