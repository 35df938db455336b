#include "media/pictures/Orientation.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace vellora {
namespace {

/// Samples are moved a pixel at a time, as blocks of the pixel's size.
template <std::size_t size>
using Pixel = std::array<std::uint8_t, size>;

template <std::size_t size>
Pixel<size>* rowOf(Raster& raster, int y) {
  return reinterpret_cast<Pixel<size>*>(raster.row(y));
}

template <std::size_t size>
void mirrorRows(Raster& raster) {
  for (int y = 0; y < raster.height(); ++y) {
    std::reverse(rowOf<size>(raster, y), rowOf<size>(raster, y) + raster.width());
  }
}

void swapRows(Raster& raster) {
  for (int y = 0; y < raster.height() / 2; ++y) {
    std::swap_ranges(raster.row(y), raster.row(y) + raster.stride(), raster.row(raster.height() - 1 - y));
  }
}

/// Rows become columns, block by block so that both sides stay in the cache.
template <std::size_t size>
void transpose(const Raster& source, Raster& target) {
  constexpr int block = 32;
  for (int top = 0; top < source.height(); top += block) {
    const int bottom = std::min(top + block, source.height());
    for (int left = 0; left < source.width(); left += block) {
      const int right = std::min(left + block, source.width());
      for (int y = top; y < bottom; ++y) {
        const auto* row = reinterpret_cast<const Pixel<size>*>(source.row(y));
        for (int x = left; x < right; ++x) rowOf<size>(target, x)[y] = row[x];
      }
    }
  }
}

template <std::size_t size>
std::optional<Raster> turned(Raster raster, int orientation) {
  if (isSideways(orientation)) {
    auto target = Raster::create(raster.height(), raster.width(), raster.layout(), raster.bitsPerSample());
    if (!target) return std::nullopt;
    transpose<size>(std::as_const(raster), *target);
    raster = std::move(*target);
  }
  const bool mirrors = orientation == 2 || orientation == 3 || orientation == 6 || orientation == 7;
  const bool flips = orientation == 3 || orientation == 4 || orientation == 7 || orientation == 8;
  if (mirrors) mirrorRows<size>(raster);
  if (flips) swapRows(raster);
  return raster;
}

}  // namespace

std::optional<Raster> turnedUpright(Raster raster, int orientation) {
  if (orientation <= 1 || orientation > 8) return raster;
  switch (raster.bytesPerPixel()) {
    case 1:
      return turned<1>(std::move(raster), orientation);
    case 2:
      return turned<2>(std::move(raster), orientation);
    case 3:
      return turned<3>(std::move(raster), orientation);
    case 4:
      return turned<4>(std::move(raster), orientation);
    case 6:
      return turned<6>(std::move(raster), orientation);
    default:
      return turned<8>(std::move(raster), orientation);
  }
}

}  // namespace vellora
