#include "platform/linux/x11/X11FrameSourceWindow.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "base/Log.h"
#include "platform/linux/x11/X11Windows.h"

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;
constexpr std::size_t mostRects = 32;

bool exists(X11Connection& connection, xcb_window_t window) {
  return xReply(xcb_get_geometry_reply, connection.get(), xcb_get_geometry(connection.get(), window)) != nullptr;
}

void clear(X11FrameBuffer& buffer, const PixelRect& area) {
  const PixelRect inside = area.intersected({0, 0, buffer.size.width, buffer.size.height});
  for (int y = inside.y; y < inside.bottom(); ++y) {
    std::memset(buffer.row(y) + static_cast<std::size_t>(inside.x) * 4, 0, static_cast<std::size_t>(inside.width) * 4);
  }
}

}  // namespace

Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> X11FrameSourceWindow::make(
    X11Connection& connection, const ScreenStreamConfiguration& configuration) {
  constexpr int largest = 1 << 15;
  const PixelSize size = configuration.area.size();
  if (configuration.area.isEmpty() || size.width >= largest || size.height >= largest ||
      !X11DrawingCounter::prepare(connection) || !X11CompositeWindow::prepare(connection)) {
    log::warning(QStringLiteral("window stream failed: no size, or the display cannot draw covered windows"));
    return failure(ScreenCaptureError::Failed);
  }
  std::unique_ptr<X11FrameSourceWindow> source(new X11FrameSourceWindow(connection, *configuration.window, size));
  const auto found = source->findWindow();
  if (!found) return failure(found.error());
  return source;
}

X11FrameSourceWindow::X11FrameSourceWindow(X11Connection& connection, xcb_window_t window, PixelSize size)
    : connection_(connection), window_(window), size_(size), reader_(connection), changed_(connection) {
  watch(window);
}

void X11FrameSourceWindow::watch(xcb_window_t window) const {
  constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
}

void X11FrameSourceWindow::handle(const xcb_generic_event_t& event) {
  if (top_->drawn().handle(event)) return;
  switch (event.response_type & ~sentFlag) {
    case XCB_DESTROY_NOTIFY:
      if (reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window == window_) gone_ = true;
      moved_ = true;
      return;
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
      // Both name the window in the same place.
      if (reinterpret_cast<const xcb_map_notify_event_t&>(event).window == window_) {
        isMapped_ = (event.response_type & ~sentFlag) == XCB_MAP_NOTIFY;
      }
      moved_ = true;
      return;
    case XCB_CONFIGURE_NOTIFY:
    case XCB_REPARENT_NOTIFY:
      moved_ = true;
      return;
    default:
      return;
  }
}

Result<bool, ScreenCaptureError> X11FrameSourceWindow::findWindow() {
  const auto top = gone_ ? std::nullopt : topLevelOf(connection_, window_);
  if (connection_.isBroken()) return failure(ScreenCaptureError::NotAvailable);
  if (!top) {
    // A frame that its window manager takes off at this moment is no end.
    if (gone_ || !top_ || !exists(connection_, window_)) return failure(ScreenCaptureError::WindowGone);
    moved_ = true;
    return false;
  }
  bool another = isAnother(*top);
  if (!top_) return failure(ScreenCaptureError::WindowGone);
  another = std::exchange(wasFrozen_, isFrozen()) || another;
  if (isFrozen()) return false;
  const PixelRect whole{0, 0, top_->frame().width, top_->frame().height};
  const PixelRect crop = withoutMargins(whole, shadowMargins(connection_.numbers(window_, "_GTK_FRAME_EXTENTS")));
  if (!another && crop == crop_) return false;
  crop_ = crop;
  if (!fit()) return failure(ScreenCaptureError::Failed);
  return true;
}

/// Whether the pixmap has another picture than what was drawn into it tells.
bool X11FrameSourceWindow::isAnother(xcb_window_t top) {
  if (!top_ || top_->window() != top) {
    watch(top);
    auto found = X11CompositeWindow::make(connection_, top);
    isHidden_ = !found;
    if (found) top_ = std::move(found);
    return true;
  }
  const std::vector<PixelRect> shape = top_->outsideShape();
  isHidden_ = !top_->refresh();
  return top_->outsideShape() != shape;
}

/// Places the window in the picture, as large as it can be. False when memory is short.
bool X11FrameSourceWindow::fit() {
  const double scale =
      std::min(static_cast<double>(size_.width) / crop_.width, static_cast<double>(size_.height) / crop_.height);
  const auto scaled = [scale](int length, int most) {
    return std::clamp(static_cast<int>(std::lround(length * scale)), 1, most);
  };
  place_.width = scaled(crop_.width, size_.width);
  place_.height = scaled(crop_.height, size_.height);
  place_.x = (size_.width - place_.width) / 2;
  place_.y = (size_.height - place_.height) / 2;
  if (!top_->format().isNative()) {
    reader_.reserve(top_->format().rowBytes(crop_.width) * static_cast<std::size_t>(crop_.height));
  }
  scaler_.reset();
  unscaled_ = {};
  if (place_.size() == crop_.size()) return true;
  scaler_.emplace(crop_.size(), place_.size());
  unscaled_ = X11FrameBuffer::make(connection_, crop_.size());
  return unscaled_.memory != nullptr;
}

xcb_xfixes_fetch_region_cookie_t X11FrameSourceWindow::askChanges() {
  top_->drawn().moveTo(changed_.id());
  return xcb_xfixes_fetch_region(connection_.get(), changed_.id());
}

X11FrameSource::Rects X11FrameSourceWindow::receiveChanges(xcb_xfixes_fetch_region_cookie_t cookie) {
  const int border = top_->border();
  Rects rects = receiveRegion(connection_, cookie, {border - crop_.x, border - crop_.y});
  mergeRects(rects, mostRects);
  for (PixelRect& rect : rects) {
    rect = rect.intersected({0, 0, crop_.width, crop_.height});
    unscaled_.stale.add(rowsOf(rect));
    rect = inPicture(rect);
  }
  std::erase_if(rects, [](const PixelRect& rect) { return rect.isEmpty(); });
  return rects;
}

PixelRect X11FrameSourceWindow::inPicture(const PixelRect& ofWindow) const {
  if (ofWindow.isEmpty()) return {};
  if (!scaler_) return ofWindow.translated(place_.x, place_.y);
  const auto [left, right] = scaler_->affectedColumns({ofWindow.x, ofWindow.right()});
  const auto [top, bottom] = scaler_->affectedRows(rowsOf(ofWindow));
  return {place_.x + left, place_.y + top, right - left, bottom - top};
}

Result<X11FrameSource::Rects, ScreenCaptureError> X11FrameSourceWindow::changes() {
  bool everything = false;
  if (std::exchange(moved_, false)) {
    const auto found = findWindow();
    if (!found) return failure(found.error());
    everything = *found;
  }
  Rects changed = receiveChanges(askChanges());
  if (connection_.isBroken()) return failure(ScreenCaptureError::NotAvailable);
  changed.insert(changed.end(), late_.begin(), late_.end());
  late_.clear();
  if (isFrozen()) return Rects{};
  return everything ? Rects{{0, 0, size_.width, size_.height}} : changed;
}

std::optional<X11FrameSource::Rects> X11FrameSourceWindow::read(std::span<const RowBand> bands,
                                                                X11FrameBuffer& buffer) {
  const RowBands unscaled = unscaled_.stale;
  xcb_xfixes_fetch_region_cookie_t asked{};
  {
    const X11ServerGrab held(connection_);
    if (scaler_) {
      for (const RowBand& band : unscaled.bands()) askRows(band, unscaled_, {0, 0});
    } else {
      for (const RowBand& band : bands) askRows(band, buffer, {place_.x, place_.y});
    }
    asked = askChanges();
  }
  const bool complete = reader_.receive();
  if (complete) unscaled_.stale.clear();
  Rects late = receiveChanges(asked);
  if (!complete) {
    crop_ = {};  // so that all of it is found anew
    moved_ = true;
    return std::nullopt;
  }
  if (scaler_) {
    for (const RowBand& band : unscaled.bands()) clearOutside(band, unscaled_, {0, 0});
    late_ = late;
  }
  for (const RowBand& band : bands) {
    if (scaler_) {
      scale(band, buffer);
    } else {
      clearOutside(band, buffer, {place_.x, place_.y});
    }
    clearMargins(band, buffer);
  }
  return late;
}

/// Asks for those of the window's rows that lie in `rows` of a buffer in which the window is at `at`.
void X11FrameSourceWindow::askRows(RowBand rows, X11FrameBuffer& buffer, PixelPoint at) {
  const int top = std::max(rows.top - at.y, 0);
  const int bottom = std::min(rows.bottom - at.y, crop_.height);
  if (bottom <= top) return;
  reader_.ask(top_->pixmap(), top_->format(), {crop_.x, crop_.y + top, crop_.width, bottom - top}, buffer,
              {at.x, at.y + top});
}

void X11FrameSourceWindow::clearOutside(RowBand rows, X11FrameBuffer& buffer, PixelPoint at) const {
  const PixelRect band{0, rows.top, buffer.size.width, rows.bottom - rows.top};
  for (const PixelRect& rect : top_->outsideShape()) {
    clear(buffer, rect.translated(at.x - crop_.x, at.y - crop_.y).intersected(band));
  }
}

void X11FrameSourceWindow::scale(RowBand rows, X11FrameBuffer& buffer) {
  const RowBand inside{std::max(rows.top - place_.y, 0), std::min(rows.bottom - place_.y, place_.height)};
  scaler_->scale(unscaled_, inside, buffer, {place_.x, place_.y});
}

void X11FrameSourceWindow::clearMargins(RowBand rows, X11FrameBuffer& buffer) const {
  const PixelRect band{0, rows.top, size_.width, rows.bottom - rows.top};
  for (const PixelRect& margin : subtracted({band}, place_)) clear(buffer, margin);
}

X11FrameSource::Cursor X11FrameSourceWindow::cursor(const X11Pointer& pointer) const {
  const double scale = static_cast<double>(place_.width) / crop_.width;
  const auto inPlace = [scale](int position) { return static_cast<int>(std::floor(position * scale)); };
  return {.position = {place_.x + inPlace(pointer.position.x - top_->frame().x - crop_.x),
                       place_.y + inPlace(pointer.position.y - top_->frame().y - crop_.y)},
          .scale = scale,
          .isShown = pointer.window == top_->window() && !isFrozen()};
}

}  // namespace vellora
