#pragma once

#include <memory>
#include <string>

#include "platform/ScreenService.h"

namespace vellora {

class X11Connection;

/// The screens and the pointer of an X desktop, asked for with every call. Main thread. Connects with the first call;
/// without a desktop there are no screens.
class X11Screens final : public ScreenService {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY.
  explicit X11Screens(std::string display = {});
  ~X11Screens() override;

  std::vector<ScreenInfo> screens() override;
  std::optional<PixelPoint> pointerPosition() override;
  bool isComposited() override;

 private:
  X11Connection* connection();

  std::string display_;
  bool tried_ = false;
  std::unique_ptr<X11Connection> connection_;
};

/// What one panel keeps free along the edges of the desktop (_NET_WM_STRUT_PARTIAL): its thickness at an edge and the
/// part of that edge it takes, all in pixels of the root window.
struct EdgeStrut {
  int left = 0, right = 0, top = 0, bottom = 0;
  int leftStart = 0, leftEnd = 0, rightStart = 0, rightEnd = 0;
  int topStart = 0, topEnd = 0, bottomStart = 0, bottomEnd = 0;
};

/// `display` without the strips that panels keep free on it. A strip that would leave nothing of the display is taken
/// to be meant for another one.
PixelRect withoutStruts(const PixelRect& display, const std::vector<EdgeStrut>& struts, PixelSize root);

}  // namespace vellora
