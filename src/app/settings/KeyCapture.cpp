#include "app/settings/KeyCapture.h"

#include <QKeyEvent>

#include "platform/KeyCodes.h"

namespace vellora {
namespace {

// An X server counts its key codes from 8.
constexpr std::uint32_t firstScanCode = 8;

}  // namespace

std::uint32_t carbonModifiersFrom(Qt::KeyboardModifiers modifiers) {
  std::uint32_t mask = 0;
  if (modifiers.testFlag(Qt::MetaModifier)) mask |= carbonModifier::command;
  if (modifiers.testFlag(Qt::ShiftModifier)) mask |= carbonModifier::shift;
  if (modifiers.testFlag(Qt::AltModifier)) mask |= carbonModifier::option;
  if (modifiers.testFlag(Qt::ControlModifier)) mask |= carbonModifier::control;
  return mask;
}

std::uint32_t modifierOfKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Control:
      return carbonModifier::control;
    case Qt::Key_Shift:
      return carbonModifier::shift;
    case Qt::Key_Alt:
      return carbonModifier::option;
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
      return carbonModifier::command;
    default:
      return 0;
  }
}

std::optional<CapturedKey> capturedKey(const QKeyEvent& event) {
  if (modifierOfKey(event) != 0) return std::nullopt;
  const std::uint32_t scanCode = event.nativeScanCode();
  if (scanCode <= firstScanCode || scanCode - firstScanCode > 0xFFFF) return std::nullopt;
  const auto place = keyPlaceForEvdevCode(static_cast<std::uint16_t>(scanCode - firstScanCode));
  if (!place) return std::nullopt;
  CapturedKey key{place->virtualKeyCode, carbonModifiersFrom(event.modifiers()), {}};
  // Qt's key is the symbol without control and option; its own codes for unprintable keys lie above Unicode.
  if (const int symbol = event.key(); symbol > 0x20 && symbol < 0x110000) {
    const auto character = static_cast<char32_t>(symbol);
    key.characters = QString::fromUcs4(&character, 1);
  }
  return key;
}

}  // namespace vellora
