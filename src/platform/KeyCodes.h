#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// The stored form of keys: virtual key codes name places on the keyboard (as on an ANSI one), whatever the layout
/// prints on them; modifiers are a Carbon mask in which option is Alt and command is Super.
namespace vellora {

namespace carbonModifier {
inline constexpr std::uint32_t command = 0x100;
inline constexpr std::uint32_t shift = 0x200;
inline constexpr std::uint32_t option = 0x800;
inline constexpr std::uint32_t control = 0x1000;
inline constexpr std::uint32_t all = command | shift | option | control;
}  // namespace carbonModifier

/// One place on the keyboard in both worlds.
struct KeyPlace {
  std::uint32_t virtualKeyCode;
  std::string_view xkbName;  ///< the XKB key name, "AE01" for the key left-most in the digit row
  std::uint16_t evdevCode;   ///< the kernel's input code, KEY_1 = 2
};

/// Every place known, by virtual key code ascending.
std::span<const KeyPlace> keyPlaces();

std::optional<KeyPlace> keyPlaceForVirtualKey(std::uint32_t virtualKeyCode);
std::optional<KeyPlace> keyPlaceForXkbName(std::string_view xkbName);
std::optional<KeyPlace> keyPlaceForEvdevCode(std::uint16_t evdevCode);

}  // namespace vellora
