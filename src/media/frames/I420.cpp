#include "media/frames/I420.h"

#include <algorithm>
#include <cstring>

#include "media/frames/BgraKernels.h"

namespace vellora {
namespace {

void copyRows(const std::uint8_t* from, std::ptrdiff_t fromStride, std::uint8_t* to, std::ptrdiff_t toStride, int bytes,
              int rows) {
  for (int y = 0; y < rows; ++y) std::memcpy(to + y * toStride, from + y * fromStride, static_cast<std::size_t>(bytes));
}

std::uint8_t clamped(int value) {
  return static_cast<std::uint8_t>(std::clamp(value, 0, 255));
}

void convertArea(const BgraView& from, const I420View& to, const PixelRect& area, BgraKernel kernel) {
  const int left = area.x / 2, right = (area.right() + 1) / 2;
  const int wholeBlocks = std::min(right, from.width / 2) - left;
  for (int y = area.y & ~1; y < area.bottom(); y += 2) {
    const std::uint8_t* row = from.pixels + y * from.bytesPerRow;
    std::uint8_t* luma = to.planes[0] + y * to.bytesPerRow[0];
    const BgraRowPair rows{.top = row,
                           .bottom = y + 1 < from.height ? row + from.bytesPerRow : row,
                           .topY = luma,
                           .bottomY = luma + to.bytesPerRow[0],
                           .u = to.planes[1] + y / 2 * to.bytesPerRow[1],
                           .v = to.planes[2] + y / 2 * to.bytesPerRow[2]};
    if (wholeBlocks > 0) kernel(rows.from(left), wholeBlocks);
    if (left + wholeBlocks == right) continue;
    // The last column of an odd picture stands beside itself.
    BgraRowPair last = rows.from(right - 1);
    std::uint8_t top[8], bottom[8];
    for (int x = 0; x < 8; ++x) {
      top[x] = last.top[x % 4];
      bottom[x] = last.bottom[x % 4];
    }
    last.top = top;
    last.bottom = bottom;
    convertBlocksPortably(last, 1);
  }
}

}  // namespace

void convertBgra(const BgraView& from, const I420View& to) {
  convertArea(from, to, {0, 0, from.width, from.height}, bestBgraKernel());
}

void convertBgra(const BgraView& from, const I420View& to, std::span<const PixelRect> areas) {
  convertBgra(from, to, areas, bestBgraKernel());
}

void convertBgra(const BgraView& from, const I420View& to, std::span<const PixelRect> areas, BgraKernel kernel) {
  for (const PixelRect& area : areas) {
    const PixelRect inside = area.intersected({0, 0, from.width, from.height});
    if (!inside.isEmpty()) convertArea(from, to, inside, kernel);
  }
}

void copyI420(const I420Source& from, const I420View& to) {
  for (std::size_t i = 0; i < 3; ++i) {
    const int shift = i == 0 ? 0 : 1;
    copyRows(from.planes[i], from.bytesPerRow[i], to.planes[i], to.bytesPerRow[i], from.width >> shift,
             from.height >> shift);
  }
}

void convertBt601(const I420Source& from, const I420View& to) {
  // Out of the one matrix and into the other in one step, times 2^14; luma has the same range in both.
  constexpr int bits = 14, half = 1 << (bits - 1);
  constexpr int yFromU = -1893, yFromV = -3407, uFromU = 16689, uFromV = 1878, vFromU = 1230, vFromV = 16799;
  for (int y = 0; y < from.height / 2; ++y) {
    const std::uint8_t* u = from.planes[1] + y * from.bytesPerRow[1];
    const std::uint8_t* v = from.planes[2] + y * from.bytesPerRow[2];
    const std::uint8_t* luma = from.planes[0] + 2 * y * from.bytesPerRow[0];
    std::uint8_t* toU = to.planes[1] + y * to.bytesPerRow[1];
    std::uint8_t* toV = to.planes[2] + y * to.bytesPerRow[2];
    std::uint8_t* toLuma = to.planes[0] + 2 * y * to.bytesPerRow[0];
    for (int x = 0; x < from.width / 2; ++x) {
      const int cu = u[x] - 128, cv = v[x] - 128;
      const int change = (yFromU * cu + yFromV * cv + half) >> bits;
      for (const std::ptrdiff_t row : {0, 1}) {
        for (int column = 2 * x; column < 2 * x + 2; ++column) {
          toLuma[row * to.bytesPerRow[0] + column] = clamped(luma[row * from.bytesPerRow[0] + column] + change);
        }
      }
      toU[x] = clamped(128 + ((uFromU * cu + uFromV * cv + half) >> bits));
      toV[x] = clamped(128 + ((vFromU * cu + vFromV * cv + half) >> bits));
    }
  }
}

void interleaveChroma(const I420Source& from, const std::array<std::uint8_t*, 2>& planes,
                      const std::array<std::ptrdiff_t, 2>& bytesPerRow) {
  copyRows(from.planes[0], from.bytesPerRow[0], planes[0], bytesPerRow[0], from.width, from.height);
  for (int y = 0; y < from.height / 2; ++y) {
    const std::uint8_t* u = from.planes[1] + y * from.bytesPerRow[1];
    const std::uint8_t* v = from.planes[2] + y * from.bytesPerRow[2];
    std::uint8_t* to = planes[1] + y * bytesPerRow[1];
    for (int x = 0; x < from.width / 2; ++x) {
      to[2 * x] = u[x];
      to[2 * x + 1] = v[x];
    }
  }
}

}  // namespace vellora
