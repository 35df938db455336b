#pragma once

#include <cstdint>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

/// What the desktop is told about the program's own windows beyond what the toolkit can say. Main thread.
class WindowHints {
 public:
  virtual ~WindowHints() = default;

  /// Shows a window on every desktop and leaves it out of task bars and pagers: for a window that is made but not yet
  /// shown, and once more when it is on screen.
  virtual void keepEverywhere(std::uint64_t window) = 0;

  /// Lets the pointer through everywhere but in `regions` (device pixels of the window); everywhere when there are
  /// none. Stays until the next call.
  virtual void limitInput(std::uint64_t window, const std::vector<PixelRect>& regions) = 0;

  /// Shows a window in `regions` (device pixels of the window) only, and takes the pointer only there. Stays until the
  /// next call.
  virtual void limitVisible(std::uint64_t window, const std::vector<PixelRect>& regions) = 0;

  /// Says how much of a window on each side (device pixels) is only its shadow.
  virtual void setShadowMargin(std::uint64_t window, int margin) = 0;

  /// The window that has the keyboard, whichever program's; 0 when there is none or the desktop does not tell.
  virtual std::uint64_t activeWindow() = 0;
  /// Asks the desktop to give the keyboard to a window, whichever program's.
  virtual void activate(std::uint64_t window) = 0;
};

}  // namespace vellora
