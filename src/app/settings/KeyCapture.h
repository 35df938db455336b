#pragma once

#include <cstdint>
#include <optional>

#include <QString>

class QKeyEvent;

namespace vellora {

/// A key press in the stored form of keys.
struct CapturedKey {
  std::uint32_t keyCode = 0;          ///< virtual key code
  std::uint32_t carbonModifiers = 0;  ///< mask of carbonModifier values
  QString characters;                 ///< what the key types, without control, option and command
};

/// The modifiers held, of command, shift, option and control.
std::uint32_t carbonModifiersFrom(Qt::KeyboardModifiers modifiers);

/// The press of an ordinary key; nothing for a modifier alone and for keys of no known place.
std::optional<CapturedKey> capturedKey(const QKeyEvent& event);

/// The modifier that a press or release of a modifier key adds or takes away, 0 for other keys.
std::uint32_t modifierOfKey(const QKeyEvent& event);

}  // namespace vellora
