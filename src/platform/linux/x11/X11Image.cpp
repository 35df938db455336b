#include "platform/linux/x11/X11Image.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstring>

#include "platform/linux/x11/X11SharedSegment.h"

namespace vellora {
namespace {

constexpr std::uint32_t allPlanes = ~std::uint32_t{0};
/// Below this a plain answer is cheaper than setting up shared memory.
constexpr std::size_t smallPicture = std::size_t{2} << 20;
/// Two strips of this size fit the second-level cache; fewer, larger ones mean fewer switches between the two
/// processes.
constexpr std::size_t stripBytes = std::size_t{3} << 19;
constexpr int stripsInFlight = 2;

std::uint32_t channel(std::uint32_t pixel, std::uint32_t mask) {
  if (mask == 0) return 0;
  const std::uint32_t most = mask >> std::countr_zero(mask);
  const std::uint32_t value = (pixel & mask) >> std::countr_zero(mask);
  return static_cast<std::uint32_t>((std::uint64_t{value} * 255 + most / 2) / most);
}

std::uint32_t loadPixel(const std::byte* at, std::size_t bytes, bool bigEndian) {
  std::uint32_t pixel = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    const std::size_t shift = (bigEndian ? bytes - 1 - i : i) * 8;
    pixel |= std::to_integer<std::uint32_t>(at[i]) << shift;
  }
  return pixel;
}

}  // namespace

bool X11PixelFormat::isNative() const {
  return bitsPerPixel == 32 && !bigEndian && red == 0xFF0000 && green == 0x00FF00 && blue == 0x0000FF &&
         (depth == 24 || depth == 32);
}

std::size_t X11PixelFormat::rowBytes(int width) const {
  const auto bits = static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel);
  const auto pad = static_cast<std::size_t>(scanlinePad);
  return (bits + pad - 1) / pad * pad / 8;
}

std::optional<X11PixelFormat> x11PixelFormat(const X11Connection& connection, std::uint8_t depth,
                                             xcb_visualid_t visual) {
  X11PixelFormat format;
  format.depth = depth;
  format.bigEndian = connection.setup()->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
  bool sizeKnown = false;
  for (auto it = xcb_setup_pixmap_formats_iterator(connection.setup()); it.rem > 0; xcb_format_next(&it)) {
    if (it.data->depth != depth) continue;
    format.bitsPerPixel = it.data->bits_per_pixel;
    format.scanlinePad = it.data->scanline_pad;
    sizeKnown = format.bitsPerPixel == 16 || format.bitsPerPixel == 24 || format.bitsPerPixel == 32;
  }
  if (!sizeKnown || format.scanlinePad < 8) return std::nullopt;
  for (auto d = xcb_screen_allowed_depths_iterator(connection.screen()); d.rem > 0; xcb_depth_next(&d)) {
    for (auto v = xcb_depth_visuals_iterator(d.data); v.rem > 0; xcb_visualtype_next(&v)) {
      if (v.data->visual_id != visual) continue;
      const bool direct =
          v.data->_class == XCB_VISUAL_CLASS_TRUE_COLOR || v.data->_class == XCB_VISUAL_CLASS_DIRECT_COLOR;
      if (!direct) return std::nullopt;
      format.red = v.data->red_mask;
      format.green = v.data->green_mask;
      format.blue = v.data->blue_mask;
      return format;
    }
  }
  return std::nullopt;
}

void convertPixels(const std::byte* source, int count, const X11PixelFormat& format, std::byte* target) {
  if (format.isNative()) {
    std::memcpy(target, source, static_cast<std::size_t>(count) * 4);
    return;
  }
  const auto bytes = static_cast<std::size_t>(format.bitsPerPixel / 8);
  const std::uint32_t alphaMask = format.hasAlpha() ? ~(format.red | format.green | format.blue) : 0;
  for (int i = 0; i < count; ++i, source += bytes, target += 4) {
    const std::uint32_t pixel = loadPixel(source, bytes, format.bigEndian);
    target[0] = static_cast<std::byte>(channel(pixel, format.blue));
    target[1] = static_cast<std::byte>(channel(pixel, format.green));
    target[2] = static_cast<std::byte>(channel(pixel, format.red));
    target[3] = static_cast<std::byte>(alphaMask != 0 ? channel(pixel, alphaMask) : 0xFF);
  }
}

bool X11ImageReader::read(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source,
                          MutableBitmap& target, PixelPoint at, ServerGrab grab) {
  const PixelRect inside = PixelRect{at.x, at.y, source.width, source.height};
  if (source.isEmpty() || inside.intersected({0, 0, target.size().width, target.size().height}) != inside) return false;
  const std::size_t rowBytes = format.rowBytes(source.width);
  if (sharedMemoryRefused_ || rowBytes * static_cast<std::size_t>(source.height) <= smallPicture) {
    return readWhole(drawable, format, source, target, at);
  }
  const int stripRows = std::clamp(static_cast<int>(stripBytes / rowBytes), 1, source.height);
  const auto strips =
      X11SharedSegment::create(connection_, rowBytes * static_cast<std::size_t>(stripRows) * stripsInFlight);
  if (!strips) {
    sharedMemoryRefused_ = true;
    return readWhole(drawable, format, source, target, at);
  }
  if (stripRows == source.height || grab != ServerGrab::Take) {
    return readStrips(*strips, drawable, format, source, stripRows, target, at);
  }
  const X11ServerGrab held(connection_);
  return readStrips(*strips, drawable, format, source, stripRows, target, at);
}

bool X11ImageReader::readWhole(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source,
                               MutableBitmap& target, PixelPoint at) {
  const auto cookie =
      xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, static_cast<std::int16_t>(source.x),
                    static_cast<std::int16_t>(source.y), static_cast<std::uint16_t>(source.width),
                    static_cast<std::uint16_t>(source.height), allPlanes);
  const auto reply = xReply(xcb_get_image_reply, connection_.get(), cookie);
  const std::size_t rowBytes = format.rowBytes(source.width);
  if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) <
                    rowBytes * static_cast<std::size_t>(source.height)) {
    return false;
  }
  const auto* pixels = reinterpret_cast<const std::byte*>(xcb_get_image_data(reply.get()));
  for (int y = 0; y < source.height; ++y) {
    convertPixels(pixels + rowBytes * static_cast<std::size_t>(y), source.width, format,
                  target.row(at.y + y) + static_cast<std::size_t>(at.x) * 4);
  }
  return true;
}

bool X11ImageReader::readStrips(X11SharedSegment& strips, xcb_drawable_t drawable, const X11PixelFormat& format,
                                const PixelRect& source, int stripRows, MutableBitmap& target, PixelPoint at) {
  const std::size_t rowBytes = format.rowBytes(source.width);
  const std::size_t slotBytes = rowBytes * static_cast<std::size_t>(stripRows);
  const int count = (source.height + stripRows - 1) / stripRows;
  const auto rowsOf = [&](int strip) { return std::min(stripRows, source.height - strip * stripRows); };
  const auto slotOf = [&](int strip) { return slotBytes * static_cast<std::size_t>(strip % stripsInFlight); };
  std::array<xcb_shm_get_image_cookie_t, stripsInFlight> asked{};
  const auto ask = [&](int strip) {
    asked[static_cast<std::size_t>(strip % stripsInFlight)] =
        xcb_shm_get_image(connection_.get(), drawable, static_cast<std::int16_t>(source.x),
                          static_cast<std::int16_t>(source.y + strip * stripRows),
                          static_cast<std::uint16_t>(source.width), static_cast<std::uint16_t>(rowsOf(strip)),
                          allPlanes, XCB_IMAGE_FORMAT_Z_PIXMAP, strips.id(), static_cast<std::uint32_t>(slotOf(strip)));
    xcb_flush(connection_.get());
  };
  bool complete = true;
  int askedFor = 0;
  while (askedFor < std::min(stripsInFlight, count)) ask(askedFor++);
  for (int strip = 0; strip < askedFor; ++strip) {
    const auto cookie = asked[static_cast<std::size_t>(strip % stripsInFlight)];
    complete = xReply(xcb_shm_get_image_reply, connection_.get(), cookie) != nullptr && complete;
    if (!complete) continue;  // what is still on its way has to be taken off the connection
    const std::byte* pixels = strips.memory().get() + slotOf(strip);
    for (int y = 0; y < rowsOf(strip); ++y) {
      convertPixels(pixels + rowBytes * static_cast<std::size_t>(y), source.width, format,
                    target.row(at.y + strip * stripRows + y) + static_cast<std::size_t>(at.x) * 4);
    }
    if (askedFor < count) ask(askedFor++);
  }
  return complete;
}

}  // namespace vellora
