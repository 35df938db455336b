#pragma once

#include <optional>

#include "base/Geometry.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// What a recording shows. Areas are device pixels of the desktop.
struct RecordingTarget {
  DisplayInfo screen;
  PixelRect area;                    ///< of a region, or the whole display; of a window its frame when it was picked
  std::optional<WindowId> windowID;  ///< of a single window
  bool isWholeDisplay = false;
  double cornerRadius = 0;  ///< of a window, in points

  /// `region` in points from the screen's top left corner.
  static RecordingTarget region(const Rect& region, const DisplayInfo& screen);
  static RecordingTarget window(const WindowInfo& window, const DisplayInfo& screen, double cornerRadius);
  static RecordingTarget fullscreen(const DisplayInfo& screen);

  /// Where the border stands for an area: 2 points outside it, for a whole display 2 points inside its edge.
  PixelRect borderFrame() const;
  double borderRadius() const;
};

}  // namespace vellora
