#pragma once

#include <cstdint>
#include <optional>

#include <QString>

#include "base/Geometry.h"

namespace vellora {

/// Keys held with a pointer or key event.
struct Modifiers {
  bool shift = false;
  bool alt = false;
  bool control = false;
};

/// The primary button's pointer over the canvas.
struct PointerEvent {
  Point position;               ///< document points
  double pointsPerScreenPoint;  ///< how many document points a screen point covers: tolerances are in screen points
  Modifiers modifiers;
  double pressure = 0.5;  ///< of a pen, 0 to 1; 0.5 for a mouse
  int clicks = 1;         ///< 3: the third press of a triple click
};

/// A key, freed of any window system's names.
struct KeyInput {
  enum class Key {
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    Backspace,
    Delete,
    Return,
    Tab,
    Backtab,
    Escape,
    Space,
    SelectAll,  ///< Control+A, or what the desktop uses for it
    Other
  };
  Key key = Key::Other;
  Modifiers modifiers;
  QString text;  ///< what the key types
  double pointsPerScreenPoint = 1;
};

/// What the pointer will do at a place.
enum class PointerHint {
  Select,
  Draw,
  Move,
  ResizeDiagonalDown,  ///< "\"
  ResizeDiagonalUp,    ///< "/"
  ResizeHorizontal,
  ResizeVertical,
  MovePoint,
  Turn,
  EditText,
  TypeText,
};

}  // namespace vellora
