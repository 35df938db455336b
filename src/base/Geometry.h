#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace vellora {

/// A position in points, y growing downward.
struct Point {
  double x = 0;
  double y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A size in points.
struct Size {
  double width = 0;
  double height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

/// A rectangle in points, y growing downward; `origin` is its top-left corner.
struct Rect {
  Point origin;
  Size size;

  double minX() const { return origin.x; }
  double minY() const { return origin.y; }
  double maxX() const { return origin.x + size.width; }
  double maxY() const { return origin.y + size.height; }
  bool isEmpty() const { return !(size.width > 0 && size.height > 0); }

  /// The smallest rectangle that holds both.
  Rect united(const Rect& other) const {
    const double left = std::min(minX(), other.minX());
    const double top = std::min(minY(), other.minY());
    return {{left, top}, {std::max(maxX(), other.maxX()) - left, std::max(maxY(), other.maxY()) - top}};
  }
  friend bool operator==(const Rect&, const Rect&) = default;
};

/// A position in device pixels.
struct PixelPoint {
  int x = 0;
  int y = 0;
  friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// A size in device pixels.
struct PixelSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const PixelSize&, const PixelSize&) = default;
};

/// A rectangle in device pixels. On an X desktop the origin of the desktop space is the root window's corner.
struct PixelRect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  int right() const { return x + width; }    ///< one past the last column
  int bottom() const { return y + height; }  ///< one past the last row
  bool isEmpty() const { return width <= 0 || height <= 0; }
  PixelSize size() const { return {width, height}; }
  PixelPoint center() const { return {x + width / 2, y + height / 2}; }
  bool contains(PixelPoint p) const { return p.x >= x && p.y >= y && p.x < right() && p.y < bottom(); }
  PixelRect translated(int dx, int dy) const { return {x + dx, y + dy, width, height}; }

  /// The common part, empty (width and height 0) when there is none.
  PixelRect intersected(const PixelRect& other) const {
    const int left = std::max(x, other.x);
    const int top = std::max(y, other.y);
    // In 64 bits: rectangles from outside may reach beyond the range of int.
    const auto w = std::min(std::int64_t{x} + width, std::int64_t{other.x} + other.width) - left;
    const auto h = std::min(std::int64_t{y} + height, std::int64_t{other.y} + other.height) - top;
    if (w <= 0 || h <= 0) return {left, top, 0, 0};
    return {left, top, static_cast<int>(w), static_cast<int>(h)};
  }
  friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

}  // namespace vellora
