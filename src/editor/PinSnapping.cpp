#include "editor/PinSnapping.h"

#include <cmath>

namespace vellora {
namespace {

/// A rectangle's extent along one axis.
struct Extent {
  double low;
  double high;
};

Extent across(const Rect& rect) {
  return {rect.minX(), rect.maxX()};
}
Extent down(const Rect& rect) {
  return {rect.minY(), rect.maxY()};
}

/// The least shift that brings two edges together; 0 while none are near.
class Shift {
 public:
  void offer(double from, double to) {
    const double shift = to - from;
    if (std::abs(shift) > pinSnapReach || (found_ && std::abs(shift) >= std::abs(shift_))) return;
    shift_ = shift;
    found_ = true;
  }
  double value() const { return shift_; }

 private:
  double shift_ = 0;
  bool found_ = false;
};

bool isBeside(const Extent& a, const Extent& b) {
  return a.low <= b.high + pinSnapReach && b.low <= a.high + pinSnapReach;
}

double shiftAlong(Extent (*along)(const Rect&), Extent (*other)(const Rect&), const Rect& frame,
                  std::span<const Rect> areas, std::span<const Rect> pins) {
  Shift shift;
  const Extent moved = along(frame);
  const auto offerSame = [&](const Extent& fixed) {
    shift.offer(moved.low, fixed.low);
    shift.offer(moved.high, fixed.high);
  };
  for (const Rect& area : areas) {
    if (isBeside(other(frame), other(area))) offerSame(along(area));
  }
  for (const Rect& pin : pins) {
    if (!isBeside(other(frame), other(pin))) continue;
    const Extent fixed = along(pin);
    offerSame(fixed);
    shift.offer(moved.low, fixed.high);
    shift.offer(moved.high, fixed.low);
  }
  return shift.value();
}

}  // namespace

Rect snappedToEdges(Rect frame, std::span<const Rect> areas, std::span<const Rect> pins) {
  const double dx = shiftAlong(across, down, frame, areas, pins);
  const double dy = shiftAlong(down, across, frame, areas, pins);
  frame.origin.x += dx;
  frame.origin.y += dy;
  return frame;
}

}  // namespace vellora
