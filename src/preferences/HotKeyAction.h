#pragma once

#include <array>
#include <optional>

#include "preferences/HotKeyBinding.h"

namespace vellora {

/// A command that can have a global hot key, in the order they are shown and asked.
enum class HotKeyAction { FullScreen, Area, Window, Scrolling, Element, Text };

inline constexpr std::array allHotKeyActions{HotKeyAction::FullScreen, HotKeyAction::Area,    HotKeyAction::Window,
                                             HotKeyAction::Scrolling,  HotKeyAction::Element, HotKeyAction::Text};

/// The stable name used in the preference key: "fullscreen", "area", "window", "scrolling", "element", "ocr".
QString identifier(HotKeyAction action);

/// The localisation key of the command's name, the same as in the menu.
const char* titleKey(HotKeyAction action);

/// Whether the program runs as installed or as a development copy beside it, whose hot keys must not collide.
enum class BuildKind { Installed, Development };

/// What applies while nothing is stored: Alt with a digit (Ctrl+Alt in a development copy), none for element and text.
std::optional<HotKeyBinding> defaultBinding(HotKeyAction action, BuildKind build = BuildKind::Installed);

}  // namespace vellora
