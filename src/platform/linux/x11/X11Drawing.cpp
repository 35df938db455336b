#include "platform/linux/x11/X11Drawing.h"

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;

std::vector<xcb_rectangle_t> wireRects(const std::vector<PixelRect>& rects) {
  std::vector<xcb_rectangle_t> wire;
  for (const PixelRect& rect : rects) {
    wire.push_back({static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y),
                    static_cast<std::uint16_t>(rect.width), static_cast<std::uint16_t>(rect.height)});
  }
  return wire;
}

}  // namespace

bool X11DrawingCounter::prepare(X11Connection& connection) {
  xcb_connection_t* c = connection.get();
  if (!connection.hasExtension(&xcb_damage_id) || !connection.hasExtension(&xcb_xfixes_id)) return false;
  constexpr std::uint32_t regionsSince = 2;
  const auto damageCookie = xcb_damage_query_version(c, 1, 1);
  const auto fixesCookie = xcb_xfixes_query_version(c, regionsSince, 0);
  const auto damage = xReply(xcb_damage_query_version_reply, c, damageCookie);
  const auto fixes = xReply(xcb_xfixes_query_version_reply, c, fixesCookie);
  return damage && fixes && fixes->major_version >= regionsSince;
}

X11DrawingCounter::X11DrawingCounter(X11Connection& connection, xcb_drawable_t drawable)
    : connection_(connection),
      damage_(xcb_generate_id(connection.get())),
      event_(static_cast<std::uint8_t>(connection.firstEvent(&xcb_damage_id) + XCB_DAMAGE_NOTIFY)) {
  xcb_damage_create(connection.get(), damage_, drawable, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
}

X11DrawingCounter::~X11DrawingCounter() {
  xcb_damage_destroy(connection_.get(), damage_);
}

bool X11DrawingCounter::handle(const xcb_generic_event_t& event) {
  if ((event.response_type & ~sentFlag) != event_) return false;
  if (reinterpret_cast<const xcb_damage_notify_event_t&>(event).damage != damage_) return false;
  // What an event tells of that was on its way meanwhile has been moved.
  if (static_cast<std::int32_t>(event.full_sequence - movedAt_) < 0) return false;
  dirty_ = true;
  return true;
}

void X11DrawingCounter::moveTo(xcb_xfixes_region_t region) {
  movedAt_ = xcb_damage_subtract(connection_.get(), damage_, XCB_NONE, region).sequence;
  dirty_ = false;
}

X11Region::X11Region(X11Connection& connection, const std::vector<PixelRect>& rects)
    : connection_(connection), id_(xcb_generate_id(connection.get())) {
  const auto wire = wireRects(rects);
  xcb_xfixes_create_region(connection.get(), id_, static_cast<std::uint32_t>(wire.size()), wire.data());
}

X11Region::~X11Region() {
  xcb_xfixes_destroy_region(connection_.get(), id_);
}

void X11Region::set(const std::vector<PixelRect>& rects) {
  const auto wire = wireRects(rects);
  xcb_xfixes_set_region(connection_.get(), id_, static_cast<std::uint32_t>(wire.size()), wire.data());
}

std::vector<PixelRect> receiveRegion(X11Connection& connection, xcb_xfixes_fetch_region_cookie_t cookie,
                                     PixelPoint by) {
  const auto reply = xReply(xcb_xfixes_fetch_region_reply, connection.get(), cookie);
  std::vector<PixelRect> rects;
  if (!reply) return rects;
  const xcb_rectangle_t* r = xcb_xfixes_fetch_region_rectangles(reply.get());
  const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
  for (int i = 0; i < count; ++i) rects.push_back({r[i].x + by.x, r[i].y + by.y, r[i].width, r[i].height});
  return rects;
}

}  // namespace vellora
