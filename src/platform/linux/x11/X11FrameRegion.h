#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

/// Rows of a picture from `top` to before `bottom`.
struct RowBand {
  int top = 0;
  int bottom = 0;
  friend bool operator==(const RowBand&, const RowBand&) = default;
};

/// A set of rows as a few bands from top to bottom. Bands that lie close together become one: reading some rows more
/// is cheaper than asking once more.
class RowBands {
 public:
  void add(RowBand band);
  void clear() { bands_.clear(); }
  bool isEmpty() const { return bands_.empty(); }
  std::span<const RowBand> bands() const { return bands_; }
  /// Whether all of `band` is in the set.
  bool contain(RowBand band) const;
  bool meet(RowBand band) const;

 private:
  std::vector<RowBand> bands_;
};

/// The rows of `rect`.
inline RowBand rowsOf(const PixelRect& rect) {
  return {rect.y, rect.bottom()};
}

/// The smallest rectangle that holds both; an empty one counts for nothing.
PixelRect united(const PixelRect& a, const PixelRect& b);

/// Turns rectangles into at most `limit` that cover them all, with as little else as a search finds. More than
/// `searchable` are first united with their neighbors, in the order given, so that it stays a quick one.
void mergeRects(std::vector<PixelRect>& rects, std::size_t limit, std::size_t searchable = 48);

/// What of `rects` lies outside `hole`.
std::vector<PixelRect> subtracted(const std::vector<PixelRect>& rects, const PixelRect& hole);

}  // namespace vellora
