#include "preferences/HotKeySettings.h"

#include "preferences/PreferenceKeys.h"

namespace vellora {

HotKeySettings::HotKeySettings(PreferenceStore& preferences, NotificationCenter& notices, BuildKind build)
    : preferences_(preferences), notices_(notices), build_(build) {}

std::optional<HotKeyBinding> HotKeySettings::binding(HotKeyAction action) const {
  if (const auto stored = preferences_.data(hotKeyPreferenceKey(action))) {
    if (auto decoded = decodeHotKeyBinding(*stored)) return decoded;
  }
  return defaultBinding(action, build_);
}

void HotKeySettings::setBinding(const HotKeyBinding& binding, HotKeyAction action) {
  preferences_.setValue(hotKeyPreferenceKey(action), encode(binding));
  notices_.post(notice::hotKeysChanged);
}

void HotKeySettings::resetBinding(HotKeyAction action) {
  preferences_.remove(hotKeyPreferenceKey(action));
  notices_.post(notice::hotKeysChanged);
}

std::optional<HotKeyAction> HotKeySettings::actionBound(std::uint32_t keyCode, std::uint32_t carbonModifiers) const {
  for (const HotKeyAction action : allHotKeyActions) {
    const auto bound = binding(action);
    if (bound && bound->keyCode == keyCode && bound->carbonModifiers == carbonModifiers) return action;
  }
  return std::nullopt;
}

QString hotKeyPreferenceKey(HotKeyAction action) {
  return preferenceKey::hotKeyPrefix + identifier(action);
}

}  // namespace vellora
