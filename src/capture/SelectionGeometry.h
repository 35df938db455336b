#pragma once

#include <array>
#include <optional>
#include <vector>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

/// The rules of rectangles drawn, moved and resized by hand; all in device pixels.
namespace vellora {

/// How a drag makes a rectangle.
struct DragShape {
  bool square = false;
  bool fromCenter = false;  ///< the anchor is the rectangle's middle pixel
};

/// The eight places a rectangle can be taken by, and its inside.
enum class Handle { TopLeft, Top, TopRight, Right, BottomRight, Bottom, BottomLeft, Left, Inside };

/// The rectangle from one pixel to another, both inside it, kept within `bounds` (which holds the anchor).
PixelRect rectangleBetween(PixelPoint anchor, PixelPoint pointer, DragShape shape, const PixelRect& bounds);

/// `rect` shifted as far as `bounds` lets it.
PixelRect movedWithin(const PixelRect& rect, int dx, int dy, const PixelRect& bounds);

/// `rect` with the edges of `handle` shifted; an edge pushed over its opposite one turns the rectangle inside out. At
/// least one pixel wide and high, within `bounds`.
PixelRect resized(const PixelRect& rect, Handle handle, int dx, int dy, const PixelRect& bounds);

/// The middles of the eight handles, in the order of Handle.
std::array<PixelPoint, 8> handleCenters(const PixelRect& rect);

/// What a press at `position` takes hold of: a handle within `reach`, else the inside, else nothing. On a small
/// rectangle the handles leave a third of each side for the inside.
std::optional<Handle> handleAt(const PixelRect& rect, PixelPoint position, int reach);

/// The nearest position inside `bounds`.
PixelPoint clampedTo(const PixelRect& bounds, PixelPoint position);

/// The index of the display that holds `position`, else of the nearest one; nothing when there is none.
std::optional<std::size_t> displayIndexAt(const std::vector<DisplayInfo>& displays, PixelPoint position);

/// The index of the display that shows most of `rect`; nothing when none shows any of it.
std::optional<std::size_t> displayIndexFor(const std::vector<DisplayInfo>& displays, const PixelRect& rect);

}  // namespace vellora
