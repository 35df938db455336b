#include "platform/linux/clipboard/XcbSupport.h"

#include <poll.h>
#include <time.h>

#include <algorithm>
#include <array>

namespace vellora::xcb {

std::optional<Display> openDisplay() {
  int screenNumber = 0;
  Display display;
  display.connection.reset(xcb_connect(nullptr, &screenNumber));
  if (xcb_connection_has_error(display.connection.get()) != 0) return std::nullopt;
  xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(display.connection.get()));
  for (; screens.rem > 0; --screenNumber, xcb_screen_next(&screens)) {
    if (screenNumber == 0) display.screen = screens.data;
  }
  if (!display.screen) return std::nullopt;
  return display;
}

xcb_window_t makeExchangeWindow(const Display& display) {
  const xcb_window_t window = xcb_generate_id(display.connection.get());
  const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
  xcb_create_window(display.connection.get(), XCB_COPY_FROM_PARENT, window, display.screen->root, -1, -1, 1, 1, 0,
                    XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
  return window;
}

xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
  const auto cookie = xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection, cookie, nullptr));
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

std::int64_t monotonicMilliseconds() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

Owned<xcb_generic_event_t> waitForEvent(xcb_connection_t* connection, std::int64_t deadline, int cancel) {
  xcb_flush(connection);
  while (xcb_connection_has_error(connection) == 0) {
    if (Owned<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) return event;
    int timeout = -1;
    if (deadline >= 0) {
      timeout = static_cast<int>(std::max<std::int64_t>(0, deadline - monotonicMilliseconds()));
      if (timeout == 0) return nullptr;
    }
    std::array<pollfd, 2> waiting{{{xcb_get_file_descriptor(connection), POLLIN, 0}, {cancel, POLLIN, 0}}};
    ::poll(waiting.data(), waiting.size(), timeout);
    if (waiting[1].revents != 0) return nullptr;
  }
  return nullptr;
}

}  // namespace vellora::xcb
