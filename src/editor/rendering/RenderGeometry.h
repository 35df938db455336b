#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

#include <QRect>
#include <QTransform>

#include "base/Geometry.h"

namespace vellora {

/// Positions beyond this, in points, are taken for damage. Far beyond what a stored document may hold: what is left out
/// of a picture could be what hides something.
inline constexpr double furthestPosition = 1e8;

inline bool isPlausible(const Rect& rect) {
  const auto within = [](double value) { return std::abs(value) <= furthestPosition; };  // false for NaN
  return !rect.isEmpty() && within(rect.minX()) && within(rect.minY()) && within(rect.maxX()) && within(rect.maxY());
}

inline QRectF toQRectF(const Rect& rect) {
  return {rect.minX(), rect.minY(), rect.size.width, rect.size.height};
}

inline Rect fromQRectF(const QRectF& rect) {
  return {{rect.x(), rect.y()}, {rect.width(), rect.height()}};
}

inline bool meet(const Rect& a, const Rect& b) {
  return a.minX() < b.maxX() && b.minX() < a.maxX() && a.minY() < b.maxY() && b.minY() < a.maxY();
}

inline bool holds(const Rect& outer, const Rect& inner) {
  return outer.minX() <= inner.minX() && outer.maxX() >= inner.maxX() && outer.minY() <= inner.minY() &&
         outer.maxY() >= inner.maxY();
}

/// The common part; empty when there is none.
inline Rect common(const Rect& a, const Rect& b) {
  const double left = std::max(a.minX(), b.minX());
  const double top = std::max(a.minY(), b.minY());
  return {{left, top},
          {std::max(std::min(a.maxX(), b.maxX()) - left, 0.0), std::max(std::min(a.maxY(), b.maxY()) - top, 0.0)}};
}

inline Rect grown(const Rect& rect, double by) {
  return {{rect.minX() - by, rect.minY() - by}, {rect.size.width + 2 * by, rect.size.height + 2 * by}};
}

/// A map from document points to device pixels that scales and moves only.
struct DeviceMap {
  double scaleX = 1;
  double scaleY = 1;
  double dx = 0;
  double dy = 0;

  explicit DeviceMap(const QTransform& transform)
      : scaleX(transform.m11()), scaleY(transform.m22()), dx(transform.dx()), dy(transform.dy()) {}

  bool isPlausible() const {
    return scaleX > 0 && scaleY > 0 && scaleX < 1e6 && scaleY < 1e6 && std::abs(dx) < 1e12 && std::abs(dy) < 1e12;
  }
  double x(double value) const { return value * scaleX + dx; }
  double y(double value) const { return value * scaleY + dy; }
};

inline int toPixel(double value) {
  return static_cast<int>(std::clamp(value, -1e9, 1e9));
}

/// All pixels `rect` touches, beyond rounding errors.
inline QRect touchedPixels(const Rect& rect, const DeviceMap& map) {
  constexpr double noise = 1e-6;
  const QPoint first(toPixel(std::floor(map.x(rect.minX()) + noise)), toPixel(std::floor(map.y(rect.minY()) + noise)));
  const QPoint end(toPixel(std::ceil(map.x(rect.maxX()) - noise)), toPixel(std::ceil(map.y(rect.maxY()) - noise)));
  return {first, end - QPoint(1, 1)};
}

/// The place of a picture on the device: snapped to whole pixels, so that an unscaled one is copied.
struct PixelPlacement {
  std::int64_t left = 0;
  std::int64_t top = 0;
  std::int64_t width = 1;
  std::int64_t height = 1;

  PixelPlacement(const Rect& rect, const DeviceMap& map)
      : left(std::llround(std::floor(map.x(rect.minX()) + 0.5))),
        top(std::llround(std::floor(map.y(rect.minY()) + 0.5))),
        width(std::max<std::int64_t>(std::llround(rect.size.width * map.scaleX), 1)),
        height(std::max<std::int64_t>(std::llround(rect.size.height * map.scaleY), 1)) {}

  /// The part inside `clip`.
  QRect within(const QRect& clip) const {
    const std::int64_t x0 = std::max<std::int64_t>(left, clip.left());
    const std::int64_t y0 = std::max<std::int64_t>(top, clip.top());
    const std::int64_t x1 = std::min<std::int64_t>(left + width, std::int64_t{clip.left()} + clip.width());
    const std::int64_t y1 = std::min<std::int64_t>(top + height, std::int64_t{clip.top()} + clip.height());
    if (x1 <= x0 || y1 <= y0) return {};
    return {static_cast<int>(x0), static_cast<int>(y0), static_cast<int>(x1 - x0), static_cast<int>(y1 - y0)};
  }
};

}  // namespace vellora
