#pragma once

#include <optional>
#include <vector>

#include "editor/Annotation.h"

namespace vellora {

/// The numbers of an annotation as they are drawn: finite, and small enough that nothing asks for the absurd.
struct Measures {
  static constexpr double mostCoordinate = 1e7;
  static constexpr double mostLineWidth = 1000;

  Point p1;
  Point p2;
  std::optional<Point> control;
  double lineWidth = 0;
  double tailAngle = 0;

  Rect rect() const;
};

/// Nothing when a number that matters is none: such an annotation is not drawn.
std::optional<Measures> measuresOf(const Annotation& annotation);

/// The pen's samples that can be drawn; of very long strokes evenly picked ones. `pressures` has one for each.
struct PenSamples {
  static constexpr std::size_t most = 30'000;

  std::vector<Point> points;
  std::vector<double> pressures;
};
PenSamples penSamplesOf(const Annotation& annotation);

}  // namespace vellora
