#pragma once

#include <functional>
#include <map>
#include <set>
#include <vector>

#include "platform/HotKeyService.h"
#include "preferences/HotKeySettings.h"

namespace vellora {

/// The global hot keys that are grabbed now. Main thread.
class HotKeyCenter {
 public:
  explicit HotKeyCenter(HotKeyService& service) : service_(service) {}
  ~HotKeyCenter() { unregisterAll(); }
  HotKeyCenter(const HotKeyCenter&) = delete;
  HotKeyCenter& operator=(const HotKeyCenter&) = delete;

  /// Grabs one combination; false when another program holds it.
  bool registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers, std::function<void()> handler);
  void unregisterAll();

  /// Lets go of everything and grabs what `settings` say now for `actions`; `perform` runs one. Remembers which of them
  /// could not be grabbed.
  void reload(const HotKeySettings& settings, const std::vector<HotKeyAction>& actions,
              const std::function<void(HotKeyAction)>& perform);

  /// Whether the action has no working hot key because another program holds its combination.
  bool isTakenElsewhere(HotKeyAction action) const { return refused_.contains(action); }

 private:
  HotKeyService& service_;
  std::vector<HotKeyService::Registration> registrations_;
  std::set<HotKeyAction> refused_;
};

}  // namespace vellora
