#pragma once

#include <cstdint>
#include <vector>

#include <QString>

#include "base/Bitmap.h"
#include "base/Geometry.h"
#include "base/Result.h"

namespace vellora {

using DisplayId = std::uint32_t;
using WindowId = std::uint32_t;

/// One display of the desktop. Positions on the desktop are device pixels: with displays of different scales it is the
/// only space without gaps or overlaps.
struct DisplayInfo {
  DisplayId id = 0;
  QString name;             ///< the connector or monitor name, "DP-1"
  PixelRect frame;          ///< on the desktop, in device pixels
  double scale = 1;         ///< device pixels per point
  double refreshRate = 60;  ///< in Hz; 60 where the display does not tell
  bool isPrimary = false;
  friend bool operator==(const DisplayInfo&, const DisplayInfo&) = default;
};

/// One window a person can see and pick.
struct WindowInfo {
  WindowId id = 0;
  QString title;
  QString application;         ///< the program's class name, "Firefox"
  std::int64_t processId = 0;  ///< 0 when unknown
  PixelRect frame;             ///< with its decorations, without its shadow, on the desktop
  friend bool operator==(const WindowInfo&, const WindowInfo&) = default;
};

/// What can be captured now.
struct ShareableContent {
  std::vector<DisplayInfo> displays;  ///< the primary one first
  std::vector<WindowInfo> windows;    ///< the frontmost first; minimised and hidden ones are left out
};

enum class ScreenCaptureError {
  NotAvailable,  ///< no connection to a desktop that can be captured
  NoDisplay,     ///< the display is not there (any more)
  WindowGone,    ///< the window is not there (any more)
  Failed,        ///< the desktop refused or memory is short
};

/// Still images of the desktop. Pixels are the desktop's own, without the pointer. Every call may take tens of
/// milliseconds: call it from a queue, not from the main thread. Calls from several threads are served one after the
/// other.
class ScreenCaptureService {
 public:
  virtual ~ScreenCaptureService() = default;

  virtual Result<ShareableContent, ScreenCaptureError> shareableContent() = 0;

  /// The whole display in device pixels, at its size at this moment.
  virtual Result<Bitmap, ScreenCaptureError> displayImage(DisplayId display) = 0;

  /// A part of the desktop; parts of `region` outside every display are black. Fails with NoDisplay when it meets none.
  virtual Result<Bitmap, ScreenCaptureError> regionImage(const PixelRect& region) = 0;

  /// One window with its decorations and without what covers it. Corners outside a shaped window are transparent.
  virtual Result<Bitmap, ScreenCaptureError> windowImage(WindowId window) = 0;
};

}  // namespace vellora
