#pragma once

#include <xcb/composite.h>

#include <memory>
#include <vector>

#include "base/Geometry.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Drawing.h"
#include "platform/linux/x11/X11Image.h"

namespace vellora {

/// A child of the root window that the server keeps whole in a pixmap of its own while this lives, whatever covers it.
/// What was covered at the beginning comes when the program has painted it.
class X11CompositeWindow {
 public:
  /// False without the extension.
  static bool prepare(X11Connection& connection);
  /// Null when the window is gone, not on the screen, or of a kind that has no pixels.
  static std::unique_ptr<X11CompositeWindow> make(X11Connection& connection, xcb_window_t window);
  ~X11CompositeWindow();
  X11CompositeWindow(const X11CompositeWindow&) = delete;
  X11CompositeWindow& operator=(const X11CompositeWindow&) = delete;

  /// Finds place and size again, and the pixmap where it is another one. False when the window is gone or not on the
  /// screen: everything stays as it was.
  bool refresh();

  xcb_window_t window() const { return window_; }
  xcb_pixmap_t pixmap() const { return pixmap_; }
  xcb_visualid_t visual() const { return visual_; }
  const X11PixelFormat& format() const { return format_; }
  /// On the root window, with its border; the pixmap holds all of it.
  const PixelRect& frame() const { return frame_; }
  int border() const { return border_; }
  /// What of `frame` lies outside the window's shape, relative to it.
  const std::vector<PixelRect>& outsideShape() const { return outsideShape_; }
  /// Positions count from inside the border.
  X11DrawingCounter& drawn() { return drawn_; }
  const X11DrawingCounter& drawn() const { return drawn_; }

 private:
  X11CompositeWindow(X11Connection& connection, xcb_window_t window);
  void readShape();

  X11Connection& connection_;
  const xcb_window_t window_;
  X11DrawingCounter drawn_;
  X11PixelFormat format_;
  xcb_visualid_t visual_ = 0;
  xcb_pixmap_t pixmap_ = 0;
  PixelRect frame_;
  int border_ = 0;
  std::vector<PixelRect> outsideShape_;
};

}  // namespace vellora
