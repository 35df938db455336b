#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "media/pictures/Raster.h"

namespace vellora {

/// How much differences in red, green and blue count: the square roots of their shares in what the eye sees.
inline constexpr std::array<float, 3> colorWeights{0.55F, 0.77F, 0.34F};

/// The colors of a picture, similar ones counted together.
struct ColorHistogram {
  struct Bin {
    std::array<float, 3> color;  ///< the mean, each part times its weight
    float count;                 ///< pixels
    std::uint32_t commonest;     ///< the color most of them have, if one has the majority
    float commonestCount;        ///< pixels of exactly this color
  };

  /// Of the pixels whose alpha is at least `leastAlpha`.
  static std::vector<Bin> of(const Raster& raster, std::uint32_t leastAlpha);
};

}  // namespace vellora
