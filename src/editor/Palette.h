#pragma once

#include <array>

#include "base/Color.h"

namespace vellora {

/// The fixed swatches.
namespace Palette {

inline constexpr ColorComponents red{0.898, 0.282, 0.302, 1};
inline constexpr ColorComponents slate{0.11, 0.125, 0.141, 1};

/// In the order they are shown.
inline constexpr std::array<ColorComponents, 8> swatches{{red,
                                                          {0.969, 0.42, 0.082, 1},
                                                          {1.0, 0.773, 0.239, 1},
                                                          {0.188, 0.643, 0.424, 1},
                                                          {0.0, 0.565, 1.0, 1},
                                                          {0.431, 0.337, 0.812, 1},
                                                          {0.839, 0.251, 0.624, 1},
                                                          slate}};

}  // namespace Palette
}  // namespace vellora
