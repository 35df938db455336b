#include "editor/canvas/DrawGestures.h"

#include <algorithm>
#include <numbers>

#include "editor/canvas/AnnotationGeometry.h"
#include "editor/canvas/PlaneGeometry.h"

namespace vellora {

using namespace geometry;

namespace {

using Kind = Annotation::Kind;

constexpr double usualLens = 140;       // document points
constexpr double leastDrawn = 3;        // screen points
constexpr double sampleSpacing = 0.25;  // screen points
constexpr double straightSpacing = 5;   // screen points, between the samples of a straight part
constexpr double lockAngle = std::numbers::pi / 26;
constexpr std::size_t mostSamples = 100'000;
constexpr double leastTextWidth = 24;  // screen points a drag needs to mean a width

bool isStroke(Kind kind) {
  return kind == Kind::Arrow || kind == Kind::Line;
}

/// The opposite corner of the square that reaches as far as `to`.
Point squareCorner(Point from, Point to) {
  const double side = std::max(std::abs(to.x - from.x), std::abs(to.y - from.y));
  return {from.x + std::copysign(side, to.x - from.x), from.y + std::copysign(side, to.y - from.y)};
}

bool hasRealPressure(const std::vector<double>& pressures) {
  return std::ranges::any_of(pressures, [](double pressure) { return std::abs(pressure - 0.5) > 0.01; });
}

}  // namespace

void place(ImageDocument& document, const Annotation& annotation) {
  const auto index = document.indexOf(annotation.id);
  if (index) {
    document.annotations[*index] = makeAnnotation(annotation);
  } else {
    document.annotations.push_back(makeAnnotation(annotation));
  }
}

ShapeGesture::ShapeGesture(GestureState start, Annotation prototype, const PointerEvent& press)
    : Gesture(std::move(start)), prototype_(std::move(prototype)), from_(press.position) {}

void ShapeGesture::drag(const PointerEvent& event) {
  Annotation drawn = prototype_;
  Point to = event.position;
  if (event.modifiers.shift) to = isStroke(drawn.kind) ? inStepsOf45(from_, to) : squareCorner(from_, to);
  drawn.p1 = event.modifiers.alt ? difference(scaled(from_, 2), to) : from_;
  drawn.p2 = to;
  state_ = start_;
  const Rect spanned = spannedRect(drawn);
  if (!(std::max(spanned.size.width, spanned.size.height) >= leastDrawn * event.pointsPerScreenPoint)) return;
  place(state_.document, drawn);
  state_.drawn = drawn.id;
  state_.selection = {drawn.id};
  state_.piece.reset();
}

void ShapeGesture::click(const PointerEvent&) {
  if (prototype_.kind != Kind::Magnifier) return;
  Annotation lens = prototype_;
  lens.p1 = {from_.x - usualLens / 2, from_.y - usualLens / 2};
  lens.p2 = {from_.x + usualLens / 2, from_.y + usualLens / 2};
  place(state_.document, lens);
  state_.drawn = lens.id;
  state_.selection = {lens.id};
  state_.piece.reset();
}

PenGesture::PenGesture(GestureState start, Annotation prototype, const PointerEvent& press)
    : Gesture(std::move(start)), stroke_(std::move(prototype)) {
  state_.selection.clear();
  state_.piece.reset();
  state_.drawn = stroke_.id;
  add(press.position, press.pressure, 0);
  show();
}

void PenGesture::drag(const PointerEvent& event) {
  const double unit = event.pointsPerScreenPoint;
  if (event.modifiers.shift) {
    if (!straightFrom_) straightFrom_ = points_.size();
    points_.resize(*straightFrom_);
    pressures_.resize(*straightFrom_);
    const Point locked = inStepsOf45(points_.back(), event.position);
    const double way = distance(points_.back(), event.position);
    const bool isNearStep = distance(locked, event.position) <= way * std::sin(lockAngle);
    addStraightTo(isNearStep ? locked : event.position, event.pressure, straightSpacing * unit);
  } else {
    straightFrom_.reset();
    add(event.position, event.pressure, sampleSpacing * unit);
  }
  show();
}

void PenGesture::add(Point place, double pressure, double least) {
  if (!isFinite(place) || !std::isfinite(pressure) || points_.size() >= mostSamples) return;
  pressure = std::clamp(pressure, 0.0, 1.0);
  if (!points_.empty() && !(distance(points_.back(), place) > least)) {
    pressures_.back() = std::max(pressures_.back(), pressure);
    return;
  }
  points_.push_back(place);
  pressures_.push_back(pressure);
}

/// In short steps: smoothing would draw a far sample back to where the stroke was.
void PenGesture::addStraightTo(Point place, double pressure, double spacing) {
  const Point from = points_.back();
  constexpr double mostSteps = 2000;
  const double steps = std::floor(std::min(distance(from, place) / spacing, mostSteps));
  for (double i = 1; i < steps; ++i) add(sum(from, scaled(difference(place, from), i / steps)), pressure, 0);
  add(place, pressure, 0);
}

void PenGesture::show() {
  if (points_.empty()) return;
  stroke_.p1 = points_.front();
  stroke_.p2 = points_.back();
  stroke_.penPoints = points_;
  stroke_.penPressures = hasRealPressure(pressures_) ? std::optional(pressures_) : std::nullopt;
  vellora::place(state_.document, stroke_);
}

CounterGesture::CounterGesture(GestureState start, Annotation prototype, const PointerEvent& press)
    : Gesture(std::move(start)), counter_(std::move(prototype)) {
  counter_.p1 = press.position;
  counter_.p2 = press.position;
  state_.drawn = counter_.id;
  state_.selection = {counter_.id};
  state_.piece.reset();
  place(state_.document, counter_);
}

void CounterGesture::drag(const PointerEvent& event) {
  Annotation turned = counter_;
  // Close to the middle every tremble would turn it.
  if (distance(event.position, counter_.p1) > counterRadius(counter_) / 2) {
    const Point aim = event.modifiers.shift ? inStepsOf45(counter_.p1, event.position) : event.position;
    turned.tailAngle = std::atan2(aim.y - counter_.p1.y, aim.x - counter_.p1.x);
  }
  place(state_.document, turned);
}

TextGesture::TextGesture(GestureState start, Annotation prototype, const PointerEvent& press, TextMeasurer& measurer)
    : Gesture(std::move(start)), prototype_(std::move(prototype)), from_(press.position), measurer_(measurer) {}

void TextGesture::drag(const PointerEvent& event) {
  const Rect area = rectBetween(from_, event.position);
  state_.marquee = area;
  if (area.size.width < leastTextWidth * event.pointsPerScreenPoint) {
    click(event);
    return;
  }
  Annotation text = prototype_;
  text.p1 = area.origin;
  text.p2 = text.p1;
  const double padding = 2 * textPadding(text);
  text.textBoxWidth = std::max(area.size.width - padding, textFontSize(text.lineWidth));
  state_.typing = text;
}

void TextGesture::click(const PointerEvent&) {
  Annotation text = prototype_;
  // The first line stands around the place clicked.
  text.p1 = {from_.x - textPadding(text), from_.y - measurer_.boxSize(text).height / 2};
  text.p2 = text.p1;
  state_.typing = text;
}

}  // namespace vellora
