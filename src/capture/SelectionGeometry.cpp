#include "capture/SelectionGeometry.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace vellora {
namespace {

/// One axis of rectangleBetween: `reach` pixels on from the anchor, to the side of `sign`, or to both sides.
struct Span {
  int start;
  int length;
};

Span span(int anchor, int reach, int sign, bool fromCenter) {
  if (fromCenter) return {anchor - reach, 2 * reach + 1};
  return {sign < 0 ? anchor - reach : anchor, reach + 1};
}

int room(int anchor, int low, int high, int sign, bool fromCenter) {
  if (fromCenter) return std::min(anchor - low, high - 1 - anchor);
  return sign < 0 ? anchor - low : high - 1 - anchor;
}

bool movesLeft(Handle h) {
  return h == Handle::TopLeft || h == Handle::Left || h == Handle::BottomLeft;
}
bool movesRight(Handle h) {
  return h == Handle::TopRight || h == Handle::Right || h == Handle::BottomRight;
}
bool movesTop(Handle h) {
  return h == Handle::TopLeft || h == Handle::Top || h == Handle::TopRight;
}
bool movesBottom(Handle h) {
  return h == Handle::BottomLeft || h == Handle::Bottom || h == Handle::BottomRight;
}

/// Moves one or no edge of [start, end) and puts the two back in order.
Span resizedSpan(int start, int end, bool first, bool last, int delta, int low, int high) {
  if (first) start = std::clamp(start + delta, low, high);
  if (last) end = std::clamp(end + delta, low, high);
  if (start > end) std::swap(start, end);
  if (start == end) {
    if (end < high) {
      ++end;
    } else {
      --start;
    }
  }
  return {start, end - start};
}

std::int64_t area(const PixelRect& rect) {
  return std::int64_t{rect.width} * rect.height;
}

}  // namespace

PixelRect rectangleBetween(PixelPoint anchor, PixelPoint pointer, DragShape shape, const PixelRect& bounds) {
  const PixelPoint to = clampedTo(bounds, pointer);
  const int signX = to.x < anchor.x ? -1 : 1;
  const int signY = to.y < anchor.y ? -1 : 1;
  int reachX = std::abs(to.x - anchor.x);
  int reachY = std::abs(to.y - anchor.y);
  const int roomX = room(anchor.x, bounds.x, bounds.right(), signX, shape.fromCenter);
  const int roomY = room(anchor.y, bounds.y, bounds.bottom(), signY, shape.fromCenter);
  if (shape.square) reachX = reachY = std::min({std::max(reachX, reachY), roomX, roomY});
  reachX = std::min(reachX, roomX);
  reachY = std::min(reachY, roomY);
  const Span x = span(anchor.x, reachX, signX, shape.fromCenter);
  const Span y = span(anchor.y, reachY, signY, shape.fromCenter);
  return {x.start, y.start, x.length, y.length};
}

PixelRect movedWithin(const PixelRect& rect, int dx, int dy, const PixelRect& bounds) {
  const int x = std::clamp(rect.x + dx, bounds.x, std::max(bounds.x, bounds.right() - rect.width));
  const int y = std::clamp(rect.y + dy, bounds.y, std::max(bounds.y, bounds.bottom() - rect.height));
  return {x, y, rect.width, rect.height};
}

PixelRect resized(const PixelRect& rect, Handle handle, int dx, int dy, const PixelRect& bounds) {
  const Span x = resizedSpan(rect.x, rect.right(), movesLeft(handle), movesRight(handle), dx, bounds.x, bounds.right());
  const Span y =
      resizedSpan(rect.y, rect.bottom(), movesTop(handle), movesBottom(handle), dy, bounds.y, bounds.bottom());
  return {x.start, y.start, x.length, y.length};
}

std::array<PixelPoint, 8> handleCenters(const PixelRect& rect) {
  const int left = rect.x;
  const int right = rect.right() - 1;
  const int top = rect.y;
  const int bottom = rect.bottom() - 1;
  const int middleX = rect.x + rect.width / 2;
  const int middleY = rect.y + rect.height / 2;
  return {{{left, top},
           {middleX, top},
           {right, top},
           {right, middleY},
           {right, bottom},
           {middleX, bottom},
           {left, bottom},
           {left, middleY}}};
}

std::optional<Handle> handleAt(const PixelRect& rect, PixelPoint position, int reach) {
  const auto centers = handleCenters(rect);
  std::optional<Handle> best;
  std::int64_t bestDistance = 0;
  for (std::size_t i = 0; i < centers.size(); ++i) {
    const int dx = position.x - centers[i].x;
    const int dy = position.y - centers[i].y;
    // Inside, a handle gives way to moving the whole rectangle when there is little room.
    const bool inside = rect.contains(position);
    const int reachX = inside ? std::min(reach, rect.width / 6) : reach;
    const int reachY = inside ? std::min(reach, rect.height / 6) : reach;
    if (std::abs(dx) > reachX || std::abs(dy) > reachY) continue;
    const std::int64_t distance = std::int64_t{dx} * dx + std::int64_t{dy} * dy;
    if (!best || distance < bestDistance) {
      best = static_cast<Handle>(i);
      bestDistance = distance;
    }
  }
  if (best) return best;
  // The edges between the handles resize as well.
  const int edge = reach / 3;
  if (position.y >= rect.y && position.y < rect.bottom()) {
    if (position.x < rect.x && rect.x - position.x <= edge) return Handle::Left;
    if (position.x >= rect.right() && position.x - rect.right() < edge) return Handle::Right;
  }
  if (position.x >= rect.x && position.x < rect.right()) {
    if (position.y < rect.y && rect.y - position.y <= edge) return Handle::Top;
    if (position.y >= rect.bottom() && position.y - rect.bottom() < edge) return Handle::Bottom;
  }
  if (rect.contains(position)) return Handle::Inside;
  return std::nullopt;
}

PixelPoint clampedTo(const PixelRect& bounds, PixelPoint position) {
  return {std::clamp(position.x, bounds.x, std::max(bounds.x, bounds.right() - 1)),
          std::clamp(position.y, bounds.y, std::max(bounds.y, bounds.bottom() - 1))};
}

std::optional<std::size_t> displayIndexAt(const std::vector<DisplayInfo>& displays, PixelPoint position) {
  std::optional<std::size_t> nearest;
  std::int64_t nearestDistance = 0;
  for (std::size_t i = 0; i < displays.size(); ++i) {
    const PixelPoint inside = clampedTo(displays[i].frame, position);
    const std::int64_t dx = std::int64_t{position.x} - inside.x;
    const std::int64_t dy = std::int64_t{position.y} - inside.y;
    const std::int64_t distance = dx * dx + dy * dy;
    if (!nearest || distance < nearestDistance) {
      nearest = i;
      nearestDistance = distance;
    }
  }
  return nearest;
}

std::optional<std::size_t> displayIndexFor(const std::vector<DisplayInfo>& displays, const PixelRect& rect) {
  std::optional<std::size_t> best;
  std::int64_t bestArea = 0;
  for (std::size_t i = 0; i < displays.size(); ++i) {
    const std::int64_t shown = area(rect.intersected(displays[i].frame));
    if (shown > bestArea) {
      best = i;
      bestArea = shown;
    }
  }
  return best;
}

}  // namespace vellora
