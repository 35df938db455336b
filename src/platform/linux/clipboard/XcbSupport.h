#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string_view>

namespace vellora::xcb {

struct Free {
  void operator()(void* memory) const { std::free(memory); }
};
/// A reply, event or error; libxcb hands them over to be freed.
template <class T>
using Owned = std::unique_ptr<T, Free>;

struct Disconnect {
  void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};
using Connection = std::unique_ptr<xcb_connection_t, Disconnect>;

/// A connection to the display of the environment, and its screen.
struct Display {
  Connection connection;
  xcb_screen_t* screen = nullptr;
};

/// Nothing when there is no X server to reach.
std::optional<Display> openDisplay();

/// An unmapped window to exchange selections with; it receives property changes.
xcb_window_t makeExchangeWindow(const Display& display);

/// The atom of that name; XCB_ATOM_NONE when the server is gone.
xcb_atom_t atom(xcb_connection_t* connection, std::string_view name);

/// Milliseconds of a clock that never jumps.
std::int64_t monotonicMilliseconds();

/// Waits for an event until the moment `deadline` (monotonicMilliseconds; negative: for ever) or until the descriptor
/// `cancel`
/// (-1: none) can be read. Nothing when it ended without an event or the server is gone.
Owned<xcb_generic_event_t> waitForEvent(xcb_connection_t* connection, std::int64_t deadline, int cancel = -1);

/// The kind of an event, whoever sent it.
inline std::uint8_t kindOf(const xcb_generic_event_t& event) {
  return event.response_type & 0x7F;
}

}  // namespace vellora::xcb
