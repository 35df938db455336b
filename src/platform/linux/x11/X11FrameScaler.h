#pragma once

#include <cstddef>
#include <vector>

#include "base/Geometry.h"
#include "platform/linux/x11/X11FrameBuffers.h"
#include "platform/linux/x11/X11FrameRegion.h"

namespace vellora {

/// Scales pictures with a cubic filter (Catmull and Rom), which keeps text crisp; made smaller, every pixel counts.
class X11FrameScaler {
 public:
  X11FrameScaler(PixelSize from, PixelSize to);

  /// Writes `rows` of the scaled picture so that its corner is at `at` of `target`, inside which all of it must lie.
  void scale(const X11FrameBuffer& source, RowBand rows, X11FrameBuffer& target, PixelPoint at);
  /// The rows, or columns, of the scaled picture that depend on those of the source.
  RowBand affectedRows(RowBand rows) const { return affected(rows_, rows); }
  RowBand affectedColumns(RowBand columns) const { return affected(columns_, columns); }

 private:
  /// For every position of one axis: where its `taps` source pixels begin, and how much each counts.
  struct Axis {
    int taps = 0;
    std::vector<int> first;
    std::vector<float> weights;
  };
  static Axis makeAxis(int from, int to);
  static RowBand affected(const Axis& axis, RowBand band);

  const int width_;
  const Axis columns_;
  const Axis rows_;
  std::vector<float> line_;
};

}  // namespace vellora
