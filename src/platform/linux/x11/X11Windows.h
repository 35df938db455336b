#pragma once

#include <xcb/xcb.h>

#include <optional>
#include <vector>

#include "platform/ScreenCaptureService.h"

namespace vellora {

class X11Connection;

/// The windows a person can see and pick, the frontmost first: no panels, no desktop, nothing minimised or on another
/// workspace. A window's id is that of the program's own window, also where a window manager put a frame around it.
std::vector<WindowInfo> readWindows(X11Connection& connection);

/// The child of the root window that shows `window`: its window manager's frame, or itself. Nothing when it has gone.
std::optional<xcb_window_t> topLevelOf(X11Connection& connection, xcb_window_t window);

/// The margins a program draws its own shadow into (_GTK_FRAME_EXTENTS), all 0 for the others.
struct ShadowMargins {
  int left = 0;
  int right = 0;
  int top = 0;
  int bottom = 0;
};
ShadowMargins shadowMargins(const std::vector<std::uint32_t>& property);
/// `frame` without the margins; `frame` itself when nothing would be left.
PixelRect withoutMargins(const PixelRect& frame, const ShadowMargins& margins);

}  // namespace vellora
