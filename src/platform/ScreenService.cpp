#include "platform/ScreenService.h"

#include <cstdint>

namespace vellora {

std::optional<ScreenInfo> screenAt(const std::vector<ScreenInfo>& screens, PixelPoint position) {
  std::optional<ScreenInfo> nearest;
  std::int64_t nearestDistance = 0;
  for (const ScreenInfo& screen : screens) {
    const PixelRect& frame = screen.display.frame;
    const std::int64_t dx = position.x - std::clamp(position.x, frame.x, frame.right() - 1);
    const std::int64_t dy = position.y - std::clamp(position.y, frame.y, frame.bottom() - 1);
    const std::int64_t distance = dx * dx + dy * dy;
    if (!nearest || distance < nearestDistance) {
      nearest = screen;
      nearestDistance = distance;
    }
  }
  return nearest;
}

}  // namespace vellora
