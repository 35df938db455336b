#pragma once

#include <algorithm>
#include <cmath>
#include <vector>

namespace vellora {

/// A smooth field over a rectangle, known at evenly spaced nodes from edge to edge and interpolated between them: how
/// soft pictures and shadows are kept small and drawn at any size.
template <class Value>
class SmoothGrid {
 public:
  SmoothGrid() = default;
  SmoothGrid(int columns, int rows)
      : columns_(columns), rows_(rows), values_(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

  bool isEmpty() const { return values_.empty(); }
  int columns() const { return columns_; }
  int rows() const { return rows_; }
  Value* row(int y) { return values_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_); }
  const Value* row(int y) const {
    return values_.data() + static_cast<std::size_t>(y) * static_cast<std::size_t>(columns_);
  }

  /// Calls `use(i, value)` for `count` places in a row that begin at `x` and are `step` apart, in nodes; beyond the
  /// edges the field goes on unchanged. `line` is room for one line of nodes.
  template <class Use>
  void sampleRow(double x, double y, double step, int count, std::vector<Value>& line, Use use) const {
    blendRows(y, x, x + step * count, line);
    const double last = columns_ - 1;
    int i = 0;
    while (i < count) {
      const double place = x + step * i;
      const int column = static_cast<int>(std::clamp(std::floor(place), 0.0, std::max(last - 1, 0.0)));
      const Value left = line[static_cast<std::size_t>(column)];
      if (place <= 0 || place >= last || columns_ < 2) {
        // The part beyond an edge, as far as it goes.
        const Value edge = place <= 0 ? line.front() : line[static_cast<std::size_t>(columns_ - 1)];
        const int end = place <= 0 ? std::clamp(static_cast<int>(std::ceil(-x / step)), i + 1, count) : count;
        for (; i < end; ++i) use(i, edge);
        continue;
      }
      // All places up to the next node: the value grows evenly.
      const int end = std::clamp(static_cast<int>(std::ceil((column + 1 - x) / step)), i + 1, count);
      const Value slope = line[static_cast<std::size_t>(column + 1)] - left;
      Value value = left + slope * static_cast<float>(place - column);
      const Value growth = slope * static_cast<float>(step);
      for (; i < end; ++i) {
        use(i, value);
        value += growth;
      }
    }
  }

 private:
  /// The nodes of the line at `y` that are needed from `left` to `right`.
  void blendRows(double y, double left, double right, std::vector<Value>& line) const {
    line.resize(static_cast<std::size_t>(columns_));
    const double place = std::clamp(y, 0.0, static_cast<double>(rows_ - 1));
    const int upper = std::min(static_cast<int>(place), std::max(rows_ - 2, 0));
    const float part = static_cast<float>(place - upper);
    const Value* above = row(upper);
    const Value* below = row(std::min(upper + 1, rows_ - 1));
    const int last = columns_ - 1;
    const int from = static_cast<int>(std::clamp(std::floor(left), 0.0, static_cast<double>(last)));
    const int to = static_cast<int>(std::clamp(std::ceil(right) + 1, 0.0, static_cast<double>(last)));
    for (int i = from; i <= to; ++i) {
      line[static_cast<std::size_t>(i)] = above[i] + (below[i] - above[i]) * part;
    }
  }

  int columns_ = 0;
  int rows_ = 0;
  std::vector<Value> values_;
};

}  // namespace vellora
