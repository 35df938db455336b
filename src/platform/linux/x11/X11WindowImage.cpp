#include "platform/linux/x11/X11WindowImage.h"

#include <poll.h>
#include <xcb/composite.h>
#include <xcb/damage.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <vector>

#include "base/Log.h"
#include "platform/linux/x11/X11Windows.h"

namespace vellora {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

/// How long a program may take to begin repainting, to pause afterwards, and both together.
constexpr milliseconds answerTime{250};
constexpr milliseconds pauseTime{40};
constexpr milliseconds longestWait{600};

PixelRect outline(const xcb_get_geometry_reply_t& geometry) {
  const int border = 2 * geometry.border_width;
  return {geometry.x, geometry.y, geometry.width + border, geometry.height + border};
}

/// The shape of a top-level window in the coordinates of its outline; empty when it is a plain rectangle.
std::vector<PixelRect> shapeOf(X11Connection& connection, xcb_window_t window, int border, PixelSize size) {
  xcb_connection_t* c = connection.get();
  if (!connection.hasExtension(&xcb_xfixes_id)) return {};
  constexpr std::uint32_t regionsSince = 2;
  if (!xReply(xcb_xfixes_query_version_reply, c, xcb_xfixes_query_version(c, regionsSince, 0))) return {};
  const xcb_xfixes_region_t region = xcb_generate_id(c);
  const auto created = xcb_xfixes_create_region_from_window_checked(c, region, window, XCB_SHAPE_SK_BOUNDING);
  const auto cookie = xcb_xfixes_fetch_region(c, region);
  const bool exists = connection.check(created) == 0;
  const auto reply = xReply(xcb_xfixes_fetch_region_reply, c, cookie);
  if (exists) xcb_xfixes_destroy_region(c, region);
  if (!reply) return {};
  std::vector<PixelRect> rectangles;
  const xcb_rectangle_t* r = xcb_xfixes_fetch_region_rectangles(reply.get());
  const int count = xcb_xfixes_fetch_region_rectangles_length(reply.get());
  for (int i = 0; i < count; ++i) rectangles.push_back({r[i].x + border, r[i].y + border, r[i].width, r[i].height});
  const PixelRect whole{0, 0, size.width, size.height};
  if (count == 1 && rectangles.front().intersected(whole) == whole) return {};
  return rectangles;
}

/// Clears what lies outside `shape`, given in bands from top to bottom, each from left to right.
void clearOutside(MutableBitmap& bitmap, const std::vector<PixelRect>& shape, PixelPoint origin) {
  const int width = bitmap.size().width;
  std::size_t band = 0;
  for (int y = 0; y < bitmap.size().height; ++y) {
    while (band < shape.size() && shape[band].bottom() - origin.y <= y) ++band;
    int filledTo = 0;
    const auto clear = [&](int from, int to) {
      if (to > from)
        std::memset(bitmap.row(y) + static_cast<std::size_t>(from) * 4, 0, static_cast<std::size_t>(to - from) * 4);
    };
    for (std::size_t i = band; i < shape.size() && shape[i].y - origin.y <= y; ++i) {
      clear(filledTo, std::clamp(shape[i].x - origin.x, 0, width));
      filledTo = std::max(filledTo, std::clamp(shape[i].right() - origin.x, 0, width));
    }
    clear(filledTo, width);
  }
}

/// Whether the fourth byte is an alpha value a program maintains: colours never exceed it, and it is not 0 everywhere.
bool alphaIsMeant(MutableBitmap& bitmap) {
  unsigned highest = 0;
  for (int y = 0; y < bitmap.size().height; ++y) {
    const auto* pixel = reinterpret_cast<const std::uint8_t*>(bitmap.row(y));
    bool exceeded = false;
    for (int x = 0; x < bitmap.size().width; ++x, pixel += 4) {
      exceeded |= std::max({pixel[0], pixel[1], pixel[2]}) > pixel[3];
      highest |= pixel[3];
    }
    if (exceeded) return false;
  }
  return highest != 0;
}

void makeOpaque(MutableBitmap& bitmap) {
  for (int y = 0; y < bitmap.size().height; ++y) {
    std::byte* pixel = bitmap.row(y);
    for (int x = 0; x < bitmap.size().width; ++x, pixel += 4) pixel[3] = std::byte{0xFF};
  }
}

}  // namespace

/// A window with what is needed to read it.
struct X11WindowImage::Target {
  xcb_window_t topLevel = XCB_NONE;
  PixelRect frame;  ///< the top-level window on the root, with its border
  PixelRect crop;   ///< what a person sees of it, relative to `frame`
  X11PixelFormat format;
  std::vector<PixelRect> shape;  ///< relative to `frame`, empty for a plain rectangle
};

/// Gives a window a pixmap of its own while it lives, and counts what is drawn into it.
class X11WindowImage::Redirection {
 public:
  Redirection(X11Connection& connection, xcb_window_t window) : connection_(connection), window_(window) {
    xcb_connection_t* c = connection.get();
    if (connection.hasExtension(&xcb_damage_id) &&
        xReply(xcb_damage_query_version_reply, c, xcb_damage_query_version(c, 1, 1))) {
      damage_ = xcb_generate_id(c);
      xcb_damage_create(c, damage_, window, XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    }
    // While the server is held only the server itself paints: what is reported up to here is not the program's answer.
    const X11ServerGrab held(connection);
    redirected_ =
        connection.check(xcb_composite_redirect_window_checked(c, window, XCB_COMPOSITE_REDIRECT_AUTOMATIC)) == 0;
    while (XReply<xcb_generic_event_t>(xcb_poll_for_queued_event(c))) {
    }
    if (damage_ != 0) xcb_damage_subtract(c, damage_, XCB_NONE, XCB_NONE);
  }
  ~Redirection() {
    if (damage_ != 0) xcb_damage_destroy(connection_.get(), damage_);
    if (redirected_) {
      xcb_composite_unredirect_window(connection_.get(), window_, XCB_COMPOSITE_REDIRECT_AUTOMATIC);
    }
    xcb_flush(connection_.get());
    while (XReply<xcb_generic_event_t>(xcb_poll_for_event(connection_.get()))) {
    }
  }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;
  bool isMade() const { return redirected_; }

 private:
  X11Connection& connection_;
  xcb_window_t window_;
  xcb_damage_damage_t damage_ = 0;
  bool redirected_ = false;
};

Result<Bitmap, ScreenCaptureError> X11WindowImage::take(xcb_window_t window) {
  const auto target = find(window);
  if (!target) return failure(target.error());
  if (prepareComposite()) {
    if (auto picture = fromOwnPixmap(*target)) return std::move(*picture);
  }
  if (auto picture = fromScreen(*target)) return std::move(*picture);
  if (!hasComposite_) {
    log::warning(QStringLiteral("window capture failed: the display cannot draw covered windows"));
    return failure(ScreenCaptureError::Failed);
  }
  return fromRedirection(*target);
}

ScreenCaptureError X11WindowImage::lost() const {
  return connection_.isBroken() ? ScreenCaptureError::NotAvailable : ScreenCaptureError::WindowGone;
}

bool X11WindowImage::prepareComposite() {
  if (prepared_) return hasComposite_;
  prepared_ = true;
  if (connection_.hasExtension(&xcb_composite_id)) {
    const auto version = xReply(xcb_composite_query_version_reply, connection_.get(),
                                xcb_composite_query_version(connection_.get(), 0, 4));
    hasComposite_ = version && (version->major_version > 0 || version->minor_version >= 2);
  }
  return hasComposite_;
}

Result<X11WindowImage::Target, ScreenCaptureError> X11WindowImage::find(xcb_window_t window) {
  xcb_connection_t* c = connection_.get();
  const auto topLevel = topLevelOf(connection_, window);
  if (!topLevel) return failure(lost());
  const auto attributesCookie = xcb_get_window_attributes(c, *topLevel);
  const auto geometryCookie = xcb_get_geometry(c, *topLevel);
  const auto attributes = xReply(xcb_get_window_attributes_reply, c, attributesCookie);
  const auto geometry = xReply(xcb_get_geometry_reply, c, geometryCookie);
  if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
      attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
    return failure(lost());
  }
  const auto format = x11PixelFormat(connection_, geometry->depth, attributes->visual);
  if (!format) return failure(ScreenCaptureError::Failed);
  Target target;
  target.topLevel = *topLevel;
  target.frame = outline(*geometry);
  target.format = *format;
  const PixelRect whole{0, 0, target.frame.width, target.frame.height};
  target.crop = withoutMargins(whole, shadowMargins(connection_.numbers(window, "_GTK_FRAME_EXTENTS")));
  target.shape = shapeOf(connection_, *topLevel, geometry->border_width, target.frame.size());
  return target;
}

std::optional<X11WindowImage::Picture> X11WindowImage::fromOwnPixmap(const Target& target) {
  xcb_connection_t* c = connection_.get();
  const xcb_pixmap_t pixmap = xcb_generate_id(c);
  if (connection_.check(xcb_composite_name_window_pixmap_checked(c, target.topLevel, pixmap)) != 0) return std::nullopt;
  if (connection_.isBroken()) return Picture(failure(ScreenCaptureError::NotAvailable));
  // The window may have changed its size since it was asked for: the pixmap knows.
  const auto geometry = xReply(xcb_get_geometry_reply, c, xcb_get_geometry(c, pixmap));
  Picture picture = failure(lost());
  if (geometry) {
    const PixelRect inside = target.crop.intersected({0, 0, geometry->width, geometry->height});
    picture = read(pixmap, target.format, inside, target, X11ImageReader::ServerGrab::Take);
  }
  xcb_free_pixmap(c, pixmap);
  xcb_flush(c);
  return picture;
}

bool X11WindowImage::isUncovered(const Target& target) {
  xcb_connection_t* c = connection_.get();
  const auto tree = xReply(xcb_query_tree_reply, c, xcb_query_tree(c, connection_.root()));
  if (!tree) return false;
  const xcb_window_t* begin = xcb_query_tree_children(tree.get());
  const xcb_window_t* end = begin + xcb_query_tree_children_length(tree.get());
  const xcb_window_t* own = std::find(begin, end, target.topLevel);
  if (own == end) return false;
  const PixelRect area = target.crop.translated(target.frame.x, target.frame.y);
  const PixelSize root = connection_.rootSize();
  if (area.intersected({0, 0, root.width, root.height}) != area) return false;
  std::vector<std::pair<xcb_get_window_attributes_cookie_t, xcb_get_geometry_cookie_t>> asked;
  for (const xcb_window_t* above = own + 1; above != end; ++above) {
    asked.emplace_back(xcb_get_window_attributes(c, *above), xcb_get_geometry(c, *above));
  }
  bool uncovered = true;
  for (const auto& [attributesCookie, geometryCookie] : asked) {
    const auto attributes = xReply(xcb_get_window_attributes_reply, c, attributesCookie);
    const auto geometry = xReply(xcb_get_geometry_reply, c, geometryCookie);
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    if (attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) continue;
    if (!outline(*geometry).intersected(area).isEmpty()) uncovered = false;
  }
  return uncovered;
}

std::optional<X11WindowImage::Picture> X11WindowImage::fromScreen(const Target& target) {
  const auto screenFormat =
      x11PixelFormat(connection_, connection_.screen()->root_depth, connection_.screen()->root_visual);
  if (!screenFormat || target.format.hasAlpha()) return std::nullopt;
  const X11ServerGrab held(connection_);
  // Between looking for it and holding the server the window may have moved.
  const auto geometry =
      xReply(xcb_get_geometry_reply, connection_.get(), xcb_get_geometry(connection_.get(), target.topLevel));
  if (!geometry) return Picture(failure(lost()));
  if (outline(*geometry) != target.frame || !isUncovered(target)) return std::nullopt;
  Target onScreen = target;
  onScreen.format = *screenFormat;
  const PixelRect area = target.crop.translated(target.frame.x, target.frame.y);
  return read(connection_.root(), *screenFormat, area, onScreen, X11ImageReader::ServerGrab::AlreadyHeld);
}

X11WindowImage::Picture X11WindowImage::fromRedirection(const Target& target) {
  const Redirection redirection(connection_, target.topLevel);
  if (!redirection.isMade()) return failure(lost());
  waitUntilPainted(connection_.firstEvent(&xcb_damage_id));
  auto picture = fromOwnPixmap(target);
  if (!picture) return failure(lost());
  return std::move(*picture);
}

void X11WindowImage::waitUntilPainted(std::uint8_t damageEvent) {
  xcb_connection_t* c = connection_.get();
  const auto begin = Clock::now();
  auto deadline = begin + answerTime;
  while (!connection_.isBroken()) {
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(c)}) {
      constexpr std::uint8_t sentFlag = 0x80;
      if (damageEvent != 0 && (event->response_type & ~sentFlag) == damageEvent + XCB_DAMAGE_NOTIFY) {
        deadline = std::min(Clock::now() + pauseTime, begin + longestWait);
      }
    }
    const auto left = std::chrono::duration_cast<milliseconds>(deadline - Clock::now()).count();
    if (left <= 0) return;
    pollfd watched{xcb_get_file_descriptor(c), POLLIN, 0};
    poll(&watched, 1, static_cast<int>(left));
  }
}

X11WindowImage::Picture X11WindowImage::read(xcb_drawable_t drawable, const X11PixelFormat& format,
                                             const PixelRect& source, const Target& target,
                                             X11ImageReader::ServerGrab grab) {
  if (source.isEmpty()) return failure(ScreenCaptureError::WindowGone);
  auto bitmap = MutableBitmap::create(source.size(), PixelAlpha::Premultiplied);
  if (!bitmap) return failure(ScreenCaptureError::Failed);
  if (!reader_.read(drawable, format, source, *bitmap, {0, 0}, grab)) return failure(lost());
  const bool meant = format.hasAlpha() && alphaIsMeant(*bitmap);
  if (!target.shape.empty()) {
    if (!meant) makeOpaque(*bitmap);
    clearOutside(*bitmap, target.shape, {target.crop.x, target.crop.y});
  }
  const PixelAlpha alpha = meant || !target.shape.empty() ? PixelAlpha::Premultiplied : PixelAlpha::Opaque;
  const Bitmap whole = std::move(*bitmap).finish();
  return Bitmap(whole.row(0), whole.size(), whole.stride(), alpha, whole.owner());
}

}  // namespace vellora
