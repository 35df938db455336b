#include "platform/linux/x11/X11Screens.h"

#include <algorithm>

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Displays.h"

namespace vellora {
namespace {

/// Positions beyond this come from a damaged property.
constexpr std::uint32_t furthest = 1 << 16;

int sane(std::uint32_t value) {
  return static_cast<int>(std::min(value, furthest));
}

std::optional<EdgeStrut> strutOf(const std::vector<std::uint32_t>& partial, const std::vector<std::uint32_t>& plain) {
  const std::vector<std::uint32_t>& values = partial.size() >= 12 ? partial : plain;
  if (values.size() < 4) return std::nullopt;
  EdgeStrut strut{sane(values[0]), sane(values[1]), sane(values[2]), sane(values[3])};
  if (values.size() < 12) {
    strut.leftEnd = strut.rightEnd = strut.topEnd = strut.bottomEnd = static_cast<int>(furthest);
    return strut;
  }
  const auto at = [&](std::size_t index) { return sane(values[index]); };
  strut.leftStart = at(4);
  strut.leftEnd = at(5) + 1;
  strut.rightStart = at(6);
  strut.rightEnd = at(7) + 1;
  strut.topStart = at(8);
  strut.topEnd = at(9) + 1;
  strut.bottomStart = at(10);
  strut.bottomEnd = at(11) + 1;
  return strut;
}

std::vector<EdgeStrut> readStruts(X11Connection& connection) {
  std::vector<std::pair<xcb_get_property_cookie_t, xcb_get_property_cookie_t>> asked;
  for (const xcb_window_t window : connection.numbers(connection.root(), "_NET_CLIENT_LIST")) {
    asked.emplace_back(askProperty(connection, window, "_NET_WM_STRUT_PARTIAL"),
                       askProperty(connection, window, "_NET_WM_STRUT"));
  }
  std::vector<EdgeStrut> struts;
  for (const auto& [partialCookie, plainCookie] : asked) {
    const auto partial = xReply(xcb_get_property_reply, connection.get(), partialCookie);
    const auto plain = xReply(xcb_get_property_reply, connection.get(), plainCookie);
    if (const auto strut = strutOf(propertyNumbers(partial.get()), propertyNumbers(plain.get())))
      struts.push_back(*strut);
  }
  return struts;
}

/// Rectangles of four numbers each.
std::vector<PixelRect> rectangles(const std::vector<std::uint32_t>& values) {
  std::vector<PixelRect> result;
  for (std::size_t i = 0; i + 4 <= values.size(); i += 4) {
    const auto position = [&](std::size_t index) {
      return std::clamp(static_cast<std::int32_t>(values[index]), -static_cast<int>(furthest),
                        static_cast<int>(furthest));
    };
    result.push_back({position(i), position(i + 1), sane(values[i + 2]), sane(values[i + 3])});
  }
  return result;
}

/// The largest common part of `display` and one of `areas`; nothing when there is none.
std::optional<PixelRect> bestPart(const PixelRect& display, const std::vector<PixelRect>& areas) {
  std::optional<PixelRect> best;
  const auto size = [](const PixelRect& r) { return std::int64_t{r.width} * r.height; };
  for (const PixelRect& area : areas) {
    const PixelRect part = display.intersected(area);
    if (!part.isEmpty() && (!best || size(part) > size(*best))) best = part;
  }
  return best;
}

}  // namespace

PixelRect withoutStruts(const PixelRect& display, const std::vector<EdgeStrut>& struts, PixelSize root) {
  PixelRect free = display;
  const auto cut = [&](const PixelRect& strip, auto shrink) {
    if (display.intersected(strip).isEmpty()) return;
    PixelRect smaller = free;
    shrink(smaller);
    if (!smaller.isEmpty()) free = smaller;
  };
  for (const EdgeStrut& s : struts) {
    cut({0, s.leftStart, s.left, s.leftEnd - s.leftStart}, [&](PixelRect& r) {
      const int edge = std::max(r.x, s.left);
      r.width -= edge - r.x;
      r.x = edge;
    });
    cut({root.width - s.right, s.rightStart, s.right, s.rightEnd - s.rightStart},
        [&](PixelRect& r) { r.width = std::min(r.right(), root.width - s.right) - r.x; });
    cut({s.topStart, 0, s.topEnd - s.topStart, s.top}, [&](PixelRect& r) {
      const int edge = std::max(r.y, s.top);
      r.height -= edge - r.y;
      r.y = edge;
    });
    cut({s.bottomStart, root.height - s.bottom, s.bottomEnd - s.bottomStart, s.bottom},
        [&](PixelRect& r) { r.height = std::min(r.bottom(), root.height - s.bottom) - r.y; });
  }
  return free;
}

X11Screens::X11Screens(std::string display) : display_(std::move(display)) {}
X11Screens::~X11Screens() = default;

X11Connection* X11Screens::connection() {
  if (!tried_) {
    tried_ = true;
    connection_ = X11Connection::open(display_);
  }
  return connection_ && !connection_->isBroken() ? connection_.get() : nullptr;
}

std::vector<ScreenInfo> X11Screens::screens() {
  X11Connection* c = connection();
  if (c == nullptr) return {};
  const std::vector<DisplayInfo> displays = readDisplays(*c);
  const std::vector<std::uint32_t> current = c->numbers(c->root(), "_NET_CURRENT_DESKTOP");
  const std::uint32_t workspace = current.empty() ? 0 : current.front();
  const auto perDisplay = rectangles(c->numbers(c->root(), "_GTK_WORKAREAS_D" + std::to_string(workspace)));
  std::vector<PixelRect> perDesktop = rectangles(c->numbers(c->root(), "_NET_WORKAREA"));
  if (perDesktop.size() > workspace) perDesktop = {perDesktop[workspace]};
  const std::vector<EdgeStrut> struts = perDisplay.empty() ? readStruts(*c) : std::vector<EdgeStrut>();
  const PixelSize root = c->rootSize();
  std::vector<ScreenInfo> screens;
  for (const DisplayInfo& display : displays) {
    // One area for the whole desktop is the area of each display only while there is a single one.
    std::optional<PixelRect> visible = bestPart(display.frame, perDisplay);
    if (!visible && displays.size() == 1) visible = bestPart(display.frame, perDesktop);
    screens.push_back({display, visible.value_or(withoutStruts(display.frame, struts, root))});
  }
  return screens;
}

bool X11Screens::isComposited() {
  X11Connection* x = connection();
  if (x == nullptr) return false;
  // The compositing manager owns this selection (Extended Window Manager Hints, "_NET_WM_CM_Sn").
  const xcb_atom_t manager = x->atom("_NET_WM_CM_S" + std::to_string(x->screenNumber()));
  const auto owner = xReply(xcb_get_selection_owner_reply, x->get(), xcb_get_selection_owner(x->get(), manager));
  return owner && owner->owner != XCB_WINDOW_NONE;
}

std::optional<PixelPoint> X11Screens::pointerPosition() {
  X11Connection* c = connection();
  if (c == nullptr) return std::nullopt;
  const auto pointer = xReply(xcb_query_pointer_reply, c->get(), xcb_query_pointer(c->get(), c->root()));
  if (!pointer || pointer->same_screen == 0) return std::nullopt;
  return PixelPoint{pointer->root_x, pointer->root_y};
}

}  // namespace vellora
