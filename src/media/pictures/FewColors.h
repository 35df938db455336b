#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "media/pictures/Raster.h"

namespace vellora {

/// The colors of a picture that has few of them, in the order in which they are met. A color has red in its lowest
/// byte, then green, blue, alpha.
class FewColors {
 public:
  /// Nothing when there are more than `most` (at most 256). Where alpha is below `leastAlpha` all is one color, 0;
  /// elsewhere alpha counts as 255 when `leastAlpha` is not 0.
  static std::optional<FewColors> of(const Raster& raster, std::size_t most, std::uint32_t leastAlpha = 0);

  const std::vector<std::uint32_t>& colors() const { return colors_; }
  /// The place of a color that is among them.
  std::uint8_t indexOf(std::uint32_t color) const { return indexes_[slotOf(color)]; }

 private:
  static constexpr std::size_t slots = 2048;
  std::size_t slotOf(std::uint32_t color) const;

  std::vector<std::uint32_t> colors_;
  std::array<std::uint32_t, slots> keys_{};
  std::array<std::uint8_t, slots> indexes_{};
  std::array<bool, slots> taken_{};
};

/// The pixel at a place of a row of 8-bit RGBA.
inline std::uint32_t colorAt(const std::uint8_t* row, int x) {
  const std::uint8_t* pixel = row + std::size_t{4} * static_cast<std::size_t>(x);
  return std::uint32_t{pixel[0]} | std::uint32_t{pixel[1]} << 8 | std::uint32_t{pixel[2]} << 16 |
         std::uint32_t{pixel[3]} << 24;
}

/// What FewColors makes of a pixel.
inline std::uint32_t thresholded(std::uint32_t color, std::uint32_t leastAlpha) {
  if (leastAlpha == 0) return color;
  return color >> 24 < leastAlpha ? 0 : color | 0xFF000000U;
}

}  // namespace vellora
