#include "platform/linux/x11/X11Cursor.h"

#include <xcb/xinput.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace vellora {
namespace {

constexpr std::uint8_t sentFlag = 0x80;
constexpr std::uint8_t trackedButtons = 3;

/// FNV-1a.
std::uint64_t hashOf(const X11CursorImage& image) {
  std::uint64_t hash = 0xCBF29CE484222325;
  const auto mix = [&](std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8) {
      hash ^= value >> shift & 0xFF;
      hash *= 0x100000001B3;
    }
  };
  for (const int value : {image.size.width, image.size.height, image.hotSpot.x, image.hotSpot.y}) {
    mix(static_cast<std::uint32_t>(value));
  }
  std::ranges::for_each(image.pixels, mix);
  return hash;
}

/// A premultiplied color over an opaque one, two channels at a time.
std::uint32_t over(std::uint32_t source, std::uint32_t target) {
  const std::uint32_t keep = 255 - (source >> 24);
  const auto scaled = [keep](std::uint32_t pair) {
    const std::uint32_t product = pair * keep + 0x800080;
    return (product + (product >> 8 & 0xFF00FF)) >> 8 & 0xFF00FF;
  };
  return source + (scaled(target & 0xFF00FF) | scaled(target >> 8 & 0xFF00FF) << 8);
}

/// The mean of the pixels that fall together when the picture is made smaller, the nearest one when it is made larger.
X11CursorImage scaled(const X11CursorImage& image, double scale) {
  const PixelRect frame = image.frame({0, 0}, scale);
  X11CursorImage result{frame.size(), {-frame.x, -frame.y}, {}, image.shape};
  result.pixels.reserve(static_cast<std::size_t>(frame.width) * static_cast<std::size_t>(frame.height));
  const auto span = [scale](int at, int end) {
    const int from = std::clamp(static_cast<int>(at / scale), 0, end - 1);
    return std::pair(from, std::clamp(static_cast<int>(std::ceil((at + 1) / scale)), from + 1, end));
  };
  for (int y = 0; y < frame.height; ++y) {
    const auto [top, bottom] = span(y, image.size.height);
    for (int x = 0; x < frame.width; ++x) {
      const auto [left, right] = span(x, image.size.width);
      std::uint32_t sums[4] = {};
      for (int sy = top; sy < bottom; ++sy) {
        for (int sx = left; sx < right; ++sx) {
          const std::uint32_t pixel =
              image.pixels[static_cast<std::size_t>(sy) * static_cast<std::size_t>(image.size.width) +
                           static_cast<std::size_t>(sx)];
          for (std::size_t c = 0; c < std::size(sums); ++c) sums[c] += pixel >> 8 * c & 0xFF;
        }
      }
      const auto count = static_cast<std::uint32_t>((bottom - top) * (right - left));
      std::uint32_t mean = 0;
      for (std::size_t c = 0; c < std::size(sums); ++c) mean |= (sums[c] / count) << 8 * c;
      result.pixels.push_back(mean);
    }
  }
  return result;
}

}  // namespace

PixelRect X11CursorImage::frame(PixelPoint position, double scale) const {
  const auto length = [scale](int side) { return static_cast<int>(std::ceil(side * scale)); };
  return {position.x - static_cast<int>(hotSpot.x * scale), position.y - static_cast<int>(hotSpot.y * scale),
          length(size.width), length(size.height)};
}

void drawCursor(const X11CursorImage& image, PixelPoint position, double scale, X11FrameBuffer& buffer) {
  if (scale != 1 && !image.pixels.empty()) {
    drawCursor(scaled(image, scale), position, 1, buffer);
    return;
  }
  const PixelRect frame = image.frame(position);
  const PixelRect visible = frame.intersected({0, 0, buffer.size.width, buffer.size.height});
  for (int y = visible.y; y < visible.bottom(); ++y) {
    const std::uint32_t* source = image.pixels.data() + (y - frame.y) * frame.width + (visible.x - frame.x);
    auto* target = reinterpret_cast<std::uint32_t*>(buffer.row(y)) + visible.x;
    for (int x = 0; x < visible.width; ++x) target[x] = over(source[x], target[x]);
  }
}

X11PointerTracker::X11PointerTracker(X11Connection& connection) : connection_(connection) {
  xcb_connection_t* c = connection.get();
  constexpr std::uint32_t cursorImagesSince = 4;
  if (connection.hasExtension(&xcb_xfixes_id) &&
      xReply(xcb_xfixes_query_version_reply, c, xcb_xfixes_query_version(c, cursorImagesSince, 0))) {
    fixesEvent_ = connection.firstEvent(&xcb_xfixes_id);
    xcb_xfixes_select_cursor_input(c, connection.root(), XCB_XFIXES_CURSOR_NOTIFY_MASK_DISPLAY_CURSOR);
    imageIsOld_ = true;
  }
  listenToDevices();
}

void X11PointerTracker::listenToDevices() {
  xcb_connection_t* c = connection_.get();
  if (!connection_.hasExtension(&xcb_input_id)) return;
  // Raw events reach us also while another program holds the pointer.
  if (!xReply(xcb_input_xi_query_version_reply, c, xcb_input_xi_query_version(c, 2, 2))) return;
  inputOpcode_ = xcb_get_extension_data(c, &xcb_input_id)->major_opcode;
  struct {
    xcb_input_event_mask_t head;
    std::uint32_t mask;
  } wanted{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
           XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
               XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
  xcb_input_xi_select_events(c, connection_.root(), 1, &wanted.head);
}

bool X11PointerTracker::handle(const xcb_generic_event_t& event) {
  const int type = event.response_type & ~sentFlag;
  if (fixesEvent_ != 0 && type == fixesEvent_ + XCB_XFIXES_CURSOR_NOTIFY) {
    imageIsOld_ = true;
    return true;
  }
  if (type != XCB_GE_GENERIC || inputOpcode_ == 0) return false;
  const auto& generic = reinterpret_cast<const xcb_ge_generic_event_t&>(event);
  if (generic.extension != inputOpcode_) return false;
  if (generic.event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
    const auto button = reinterpret_cast<const xcb_input_raw_button_press_event_t&>(event).detail;
    if (button >= 1 && button <= trackedButtons) pressed_ |= 1U << (button - 1);
  }
  return true;
}

void X11PointerTracker::ask() {
  pointerAsked_ = xcb_query_pointer(connection_.get(), connection_.root());
  imageIsAsked_ = imageIsOld_;
  if (imageIsAsked_) imageAsked_ = xcb_xfixes_get_cursor_image(connection_.get());
  imageIsOld_ = false;
}

X11Pointer X11PointerTracker::receive() {
  X11Pointer pointer;
  if (const auto reply = xReply(xcb_query_pointer_reply, connection_.get(), pointerAsked_)) {
    pointer.position = {reply->root_x, reply->root_y};
    pointer.window = reply->child;
    pointer.buttons = reply->mask / XCB_KEY_BUT_MASK_BUTTON_1 & ((1U << trackedButtons) - 1);
  }
  pointer.buttons |= std::exchange(pressed_, 0);
  if (!imageIsAsked_) return pointer;
  if (const auto reply = xReply(xcb_xfixes_get_cursor_image_reply, connection_.get(), imageAsked_)) {
    const std::uint32_t* pixels = xcb_xfixes_get_cursor_image_cursor_image(reply.get());
    image_.size = {reply->width, reply->height};
    image_.hotSpot = {reply->xhot, reply->yhot};
    image_.pixels.assign(pixels, pixels + xcb_xfixes_get_cursor_image_cursor_image_length(reply.get()));
    image_.pixels.resize(static_cast<std::size_t>(image_.size.width) * static_cast<std::size_t>(image_.size.height));
    image_.shape = hashOf(image_);
  }
  return pointer;
}

}  // namespace vellora
