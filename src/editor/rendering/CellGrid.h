#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

/// What is seen in place of a redacted area: a grid of plain cells, an erased area having one. Positions are document
/// points.
struct CellGrid {
  Rect rect;
  int columns = 1;
  int rows = 1;
  std::vector<std::uint32_t> cells;  ///< opaque, row by row
  friend bool operator==(const CellGrid&, const CellGrid&) = default;

  int columnAt(double x) const { return index((x - rect.minX()) / rect.size.width * columns, columns); }
  const std::uint32_t* rowAt(double y) const {
    return cells.data() + static_cast<std::size_t>(index((y - rect.minY()) / rect.size.height * rows, rows)) * columns;
  }

 private:
  static int index(double place, int count) {
    return static_cast<int>(std::clamp(place, 0.0, static_cast<double>(count - 1)));
  }
};

/// How the pixels of a picture lie in the document: pixel i's centre is at base + (i + 0.5 − shift) × step.
struct PixelAxis {
  double base = 0;
  double shift = 0;
  double step = 1;
  double centre(int pixel) const { return base + (pixel + 0.5 - shift) * step; }
};

}  // namespace vellora
