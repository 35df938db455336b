#include "editor/PinModel.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "editor/PinSnapping.h"

namespace vellora {
namespace {

constexpr double keptInView = 24;  // how much of a nudged picture stays on its screen, in points

double overlap(const Rect& a, const Rect& b) {
  const double width = std::min(a.maxX(), b.maxX()) - std::max(a.minX(), b.minX());
  const double height = std::min(a.maxY(), b.maxY()) - std::max(a.minY(), b.minY());
  return width > 0 && height > 0 ? width * height : 0;
}

Point operator-(Point a, Point b) {
  return {a.x - b.x, a.y - b.y};
}
Point operator+(Point a, Point b) {
  return {a.x + b.x, a.y + b.y};
}

bool isFinite(Point p) {
  return std::isfinite(p.x) && std::isfinite(p.y);
}

/// Where the window of a picture at `frame` is: windows begin at whole points.
Point windowOrigin(const Rect& frame) {
  return {std::round(frame.minX()), std::round(frame.minY())};
}

}  // namespace

const PinScreen* PinModel::screenNamed(const QString& name) const {
  const auto found = std::ranges::find(screens_, name, &PinScreen::name);
  return found == screens_.end() ? nullptr : &*found;
}

const PinScreen* PinModel::screen() const {
  return screenNamed(screenName_);
}

Rect PinModel::visibleFrame() const {
  constexpr double anywhere = 1e6;
  const PinScreen* const on = screen();
  return on != nullptr ? on->visibleFrame : Rect{{-anywhere, -anywhere}, {2 * anywhere, 2 * anywhere}};
}

void PinModel::setFrame(const Rect& frame) {
  frame_ = frame;
  double most = 0;
  for (const PinScreen& candidate : screens_) {
    const double common = overlap(candidate.frame, frame_);
    if (common <= most) continue;
    most = common;
    screenName_ = candidate.name;
  }
}

void PinModel::place(std::vector<PinScreen> screens, const QString& screen, double requestedScale,
                     std::optional<Point> center) {
  screens_ = std::move(screens);
  screenName_ = screenNamed(screen) == nullptr && !screens_.empty() ? screens_.front().name : screen;
  const Rect visible = visibleFrame();
  const double wanted = PinGeometry::initialScale(imageSize_, requestedScale, visible.size);
  const Point middle = center && isFinite(*center) ? *center : PinGeometry::center(visible);
  const auto placed = PinGeometry::setScale(wanted, scaleBounds(), imageSize_, {middle, {}}, visible);
  scale_ = placed.scale;
  frame_ = placed.frame;
  if (scale_ != 1) otherScale_ = scale_;
}

void PinModel::screensChanged(std::vector<PinScreen> screens) {
  if (screens.empty() || screens == screens_) return;
  std::optional<PinScreen> before;
  if (const PinScreen* const on = screen()) before = *on;
  screens_ = std::move(screens);
  if (!before || comeHome()) return;
  if (const PinScreen* const now = screen()) {
    followScreen(*before, *now);
  } else {
    leaveLostScreen(*before);
  }
}

bool PinModel::comeHome() {
  if (!away_) return false;
  const PinScreen* const home = screenNamed(away_->screen.name);
  if (home == nullptr) return false;
  const Away away = *std::exchange(away_, std::nullopt);
  if (windowOrigin(frame_) != windowOrigin(away.waiting) || frame_.size != away.waiting.size) return false;
  screenName_ = home->name;
  scale_ = away.scale;
  frame_ = {away.frame.origin + (home->frame.origin - away.screen.frame.origin), away.frame.size};
  followScreen(*home, *home);
  return true;
}

void PinModel::leaveLostScreen(const PinScreen& lost) {
  if (!away_) away_ = Away{lost, frame_, scale_, {}};
  const Point from = PinGeometry::center(lost.frame);
  const PinScreen* nearest = nullptr;
  double least = std::numeric_limits<double>::infinity();
  for (const PinScreen& candidate : screens_) {
    const Point to = PinGeometry::center(candidate.frame);
    const double distance = std::hypot(to.x - from.x, to.y - from.y);
    if (distance >= least) continue;
    least = distance;
    nearest = &candidate;
  }
  if (nearest == nullptr) return;
  screenName_ = nearest->name;
  frame_.origin = frame_.origin + (nearest->visibleFrame.origin - lost.visibleFrame.origin);
  setScale(scale_);
  away_->waiting = frame_;
}

void PinModel::followScreen(const PinScreen& before, const PinScreen& now) {
  const bool waits = away_ && away_->waiting == frame_;
  const bool wasInside = PinGeometry::movedInside(frame_, before.visibleFrame) == frame_;
  frame_.origin = frame_.origin + (now.frame.origin - before.frame.origin);
  const double most = scaleBounds().upper;
  if (scale_ > most) {
    setScale(most);
  } else if (wasInside) {
    frame_ = PinGeometry::movedInside(frame_, now.visibleFrame);
  } else {
    nudge({});
  }
  if (waits) away_->waiting = frame_;
}

PinGeometry::ScaleBounds PinModel::scaleBounds() const {
  PinGeometry::ScaleBounds bounds = PinGeometry::scaleBounds(imageSize_);
  const PinScreen* const on = screen();
  if (on == nullptr) return bounds;
  const auto fitting = PinGeometry::pinchBounds(imageSize_, on->frame.size);
  return {std::min(bounds.lower, fitting.lower), std::min(bounds.upper, fitting.upper)};
}

void PinModel::setScale(double scale) {
  applyScale(scale, scaleBounds());
}

void PinModel::applyScale(double scale, const PinGeometry::ScaleBounds& bounds) {
  const auto next = PinGeometry::setScale(scale, bounds, imageSize_, frame_, visibleFrame());
  scale_ = next.scale;
  rawScale_.reset();
  setFrame(next.frame);
}

void PinModel::zoomBy(double factor) {
  if (!(factor > 0) || !std::isfinite(factor)) return;
  auto bounds = scaleBounds();
  bounds.upper = std::max(bounds.upper, scale_);  // a pinch may have gone farther
  const double raw = std::clamp(rawScale_.value_or(scale_) * factor, bounds.lower, bounds.upper);
  applyScale(PinGeometry::snapped(raw), bounds);
  rawScale_ = raw;
}

void PinModel::toggleActualSize() {
  if (scale_ == 1) {
    setScale(otherScale_);
  } else {
    otherScale_ = scale_;
    setScale(1);
  }
}

void PinModel::beginPinch() {
  pinch_ = Pinch{PinGeometry::center(frame_), std::nullopt};
}

void PinModel::pinch(double magnification) {
  const PinScreen* const on = screen();
  if (!pinch_ || on == nullptr || !std::isfinite(magnification)) return;
  const auto bounds = PinGeometry::pinchBounds(imageSize_, on->frame.size);
  scale_ = std::clamp(scale_ * (1 + magnification), bounds.lower, bounds.upper);
  rawScale_.reset();
  const double target = PinGeometry::snapped(scale_);
  pinch_->snapTarget = target != scale_ ? std::optional(target) : std::nullopt;
  setFrame(PinGeometry::centered(PinGeometry::windowSize(imageSize_, scale_), pinch_->center));
}

void PinModel::endPinch() {
  if (!pinch_) return;
  const Pinch ended = *std::exchange(pinch_, std::nullopt);
  if (ended.snapTarget) {
    setScale(*ended.snapTarget);
  } else {
    setFrame(PinGeometry::movedInside(frame_, visibleFrame()));
  }
}

void PinModel::beginResize(PinEdges edges) {
  resize_ = Resize{edges, frame_, scale_};
}

void PinModel::resize(Point pulled) {
  if (!resize_ || !isFinite(pulled)) return;
  const auto& [edges, start, startScale] = *resize_;
  Size proposed = start.size;
  if (edges.right) proposed.width += pulled.x;
  if (edges.left) proposed.width -= pulled.x;
  if (edges.bottom) proposed.height += pulled.y;
  if (edges.top) proposed.height -= pulled.y;
  scale_ = std::min(PinGeometry::resolveScale(proposed, imageSize_, startScale), scaleBounds().upper);
  rawScale_.reset();
  Rect next{start.origin, PinGeometry::windowSize(imageSize_, scale_)};
  if (edges.left) next.origin.x = start.maxX() - next.size.width;
  if (edges.top) next.origin.y = start.maxY() - next.size.height;
  setFrame(next);
}

void PinModel::moveTo(Point origin, std::span<const Rect> others, bool snapping) {
  if (!isFinite(origin)) return;
  Rect next{origin, frame_.size};
  if (snapping) {
    std::vector<Rect> areas;
    areas.reserve(screens_.size());
    for (const PinScreen& area : screens_) areas.push_back(area.visibleFrame);
    next = snappedToEdges(next, areas, others);
  }
  setFrame(next);
}

void PinModel::nudge(Point by) {
  if (!isFinite(by)) return;
  const Rect visible = visibleFrame();
  const double kept = std::min({keptInView, frame_.size.width, frame_.size.height});
  const auto within = [kept](double at, double length, double low, double high) {
    return std::min(std::max(at, low + kept - length), high - kept);
  };
  Rect next = frame_;
  next.origin.x = within(frame_.minX() + by.x, frame_.size.width, visible.minX(), visible.maxX());
  next.origin.y = within(frame_.minY() + by.y, frame_.size.height, visible.minY(), visible.maxY());
  setFrame(next);
}

void PinModel::movedElsewhere(Point origin, bool settling) {
  if (!isFinite(origin) || origin == windowOrigin(frame_)) return;
  const bool waits = away_ && away_->waiting == frame_;
  setFrame({origin, frame_.size});
  if (waits && settling) away_->waiting = frame_;
}

void PinModel::setOpacity(double opacity) {
  if (std::isfinite(opacity)) opacity_ = std::clamp(opacity, leastOpacity, 1.0);
}

}  // namespace vellora
