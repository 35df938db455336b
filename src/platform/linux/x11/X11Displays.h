#pragma once

#include <vector>

#include "platform/ScreenCaptureService.h"

namespace vellora {

class X11Connection;

/// The displays that make up the desktop now, the primary one first: RandR monitors, or the whole root window where the
/// server cannot tell them. Displays that only repeat a part of another one are left out. Empty when the connection is
/// lost.
std::vector<DisplayInfo> readDisplays(X11Connection& connection);

}  // namespace vellora
