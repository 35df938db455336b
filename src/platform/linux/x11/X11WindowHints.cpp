#include "platform/linux/x11/X11WindowHints.h"

#include <xcb/xfixes.h>

#include <algorithm>
#include <array>
#include <limits>

#include "platform/linux/x11/X11Connection.h"

namespace vellora {
namespace {

constexpr std::uint32_t everyDesktop = 0xFFFFFFFF;
constexpr std::uint32_t addState = 1;
constexpr std::uint32_t fromApplication = 1;

void tellWindowManager(X11Connection& connection, xcb_window_t window, std::string_view message,
                       const std::array<std::uint32_t, 5>& values) {
  xcb_client_message_event_t event{};
  event.response_type = XCB_CLIENT_MESSAGE;
  event.format = 32;
  event.window = window;
  event.type = connection.atom(message);
  std::ranges::copy(values, event.data.data32);
  xcb_send_event(connection.get(), 0, connection.root(),
                 XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&event));
}

/// Sends what was asked for and drops the errors about windows that have gone meanwhile.
void finish(X11Connection& connection) {
  xcb_flush(connection.get());
  while (xcb_generic_event_t* event = xcb_poll_for_event(connection.get())) std::free(event);
}

template <class T>
T within(int value) {
  return static_cast<T>(std::clamp<int>(value, std::numeric_limits<T>::min(), std::numeric_limits<T>::max()));
}

}  // namespace

X11WindowHints::X11WindowHints() = default;
X11WindowHints::~X11WindowHints() = default;

X11Connection* X11WindowHints::connection() {
  if (!tried_) {
    tried_ = true;
    connection_ = X11Connection::open();
    if (connection_) {
      // The server accepts the extension's requests only once it knows the version.
      xReply(xcb_xfixes_query_version_reply, connection_->get(),
             xcb_xfixes_query_version(connection_->get(), XCB_XFIXES_MAJOR_VERSION, XCB_XFIXES_MINOR_VERSION));
    }
  }
  return connection_ && !connection_->isBroken() ? connection_.get() : nullptr;
}

void X11WindowHints::keepEverywhere(std::uint64_t window) {
  X11Connection* const x = connection();
  if (x == nullptr) return;
  constexpr std::array<std::string_view, 5> names{"_NET_WM_DESKTOP", "_NET_WM_STATE", "_NET_WM_STATE_SKIP_TASKBAR",
                                                  "_NET_WM_STATE_SKIP_PAGER", "_NET_WM_STATE_STICKY"};
  x->fetchAtoms(names);
  const auto id = static_cast<xcb_window_t>(window);
  // A window manager reads the property when the window appears and the message afterwards.
  xcb_change_property(x->get(), XCB_PROP_MODE_REPLACE, id, x->atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1,
                      &everyDesktop);
  tellWindowManager(*x, id, "_NET_WM_DESKTOP", {everyDesktop, fromApplication});
  tellWindowManager(
      *x, id, "_NET_WM_STATE",
      {addState, x->atom("_NET_WM_STATE_SKIP_TASKBAR"), x->atom("_NET_WM_STATE_SKIP_PAGER"), fromApplication});
  tellWindowManager(*x, id, "_NET_WM_STATE", {addState, x->atom("_NET_WM_STATE_STICKY"), 0, fromApplication});
  finish(*x);
}

void X11WindowHints::limitInput(std::uint64_t window, const std::vector<PixelRect>& regions) {
  setShape(window, regions, XCB_SHAPE_SK_INPUT);
}

void X11WindowHints::limitVisible(std::uint64_t window, const std::vector<PixelRect>& regions) {
  setShape(window, regions, XCB_SHAPE_SK_BOUNDING);
}

void X11WindowHints::setShape(std::uint64_t window, const std::vector<PixelRect>& regions, unsigned kind) {
  X11Connection* const x = connection();
  if (x == nullptr || !x->hasExtension(&xcb_xfixes_id)) return;
  std::vector<xcb_rectangle_t> rectangles;
  rectangles.reserve(regions.size());
  for (const PixelRect& region : regions) {
    rectangles.push_back({within<std::int16_t>(region.x), within<std::int16_t>(region.y),
                          within<std::uint16_t>(region.width), within<std::uint16_t>(region.height)});
  }
  const xcb_xfixes_region_t region = xcb_generate_id(x->get());
  xcb_xfixes_create_region(x->get(), region, static_cast<std::uint32_t>(rectangles.size()), rectangles.data());
  xcb_xfixes_set_window_shape_region(x->get(), static_cast<xcb_window_t>(window), static_cast<xcb_shape_sk_t>(kind), 0,
                                     0, region);
  xcb_xfixes_destroy_region(x->get(), region);
  finish(*x);
}

void X11WindowHints::setShadowMargin(std::uint64_t window, int margin) {
  X11Connection* const x = connection();
  if (x == nullptr) return;
  const auto side = static_cast<std::uint32_t>(std::max(0, margin));
  const std::array<std::uint32_t, 4> sides{side, side, side, side};
  xcb_change_property(x->get(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window), x->atom("_GTK_FRAME_EXTENTS"),
                      XCB_ATOM_CARDINAL, 32, sides.size(), sides.data());
  finish(*x);
}

std::uint64_t X11WindowHints::activeWindow() {
  X11Connection* const x = connection();
  if (x == nullptr) return 0;
  const auto active = x->numbers(x->root(), "_NET_ACTIVE_WINDOW");
  return active.empty() ? 0 : active[0];
}

void X11WindowHints::activate(std::uint64_t window) {
  X11Connection* const x = connection();
  if (x == nullptr) return;
  // As a pager: the word of a program about another one's window would be taken for stealing the keyboard.
  constexpr std::uint32_t fromPager = 2;
  tellWindowManager(*x, static_cast<xcb_window_t>(window), "_NET_ACTIVE_WINDOW", {fromPager, XCB_CURRENT_TIME, 0});
  finish(*x);
}

}  // namespace vellora
