#include "support/XClient.h"

#include <gtest/gtest.h>
#include <xcb/xtest.h>

#include <cstdlib>

#include "support/XServer.h"

namespace vellora::test {
namespace {

template <class T>
std::unique_ptr<T, decltype(&std::free)> owned(T* reply) {
  return {reply, &std::free};
}

/// X key codes are the kernel's plus eight.
constexpr std::uint8_t evdevOffset = 8;

}  // namespace

XClient::XClient(const XServer& server) {
  connection_ = xcb_connect(server.display().c_str(), nullptr);
  if (xcb_connection_has_error(connection_) != 0) {
    ADD_FAILURE() << "no connection to " << server.display();
    std::abort();
  }
  screen_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data;
}

XClient::~XClient() {
  xcb_disconnect(connection_);
}

xcb_atom_t XClient::atom(const std::string& name) const {
  const auto cookie = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
  const auto reply = owned(xcb_intern_atom_reply(connection_, cookie, nullptr));
  return reply ? reply->atom : XCB_NONE;
}

void XClient::sync() const {
  owned(xcb_get_input_focus_reply(connection_, xcb_get_input_focus(connection_), nullptr));
}

void XClient::setProperty(xcb_window_t window, const std::string& name, const std::string& type,
                          const std::vector<std::uint32_t>& values) const {
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), atom(type), 32,
                      static_cast<std::uint32_t>(values.size()), values.data());
  sync();
}

void XClient::setText(xcb_window_t window, const std::string& name, const std::string& text) const {
  xcb_change_property(connection_, XCB_PROP_MODE_REPLACE, window, atom(name), atom("UTF8_STRING"), 8,
                      static_cast<std::uint32_t>(text.size()), text.data());
  sync();
}

std::vector<std::uint32_t> XClient::property(xcb_window_t window, const std::string& name) const {
  const auto cookie = xcb_get_property(connection_, 0, window, atom(name), XCB_ATOM_ANY, 0, 1024);
  const auto reply = owned(xcb_get_property_reply(connection_, cookie, nullptr));
  if (!reply || reply->format != 32) return {};
  const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
  return {values, values + reply->value_len};
}

void XClient::fill(xcb_drawable_t drawable, const PixelRect& area, std::uint32_t colour) const {
  const xcb_gcontext_t gc = xcb_generate_id(connection_);
  xcb_create_gc(connection_, gc, drawable, XCB_GC_FOREGROUND, &colour);
  const xcb_rectangle_t rectangle{static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                                  static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(area.height)};
  xcb_poly_fill_rectangle(connection_, drawable, gc, 1, &rectangle);
  xcb_free_gc(connection_, gc);
  sync();
}

void XClient::key(std::uint16_t evdevCode, bool press) const {
  xcb_test_fake_input(connection_, press ? XCB_KEY_PRESS : XCB_KEY_RELEASE,
                      static_cast<std::uint8_t>(evdevCode + evdevOffset), XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
  sync();
}

void XClient::chord(const std::vector<std::uint16_t>& evdevCodes) const {
  for (const std::uint16_t code : evdevCodes) key(code, true);
  for (auto code = evdevCodes.rbegin(); code != evdevCodes.rend(); ++code) key(*code, false);
}

void XClient::movePointer(PixelPoint position) const {
  xcb_warp_pointer(connection_, XCB_NONE, root(), 0, 0, 0, 0, static_cast<std::int16_t>(position.x),
                   static_cast<std::int16_t>(position.y));
  sync();
}

void XClient::button(std::uint8_t button, bool press) const {
  xcb_test_fake_input(connection_, press ? XCB_BUTTON_PRESS : XCB_BUTTON_RELEASE, button, XCB_CURRENT_TIME, XCB_NONE, 0,
                      0, 0);
  sync();
}

TestWindow::TestWindow(const XServer& server, Options options) : client_(server), options_(std::move(options)) {
  xcb_connection_t* connection = client_.connection();
  const PixelRect& frame = options_.frame;
  std::uint8_t depth = XCB_COPY_FROM_PARENT;
  xcb_visualid_t visual = XCB_COPY_FROM_PARENT;
  if (options_.alpha) {
    for (auto d = xcb_screen_allowed_depths_iterator(client_.screen()); d.rem > 0; xcb_depth_next(&d)) {
      if (d.data->depth != 32) continue;
      depth = 32;
      visual = xcb_depth_visuals(d.data)->visual_id;
      colormap_ = xcb_generate_id(connection);
      xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, colormap_, client_.root(), visual);
    }
    EXPECT_NE(colormap_, 0U) << "the display has no 32-bit visual";
  }
  id_ = xcb_generate_id(connection);
  xcb_create_window_value_list_t values{};
  values.background_pixel = options_.colour;
  values.border_pixel = 0;
  values.override_redirect = options_.unmanaged ? 1 : 0;
  values.event_mask = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  values.colormap = colormap_;
  std::uint32_t mask = XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK;
  if (colormap_ != 0) mask |= XCB_CW_COLORMAP;
  xcb_create_window_aux(connection, depth, id_, client_.root(), static_cast<std::int16_t>(frame.x),
                        static_cast<std::int16_t>(frame.y), static_cast<std::uint16_t>(frame.width),
                        static_cast<std::uint16_t>(frame.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, visual, mask,
                        &values);
  client_.setText(id_, "_NET_WM_NAME", options_.title);
  const std::string classes = options_.application + '\0' + options_.application + '\0';
  xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id_, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                      static_cast<std::uint32_t>(classes.size()), classes.data());
  // "The program chose this position" (flag 4 of WM_NORMAL_HINTS), so that a window manager leaves the window there.
  std::vector<std::uint32_t> hints(18, 0);
  hints[0] = 1U << 2;
  client_.setProperty(id_, "WM_NORMAL_HINTS", "WM_SIZE_HINTS", hints);
  if (options_.mapped) map();
}

TestWindow::~TestWindow() = default;

void TestWindow::waitUntilViewable(bool viewable) const {
  const bool reached = waitFor([&] {
    const auto cookie = xcb_get_window_attributes(client_.connection(), id_);
    const auto reply = owned(xcb_get_window_attributes_reply(client_.connection(), cookie, nullptr));
    return reply && (reply->map_state == XCB_MAP_STATE_VIEWABLE) == viewable;
  });
  EXPECT_TRUE(reached) << options_.title << " did not " << (viewable ? "appear" : "disappear");
}

void TestWindow::map() {
  xcb_map_window(client_.connection(), id_);
  client_.sync();
  waitUntilViewable(true);
}

void TestWindow::unmap() {
  xcb_unmap_window(client_.connection(), id_);
  client_.sync();
  waitUntilViewable(false);
}

void TestWindow::paint(std::uint32_t colour) {
  options_.colour = colour;
  xcb_change_window_attributes(client_.connection(), id_, XCB_CW_BACK_PIXEL, &colour);
  xcb_clear_area(client_.connection(), 0, id_, 0, 0, 0, 0);
  client_.sync();
}

void TestWindow::move(PixelRect frame) {
  const std::uint32_t values[] = {static_cast<std::uint32_t>(frame.x), static_cast<std::uint32_t>(frame.y),
                                  static_cast<std::uint32_t>(frame.width), static_cast<std::uint32_t>(frame.height)};
  xcb_configure_window(client_.connection(), id_,
                       XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                       values);
  client_.sync();
}

void TestWindow::raise() {
  const std::uint32_t above = XCB_STACK_MODE_ABOVE;
  xcb_configure_window(client_.connection(), id_, XCB_CONFIG_WINDOW_STACK_MODE, &above);
  client_.sync();
}

void TestWindow::destroy() {
  xcb_destroy_window(client_.connection(), id_);
  client_.sync();
}

PixelRect TestWindow::frame() const {
  xcb_connection_t* connection = client_.connection();
  const auto geometry = owned(xcb_get_geometry_reply(connection, xcb_get_geometry(connection, id_), nullptr));
  const auto place = owned(xcb_translate_coordinates_reply(
      connection, xcb_translate_coordinates(connection, id_, client_.root(), 0, 0), nullptr));
  if (!geometry || !place) return {};
  return {place->dst_x, place->dst_y, geometry->width, geometry->height};
}

xcb_window_t TestWindow::topLevel() const {
  xcb_window_t window = id_;
  while (true) {
    const auto cookie = xcb_query_tree(client_.connection(), window);
    const auto reply = owned(xcb_query_tree_reply(client_.connection(), cookie, nullptr));
    if (!reply || reply->parent == client_.root() || reply->parent == XCB_NONE) return window;
    window = reply->parent;
  }
}

}  // namespace vellora::test
