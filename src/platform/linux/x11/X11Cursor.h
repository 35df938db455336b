#pragma once

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/Geometry.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrameBuffers.h"

namespace vellora {

/// The pointer at one moment.
struct X11Pointer {
  PixelPoint position;        ///< of the hot spot on the root window
  xcb_window_t window = 0;    ///< the child of the root window it is over
  std::uint32_t buttons = 0;  ///< bit 0 left, 1 middle, 2 right; also those that were pressed only in between
  friend bool operator==(const X11Pointer&, const X11Pointer&) = default;
};

/// The cursor's picture: premultiplied BGRA.
struct X11CursorImage {
  PixelSize size;
  PixelPoint hotSpot;
  std::vector<std::uint32_t> pixels;
  std::uint64_t shape = 0;  ///< made from all of the above

  /// Where it lies when its hot spot is at `position`, drawn `scale` times as large.
  PixelRect frame(PixelPoint position, double scale = 1) const;
};

/// Draws the cursor over a picture.
void drawCursor(const X11CursorImage& image, PixelPoint position, double scale, X11FrameBuffer& buffer);

/// Follows the pointer: where it is, its buttons and its picture.
class X11PointerTracker {
 public:
  /// Listens on the connection for motion, buttons and other pictures from now on.
  explicit X11PointerTracker(X11Connection& connection);

  /// Whether `event` says that the pointer may have moved or changed. Programs can move it without any event.
  bool handle(const xcb_generic_event_t& event);

  /// Asks, and waits for the answer; whatever is asked in between travels with it.
  void ask();
  X11Pointer receive();
  const X11CursorImage& image() const { return image_; }

 private:
  void listenToDevices();

  X11Connection& connection_;
  std::uint8_t fixesEvent_ = 0;
  std::uint8_t inputOpcode_ = 0;
  bool imageIsOld_ = false;
  std::uint32_t pressed_ = 0;  ///< buttons that went down since they were last asked for
  xcb_query_pointer_cookie_t pointerAsked_{};
  xcb_xfixes_get_cursor_image_cookie_t imageAsked_{};
  bool imageIsAsked_ = false;
  X11CursorImage image_;
};

}  // namespace vellora
