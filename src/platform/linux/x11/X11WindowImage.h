#pragma once

#include <xcb/xcb.h>

#include "base/Bitmap.h"
#include "base/Result.h"
#include "platform/ScreenCaptureService.h"
#include "platform/linux/x11/X11Image.h"

namespace vellora {

/// Takes pictures of single windows.
///
/// Where a compositing manager runs, every window has a pixmap of its own that holds it whole: that is read. Without
/// one, an uncovered window is read where it stands on the screen. A covered one exists nowhere in full: it is given a
/// pixmap for the moment, whereupon the server asks the program to repaint what was hidden, and the picture is taken
/// once the program has drawn and then paused. A program that does not answer is photographed after a short while as
/// the server shows it.
class X11WindowImage {
 public:
  X11WindowImage(X11Connection& connection, X11ImageReader& reader) : connection_(connection), reader_(reader) {}

  Result<Bitmap, ScreenCaptureError> take(xcb_window_t window);

 private:
  struct Target;
  class Redirection;
  using Picture = Result<Bitmap, ScreenCaptureError>;

  Result<Target, ScreenCaptureError> find(xcb_window_t window);
  bool prepareComposite();
  std::optional<Picture> fromOwnPixmap(const Target& target);
  std::optional<Picture> fromScreen(const Target& target);
  Picture fromRedirection(const Target& target);
  Picture read(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source, const Target& target,
               X11ImageReader::ServerGrab grab);
  bool isUncovered(const Target& target);
  void waitUntilPainted(std::uint8_t damageEvent);
  ScreenCaptureError lost() const;

  X11Connection& connection_;
  X11ImageReader& reader_;
  bool prepared_ = false;
  bool hasComposite_ = false;
};

}  // namespace vellora
