#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "media/PngChunks.h"
#include "media/pictures/Raster.h"

namespace vellora {

/// A picture's samples as they stand in a PNG file before filtering, in one of the kinds of pixels that hold it
/// exactly.
struct PngRows {
  int width = 0;
  int height = 0;
  int depth = 8;  ///< bits per sample
  PngColor color = PngColor::Rgb;
  std::vector<std::uint8_t> palette;       ///< red, green, blue
  std::vector<std::uint8_t> transparency;  ///< for tRNS; empty for none
  std::size_t rowBytes = 0;
  std::size_t pixelBytes =
      1;  ///< from one sample to the same one of the next pixel, at least 1: what filters look back
  std::vector<std::uint8_t> bytes;

  const std::uint8_t* row(int y) const { return bytes.data() + rowBytes * static_cast<std::size_t>(y); }
};

/// The kinds that are worth trying, the most promising first: without samples that say nothing (alpha that is opaque
/// everywhere, 16 bits that repeat 8, color that is grey unless `allowsGrey` is false), and as a palette where there
/// are at most 256 colors. Colors under full transparency count too. Empty when memory is short.
std::vector<PngRows> exactRows(const Raster& raster, bool allowsGrey);

}  // namespace vellora
