#pragma once

#include <span>
#include <vector>

#include <QPainterPath>
#include <QRectF>

#include "base/Geometry.h"

namespace vellora {

/// A shape of smooth outlines, filled with the winding rule, kept as many small closed pieces.
///
/// An outline is cut along chords from one side of its stroke to the other. Neighbouring pieces run along their common
/// chord in opposite directions, so that in one path they fill exactly what the uncut outline does. Cutting pays twice:
/// what lies outside a clip can be left out, and the pieces can be given to the rasterizer from right to left. Its rows
/// are sorted lists that are searched from the left, so that a wide shape takes a time quadratic in its width
/// otherwise.
class InkPath {
 public:
  /// The pieces of smoothClosedPath() of an outline whose first half runs along one side of a stroke and whose second
  /// half comes back along the other.
  static InkPath of(std::span<const std::vector<Point>> outlines);

  bool isEmpty() const { return pieces_.empty(); }
  /// Around everything that is filled; may be a little larger.
  QRectF bounds() const { return bounds_; }
  const QPainterPath& whole() const { return whole_; }
  /// A path that fills the same as the whole within `clip`.
  QPainterPath within(const QRectF& clip) const;
  /// Around the pieces that only one of the two has: outside of it both fill the same.
  QRectF changedFrom(const InkPath& other) const;

 private:
  struct Piece {
    int begin;  ///< elements of the whole path
    int end;
    QRectF bounds;
  };

  QPainterPath whole_;
  QRectF bounds_;
  std::vector<Piece> pieces_;  ///< from right to left
};

}  // namespace vellora
