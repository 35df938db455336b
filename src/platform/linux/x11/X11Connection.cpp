#include "platform/linux/x11/X11Connection.h"

#include <sys/socket.h>

namespace vellora {

std::unique_ptr<X11Connection> X11Connection::open(const std::string& display) {
  std::unique_ptr<X11Connection> result(new X11Connection);
  result->connection_ = xcb_connect(display.empty() ? nullptr : display.c_str(), &result->screenNumber_);
  if (result->isBroken()) return nullptr;
  result->setup_ = xcb_get_setup(result->connection_);
  auto screens = xcb_setup_roots_iterator(result->setup_);
  for (int i = 0; i < result->screenNumber_ && screens.rem > 1; ++i) xcb_screen_next(&screens);
  if (screens.rem == 0) return nullptr;
  result->screen_ = screens.data;
  sockaddr_storage address{};
  socklen_t length = sizeof(address);
  const int socket = xcb_get_file_descriptor(result->connection_);
  result->local_ =
      getsockname(socket, reinterpret_cast<sockaddr*>(&address), &length) == 0 && address.ss_family == AF_UNIX;
  return result;
}

X11Connection::~X11Connection() {
  xcb_disconnect(connection_);
}

bool X11Connection::hasExtension(xcb_extension_t* extension) const {
  const xcb_query_extension_reply_t* data = xcb_get_extension_data(connection_, extension);
  return data != nullptr && data->present != 0;
}

std::uint8_t X11Connection::firstEvent(xcb_extension_t* extension) const {
  const xcb_query_extension_reply_t* data = xcb_get_extension_data(connection_, extension);
  return data != nullptr && data->present != 0 ? data->first_event : std::uint8_t{0};
}

void X11Connection::fetchAtoms(std::span<const std::string_view> names) {
  std::vector<std::pair<std::string_view, xcb_intern_atom_cookie_t>> asked;
  for (const std::string_view name : names) {
    if (atoms_.contains(name)) continue;
    asked.emplace_back(name, xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
  for (const auto& [name, cookie] : asked) {
    if (const auto reply = xReply(xcb_intern_atom_reply, connection_, cookie)) atoms_.emplace(name, reply->atom);
  }
}

xcb_atom_t X11Connection::atom(std::string_view name) {
  const auto found = atoms_.find(name);
  if (found != atoms_.end()) return found->second;
  fetchAtoms({&name, 1});
  const auto fetched = atoms_.find(name);
  return fetched != atoms_.end() ? fetched->second : xcb_atom_t{XCB_ATOM_NONE};
}

std::uint8_t X11Connection::check(xcb_void_cookie_t cookie) const {
  const XReply<xcb_generic_error_t> error(xcb_request_check(connection_, cookie));
  return error ? error->error_code : std::uint8_t{0};
}

std::vector<std::uint32_t> X11Connection::numbers(xcb_window_t window, std::string_view property) {
  const auto reply = xReply(xcb_get_property_reply, connection_, askProperty(*this, window, property));
  return propertyNumbers(reply.get());
}

std::string X11Connection::text(xcb_window_t window, std::string_view property, std::uint32_t limit) {
  const auto reply = xReply(xcb_get_property_reply, connection_, askProperty(*this, window, property, limit));
  return propertyText(reply.get());
}

PixelSize X11Connection::rootSize() const {
  const auto reply = xReply(xcb_get_geometry_reply, connection_, xcb_get_geometry(connection_, root()));
  return reply ? PixelSize{reply->width, reply->height} : PixelSize{};
}

xcb_get_property_cookie_t askProperty(X11Connection& connection, xcb_window_t window, std::string_view property,
                                      std::uint32_t limitBytes) {
  return xcb_get_property(connection.get(), 0, window, connection.atom(property), XCB_ATOM_ANY, 0, limitBytes / 4);
}

std::vector<std::uint32_t> propertyNumbers(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 32) return {};
  const auto* values = static_cast<const std::uint32_t*>(xcb_get_property_value(reply));
  return {values, values + reply->value_len};
}

std::string propertyText(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply)), reply->value_len};
}

}  // namespace vellora
