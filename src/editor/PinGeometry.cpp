#include "editor/PinGeometry.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace vellora::PinGeometry {
namespace {

bool isPicture(Size size) {
  return size.width > 0 && size.height > 0 && std::isfinite(size.width) && std::isfinite(size.height);
}

double fit(Size image, Size available) {
  return std::min(available.width / image.width, available.height / image.height);
}

double clampedScale(double scale, ScaleBounds bounds) {
  if (std::isnan(scale)) return std::clamp(1.0, bounds.lower, bounds.upper);
  return std::clamp(scale, bounds.lower, bounds.upper);
}

}  // namespace

double minimumScale(Size image) {
  if (!isPicture(image)) return 1;
  const double longSide = std::max(image.width, image.height);
  const double shortSide = std::min(image.width, image.height);
  return std::min(std::max(leastLongSide / longSide, leastShortSide / shortSide), 1.0);
}

ScaleBounds scaleBounds(Size image) {
  return {minimumScale(image), maximumScale};
}

ScaleBounds pinchBounds(Size image, Size screen) {
  const double least = minimumScale(image);
  const double upper = isPicture(image) ? fit(image, screen) : 0;
  if (!(upper > 0)) return {least, least};
  return {std::min(upper, least), upper};
}

double initialScale(Size image, double requested, Size available) {
  if (!isPicture(image)) return 1;
  double scale = std::min(fit(image, available), maximumScale);
  if (requested < scale) scale = requested;
  const double least = minimumScale(image);
  return scale > least ? scale : least;
}

double snapped(double scale) {
  struct Snap {
    double scale;
    double reach;
  };
  // 1 - 0.96 is more than 0.04 in binary: a scale a person sees as 96 % is meant to snap.
  constexpr double rounding = 1e-9;
  for (const Snap snap : std::array<Snap, 3>{{{0.5, 0.02}, {1, 0.04}, {2, 0.08}}}) {
    if (std::abs(scale - snap.scale) <= snap.reach + rounding) return snap.scale;
  }
  return scale;
}

double resolveScale(Size proposed, Size image, double current) {
  if (!isPicture(image)) return current;
  const double byWidth = proposed.width / image.width;
  const double byHeight = proposed.height / image.height;
  const bool heightMoved = std::abs(byHeight - current) > std::abs(byWidth - current);
  return snapped(clampedScale(heightMoved ? byHeight : byWidth, scaleBounds(image)));
}

Size windowSize(Size image, double scale) {
  return {std::max(1.0, std::round(image.width * scale)), std::max(1.0, std::round(image.height * scale))};
}

Point center(const Rect& frame) {
  return {frame.minX() + frame.size.width / 2, frame.minY() + frame.size.height / 2};
}

Rect centered(Size size, Point center) {
  return {{center.x - size.width / 2, center.y - size.height / 2}, size};
}

Rect movedInside(Rect frame, const Rect& visible) {
  frame.origin.x = std::max(std::min(frame.minX(), visible.maxX() - frame.size.width), visible.minX());
  frame.origin.y = std::max(std::min(frame.minY(), visible.maxY() - frame.size.height), visible.minY());
  return frame;
}

ScaledFrame setScale(double scale, ScaleBounds bounds, Size image, const Rect& frame, const Rect& visible) {
  const double clamped = clampedScale(scale, bounds);
  return {clamped, movedInside(centered(windowSize(image, clamped), center(frame)), visible)};
}

ChromeTier chromeTier(double width) {
  const double usable = width - 2 * chromeInset;
  if (usable >= 158) return ChromeTier::Full;
  if (usable >= 115) return ChromeTier::NoReadout;
  if (usable >= 88) return ChromeTier::CopyEdit;
  if (usable >= 61) return ChromeTier::CopyOnly;
  return ChromeTier::CloseOnly;
}

}  // namespace vellora::PinGeometry
