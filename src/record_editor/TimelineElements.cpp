#include "record_editor/TimelineElements.h"

#include <algorithm>

namespace vellora {

ZoomElement ZoomElement::clamped() const {
  ZoomElement zoom = *this;
  zoom.amount = std::clamp(amount, leastAmount, greatestAmount);
  const double margin = 0.5 / zoom.amount;
  zoom.focusX = std::clamp(focusX, margin, 1 - margin);
  zoom.focusY = std::clamp(focusY, margin, 1 - margin);
  // A shorter element than the least ease has that ease: of the two limits the length gives way.
  const double longest = std::max(leastEase, end - start);
  zoom.inDuration = std::clamp(inDuration, leastEase, longest);
  zoom.outDuration = std::clamp(outDuration, leastEase, longest);
  return zoom;
}

ZoomElement ZoomElement::added(double playhead, double duration) {
  constexpr double leastBeforeEnd = 0.3;
  ZoomElement zoom{.id = QUuid::createUuid()};
  zoom.start = std::max(0.0, std::min(playhead, duration - leastBeforeEnd));
  zoom.end = zoom.start + newLength;
  return zoom;
}

}  // namespace vellora
