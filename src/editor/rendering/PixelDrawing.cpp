#include "editor/rendering/PixelDrawing.h"

#include <cstring>

namespace vellora {
namespace {

constexpr std::uint32_t alphaBits = 0xFF000000U;

/// Where a run of target pixels takes its colour from along one axis.
struct Tap {
  int index;             ///< the first of two neighbours
  std::uint32_t weight;  ///< of the second, to 256
};

/// The source pixel under a target pixel's centre.
int nearestIndex(std::int64_t offset, std::int64_t extent, int sourceExtent) {
  return static_cast<int>((2 * offset + 1) * sourceExtent / (2 * extent));
}

/// Taps for linear interpolation in a level whose extent is `levelExtent`.
Tap smoothTap(std::int64_t offset, std::int64_t extent, int sourceExtent, int level, int levelExtent) {
  // In 256ths of the level's pixels, measured between centres.
  const std::int64_t place = (2 * offset + 1) * sourceExtent * 128 / (extent << level) - 128;
  const std::int64_t inside = std::clamp<std::int64_t>(place, 0, std::int64_t{levelExtent - 1} * 256);
  return {static_cast<int>(inside >> 8), static_cast<std::uint32_t>(inside & 255)};
}

void putRow(std::uint32_t* out, const std::uint32_t* pixels, int count, bool opaque) {
  if (opaque) {
    for (int x = 0; x < count; ++x) out[x] = pixels[x] | alphaBits;
    return;
  }
  for (int x = 0; x < count; ++x) {
    const std::uint32_t pixel = pixels[x];
    if (pixel >= alphaBits) {
      out[x] = pixel;
    } else if (pixel != 0) {
      out[x] = blendPixel(pixel, out[x]);
    }
  }
}

void copyPixels(const PixelTarget& target, const QRect& area, PixelSource& source, const PixelPlacement& placement) {
  std::vector<std::uint32_t> scratch;
  const int begin = static_cast<int>(area.left() - placement.left);
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const auto* pixels = source.row(0, static_cast<int>(y - placement.top), begin, begin + area.width(), scratch);
    putRow(target.row(y) + area.left(), pixels, area.width(), source.isOpaque());
  }
}

void drawNearest(const PixelTarget& target, const QRect& area, PixelSource& source, const PixelPlacement& placement) {
  const PixelSize size = source.size();
  const auto count = static_cast<std::size_t>(area.width());
  std::vector<int> columns(count);
  for (std::size_t x = 0; x < count; ++x) {
    columns[x] = nearestIndex(area.left() + static_cast<std::int64_t>(x) - placement.left, placement.width, size.width);
  }
  const int begin = columns.front();
  const int end = columns.back() + 1;
  for (int& column : columns) column -= begin;

  std::vector<std::uint32_t> scratch;
  std::vector<std::uint32_t> line(count);
  int lineRow = -1;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const int sourceRow = nearestIndex(y - placement.top, placement.height, size.height);
    if (sourceRow != lineRow) {
      const std::uint32_t* pixels = source.row(0, sourceRow, begin, end, scratch);
      for (std::size_t x = 0; x < count; ++x) line[x] = pixels[columns[x]];
      lineRow = sourceRow;
    }
    putRow(target.row(y) + area.left(), line.data(), area.width(), source.isOpaque());
  }
}

void drawSmooth(const PixelTarget& target, const QRect& area, PixelSource& source, const PixelPlacement& placement,
                int level) {
  const PixelSize full = source.size();
  const PixelSize size = source.size(level);
  const auto count = static_cast<std::size_t>(area.width());
  std::vector<Tap> taps(count);
  for (std::size_t x = 0; x < count; ++x) {
    taps[x] = smoothTap(area.left() + static_cast<std::int64_t>(x) - placement.left, placement.width, full.width, level,
                        size.width);
  }
  const int begin = taps.front().index;
  const int end = std::min(taps.back().index + 2, size.width);
  const auto span = static_cast<std::size_t>(end - begin);
  for (Tap& tap : taps) tap.index -= begin;

  std::vector<std::uint32_t> scratchA;
  std::vector<std::uint32_t> scratchB;
  std::vector<std::uint32_t> mixed(span + 1);  // the last pixel has a neighbour of its own colour
  std::vector<std::uint32_t> line(count);
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const Tap tap = smoothTap(y - placement.top, placement.height, full.height, level, size.height);
    const std::uint32_t* a = source.row(level, tap.index, begin, end, scratchA);
    const std::uint32_t* b = source.row(level, std::min(tap.index + 1, size.height - 1), begin, end, scratchB);
    for (std::size_t x = 0; x < span; ++x) mixed[x] = mixPixels(a[x], b[x], tap.weight);
    mixed[span] = mixed[span - 1];
    for (std::size_t x = 0; x < count; ++x) {
      const std::uint32_t* pair = mixed.data() + taps[x].index;
      line[x] = mixPixels(pair[0], pair[1], taps[x].weight);
    }
    putRow(target.row(y) + area.left(), line.data(), area.width(), source.isOpaque());
  }
}

bool isCrisp(const PixelPlacement& placement, PixelSize size, Enlarging enlarging) {
  if (enlarging == Enlarging::Crisp) return placement.width >= 2 * size.width && placement.height >= 2 * size.height;
  if (enlarging == Enlarging::CrispIfWhole) {
    return placement.width % size.width == 0 && placement.height % size.height == 0;
  }
  return false;
}

}  // namespace

void drawPixels(const PixelTarget& target, const QRect& clip, PixelSource& source, const PixelPlacement& placement,
                Enlarging enlarging) {
  constexpr std::int64_t largest = std::int64_t{1} << 30;
  if (placement.width > largest || placement.height > largest) return;
  const QRect area = placement.within(clip & target.area);
  if (area.isEmpty()) return;
  const PixelSize size = source.size();
  if (placement.width == size.width && placement.height == size.height) {
    copyPixels(target, area, source, placement);
    return;
  }
  if (isCrisp(placement, size, enlarging)) {
    drawNearest(target, area, source, placement);
    return;
  }
  const double ratio =
      std::max(static_cast<double>(placement.width) / size.width, static_cast<double>(placement.height) / size.height);
  int level = 0;
  while (level < source.lastLevel() && ratio * (2 << level) <= 1.001) ++level;
  drawSmooth(target, area, source, placement, level);
}

void drawCells(const PixelTarget& target, const QRect& area, const CellGrid& grid, const DeviceMap& map) {
  const QRect part = area & target.area;
  if (part.isEmpty()) return;
  const PixelAxis acrossAxis{0, map.dx, 1 / map.scaleX};
  const PixelAxis downAxis{0, map.dy, 1 / map.scaleY};
  std::vector<int> columns(static_cast<std::size_t>(part.width()));
  for (std::size_t x = 0; x < columns.size(); ++x) {
    columns[x] = grid.columnAt(acrossAxis.centre(part.left() + static_cast<int>(x)));
  }
  for (int y = part.top(); y <= part.bottom(); ++y) {
    const std::uint32_t* cells = grid.rowAt(downAxis.centre(y));
    std::uint32_t* out = target.row(y) + part.left();
    for (std::size_t x = 0; x < columns.size(); ++x) out[x] = cells[columns[x]];
  }
}

}  // namespace vellora
