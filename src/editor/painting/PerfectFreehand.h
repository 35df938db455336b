#pragma once

#include <span>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

/// Turns the samples of a pen into the outline of a stroke whose width follows pressure or, without pressure, speed:
/// the published perfect-freehand algorithm with its published constants. Pure functions; any thread.
struct PerfectFreehand {
  /// One sample after smoothing.
  struct StrokePoint {
    Point point;
    double pressure = 0.5;     ///< 0 to 1
    double distance = 0;       ///< from the previous point
    Point vector;              ///< unit vector from the previous point towards this one
    double runningLength = 0;  ///< along the stroke so far
  };

  struct Options {
    double size = 16;       ///< the diameter at pressure 0.5 without thinning
    double thinning = 0.5;  ///< how much pressure changes the width, 0 to 1
    double smoothing = 0.5;
    double streamline = 0.5;       ///< how far the line lags behind the samples, 0 to 1
    bool simulatePressure = true;  ///< pressure from speed
    bool capStart = true;
    bool capEnd = true;
    double taperStart = 0;  ///< length over which the stroke grows from nothing
    double taperEnd = 0;
    bool last = false;  ///< the stroke is complete: it ends at the last sample exactly
  };

  /// A sample without a pressure has 0.5. Samples that are not finite are left out.
  static std::vector<StrokePoint> strokePoints(std::span<const Point> points, std::span<const double> pressures,
                                               const Options& options);

  /// The outline as a closed polygon that always runs the same way round; empty when there is nothing to draw.
  static std::vector<Point> strokeOutlinePoints(std::span<const StrokePoint> points, const Options& options);

  /// The outline of a single dot.
  static std::vector<Point> drawDot(Point center, double radius);
};

}  // namespace vellora
