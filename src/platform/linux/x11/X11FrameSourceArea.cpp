#include "platform/linux/x11/X11FrameSourceArea.h"

#include <xcb/randr.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "base/Log.h"
#include "platform/linux/x11/X11Displays.h"

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;
/// More changes than this are united.
constexpr std::size_t mostRects = 32;

xcb_rectangle_t wireRect(const PixelRect& rect) {
  return {static_cast<std::int16_t>(rect.x), static_cast<std::int16_t>(rect.y), static_cast<std::uint16_t>(rect.width),
          static_cast<std::uint16_t>(rect.height)};
}

/// X positions have 16 bits.
bool isSane(const PixelRect& area) {
  constexpr int furthest = 1 << 15;
  return !area.isEmpty() && std::abs(std::int64_t{area.x}) < furthest && std::abs(std::int64_t{area.y}) < furthest &&
         area.width < furthest && area.height < furthest;
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

Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> X11FrameSourceArea::make(
    X11Connection& connection, const ScreenStreamConfiguration& configuration) {
  if (!isSane(configuration.area)) return failure(ScreenCaptureError::NoDisplay);
  const auto format = x11PixelFormat(connection, connection.screen()->root_depth, connection.screen()->root_visual);
  if (!format || !X11DrawingCounter::prepare(connection)) {
    log::warning(QStringLiteral("screen stream failed: the display cannot tell what changes on it"));
    return failure(ScreenCaptureError::Failed);
  }
  std::unique_ptr<X11FrameSourceArea> source(new X11FrameSourceArea(connection, configuration.area, *format));
  if (!source->findDisplays()) {
    return failure(connection.isBroken() ? ScreenCaptureError::NotAvailable : ScreenCaptureError::NoDisplay);
  }
  return source;
}

X11FrameSourceArea::X11FrameSourceArea(X11Connection& connection, const PixelRect& area, const X11PixelFormat& format)
    : connection_(connection),
      area_(area),
      format_(format),
      reader_(connection),
      drawn_(connection, connection.root()),
      areaRegion_(xcb_generate_id(connection.get())),
      changed_(xcb_generate_id(connection.get())) {
  xcb_connection_t* c = connection.get();
  const xcb_rectangle_t wire = wireRect(area);
  xcb_xfixes_create_region(c, areaRegion_, 1, &wire);
  xcb_xfixes_create_region(c, changed_, 0, nullptr);
  if (connection.hasExtension(&xcb_randr_id)) {
    randrEvent_ = connection.firstEvent(&xcb_randr_id);
    xReply(xcb_randr_query_version_reply, c, xcb_randr_query_version(c, 1, 5));
    xcb_randr_select_input(
        c, connection.root(),
        XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
  }
}

X11FrameSourceArea::~X11FrameSourceArea() {
  xcb_xfixes_destroy_region(connection_.get(), areaRegion_);
  xcb_xfixes_destroy_region(connection_.get(), changed_);
}

void X11FrameSourceArea::handle(const xcb_generic_event_t& event) {
  if (drawn_.handle(event)) return;
  const int type = event.response_type & ~sentFlag;
  if (randrEvent_ != 0 &&
      (type == randrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY || type == randrEvent_ + XCB_RANDR_NOTIFY)) {
    displaysChanged_ = true;
  }
}

bool X11FrameSourceArea::findDisplays() {
  const auto rootCookie = xcb_get_geometry(connection_.get(), connection_.root());
  black_ = {area_};
  for (const DisplayInfo& display : readDisplays(connection_)) black_ = subtracted(black_, display.frame);
  const auto root = xReply(xcb_get_geometry_reply, connection_.get(), rootCookie);
  if (!root) return false;
  onRoot_ = area_.intersected({0, 0, root->width, root->height});
  if (onRoot_.isEmpty() || black_ == Rects{area_}) return false;
  for (PixelRect& rect : black_) rect = rect.translated(-area_.x, -area_.y);
  const bool direct = format_.isNative() && onRoot_.width == area_.width;
  if (!direct) reader_.reserve(format_.rowBytes(onRoot_.width) * static_cast<std::size_t>(onRoot_.height));
  return true;
}

xcb_xfixes_fetch_region_cookie_t X11FrameSourceArea::askChanges() {
  drawn_.moveTo(changed_);
  xcb_xfixes_intersect_region(connection_.get(), changed_, areaRegion_, changed_);
  return xcb_xfixes_fetch_region(connection_.get(), changed_);
}

X11FrameSource::Rects X11FrameSourceArea::receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie) {
  const auto reply = xReply(xcb_xfixes_fetch_region_reply, connection_.get(), cookie);
  Rects rects;
  if (!reply) return rects;
  const xcb_rectangle_t* r = xcb_xfixes_fetch_region_rectangles(reply.get());
  const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
  for (int i = 0; i < count; ++i) rects.push_back({r[i].x - area_.x, r[i].y - area_.y, r[i].width, r[i].height});
  mergeRects(rects, mostRects);
  return rects;
}

Result<X11FrameSource::Rects, ScreenCaptureError> X11FrameSourceArea::changes() {
  const auto asked = askChanges();
  Rects changed = receiveChanges(asked);
  if (connection_.isBroken()) return failure(ScreenCaptureError::NotAvailable);
  if (!displaysChanged_) return changed;
  displaysChanged_ = false;
  if (!findDisplays()) {
    return failure(connection_.isBroken() ? ScreenCaptureError::NotAvailable : ScreenCaptureError::NoDisplay);
  }
  return Rects{{0, 0, area_.width, area_.height}};
}

std::optional<X11FrameSource::Rects> X11FrameSourceArea::read(std::span<const RowBand> bands, X11FrameBuffer& buffer) {
  const PixelPoint at{onRoot_.x - area_.x, onRoot_.y - area_.y};
  xcb_xfixes_fetch_region_cookie_t asked{};
  {
    // Everything below is one message: nobody waits for us while the server is held.
    const X11ServerGrab held(connection_);
    for (const RowBand& band : bands) {
      const int top = std::max(band.top, at.y);
      const int rows = std::min(band.bottom, at.y + onRoot_.height) - top;
      if (rows <= 0) continue;
      reader_.ask(connection_.root(), format_, {onRoot_.x, area_.y + top, onRoot_.width, rows}, buffer, {at.x, top});
    }
    asked = askChanges();
  }
  const bool complete = reader_.receive();
  Rects late = receiveChanges(asked);
  if (!complete) {
    displaysChanged_ = true;
    return std::nullopt;
  }
  for (const PixelRect& rect : black_) {
    for (const RowBand& band : bands) {
      for (int y = std::max(rect.y, band.top); y < std::min(rect.bottom(), band.bottom); ++y) {
        std::memset(buffer.row(y) + static_cast<std::size_t>(rect.x) * 4, 0, static_cast<std::size_t>(rect.width) * 4);
      }
    }
  }
  return late;
}

X11FrameSource::Cursor X11FrameSourceArea::cursor(const X11Pointer& pointer) const {
  return {.position = {pointer.position.x - area_.x, pointer.position.y - area_.y}};
}

}  // namespace vellora
