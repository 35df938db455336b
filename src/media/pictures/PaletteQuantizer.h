#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "media/pictures/Raster.h"

namespace vellora {

/// Chooses the colors that stand for a picture of many, and says for each pixel which. A histogram is cut where it
/// varies most (variance-based median cut), the colors are then moved to the middle of what they stand for (k-means),
/// and colors of large even areas are taken exactly. What is left of a difference goes to the neighbors (Floyd and
/// Steinberg, in alternating directions). Differences count as the eye sees them: green most, blue least.
class PaletteQuantizer {
 public:
  struct Color {
    std::uint8_t red, green, blue;
  };

  /// Colors for the pixels whose alpha is at least `leastAlpha`; at most `most`.
  PaletteQuantizer(const Raster& raster, std::size_t most, std::uint32_t leastAlpha);

  const std::vector<Color>& colors() const { return colors_; }

  /// The places of a row's colors among colors(), `transparent` where alpha is too low; `rgba` are the row's pixels.
  /// Rows come in order.
  void quantizeRow(const std::uint8_t* rgba, std::span<std::uint8_t> indexes, std::uint8_t transparent);

 private:
  using Error = std::array<float, 3>;

  std::uint8_t nearest(int red, int green, int blue);

  const std::uint32_t leastAlpha_;
  std::vector<Color> colors_;
  std::array<std::vector<float>, 3> weighted_;  // the colors' parts, scaled as they count
  std::vector<std::uint32_t> known_;            // a color, and the nearest to it in the lowest byte
  std::vector<Error> errors_, nextErrors_;
  bool isBackward_ = false;
};

}  // namespace vellora
