#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vellora {

class X11Connection;

/// The keyboard of an X server as far as hot keys need it: which key code each place on the keyboard has and what the
/// real modifiers mean. All of it may change whenever somebody loads another layout.
struct X11Keyboard {
  std::map<std::string, xcb_keycode_t, std::less<>> keyCodes;  ///< by XKB key name, aliases included
  std::uint16_t alt = XCB_MOD_MASK_1;
  std::uint16_t super = XCB_MOD_MASK_4;
  std::uint16_t numLock = 0;     ///< 0: the keyboard has none
  std::uint16_t scrollLock = 0;  ///< 0: it is no modifier
  friend bool operator==(const X11Keyboard&, const X11Keyboard&) = default;

  /// Reads the core keyboard in two round trips. Without XKB the key codes are the kernel's plus eight.
  static X11Keyboard read(X11Connection& connection);

  /// The real modifiers for a Carbon mask.
  std::uint16_t realModifiers(std::uint32_t carbonModifiers) const;
  /// Every state the lock keys can be in: what has to be grabbed besides a combination's own modifiers.
  std::vector<std::uint16_t> lockStates() const;
  std::optional<xcb_keycode_t> keyCode(std::uint32_t virtualKeyCode) const;
};

}  // namespace vellora
