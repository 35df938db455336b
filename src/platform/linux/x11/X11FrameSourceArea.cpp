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

/// X positions have 16 bits.
bool isSane(const PixelRect& area) {
  constexpr int furthest = 1 << 15;
  return !area.isEmpty() && std::abs(std::int64_t{area.x}) < furthest && std::abs(std::int64_t{area.y}) < furthest &&
         area.width < furthest && area.height < furthest;
}

}  // namespace

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
  source->leaveOut(configuration.leftOut);
  if (source->underlay_) {
    source->underlay_->refresh();
    source->underlay_->waitUntilPainted();
    source->reserve();
  }
  return source;
}

X11FrameSourceArea::X11FrameSourceArea(X11Connection& connection, const PixelRect& area, const X11PixelFormat& format)
    : connection_(connection),
      area_(area),
      format_(format),
      reader_(connection),
      drawn_(connection, connection.root()),
      areaRegion_(connection, {area}),
      changed_(connection) {
  xcb_connection_t* c = connection.get();
  // Monitors that somebody defined come and go with a notice of the root window itself.
  constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(c, connection.root(), XCB_CW_EVENT_MASK, &events);
  if (connection.hasExtension(&xcb_randr_id)) {
    randrEvent_ = connection.firstEvent(&xcb_randr_id);
    xReply(xcb_randr_query_version_reply, c, xcb_randr_query_version(c, 1, 5));
    xcb_randr_select_input(
        c, connection.root(),
        XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
  }
}

void X11FrameSourceArea::leaveOut(const std::vector<WindowId>& windows) {
  if (!underlay_ && !windows.empty()) {
    underlay_ = X11FrameUnderlay::make(connection_, area_);
    if (!underlay_) log::warning(QStringLiteral("screen stream: the display cannot leave out windows"));
  }
  if (underlay_) underlay_->leaveOut(windows);
}

void X11FrameSourceArea::handle(const xcb_generic_event_t& event) {
  if (drawn_.handle(event)) return;
  if (underlay_) underlay_->handle(event);
  const int type = event.response_type & ~sentFlag;
  const bool ofDisplays = randrEvent_ != 0 && (type == randrEvent_ + XCB_RANDR_SCREEN_CHANGE_NOTIFY ||
                                               type == randrEvent_ + XCB_RANDR_NOTIFY);
  const bool ofRoot = type == XCB_CONFIGURE_NOTIFY &&
                      reinterpret_cast<const xcb_configure_notify_event_t&>(event).window == connection_.root();
  if (ofDisplays || ofRoot) displaysChanged_ = true;
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
  reserve();
  return true;
}

/// Makes room for what the server cannot put into the buffers itself.
void X11FrameSourceArea::reserve() {
  const bool direct = format_.isNative() && onRoot_.width == area_.width;
  std::size_t bytes = direct ? 0 : format_.rowBytes(onRoot_.width) * static_cast<std::size_t>(onRoot_.height);
  if (underlay_) bytes += underlay_->bytes();
  reader_.reserve(bytes);
}

xcb_xfixes_fetch_region_cookie_t X11FrameSourceArea::askChanges() {
  drawn_.moveTo(changed_.id());
  if (underlay_) underlay_->addChanges(changed_);
  xcb_xfixes_intersect_region(connection_.get(), changed_.id(), areaRegion_.id(), changed_.id());
  return xcb_xfixes_fetch_region(connection_.get(), changed_.id());
}

X11FrameSource::Rects X11FrameSourceArea::receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie) {
  Rects rects = receiveRegion(connection_, cookie, {-area_.x, -area_.y});
  mergeRects(rects, mostRects);
  return rects;
}

Result<X11FrameSource::Rects, ScreenCaptureError> X11FrameSourceArea::changes() {
  Rects moved;
  if (underlay_ && !(moved = underlay_->refresh()).empty()) reserve();
  Rects changed = receiveChanges(askChanges());
  for (const PixelRect& rect : moved) changed.push_back(rect.translated(-area_.x, -area_.y));
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
    if (underlay_ && underlay_->hasPlaces()) {
      underlay_->compose();
      for (const RowBand& band : bands) {
        const PixelRect rows{area_.x, area_.y + band.top, area_.width, band.bottom - band.top};
        underlay_->ask(reader_, rows, buffer, {area_.x, area_.y});
      }
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
