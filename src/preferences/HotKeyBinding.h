#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include <QByteArray>
#include <QString>

namespace vellora {

/// A key combination: a place on the keyboard, modifiers, and the text shown for the key.
struct HotKeyBinding {
  std::uint32_t keyCode = 0;          ///< virtual key code
  std::uint32_t carbonModifiers = 0;  ///< mask of carbonModifier values
  QString keyLabel;                   ///< "3", "F5", "↩"
  friend bool operator==(const HotKeyBinding&, const HotKeyBinding&) = default;
};

/// The stored form: a JSON object with the keys keyCode, carbonModifiers and keyLabel.
QByteArray encode(const HotKeyBinding& binding);
/// Nothing when the data is not such an object.
std::optional<HotKeyBinding> decodeHotKeyBinding(const QByteArray& data);

/// F1 to F20: number and virtual key code.
struct FunctionKey {
  int number;
  std::uint32_t keyCode;
};
std::span<const FunctionKey> functionKeys();
/// The number of a function key's code, 1 to 20.
std::optional<int> functionKeyNumber(std::uint32_t keyCode);

/// The label of keys that do not print what they are ("Space", "↩", "F5"); nothing for the others.
std::optional<QString> specialKeyLabel(std::uint32_t keyCode);

/// The text shown for a key: its special label, else what it typed in upper case, else "Key " and its code.
QString keyLabel(std::uint32_t keyCode, const QString& characters);

/// "⌃⌥⇧⌘" as far as set, always in this order.
QString modifierGlyphs(std::uint32_t carbonModifiers);

/// The glyphs and the label: how a combination is written in menus and on the settings page.
QString displayText(const HotKeyBinding& binding);

/// A combination as typed by people, "Alt+1": modifier names in the order Ctrl, Alt, Shift, Super.
QString writtenShortcut(const HotKeyBinding& binding);
/// Reads "alt+1", "ctrl+shift+F5", "super+space" (any case; option and command are understood). Nothing when it is no
/// combination or could not be a hot key.
std::optional<HotKeyBinding> parseWrittenShortcut(const QString& text);

/// Whether a combination may become a hot key: control, option or command must be held, unless it is a function key.
bool isAcceptableHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers);

}  // namespace vellora
