#pragma once

#include <memory>
#include <string>

#include "platform/HotKeyService.h"

namespace vellora {

/// Hot keys on an X desktop, grabbed on the root window over a connection of their own. Main thread, with an event
/// loop.
///
/// A key is grabbed by its place, so the layout does not matter, and with every state of the lock keys. When somebody
/// loads another layout or moves a modifier, everything is grabbed anew. A handler runs once for each press, however
/// long the key is held, and finds the keyboard free: it may open a window that takes it at once.
class X11HotKeys final : public HotKeyService {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY. Without a desktop every registration is refused.
  explicit X11HotKeys(const std::string& display = {});
  ~X11HotKeys() override;

  /// Also refuses a combination that is already registered here.
  std::optional<Registration> registerHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                             Handler handler) override;
  void unregisterHotKey(Registration registration) override;

 private:
  class Grabber;
  std::unique_ptr<Grabber> grabber_;
};

}  // namespace vellora
