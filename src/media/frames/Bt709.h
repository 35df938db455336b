#pragma once

#include <cstdint>

namespace vellora::bt709 {

/// The matrix of BT.709 for limited range, times 2^15. The rows of U and V add up to 0, that of Y to 219/255.
inline constexpr int fractionBits = 15;
inline constexpr std::int16_t yFromR = 5983, yFromG = 20127, yFromB = 2032;
inline constexpr std::int16_t uFromR = -3298, uFromG = -11094, uFromB = 14392;
inline constexpr std::int16_t vFromR = 14392, vFromG = -13072, vFromB = -1320;

/// With one half, for the rounding.
inline constexpr std::int32_t yOffset = (16 << fractionBits) + (1 << (fractionBits - 1));
/// U and V come of the sum of four pixels.
inline constexpr int chromaBits = fractionBits + 2;
inline constexpr std::int32_t chromaOffset = (128 << chromaBits) + (1 << (chromaBits - 1));

static_assert(uFromR + uFromG + uFromB == 0 && vFromR + vFromG + vFromB == 0);

}  // namespace vellora::bt709
