#pragma once

#include <cstdint>
#include <functional>
#include <memory>

#include <QString>

#include "base/Geometry.h"

namespace vellora {

namespace eventFlag {
inline constexpr std::uint32_t shift = 0x20000;
inline constexpr std::uint32_t control = 0x40000;
inline constexpr std::uint32_t option = 0x80000;    ///< Alt
inline constexpr std::uint32_t command = 0x100000;  ///< Super
}  // namespace eventFlag

/// A key pressed or let go anywhere on the desktop.
struct KeyEvent {
  enum class Kind { keyDown, keyUp, flagsChanged };
  Kind kind = Kind::keyDown;
  std::uint16_t keyCode = 0;  ///< a virtual key code (KeyCodes.h)
  std::uint32_t flags = 0;    ///< eventFlag values that hold after the event
  /// What the active layout prints on the key, without modifiers: "a", "ä", "1". Empty for keys without a character.
  QString charactersIgnoringModifiers;
  double hostTime = 0;  ///< seconds
};

/// A mouse button pressed or let go anywhere on the desktop.
struct ButtonEvent {
  bool isDown = false;
  int button = 0;  ///< 0 left, 1 middle, 2 right
  PixelPoint position;
  double hostTime = 0;
};

/// Listens to input without touching it. Main thread; callbacks come there.
class EventTap {
 public:
  struct Callbacks {
    std::function<void(const KeyEvent&)> onKey{};
    std::function<void(const ButtonEvent&)> onButton{};
  };
  /// Listening; ends with its destruction.
  class Listening {
   public:
    virtual ~Listening() = default;
  };
  virtual ~EventTap() = default;

  /// Null where the desktop lets nobody listen.
  virtual std::unique_ptr<Listening> listen(Callbacks callbacks) = 0;
  /// Whether a field for passwords has the keyboard. Cheap: to be asked ten times a second.
  virtual bool isSecureInputEnabled() = 0;
};

}  // namespace vellora
