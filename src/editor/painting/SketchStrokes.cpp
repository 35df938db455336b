#include "editor/painting/SketchStrokes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "editor/painting/ShapeGeometry.h"
#include "editor/painting/SketchRandom.h"
#include "editor/painting/Vector.h"

namespace vellora {
namespace {

constexpr double pi = std::numbers::pi;

double smoothStep(double part) {
  const double x = std::clamp(part, 0.0, 1.0);
  return x * x * (3 - 2 * x);
}

/// How a pen presses along one stroke: it lands, travels with a slow tremor, and lifts.
struct Pressing {
  double width = 1;      ///< of the line at full pressure
  double landing = 0.8;  ///< part of the width at the start
  double landingLength = 0;
  double lifting = 0.55;  ///< part of the width at the end
  double liftingLength = 0;
  double tremor = 0.07;
  double tremorLength = 1;
};

/// Half widths along `points`. `weight` (one for each point, or empty) multiplies them.
std::vector<double> pressed(const std::vector<Point>& points, const Pressing& pressing, SketchRandom& random,
                            const std::vector<double>& weight = {}) {
  std::vector<double> along{0};
  along.reserve(points.size());
  for (std::size_t i = 1; i < points.size(); ++i) {
    along.push_back(along.back() + vec::distance(points[i - 1], points[i]));
  }
  const Tremor tremor(random);
  std::vector<double> halfWidths;
  halfWidths.reserve(points.size());
  for (std::size_t i = 0; i < points.size(); ++i) {
    double part = 1 + pressing.tremor * tremor.at(along[i] / pressing.tremorLength);
    if (pressing.landingLength > 0) {
      part *= pressing.landing + (1 - pressing.landing) * smoothStep(along[i] / pressing.landingLength);
    }
    if (pressing.liftingLength > 0) {
      const double left = along.back() - along[i];
      part *= pressing.lifting + (1 - pressing.lifting) * smoothStep(left / pressing.liftingLength);
    }
    if (!weight.empty()) part *= weight[i];
    halfWidths.push_back(pressing.width / 2 * part);
  }
  return halfWidths;
}

/// A flick of an arrow's head: from the tip outwards, a little curved, lifting.
InkStroke flick(Point tip, double direction, double length, double hollow, double width, SketchRandom& random) {
  constexpr int steps = 8;
  const Point end = vec::add(tip, vec::polar(direction, length));
  const Point control = vec::add(vec::mix(tip, end, 0.5), vec::polar(direction + pi / 2, hollow * length));
  InkStroke stroke;
  for (int i = 0; i <= steps; ++i) stroke.points.push_back(vec::quadratic(tip, control, end, i / double(steps)));
  stroke.halfWidths = pressed(
      stroke.points,
      {.width = width, .lifting = 0.62, .liftingLength = length * 0.8, .tremor = 0.03, .tremorLength = length}, random);
  return stroke;
}

/// A corner of a box and how its two sides run into it.
struct Corner {
  Point point;
  double radius;
};

class BoxPen {
 public:
  BoxPen(const Rect& rect, double lineWidth, SketchRandom& random)
      : rect_(rect), width_(lineWidth), random_(random), shorter_(std::min(rect.size.width, rect.size.height)) {
    const double radius = std::min(1.5 * width_ + 3, 0.3 * shorter_);
    const double reach = std::min(0.45 * width_ + 0.7, 0.03 * shorter_ + 0.2);
    const std::array<Point, 4> plain{
        rect.origin, {rect.maxX(), rect.minY()}, {rect.maxX(), rect.maxY()}, {rect.minX(), rect.maxY()}};
    for (std::size_t i = 0; i < 4; ++i) {
      corners_[i] = {{plain[i].x + random.around(reach), plain[i].y + random.around(reach)},
                     radius * random.between(0.75, 1.25)};
    }
  }

  Sketch draw() {
    // The stroke begins before the first corner and ends beyond it, crossing its own start.
    const double before = overshoot(rect_.size.width) * random_.between(0.35, 1.1);
    const double beyond = overshoot(rect_.size.height) * random_.between(0.7, 1.5);
    const Point start = corners_[0].point;
    const Point away = vec::unit(vec::sub(corners_[1].point, start));
    side({start.x - away.x * before, start.y - away.y * before + random_.around(0.2 * width_)}, toward(1, 0));
    for (std::size_t i = 1; i < 4; ++i) {
      round(i);
      const std::size_t next = (i + 1) % 4;
      if (next != 0) side(toward(i, next), toward(next, i));
    }
    const Point home = vec::unit(vec::sub(start, corners_[3].point));
    const Point end{start.x + home.x * beyond + random_.around(0.35 * width_), start.y + home.y * beyond};
    side(toward(3, 0), end);

    Sketch sketch;
    sketch.ground = points_;
    sketch.ground.front() = sketch.ground.back() = start;
    InkStroke stroke{.points = std::move(points_), .halfWidths = {}};
    stroke.halfWidths = pressed(stroke.points,
                                {.width = width_,
                                 .landing = 0.8,
                                 .landingLength = 3 * width_ + 6,
                                 .lifting = 0.62,
                                 .liftingLength = 3 * width_ + 8,
                                 .tremor = 0.07,
                                 .tremorLength = 40 * width_ + 60},
                                random_, weight_);
    sketch.strokes.push_back(std::move(stroke));
    return sketch;
  }

 private:
  double overshoot(double along) const { return std::min(0.85 * width_ + 2.4, 0.16 * along); }

  /// The place near corner `from` where its rounding gives way to the side towards `to`.
  Point toward(std::size_t from, std::size_t to) const {
    const Point a = corners_[from].point;
    const Point b = corners_[to].point;
    const double length = vec::distance(a, b);
    return vec::mix(a, b, std::min(corners_[from].radius, 0.45 * length) / std::max(length, 1e-9));
  }

  /// A side, bowed a little; the hand is fastest, and the line thinnest, in the middle.
  void side(Point from, Point to) {
    const double length = vec::distance(from, to);
    const int steps = static_cast<int>(std::clamp(length / (3 * width_ + 10), 3.0, 16.0));
    const Point across = vec::rightOf(vec::unit(vec::sub(to, from)));
    const double bow = random_.around(1) * std::min(0.5 * width_ + 0.8, 0.012 * length);
    const double sway = random_.around(1) * std::min(0.25 * width_ + 0.4, 0.006 * length);
    for (int i = 0; i <= steps; ++i) {
      const double part = i / double(steps);
      const double offset = bow * std::sin(pi * part) + sway * std::sin(2 * pi * part);
      points_.push_back(vec::add(vec::mix(from, to, part), vec::mul(across, offset)));
      weight_.push_back(1.03 - 0.11 * std::sin(pi * part));
    }
  }

  void round(std::size_t corner) {
    constexpr int steps = 6;
    const Point from = toward(corner, corner - 1);
    const Point to = toward(corner, (corner + 1) % 4);
    for (int i = 1; i < steps; ++i) {
      points_.push_back(vec::quadratic(from, corners_[corner].point, to, i / double(steps)));
      weight_.push_back(1.05);
    }
  }

  const Rect rect_;
  const double width_;
  SketchRandom& random_;
  const double shorter_;
  std::array<Corner, 4> corners_{};
  std::vector<Point> points_;
  std::vector<double> weight_;
};

}  // namespace

Sketch sketchArrow(const Measures& arrow, std::uint64_t seed) {
  SketchRandom random(seed);
  const double width = arrow.lineWidth;
  const double length = vec::distance(arrow.p1, arrow.p2);
  const double factor = arrowLengthFactor(arrow.p1, arrow.p2);
  const double inkWidth = std::max(width * (0.5 + 0.5 * factor), 1.0);
  const Point forward = vec::unit(vec::sub(arrow.p2, arrow.p1));
  const Point across = vec::rightOf(forward);

  const double bow = random.sign() * random.between(0.5, 1) * std::min(0.05 * length, 2.4 * width + 3);
  const Point bend = arrow.control.value_or(vec::add(vec::mix(arrow.p1, arrow.p2, 0.5), vec::mul(across, bow)));
  const double headLength = std::max((3.9 * width + 10) * (0.35 + 0.65 * factor), 6.0);
  const double path = vec::distance(arrow.p1, bend) + vec::distance(bend, arrow.p2);
  // The head sits evenly on the shaft's last stretch, however bent it is.
  const double underHead = std::min(0.25, 0.5 * headLength / std::max(path, 1.0));
  const Point arrival = vec::sub(arrow.p2, vec::quadratic(arrow.p1, bend, arrow.p2, 1 - underHead));
  const double direction = std::atan2(arrival.y, arrival.x);
  // The ink is round: it reaches the tip with its outside.
  const Point tip = vec::sub(arrow.p2, vec::polar(direction, inkWidth / 2));

  Sketch sketch;
  InkStroke shaft;
  const int steps = static_cast<int>(std::clamp(path / (3 * width + 8), 6.0, 40.0));
  const double sway = random.around(1) * std::min(0.3 * width, 0.008 * length);
  for (int i = 0; i <= steps; ++i) {
    const double part = i / double(steps);
    const Point on = vec::quadratic(arrow.p1, bend, tip, part);
    shaft.points.push_back(vec::add(on, vec::mul(across, sway * std::sin(2 * pi * part))));
  }
  shaft.halfWidths = pressed(shaft.points,
                             {.width = inkWidth,
                              .landing = 0.72,
                              .landingLength = std::min(0.35 * path, 14 * width),
                              .lifting = 0.85,
                              .liftingLength = std::min(0.3 * path, 8 * width),
                              .tremor = 0.05,
                              .tremorLength = 40 * width + 60},
                             random);
  sketch.strokes.push_back(std::move(shaft));

  const double opening = random.between(0.47, 0.55);
  for (const double side : {-1.0, 1.0}) {
    const double reach = headLength * random.between(0.94, 1.06);
    const double angle = direction + pi + side * (opening + random.around(0.035));
    sketch.strokes.push_back(
        flick(tip, angle, reach, side * random.between(0.03, 0.09), inkWidth * random.between(0.95, 1.02), random));
  }
  return sketch;
}

Sketch sketchBox(const Measures& box, std::uint64_t seed) {
  SketchRandom random(seed);
  return BoxPen(box.rect(), box.lineWidth, random).draw();
}

Sketch sketchEllipse(const Measures& ellipse, std::uint64_t seed) {
  SketchRandom random(seed);
  const Rect rect = ellipse.rect();
  const double width = ellipse.lineWidth;
  const Point center{rect.minX() + rect.size.width / 2, rect.minY() + rect.size.height / 2};
  const Point radius{rect.size.width / 2, rect.size.height / 2};
  const double shorter = std::min(radius.x, radius.y);
  const double perimeter = pi * (radius.x + radius.y);

  // Anticlockwise from the upper right, as most hands do.
  const double start = -pi / 2 + random.between(0.05, 0.9);
  const double past = std::clamp(random.between(3.5, 6.5) * (width + 2) / std::max(perimeter, 1.0) * 2 * pi, 0.12, 0.6);
  const double sweep = 2 * pi + past;
  // One end runs inside, the other outside.
  const double apart =
      std::min(1.05 * width + 0.8, 0.22 * shorter) * random.between(0.8, 1.15) * (random.part() < 0.7 ? 1 : -1);
  const double egg = random.around(std::min(0.5 * width + 0.5, 0.02 * shorter));
  const double eggAt = random.between(0, 2 * pi);
  const double tilt = random.around(std::min(0.5 * width + 0.5, 0.025 * shorter));
  const double tiltAt = random.between(0, 2 * pi);

  const auto angleAt = [&](double part) { return start - sweep * part; };
  const auto outwardsAt = [&](double part) {
    const double angle = angleAt(part);
    const double drift = apart * (1.1 * smoothStep((part - 0.72) / 0.28) - 0.55 * (1 - smoothStep(part / 0.22)));
    return drift + egg * std::cos(angle - eggAt) + tilt * std::cos(2 * (angle - tiltAt));
  };
  const auto pointAt = [&](double angle, double outwards) {
    return Point{center.x + std::cos(angle) * (radius.x + outwards),
                 center.y + std::sin(angle) * (radius.y + outwards)};
  };
  const int steps = static_cast<int>(std::clamp(perimeter / (4 * width + 8), 28.0, 72.0));
  const double turn = 2 * pi / sweep;
  const double overlap = 1 - turn;
  Sketch sketch;
  InkStroke stroke;
  for (int i = 0; i <= steps; ++i) {
    const double part = i / double(steps);
    const double outwards = outwardsAt(part);
    stroke.points.push_back(pointAt(angleAt(part), outwards));
    if (part >= turn) continue;
    // Where the ends run beside each other the ground goes over from one to the other.
    const double own = smoothStep(part / overlap);
    sketch.ground.push_back(pointAt(angleAt(part), std::lerp(outwardsAt(std::min(part + turn, 1.0)), outwards, own)));
  }
  stroke.halfWidths = pressed(stroke.points,
                              {.width = width,
                               .landing = 0.6,
                               .landingLength = std::min(9 * width, 0.2 * perimeter),
                               .lifting = 0.45,
                               .liftingLength = std::min(12 * width, 0.25 * perimeter),
                               .tremor = 0.09,
                               .tremorLength = std::max(0.5 * perimeter, 1.0)},
                              random);
  sketch.strokes.push_back(std::move(stroke));
  return sketch;
}

}  // namespace vellora
