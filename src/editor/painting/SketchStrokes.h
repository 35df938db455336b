#pragma once

#include <cstdint>
#include <vector>

#include "editor/painting/Measures.h"

namespace vellora {

/// One stroke of a pen: where it goes and half its width at each place.
struct InkStroke {
  std::vector<Point> points;
  std::vector<double> halfWidths;
};

/// A shape drawn by hand. The same seed always gives the same shape; it keeps within a few line widths of the plain
/// one.
struct Sketch {
  std::vector<InkStroke> strokes;
  std::vector<Point> ground;  ///< closed, along the strokes: what a filled shape fills; empty for an arrow
};

/// A shaft in one go, bent as its control says or a little of its own, and a head of two flicks from the tip.
Sketch sketchArrow(const Measures& arrow, std::uint64_t seed);
/// Once around from a corner, which the end of the stroke crosses.
Sketch sketchBox(const Measures& box, std::uint64_t seed);
/// A little more than once around; the ends pass each other.
Sketch sketchEllipse(const Measures& ellipse, std::uint64_t seed);

}  // namespace vellora
