#include "media/pictures/ColorHistogram.h"

#include "media/pictures/FewColors.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

constexpr std::size_t cells = std::size_t{1} << 17;  // 6 bits of red and green, 5 of blue

std::size_t cellOf(std::uint32_t color) {
  return (color >> 2 & 0x3F) << 11 | (color >> 10 & 0x3F) << 5 | (color >> 19 & 0x1F);
}

struct Cell {
  std::array<std::uint64_t, 3> sums{};
  std::uint32_t count = 0;
  std::uint32_t candidate = 0;  // for the majority (Boyer and Moore)
  std::uint32_t votes = 0;
  std::uint32_t exact = 0;  // pixels of the candidate's color
};

template <class Take>
void forEachPixel(const Raster& raster, std::uint32_t leastAlpha, const Take& take) {
  RowConverter rows(raster, RasterLayout::Rgba);
  for (int y = 0; y < raster.height(); ++y) {
    const std::uint8_t* row = rows.row(y);
    for (int x = 0; x < raster.width(); ++x) {
      const std::uint32_t color = colorAt(row, x);
      if (color >> 24 >= leastAlpha) take(color & 0xFFFFFF);
    }
  }
}

}  // namespace

std::vector<ColorHistogram::Bin> ColorHistogram::of(const Raster& raster, std::uint32_t leastAlpha) {
  std::vector<Cell> table(cells);
  forEachPixel(raster, leastAlpha, [&table](std::uint32_t color) {
    Cell& cell = table[cellOf(color)];
    for (std::size_t i = 0; i < 3; ++i) cell.sums[i] += color >> (8 * i) & 0xFF;
    ++cell.count;
    if (cell.votes == 0) cell.candidate = color;
    cell.votes += cell.candidate == color ? 1U : ~0U;
  });
  forEachPixel(raster, leastAlpha, [&table](std::uint32_t color) {
    Cell& cell = table[cellOf(color)];
    if (cell.candidate == color) ++cell.exact;
  });
  std::vector<Bin> bins;
  for (const Cell& cell : table) {
    if (cell.count == 0) continue;
    Bin bin{{}, static_cast<float>(cell.count), cell.candidate, static_cast<float>(cell.exact)};
    for (std::size_t i = 0; i < 3; ++i) {
      bin.color[i] = static_cast<float>(static_cast<double>(cell.sums[i]) / cell.count) * colorWeights[i];
    }
    bins.push_back(bin);
  }
  return bins;
}

}  // namespace vellora
