#pragma once

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// Where a capture came from on the desktop.
struct CaptureOrigin {
  PixelRect rect;         ///< in device pixels of the desktop
  DisplayId display = 0;  ///< the display that held it
  WindowId window = 0;    ///< of a picked window; 0 for none
  friend bool operator==(const CaptureOrigin&, const CaptureOrigin&) = default;
};

}  // namespace vellora
