#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/Bitmap.h"
#include "base/Result.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// The displays frozen at one moment. The pixels stay with the display server, so that a window can show them the
/// moment it comes up, without one of them passing through this process. Ends with its last user; make and end it as
/// late and as early as possible, for the server keeps a copy of every display meanwhile.
class ScreenStill {
 public:
  virtual ~ScreenStill() = default;

  /// Makes the frozen picture of `display` the ground of a window: the server paints it wherever the window is shown
  /// and nobody has painted over it, the window's corner being the display's. Its colours are multiplied by
  /// `brightness` (0 to 1). `nativeWindow` is the window's id, made but not yet shown. `done` comes later, on the main
  /// thread; with true the window may be shown, with false it has no ground (the window has gone or is of another
  /// colour depth, or the display was not frozen). It never comes once the still has gone. Main thread.
  virtual void paintBehind(std::uint64_t nativeWindow, DisplayId display, double brightness,
                           std::function<void(bool painted)> done) = 0;

  /// The frozen picture of `display` itself. Takes tens of milliseconds for a large display. Any thread but the main
  /// one.
  virtual Result<Bitmap, ScreenCaptureError> image(DisplayId display) const = 0;
};

/// Freezes displays. Main thread.
class ScreenStillService {
 public:
  virtual ~ScreenStillService() = default;

  /// Freezes the displays as they are now, all at the same moment; does not wait for it. Null where the desktop cannot.
  virtual std::shared_ptr<ScreenStill> freeze(const std::vector<DisplayInfo>& displays) = 0;
};

}  // namespace vellora
