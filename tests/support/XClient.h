#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "base/Geometry.h"

namespace vellora::test {

class XServer;

/// A connection of the test's own to a display: another program, as far as the code under test can tell.
class XClient {
 public:
  /// Fails the running test when the display does not answer.
  explicit XClient(const XServer& server);
  ~XClient();
  XClient(const XClient&) = delete;
  XClient& operator=(const XClient&) = delete;

  xcb_connection_t* connection() const { return connection_; }
  const xcb_screen_t* screen() const { return screen_; }
  xcb_window_t root() const { return screen_->root; }
  xcb_atom_t atom(const std::string& name) const;
  /// Returns when the server has done everything asked for so far.
  void sync() const;

  /// Sets a property of 32-bit values (CARDINAL, ATOM, WINDOW … by the name of its type) or of text (UTF8_STRING).
  void setProperty(xcb_window_t window, const std::string& name, const std::string& type,
                   const std::vector<std::uint32_t>& values) const;
  void setText(xcb_window_t window, const std::string& name, const std::string& text) const;
  std::vector<std::uint32_t> property(xcb_window_t window, const std::string& name) const;

  /// Fills part of a window (or of any drawable of the root's depth) with one colour, 0xRRGGBB.
  void fill(xcb_drawable_t drawable, const PixelRect& area, std::uint32_t colour) const;

  /// Key and pointer input as from a device; a key by its evdev code (KEY_1 = 2).
  void key(std::uint16_t evdevCode, bool press) const;
  /// Presses all in order and releases them in the opposite order.
  void chord(const std::vector<std::uint16_t>& evdevCodes) const;
  void movePointer(PixelPoint position) const;
  void button(std::uint8_t button, bool press) const;

 private:
  xcb_connection_t* connection_ = nullptr;
  const xcb_screen_t* screen_ = nullptr;
};

/// A plain window of one colour that another program opened. Made visible (and, with a window manager, framed) on
/// return.
class TestWindow {
 public:
  struct Options {
    PixelRect frame{100, 100, 200, 150};
    std::uint32_t colour = 0x336699;  ///< 0xRRGGBB, or 0xAARRGGBB (premultiplied) with `alpha`
    bool alpha = false;               ///< a 32-bit visual
    bool unmanaged = false;           ///< override redirect: no decorations, exactly at `frame`
    bool mapped = true;
    std::string title = "Test window";
    std::string application = "VelloraTest";
  };
  TestWindow(const XServer& server, Options options);
  explicit TestWindow(const XServer& server) : TestWindow(server, Options()) {}
  ~TestWindow();

  xcb_window_t id() const { return id_; }
  XClient& client() { return client_; }
  void map();
  void unmap();
  /// Repaints the whole window in another colour.
  void paint(std::uint32_t colour);
  void move(PixelRect frame);
  void raise();
  void destroy();
  /// The client area on the root window.
  PixelRect frame() const;
  /// The top-level ancestor: the window manager's frame, or the window itself.
  xcb_window_t topLevel() const;

 private:
  void waitUntilViewable(bool viewable) const;

  XClient client_;
  xcb_window_t id_ = 0;
  Options options_;
  xcb_colormap_t colormap_ = 0;
};

}  // namespace vellora::test
