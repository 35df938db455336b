#pragma once

#include <functional>

class QScreen;

namespace vellora {

/// Whether windows on `screen` may have see-through parts. On an X desktop this is what the probe says, and no when
/// none was given; everywhere else yes.
bool isComposited(const QScreen* screen);

/// Gives the way to ask the desktop; the program's start does, with the window system's adapter. Main thread.
void setCompositingProbe(std::function<bool(const QScreen*)> probe);

}  // namespace vellora
