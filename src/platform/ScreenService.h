#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// A display as windows see it.
struct ScreenInfo {
  DisplayInfo display;
  PixelRect visibleFrame;  ///< the frame without panels and docks
  friend bool operator==(const ScreenInfo&, const ScreenInfo&) = default;
};

/// The screens and the pointer. Cheap calls (no pixels move). Main thread.
class ScreenService {
 public:
  virtual ~ScreenService() = default;

  /// The primary one first; empty only when there is no desktop.
  virtual std::vector<ScreenInfo> screens() = 0;

  /// Where the pointer is on the desktop, in device pixels.
  virtual std::optional<PixelPoint> pointerPosition() = 0;

  /// Whether a compositor blends windows, so that a window may have see-through parts.
  virtual bool isComposited() = 0;
};

/// The screen that holds `position`, else the nearest one; nothing when `screens` is empty.
std::optional<ScreenInfo> screenAt(const std::vector<ScreenInfo>& screens, PixelPoint position);

}  // namespace vellora
