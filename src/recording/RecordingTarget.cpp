#include "recording/RecordingTarget.h"

#include <cmath>

namespace vellora {
namespace {

/// Between what is recorded and the border around it, in points.
constexpr double borderGap = 2;

PixelRect grown(const PixelRect& rect, int by) {
  return {rect.x - by, rect.y - by, rect.width + 2 * by, rect.height + 2 * by};
}

}  // namespace

RecordingTarget RecordingTarget::region(const Rect& region, const DisplayInfo& screen) {
  const auto pixels = [&](double points) { return static_cast<int>(std::lround(points * screen.scale)); };
  const int left = pixels(region.minX());
  const int top = pixels(region.minY());
  const PixelRect area{screen.frame.x + left, screen.frame.y + top, pixels(region.maxX()) - left,
                       pixels(region.maxY()) - top};
  return {.screen = screen, .area = area.intersected(screen.frame), .windowID = std::nullopt};
}

RecordingTarget RecordingTarget::window(const WindowInfo& window, const DisplayInfo& screen, double cornerRadius) {
  return {.screen = screen, .area = window.frame, .windowID = window.id, .cornerRadius = cornerRadius};
}

RecordingTarget RecordingTarget::fullscreen(const DisplayInfo& screen) {
  return {.screen = screen, .area = screen.frame, .windowID = std::nullopt, .isWholeDisplay = true};
}

PixelRect RecordingTarget::borderFrame() const {
  const int gap = static_cast<int>(std::lround(borderGap * screen.scale));
  return grown(area, isWholeDisplay ? -gap : gap);
}

double RecordingTarget::borderRadius() const {
  return cornerRadius > 0 ? cornerRadius + borderGap : 0;
}

}  // namespace vellora
