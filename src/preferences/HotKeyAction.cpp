#include "preferences/HotKeyAction.h"

#include "platform/KeyCodes.h"

namespace vellora {

QString identifier(HotKeyAction action) {
  switch (action) {
    case HotKeyAction::FullScreen:
      return QStringLiteral("fullscreen");
    case HotKeyAction::Area:
      return QStringLiteral("area");
    case HotKeyAction::Window:
      return QStringLiteral("window");
    case HotKeyAction::Scrolling:
      return QStringLiteral("scrolling");
    case HotKeyAction::Element:
      return QStringLiteral("element");
    case HotKeyAction::Text:
      return QStringLiteral("ocr");
  }
  return {};
}

const char* titleKey(HotKeyAction action) {
  switch (action) {
    case HotKeyAction::FullScreen:
      return "menu.captureFullscreen";
    case HotKeyAction::Area:
      return "menu.captureArea";
    case HotKeyAction::Window:
      return "menu.captureWindow";
    case HotKeyAction::Scrolling:
      return "menu.captureScrolling";
    case HotKeyAction::Element:
      return "menu.captureElement";
    case HotKeyAction::Text:
      return "menu.captureText";
  }
  return "";
}

std::optional<HotKeyBinding> defaultBinding(HotKeyAction action, BuildKind build) {
  const std::uint32_t modifiers =
      build == BuildKind::Development ? carbonModifier::control | carbonModifier::option : carbonModifier::option;
  switch (action) {
    case HotKeyAction::FullScreen:
      return HotKeyBinding{20, modifiers, QStringLiteral("3")};
    case HotKeyAction::Area:
      return HotKeyBinding{18, modifiers, QStringLiteral("1")};
    case HotKeyAction::Window:
      return HotKeyBinding{19, modifiers, QStringLiteral("2")};
    case HotKeyAction::Scrolling:
      return HotKeyBinding{21, modifiers, QStringLiteral("4")};
    case HotKeyAction::Element:
    case HotKeyAction::Text:
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace vellora
