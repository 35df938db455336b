#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/Geometry.h"
#include "base/Result.h"
#include "media/PngDecoder.h"

namespace vellora {

/// The colour types of PNG (third edition, 11.2.1), by the numbers that stand in the file.
enum class PngColor : std::uint8_t { Gray = 0, Rgb = 2, Indexed = 3, GrayAlpha = 4, Rgba = 6 };

/// What a PNG file consists of, checked but not decoded. The spans point into the file.
struct PngChunks {
  PixelSize size;
  int depth = 8;  ///< bits per sample
  PngColor color = PngColor::Rgb;
  std::span<const std::byte> palette;                ///< red, green, blue
  std::span<const std::byte> transparency;           ///< what tRNS holds; empty without one
  std::vector<std::span<const std::byte>> deflated;  ///< the pieces of the zlib stream
  std::size_t deflatedBytes = 0;

  int channels() const;
  /// The bytes of a row without its filter byte.
  std::size_t rowBytes() const;
};

/// Takes a file apart and checks the order, lengths and checksums of its chunks, and its size against the limits. What
/// follows IEND is ignored.
Result<PngChunks, PngDecodeError> readPngChunks(std::span<const std::byte> file, const PngLimits& limits);

}  // namespace vellora
