#include "editor/painting/PerfectFreehand.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>

#include "editor/painting/Vector.h"

namespace vellora {
namespace {

using StrokePoint = PerfectFreehand::StrokePoint;
using Options = PerfectFreehand::Options;

/// A little more than a half turn, so that a cap always closes.
constexpr double halfTurn = std::numbers::pi + 0.0001;
constexpr int startCapSegments = 13;
constexpr int endCapSegments = 29;
constexpr double rateOfPressureChange = 0.275;
constexpr double leastRadius = 0.01;
constexpr double squareCapInset = 0.99;
/// This near the end of a stroke points are noise.
constexpr double noisyEnd = 3;

struct Sample {
  Point point;
  double pressure;
};

std::vector<Sample> samplesOf(std::span<const Point> points, std::span<const double> pressures) {
  constexpr double ordinary = 0.5;
  std::vector<Sample> samples;
  samples.reserve(points.size() + 4);
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (!std::isfinite(points[i].x) || !std::isfinite(points[i].y)) continue;
    const bool isGiven = i < pressures.size() && std::isfinite(pressures[i]);
    samples.push_back({points[i], isGiven ? std::min(pressures[i], 1.0) : ordinary});
  }
  if (samples.size() == 1) {
    samples.push_back({vec::add(samples[0].point, {1, 1}), samples[0].pressure});
  } else if (samples.size() == 2) {
    const Point end = samples[1].point;
    samples.pop_back();
    for (int i = 1; i <= 4; ++i) samples.push_back({vec::mix(samples[0].point, end, i / 4.0), ordinary});
  }
  return samples;
}

/// What the pressure becomes after a step of `distance`: fast strokes are light.
double simulated(double before, double distance, double size) {
  const double speed = std::min(1.0, distance / size);
  const double target = std::min(1.0, 1 - speed);
  return std::min(1.0, before + (target - before) * (speed * rateOfPressureChange));
}

/// Walks along a stroke and collects what lies to its left and to its right.
class Outliner {
 public:
  Outliner(std::span<const StrokePoint> points, const Options& options)
      : points_(points),
        options_(options),
        totalLength_(points.back().runningLength),
        leastStep_(options.size * options.smoothing * options.size * options.smoothing) {}

  std::vector<Point> outline() {
    left_.reserve(points_.size());
    right_.reserve(points_.size());
    pressure_ = firstPressure();
    radius_ = radiusAt(points_.back().pressure);
    heading_ = points_.front().vector;
    lastLeft_ = lastRight_ = points_.front().point;
    for (std::size_t i = 0; i < points_.size(); ++i) walk(i);
    if (points_.size() == 1) return dot();

    const std::vector<Point> start = startCap();
    addEndCap();
    left_.reserve(left_.size() + right_.size() + start.size());
    left_.insert(left_.end(), right_.rbegin(), right_.rend());
    left_.insert(left_.end(), start.begin(), start.end());
    return std::move(left_);
  }

 private:
  double radiusAt(double pressure) const { return options_.size * (0.5 - options_.thinning * (0.5 - pressure)); }

  /// The mean of the first points, so that a stroke does not start with a blob.
  double firstPressure() const {
    double mean = points_.front().pressure;
    for (const StrokePoint& point : points_.first(std::min<std::size_t>(10, points_.size()))) {
      const double next = options_.simulatePressure ? simulated(mean, point.distance, options_.size) : point.pressure;
      mean = (mean + next) / 2;
    }
    return mean;
  }

  double taper(double runningLength) const {
    double factor = 1;
    if (runningLength < options_.taperStart) factor = runningLength / options_.taperStart;
    const double left = totalLength_ - runningLength;
    if (left < options_.taperEnd) factor = std::min(factor, left / options_.taperEnd);
    return factor;
  }

  void walk(std::size_t index) {
    const StrokePoint& here = points_[index];
    const bool isLast = index + 1 == points_.size();
    if (!isLast && totalLength_ - here.runningLength < noisyEnd) return;

    double pressure = here.pressure;
    if (options_.thinning == 0) {
      radius_ = options_.size / 2;
    } else {
      if (options_.simulatePressure) pressure = simulated(pressure_, here.distance, options_.size);
      radius_ = radiusAt(pressure);
    }
    if (!firstRadius_) firstRadius_ = radius_;
    radius_ = std::max(leastRadius, radius_ * taper(here.runningLength));

    const Point next = isLast ? here.vector : points_[index + 1].vector;
    const double turn = isLast ? 1 : vec::dot(here.vector, next);
    const bool turnedHere = vec::dot(here.vector, heading_) < 0 && !wasCorner_;
    const bool turnsNext = turn < 0;
    if (turnedHere || turnsNext) {
      addCorner(here.point);
      if (turnsNext) wasCorner_ = true;
      return;
    }
    wasCorner_ = false;
    if (isLast) {
      const Point offset = vec::mul(vec::rightOf(here.vector), radius_);
      left_.push_back(vec::sub(here.point, offset));
      right_.push_back(vec::add(here.point, offset));
      return;
    }
    const Point offset = vec::mul(vec::rightOf(vec::mix(next, here.vector, turn)), radius_);
    addUnlessNear(left_, lastLeft_, vec::sub(here.point, offset), index);
    addUnlessNear(right_, lastRight_, vec::add(here.point, offset), index);
    pressure_ = pressure;
    heading_ = here.vector;
  }

  void addUnlessNear(std::vector<Point>& side, Point& lastOfSide, Point point, std::size_t index) const {
    const Point step = vec::sub(lastOfSide, point);
    if (index > 1 && vec::dot(step, step) <= leastStep_) return;
    side.push_back(point);
    lastOfSide = point;
  }

  /// Where the stroke turns back: a round on either side.
  void addCorner(Point corner) {
    const Point offset = vec::mul(vec::rightOf(heading_), radius_);
    for (int i = 0; i <= startCapSegments; ++i) {
      const double angle = halfTurn * i / startCapSegments;
      lastLeft_ = vec::rotated(vec::sub(corner, offset), corner, angle);
      lastRight_ = vec::rotated(vec::add(corner, offset), corner, -angle);
      left_.push_back(lastLeft_);
      right_.push_back(lastRight_);
    }
  }

  std::vector<Point> dot() const {
    if ((options_.taperStart > 0 || options_.taperEnd > 0) && !options_.last) return {};
    return PerfectFreehand::drawDot(points_.front().point, firstRadius_.value_or(radius_));
  }

  std::vector<Point> startCap() const {
    std::vector<Point> cap;
    if (options_.taperStart > 0) return cap;
    const Point first = points_.front().point;
    if (options_.capStart) {
      for (int i = 1; i <= startCapSegments; ++i) {
        cap.push_back(vec::rotated(right_.front(), first, halfTurn * i / startCapSegments));
      }
      return cap;
    }
    const Point across = vec::sub(left_.front(), right_.front());
    const Point inner = vec::mul(across, 0.5);
    const Point outer = vec::mul(across, 0.51);
    return {vec::sub(first, inner), vec::sub(first, outer), vec::add(first, outer), vec::add(first, inner)};
  }

  void addEndCap() {
    const Point end = points_.back().point;
    if (options_.taperEnd > 0) {
      left_.push_back(end);
      return;
    }
    const Point across = vec::mul(vec::rightOf(points_.back().vector), -radius_);
    if (options_.capEnd) {
      // One and a half turns: the end is round even where the stroke turned right before it.
      for (int i = 1; i < endCapSegments; ++i) {
        left_.push_back(vec::rotated(vec::add(end, across), end, halfTurn * 3 * i / endCapSegments));
      }
      return;
    }
    for (const double part : {1.0, squareCapInset, -squareCapInset, -1.0}) {
      left_.push_back(vec::add(end, vec::mul(across, part)));
    }
  }

  std::span<const StrokePoint> points_;
  const Options& options_;
  const double totalLength_;
  const double leastStep_;  ///< squared
  std::vector<Point> left_;
  std::vector<Point> right_;
  Point lastLeft_;
  Point lastRight_;
  Point heading_;
  double pressure_ = 0;
  double radius_ = 0;
  std::optional<double> firstRadius_;
  bool wasCorner_ = false;
};

}  // namespace

std::vector<StrokePoint> PerfectFreehand::strokePoints(std::span<const Point> points, std::span<const double> pressures,
                                                       const Options& options) {
  const std::vector<Sample> samples = samplesOf(points, pressures);
  if (samples.empty()) return {};
  const double follow = 0.15 + (1 - options.streamline) * 0.85;
  const double firstPressure = samples[0].pressure >= 0 ? samples[0].pressure : 0.25;

  std::vector<StrokePoint> stroke{{.point = samples[0].point, .pressure = firstPressure, .vector = {1, 1}}};
  stroke.reserve(samples.size());
  double runningLength = 0;
  bool hasBegun = false;
  for (std::size_t i = 1; i < samples.size(); ++i) {
    const StrokePoint& before = stroke.back();
    const bool isLast = i + 1 == samples.size();
    const Point point = isLast && options.last ? samples[i].point : vec::mix(before.point, samples[i].point, follow);
    if (point == before.point) continue;
    const Point step = vec::sub(point, before.point);
    const double distance = vec::length(step);
    runningLength += distance;
    // The first touch of a pen is noisy: nothing until it has gone some way.
    if (!isLast && !hasBegun) {
      if (runningLength < options.size) continue;
      hasBegun = true;
    }
    stroke.push_back({.point = point,
                      .pressure = samples[i].pressure >= 0 ? samples[i].pressure : 0.5,
                      .distance = distance,
                      .vector = vec::unit(step),
                      .runningLength = runningLength});
  }
  stroke.front().vector = stroke.size() > 1 ? stroke[1].vector : Point{};
  return stroke;
}

std::vector<Point> PerfectFreehand::strokeOutlinePoints(std::span<const StrokePoint> points, const Options& options) {
  if (points.empty() || !(options.size > 0)) return {};
  return Outliner(points, options).outline();
}

std::vector<Point> PerfectFreehand::drawDot(Point center, double radius) {
  std::vector<Point> outline;
  outline.reserve(startCapSegments);
  for (int i = 1; i <= startCapSegments; ++i) {
    outline.push_back(vec::add(center, vec::polar(halfTurn * 2 * i / startCapSegments, radius)));
  }
  return outline;
}

}  // namespace vellora
