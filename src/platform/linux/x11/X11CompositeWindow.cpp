#include "platform/linux/x11/X11CompositeWindow.h"

#include <xcb/xfixes.h>

namespace vellora {

bool X11CompositeWindow::prepare(X11Connection& connection) {
  if (!connection.hasExtension(&xcb_composite_id)) return false;
  const auto version =
      xReply(xcb_composite_query_version_reply, connection.get(), xcb_composite_query_version(connection.get(), 0, 4));
  return version && (version->major_version > 0 || version->minor_version >= 2);
}

std::unique_ptr<X11CompositeWindow> X11CompositeWindow::make(X11Connection& connection, xcb_window_t window) {
  xcb_connection_t* c = connection.get();
  const auto attributesCookie = xcb_get_window_attributes(c, window);
  const auto geometryCookie = xcb_get_geometry(c, window);
  const auto attributes = xReply(xcb_get_window_attributes_reply, c, attributesCookie);
  const auto geometry = xReply(xcb_get_geometry_reply, c, geometryCookie);
  if (!attributes || !geometry || attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) return nullptr;
  const auto format = x11PixelFormat(connection, geometry->depth, attributes->visual);
  if (!format) return nullptr;
  std::unique_ptr<X11CompositeWindow> result(new X11CompositeWindow(connection, window));
  result->format_ = *format;
  result->visual_ = attributes->visual;
  return result->refresh() ? std::move(result) : nullptr;
}

X11CompositeWindow::X11CompositeWindow(X11Connection& connection, xcb_window_t window)
    : connection_(connection), window_(window), drawn_(connection, window) {
  xcb_composite_redirect_window(connection.get(), window, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
}

X11CompositeWindow::~X11CompositeWindow() {
  if (pixmap_ != 0) xcb_free_pixmap(connection_.get(), pixmap_);
  xcb_composite_unredirect_window(connection_.get(), window_, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
}

bool X11CompositeWindow::refresh() {
  xcb_connection_t* c = connection_.get();
  const xcb_pixmap_t pixmap = xcb_generate_id(c);
  const auto nameCookie = xcb_composite_name_window_pixmap_checked(c, window_, pixmap);
  const auto placeCookie = xcb_get_geometry(c, window_);
  const auto sizeCookie = xcb_get_geometry(c, pixmap);
  const bool named = connection_.check(nameCookie) == 0;
  const auto place = xReply(xcb_get_geometry_reply, c, placeCookie);
  const auto size = xReply(xcb_get_geometry_reply, c, sizeCookie);
  if (!named || !place || !size) {
    if (named) xcb_free_pixmap(c, pixmap);
    return false;
  }
  if (pixmap_ != 0) xcb_free_pixmap(c, pixmap_);
  pixmap_ = pixmap;
  border_ = place->border_width;
  frame_ = {place->x, place->y, size->width, size->height};
  readShape();
  return true;
}

void X11CompositeWindow::readShape() {
  xcb_connection_t* c = connection_.get();
  const X11Region outside(connection_, {{-border_, -border_, frame_.width, frame_.height}});
  const xcb_xfixes_region_t shape = xcb_generate_id(c);
  xcb_xfixes_create_region_from_window(c, shape, window_, XCB_SHAPE_SK_BOUNDING);
  xcb_xfixes_subtract_region(c, outside.id(), shape, outside.id());
  const auto asked = xcb_xfixes_fetch_region(c, outside.id());
  outsideShape_ = receiveRegion(connection_, asked, {border_, border_});
  xcb_xfixes_destroy_region(c, shape);
}

}  // namespace vellora
