#include "app/HotKeyCenter.h"

#include "base/Log.h"

namespace vellora {

bool HotKeyCenter::registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers, std::function<void()> handler) {
  const auto registration = service_.registerHotKey(keyCode, carbonModifiers, std::move(handler));
  if (!registration) return false;
  registrations_.push_back(*registration);
  return true;
}

void HotKeyCenter::unregisterAll() {
  for (const auto registration : registrations_) service_.unregisterHotKey(registration);
  registrations_.clear();
  refused_.clear();
}

void HotKeyCenter::reload(const HotKeySettings& settings, const std::vector<HotKeyAction>& actions,
                          const std::function<void(HotKeyAction)>& perform) {
  unregisterAll();
  for (const HotKeyAction action : actions) {
    const auto binding = settings.binding(action);
    if (!binding) continue;
    if (registerHotKey(binding->keyCode, binding->carbonModifiers, [perform, action] { perform(action); })) continue;
    refused_.insert(action);
    log::warning(QStringLiteral("hot key %1 is held by another program").arg(writtenShortcut(*binding)));
  }
}

}  // namespace vellora
