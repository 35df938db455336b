#pragma once

#include <Qt>

#include "editor/canvas/CanvasInput.h"

class QKeyEvent;
class QWheelEvent;

namespace vellora {

Modifiers modifiersOf(Qt::KeyboardModifiers modifiers);

/// A key event as the canvas's model takes it.
KeyInput keyInputOf(const QKeyEvent& event, double pointsPerScreenPoint);

/// Whether a key is a text's own while one is edited, so that no shortcut of the window may take it: what types, moves
/// the cursor, deletes, and the clipboard's keys.
bool isTextKey(const QKeyEvent& event);

/// Tells a wheel, whose notches zoom, from a surface that scrolls by any small amount. X11 says for neither what it is:
/// only whole notches along one axis are a wheel's, and a surface's events come close after each other.
class WheelKind {
 public:
  /// True: it scrolls.
  bool isScrolling(const QWheelEvent& event);

 private:
  quint64 lastScroll_ = 0;
};

}  // namespace vellora
