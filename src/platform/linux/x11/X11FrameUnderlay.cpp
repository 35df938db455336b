#include "platform/linux/x11/X11FrameUnderlay.h"

#include <poll.h>
#include <xcb/shape.h>
#include <xcb/xfixes.h>

#include <algorithm>
#include <chrono>

#include "platform/linux/x11/X11FrameRegion.h"
#include "platform/linux/x11/X11Windows.h"

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;
/// A window's shape is covered with at most this many rectangles.
constexpr std::size_t mostPlaces = 12;
/// A frame with round corners has about a hundred.
constexpr std::size_t mostShapeRects = 160;

bool meetsAny(const PixelRect& rect, const std::vector<PixelRect>& places) {
  return std::ranges::any_of(places, [&](const PixelRect& place) { return !rect.intersected(place).isEmpty(); });
}

PixelRect outlineOf(const xcb_get_geometry_reply_t& geometry) {
  const int border = 2 * geometry.border_width;
  return {geometry.x, geometry.y, geometry.width + border, geometry.height + border};
}

}  // namespace

/// A window that meets a place.
class X11FrameUnderlay::Layer {
 public:
  Layer(X11Connection& connection, std::unique_ptr<X11CompositeWindow> window, xcb_render_pictformat_t format)
      : connection_(connection), window_(std::move(window)), format_(format), visible_(connection) {
    makePicture();
  }
  ~Layer() { xcb_render_free_picture(connection_.get(), picture_); }
  Layer(const Layer&) = delete;
  Layer& operator=(const Layer&) = delete;

  X11CompositeWindow& window() const { return *window_; }

  /// Whether it is another one than before, other than by drawing.
  bool refresh() {
    const PixelRect frame = window_->frame();
    const std::vector<PixelRect> outside = window_->outsideShape();
    if (!window_->refresh()) return false;
    xcb_render_free_picture(connection_.get(), picture_);
    makePicture();
    return window_->frame() != frame || window_->outsideShape() != outside;
  }
  void setPlaces(const std::vector<PixelRect>& places) {
    std::vector<PixelRect> visible;
    for (const PixelRect& place : places) visible.push_back(place.intersected(window_->frame()));
    for (const PixelRect& rect : window_->outsideShape()) {
      visible = subtracted(visible, rect.translated(window_->frame().x, window_->frame().y));
    }
    std::erase_if(visible, [](const PixelRect& rect) { return rect.isEmpty(); });
    visible_.set(visible);
  }
  /// Draws it into a picture whose corner is at `origin` of the root window.
  void draw(xcb_render_picture_t target, const PixelRect& bounds) const {
    const PixelRect& frame = window_->frame();
    const PixelRect part = frame.intersected(bounds);
    if (part.isEmpty()) return;
    xcb_xfixes_set_picture_clip_region(connection_.get(), target, visible_.id(), static_cast<std::int16_t>(-bounds.x),
                                       static_cast<std::int16_t>(-bounds.y));
    xcb_render_composite(
        connection_.get(), window_->format().hasAlpha() ? XCB_RENDER_PICT_OP_OVER : XCB_RENDER_PICT_OP_SRC, picture_,
        XCB_NONE, target, static_cast<std::int16_t>(part.x - frame.x), static_cast<std::int16_t>(part.y - frame.y), 0,
        0, static_cast<std::int16_t>(part.x - bounds.x), static_cast<std::int16_t>(part.y - bounds.y),
        static_cast<std::uint16_t>(part.width), static_cast<std::uint16_t>(part.height));
  }

 private:
  void makePicture() {
    picture_ = xcb_generate_id(connection_.get());
    xcb_render_create_picture(connection_.get(), picture_, window_->pixmap(), format_, 0, nullptr);
  }

  X11Connection& connection_;
  const std::unique_ptr<X11CompositeWindow> window_;
  const xcb_render_pictformat_t format_;
  xcb_render_picture_t picture_ = 0;
  X11Region visible_;
};

/// The root window's background, which no request reads where windows hide it: a window at the very bottom that takes
/// its background from the root, and that the server paints into a pixmap instead of the screen.
class X11FrameUnderlay::Ground {
 public:
  Ground(X11Connection& connection, const PixelRect& frame) : connection_(connection), frame_(frame) {
    xcb_connection_t* c = connection.get();
    window_ = xcb_generate_id(c);
    pixmap_ = xcb_generate_id(c);
    context_ = xcb_generate_id(c);
    xcb_create_window_value_list_t values{};
    values.background_pixmap = XCB_BACK_PIXMAP_PARENT_RELATIVE;
    values.override_redirect = 1;
    xcb_create_window_aux(c, XCB_COPY_FROM_PARENT, window_, connection.root(), static_cast<std::int16_t>(frame.x),
                          static_cast<std::int16_t>(frame.y), static_cast<std::uint16_t>(frame.width),
                          static_cast<std::uint16_t>(frame.height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                          XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXMAP | XCB_CW_OVERRIDE_REDIRECT, &values);
    // Never in the way of the pointer either.
    xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, window_, 0, 0, 0,
                         nullptr);
    xcb_composite_redirect_window(c, window_, XCB_COMPOSITE_REDIRECT_MANUAL);
    const std::uint32_t below = XCB_STACK_MODE_BELOW;
    xcb_configure_window(c, window_, XCB_CONFIG_WINDOW_STACK_MODE, &below);
    xcb_map_window(c, window_);
    xcb_clear_area(c, 0, window_, 0, 0, 0, 0);
    xcb_composite_name_window_pixmap(c, window_, pixmap_);
    xcb_create_gc(c, context_, connection.root(), 0, nullptr);
  }
  ~Ground() {
    xcb_free_gc(connection_.get(), context_);
    xcb_free_pixmap(connection_.get(), pixmap_);
    xcb_destroy_window(connection_.get(), window_);
  }
  Ground(const Ground&) = delete;
  Ground& operator=(const Ground&) = delete;

  xcb_window_t window() const { return window_; }
  void draw(xcb_pixmap_t target) const {
    xcb_copy_area(connection_.get(), pixmap_, target, context_, 0, 0, 0, 0, static_cast<std::uint16_t>(frame_.width),
                  static_cast<std::uint16_t>(frame_.height));
  }

 private:
  X11Connection& connection_;
  const PixelRect frame_;
  xcb_window_t window_ = 0;
  xcb_pixmap_t pixmap_ = 0;
  xcb_gcontext_t context_ = 0;
};

std::unique_ptr<X11FrameUnderlay> X11FrameUnderlay::make(X11Connection& connection, const PixelRect& area) {
  if (!X11CompositeWindow::prepare(connection) || !connection.hasExtension(&xcb_render_id) ||
      !connection.hasExtension(&xcb_shape_id)) {
    return nullptr;
  }
  std::unique_ptr<X11FrameUnderlay> underlay(new X11FrameUnderlay(connection, area));
  return underlay->findFormats() ? std::move(underlay) : nullptr;
}

X11FrameUnderlay::X11FrameUnderlay(X11Connection& connection, const PixelRect& area)
    : connection_(connection),
      area_(area),
      shapeEvent_(static_cast<std::uint8_t>(connection.firstEvent(&xcb_shape_id) + XCB_SHAPE_NOTIFY)),
      placesRegion_(connection),
      work_(connection) {
  constexpr std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
  xcb_change_window_attributes(connection.get(), connection.root(), XCB_CW_EVENT_MASK, &events);
}

void X11FrameUnderlay::leaveOut(std::vector<xcb_window_t> windows) {
  if (windows == leftOut_) return;
  for (const xcb_window_t window : leftOut_) {
    if (std::ranges::find(windows, window) == windows.end()) listenTo(window, false);
  }
  for (const xcb_window_t window : windows) {
    if (std::ranges::find(leftOut_, window) == leftOut_.end()) listenTo(window, true);
  }
  leftOut_ = std::move(windows);
  windowsChanged_ = true;
  leftOutMoved_ = true;
}

void X11FrameUnderlay::listenTo(xcb_window_t window, bool isOn) const {
  const std::uint32_t events = isOn ? XCB_EVENT_MASK_STRUCTURE_NOTIFY : 0;
  xcb_shape_select_input(connection_.get(), window, isOn ? 1 : 0);
  xcb_change_window_attributes(connection_.get(), window, XCB_CW_EVENT_MASK, &events);
}

X11FrameUnderlay::~X11FrameUnderlay() {
  freeCanvas();
}

bool X11FrameUnderlay::findFormats() {
  xcb_connection_t* c = connection_.get();
  const auto format = x11PixelFormat(connection_, connection_.screen()->root_depth, connection_.screen()->root_visual);
  const auto versionCookie = xcb_render_query_version(c, 0, 11);
  const auto cookie = xcb_render_query_pict_formats(c);
  xReply(xcb_render_query_version_reply, c, versionCookie);
  const auto reply = xReply(xcb_render_query_pict_formats_reply, c, cookie);
  if (!reply || !format) return false;
  format_ = *format;
  for (auto s = xcb_render_query_pict_formats_screens_iterator(reply.get()); s.rem > 0;
       xcb_render_pictscreen_next(&s)) {
    for (auto d = xcb_render_pictscreen_depths_iterator(s.data); d.rem > 0; xcb_render_pictdepth_next(&d)) {
      for (auto v = xcb_render_pictdepth_visuals_iterator(d.data); v.rem > 0; xcb_render_pictvisual_next(&v)) {
        formats_.emplace(v.data->visual, v.data->format);
      }
    }
  }
  return formats_.contains(connection_.screen()->root_visual);
}

void X11FrameUnderlay::handle(const xcb_generic_event_t& event) {
  for (const auto& layer : layers_) {
    if (layer->window().drawn().handle(event)) return;
  }
  const int type = event.response_type & ~sentFlag;
  switch (type) {
    case XCB_CONFIGURE_NOTIFY:
    case XCB_CIRCULATE_NOTIFY:
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_REPARENT_NOTIFY:
    case XCB_DESTROY_NOTIFY:
      break;
    default:
      if (type != shapeEvent_) return;
  }
  windowsChanged_ = true;
  leftOutMoved_ = leftOutMoved_ || type == shapeEvent_ || concernsLeftOut(event);
}

/// For the events of `handle`, which all name the window in the same place, after the one that listens.
bool X11FrameUnderlay::concernsLeftOut(const xcb_generic_event_t& event) const {
  const xcb_window_t window = reinterpret_cast<const xcb_map_notify_event_t&>(event).window;
  return std::ranges::find(tops_, window) != tops_.end() || std::ranges::find(leftOut_, window) != leftOut_.end();
}

bool X11FrameUnderlay::isDirty() const {
  return windowsChanged_ ||
         std::ranges::any_of(layers_, [](const auto& layer) { return layer->window().drawn().isDirty(); });
}

void X11FrameUnderlay::findTops() {
  tops_.clear();
  for (const xcb_window_t window : leftOut_) {
    if (const auto top = topLevelOf(connection_, window)) tops_.push_back(*top);
  }
}

std::vector<PixelRect> X11FrameUnderlay::findPlaces() {
  xcb_connection_t* c = connection_.get();
  std::vector<PixelRect> places;
  for (const xcb_window_t top : tops_) {
    const auto attributesCookie = xcb_get_window_attributes(c, top);
    const auto geometryCookie = xcb_get_geometry(c, top);
    const auto attributes = xReply(xcb_get_window_attributes_reply, c, attributesCookie);
    const auto geometry = xReply(xcb_get_geometry_reply, c, geometryCookie);
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE) continue;
    const xcb_xfixes_region_t shape = xcb_generate_id(c);
    xcb_xfixes_create_region_from_window(c, shape, top, XCB_SHAPE_SK_BOUNDING);
    const int border = geometry->border_width;
    const auto asked = xcb_xfixes_fetch_region(c, shape);
    std::vector<PixelRect> rects = receiveRegion(connection_, asked, {geometry->x + border, geometry->y + border});
    xcb_xfixes_destroy_region(c, shape);
    for (PixelRect& rect : rects) rect = rect.intersected(area_);
    mergeRects(rects, mostPlaces, mostShapeRects);
    places.insert(places.end(), rects.begin(), rects.end());
  }
  return places;
}

/// The windows that meet a place, from the bottom up.
std::vector<xcb_window_t> X11FrameUnderlay::windowsAt() {
  xcb_connection_t* c = connection_.get();
  std::vector<xcb_window_t> windows;
  const auto tree = xReply(xcb_query_tree_reply, c, xcb_query_tree(c, connection_.root()));
  if (!tree) return windows;
  struct Question {
    xcb_window_t window;
    xcb_get_window_attributes_cookie_t attributes;
    xcb_get_geometry_cookie_t geometry;
  };
  std::vector<Question> questions;
  const xcb_window_t* children = xcb_query_tree_children(tree.get());
  for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
    const bool isGround = ground_ && children[i] == ground_->window();
    if (isGround || std::ranges::find(tops_, children[i]) != tops_.end()) continue;
    questions.push_back({children[i], xcb_get_window_attributes(c, children[i]), xcb_get_geometry(c, children[i])});
  }
  for (const Question& question : questions) {
    const auto attributes = xReply(xcb_get_window_attributes_reply, c, question.attributes);
    const auto geometry = xReply(xcb_get_geometry_reply, c, question.geometry);
    if (!attributes || !geometry || attributes->map_state != XCB_MAP_STATE_VIEWABLE ||
        attributes->_class != XCB_WINDOW_CLASS_INPUT_OUTPUT) {
      continue;
    }
    if (meetsAny(outlineOf(*geometry), places_)) windows.push_back(question.window);
  }
  return windows;
}

std::vector<PixelRect> X11FrameUnderlay::refresh() {
  if (!std::exchange(windowsChanged_, false)) return {};
  leftOutMoved_ = false;
  findTops();
  const std::vector<PixelRect> before = std::exchange(places_, findPlaces());
  bool different = places_ != before;
  if (different) {
    placesRegion_.set(places_);
    makeCanvas();
  }
  const std::vector<xcb_window_t> orderBefore = order();
  std::vector<std::unique_ptr<Layer>> layers;
  for (const xcb_window_t window : windowsAt()) {
    const auto known = std::ranges::find_if(
        layers_, [window](const auto& layer) { return layer && layer->window().window() == window; });
    if (known != layers_.end()) {
      different = (*known)->refresh() || different;
      layers.push_back(std::move(*known));
      continue;
    }
    auto made = X11CompositeWindow::make(connection_, window);
    const auto format = made ? formats_.find(made->visual()) : formats_.end();
    if (format == formats_.end()) continue;
    layers.push_back(std::make_unique<Layer>(connection_, std::move(made), format->second));
  }
  layers_ = std::move(layers);
  if (!different && order() == orderBefore) return {};
  for (const auto& layer : layers_) layer->setPlaces(places_);
  std::vector<PixelRect> changed = before;
  changed.insert(changed.end(), places_.begin(), places_.end());
  return changed;
}

std::vector<xcb_window_t> X11FrameUnderlay::order() const {
  std::vector<xcb_window_t> windows;
  for (const auto& layer : layers_) windows.push_back(layer->window().window());
  return windows;
}

void X11FrameUnderlay::makeCanvas() {
  freeCanvas();
  bounds_ = {};
  for (const PixelRect& place : places_) bounds_ = united(bounds_, place);
  if (bounds_.isEmpty()) return;
  xcb_connection_t* c = connection_.get();
  const xcb_screen_t& screen = *connection_.screen();
  canvas_ = xcb_generate_id(c);
  canvasPicture_ = xcb_generate_id(c);
  xcb_create_pixmap(c, screen.root_depth, canvas_, screen.root, static_cast<std::uint16_t>(bounds_.width),
                    static_cast<std::uint16_t>(bounds_.height));
  xcb_render_create_picture(c, canvasPicture_, canvas_, formats_.at(screen.root_visual), 0, nullptr);
  ground_ = std::make_unique<Ground>(connection_, bounds_);
}

void X11FrameUnderlay::freeCanvas() {
  ground_.reset();
  if (canvas_ == 0) return;
  xcb_render_free_picture(connection_.get(), canvasPicture_);
  xcb_free_pixmap(connection_.get(), canvas_);
  canvas_ = 0;
}

void X11FrameUnderlay::addChanges(const X11Region& changed) {
  xcb_connection_t* c = connection_.get();
  if (places_.empty()) return;
  xcb_xfixes_subtract_region(c, changed.id(), placesRegion_.id(), changed.id());
  for (const auto& layer : layers_) {
    X11CompositeWindow& window = layer->window();
    window.drawn().moveTo(work_.id());
    xcb_xfixes_translate_region(c, work_.id(), static_cast<std::int16_t>(window.frame().x + window.border()),
                                static_cast<std::int16_t>(window.frame().y + window.border()));
    xcb_xfixes_intersect_region(c, work_.id(), placesRegion_.id(), work_.id());
    xcb_xfixes_union_region(c, changed.id(), work_.id(), changed.id());
  }
}

std::size_t X11FrameUnderlay::bytes() const {
  std::size_t sum = 0;
  for (const PixelRect& place : places_) sum += format_.rowBytes(place.width) * static_cast<std::size_t>(place.height);
  return sum;
}

void X11FrameUnderlay::compose() const {
  ground_->draw(canvas_);
  for (const auto& layer : layers_) layer->draw(canvasPicture_, bounds_);
}

void X11FrameUnderlay::ask(X11FrameReader& reader, const PixelRect& rows, X11FrameBuffer& buffer,
                           PixelPoint bufferOrigin) const {
  for (const PixelRect& place : places_) {
    const PixelRect part = place.intersected(rows);
    if (part.isEmpty()) continue;
    reader.ask(canvas_, format_, part.translated(-bounds_.x, -bounds_.y), buffer,
               {part.x - bufferOrigin.x, part.y - bufferOrigin.y});
  }
}

void X11FrameUnderlay::waitUntilPainted() {
  using namespace std::chrono;
  constexpr milliseconds longest{150};
  constexpr milliseconds pause{25};
  for (const auto& layer : layers_) layer->window().drawn().moveTo(work_.id());
  auto deadline = steady_clock::now() + longest;
  bool answered = layers_.empty();
  while (!connection_.isBroken()) {
    while (const XReply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) handle(*event);
    const bool all = std::ranges::all_of(layers_, [](const auto& l) { return l->window().drawn().isDirty(); });
    if (all && !std::exchange(answered, true)) deadline = std::min(deadline, steady_clock::now() + pause);
    const auto left = duration_cast<milliseconds>(deadline - steady_clock::now()).count();
    if (left <= 0 || layers_.empty()) return;
    xcb_flush(connection_.get());
    pollfd watched{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    poll(&watched, 1, static_cast<int>(left));
  }
}

}  // namespace vellora
