#pragma once

#include <functional>
#include <string>

#include "platform/EventTap.h"

namespace vellora {

/// Listens to keys and buttons of an X desktop over a connection of its own, also while other programs hold the
/// keyboard (XInput2 raw events). Main thread, with an event loop.
///
/// Labels come from the layout of the moment: the group that is active, the key alone. Keys that are down when somebody
/// begins to listen are known; a release that the server tells of twice comes once.
class X11EventTap final : public EventTap {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY. `isSecureInput` tells whether a field for passwords has the
  /// keyboard; the X server knows nothing of fields.
  explicit X11EventTap(std::function<bool()> isSecureInput = {}, std::string display = {});

  std::unique_ptr<Listening> listen(Callbacks callbacks) override;
  bool isSecureInputEnabled() override;

 private:
  std::function<bool()> isSecureInput_;
  std::string display_;
};

}  // namespace vellora
