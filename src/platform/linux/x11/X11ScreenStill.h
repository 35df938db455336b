#pragma once

#include <memory>
#include <string>

#include "platform/ScreenStill.h"

namespace vellora {

/// Freezes the displays of an X desktop into pixmaps of the server. Main thread, with an event loop. Connects with the
/// first still, which takes about a millisecond; nothing is kept at the server while there is none.
class X11ScreenStills final : public ScreenStillService {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY.
  explicit X11ScreenStills(std::string display = {});
  ~X11ScreenStills() override;

  std::shared_ptr<ScreenStill> freeze(const std::vector<DisplayInfo>& displays) override;

 private:
  class Server;
  class Still;
  const std::string display_;
  bool tried_ = false;
  std::shared_ptr<Server> server_;
};

}  // namespace vellora
