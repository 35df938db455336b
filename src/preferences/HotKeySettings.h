#pragma once

#include <optional>

#include "base/NotificationCenter.h"
#include "platform/PreferenceStore.h"
#include "preferences/HotKeyAction.h"
#include "preferences/HotKeyBinding.h"

namespace vellora {

/// The stored hot keys. Every change posts notice::hotKeysChanged. Main thread.
class HotKeySettings {
 public:
  HotKeySettings(PreferenceStore& preferences, NotificationCenter& notices, BuildKind build = BuildKind::Installed);

  /// The stored binding when it can be read, else the action's default, which may be none.
  std::optional<HotKeyBinding> binding(HotKeyAction action) const;
  void setBinding(const HotKeyBinding& binding, HotKeyAction action);
  /// Forgets the stored binding, so that the default applies.
  void resetBinding(HotKeyAction action);

  /// The first action, in their order, whose binding (default ones count) is this combination.
  std::optional<HotKeyAction> actionBound(std::uint32_t keyCode, std::uint32_t carbonModifiers) const;

 private:
  PreferenceStore& preferences_;
  NotificationCenter& notices_;
  BuildKind build_;
};

/// The preference key of an action's binding, "hotkey.area".
QString hotKeyPreferenceKey(HotKeyAction action);

}  // namespace vellora
