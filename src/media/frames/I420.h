#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/Geometry.h"

namespace vellora {

/// BGRA, 8 bits, top row first; the fourth byte is ignored.
struct BgraView {
  const std::uint8_t* pixels = nullptr;
  std::ptrdiff_t bytesPerRow = 0;
  int width = 0;  ///< pixels, at least 1
  int height = 0;
};

/// Planar 4:2:0, 8 bits, limited range: Y, U, V. Byte is std::uint8_t or const std::uint8_t.
template <class Byte>
struct I420Planes {
  std::array<Byte*, 3> planes{};
  std::array<std::ptrdiff_t, 3> bytesPerRow{};
  int width = 0;  ///< of Y in pixels, even and at least 2
  int height = 0;
};
using I420View = I420Planes<std::uint8_t>;
using I420Source = I420Planes<const std::uint8_t>;

/// The even size that holds every row and column of `size`.
constexpr int evenSize(int size) {
  return size + (size & 1);
}

/// Converts to the matrix of BT.709 (ITU-R BT.709-6, 3). Every value is the exact one rounded to nearest, but for an
/// error of less than 0.01 before the rounding; gray gives U = V = 128. A chroma sample is the mean of four pixels, so
/// it lies in their middle (chroma location "center").
///
/// `to` has the even size of `from`: the last column and row of an odd picture are in it twice. Rows need no alignment.
/// Any thread.
void convertBgra(const BgraView& from, const I420View& to);

/// The same for parts of the picture only, widened to whole chroma samples; what lies outside the picture is ignored.
void convertBgra(const BgraView& from, const I420View& to, std::span<const PixelRect> areas);

/// Copies a picture of the same size.
void copyI420(const I420Source& from, const I420View& to);

/// Copies a picture of the same size that has the matrix of BT.601 into that of BT.709.
void convertBt601(const I420Source& from, const I420View& to);

/// Copies a picture into NV12: Y, then U and V in turns.
void interleaveChroma(const I420Source& from, const std::array<std::uint8_t*, 2>& planes,
                      const std::array<std::ptrdiff_t, 2>& bytesPerRow);

}  // namespace vellora
