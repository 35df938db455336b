#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/Geometry.h"

namespace vellora {

struct FreeDeleter {
  void operator()(void* memory) const { std::free(memory); }
};
/// An answer of the server; null when it sent an error instead.
template <class T>
using XReply = std::unique_ptr<T, FreeDeleter>;

/// Waits for the answer to a request: `xReply(xcb_get_geometry_reply, connection, xcb_get_geometry(connection,
/// window))`. An error of the server gives null and is dropped (also from the event queue). When `error` is given it
/// receives the code.
template <class T, class Cookie>
XReply<T> xReply(T* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**), xcb_connection_t* connection,
                 Cookie cookie, std::uint8_t* error = nullptr) {
  xcb_generic_error_t* failed = nullptr;
  XReply<T> reply(wait(connection, cookie, &failed));
  if (error != nullptr) *error = failed != nullptr ? failed->error_code : std::uint8_t{0};
  std::free(failed);
  return reply;
}

/// One connection to an X server. No call ends the process: a lost connection shows in `isBroken`, and every answer
/// after it is null. One thread at a time.
class X11Connection {
 public:
  /// Connects to `display` (":0"), or to DISPLAY when it is empty. Null when nothing answers there.
  static std::unique_ptr<X11Connection> open(const std::string& display = {});
  ~X11Connection();
  X11Connection(const X11Connection&) = delete;
  X11Connection& operator=(const X11Connection&) = delete;

  xcb_connection_t* get() const { return connection_; }
  const xcb_setup_t* setup() const { return setup_; }
  const xcb_screen_t* screen() const { return screen_; }
  int screenNumber() const { return screenNumber_; }
  xcb_window_t root() const { return screen_->root; }
  bool isBroken() const { return xcb_connection_has_error(connection_) != 0; }
  /// Whether client and server share this machine's memory (a Unix socket, no forwarded connection).
  bool isLocal() const { return local_; }

  bool hasExtension(xcb_extension_t* extension) const;
  /// The number that extension's first event carries; 0 without the extension.
  std::uint8_t firstEvent(xcb_extension_t* extension) const;

  /// Fetches the numbers of names in one round trip; later `atom` calls for them cost nothing.
  void fetchAtoms(std::span<const std::string_view> names);
  xcb_atom_t atom(std::string_view name);

  /// The error code of a checked request, 0 when it went well.
  std::uint8_t check(xcb_void_cookie_t cookie) const;

  /// Reads a property of 32-bit values in one round trip; empty when it is absent or of another form.
  std::vector<std::uint32_t> numbers(xcb_window_t window, std::string_view property);
  /// Reads a property of bytes, at most `limit` of them.
  std::string text(xcb_window_t window, std::string_view property, std::uint32_t limit = 4096);

  /// The root window's size now; empty when the connection is lost.
  PixelSize rootSize() const;

 private:
  X11Connection() = default;

  xcb_connection_t* connection_ = nullptr;
  const xcb_setup_t* setup_ = nullptr;
  const xcb_screen_t* screen_ = nullptr;
  int screenNumber_ = 0;
  bool local_ = false;
  std::map<std::string, xcb_atom_t, std::less<>> atoms_;
};

/// Asks for a property; the answer is read with `propertyNumbers` or `propertyText`, so that many can be on their way
/// at once.
xcb_get_property_cookie_t askProperty(X11Connection& connection, xcb_window_t window, std::string_view property,
                                      std::uint32_t limitBytes = 4096);
std::vector<std::uint32_t> propertyNumbers(const xcb_get_property_reply_t* reply);
std::string propertyText(const xcb_get_property_reply_t* reply);

/// Keeps every other program from drawing or moving windows while it lives. Keep it short: a few milliseconds.
class X11ServerGrab {
 public:
  explicit X11ServerGrab(X11Connection& connection) : connection_(connection) { xcb_grab_server(connection_.get()); }
  ~X11ServerGrab() { release(); }
  X11ServerGrab(const X11ServerGrab&) = delete;
  X11ServerGrab& operator=(const X11ServerGrab&) = delete;
  void release() {
    if (held_) {
      xcb_ungrab_server(connection_.get());
      xcb_flush(connection_.get());
    }
    held_ = false;
  }

 private:
  X11Connection& connection_;
  bool held_ = true;
};

}  // namespace vellora
