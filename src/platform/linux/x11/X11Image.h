#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/Bitmap.h"
#include "platform/linux/x11/X11Connection.h"

namespace vellora {

/// How the pixels of a drawable lie in memory.
struct X11PixelFormat {
  int depth = 24;
  int bitsPerPixel = 32;
  int scanlinePad = 32;
  bool bigEndian = false;
  std::uint32_t red = 0xFF0000;
  std::uint32_t green = 0x00FF00;
  std::uint32_t blue = 0x0000FF;

  bool hasAlpha() const { return depth == 32; }
  /// Whether a row is already a Bitmap's row.
  bool isNative() const;
  /// Bytes of a row of `width` pixels.
  std::size_t rowBytes(int width) const;
};

/// The format of drawables with that depth and visual; nothing when their pixels are no direct colours (palettes) or
/// have an unusual size.
std::optional<X11PixelFormat> x11PixelFormat(const X11Connection& connection, std::uint8_t depth,
                                             xcb_visualid_t visual);

/// Turns `count` pixels at `source` into a Bitmap's pixels, scaling channels of other widths to 8 bits.
void convertPixels(const std::byte* source, int count, const X11PixelFormat& format, std::byte* target);

class X11SharedSegment;

/// Copies pixels from the server into bitmaps.
///
/// A large picture comes in strips through a small piece of shared memory while the server is held, so that it is still
/// one moment. A picture-sized shared segment would cost twice as much on its first use, all of it page faults of 4 kB
/// on both sides; the strips stay in the processor's cache and the bitmap's own memory comes in huge pages. Nothing is
/// kept between two reads. Without shared memory (a forwarded connection) the picture comes as one answer.
class X11ImageReader {
 public:
  enum class ServerGrab {
    Take,         ///< a large picture is taken while the server is held
    AlreadyHeld,  ///< the caller holds it
    NotNeeded,    ///< nobody else draws there
  };

  explicit X11ImageReader(X11Connection& connection) : connection_(connection) {}

  /// Copies `source`, which must lie inside the drawable, to `at` in `target`. False when the server refuses (the
  /// drawable is gone or smaller by now) or the connection is lost.
  bool read(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source, MutableBitmap& target,
            PixelPoint at, ServerGrab grab);

 private:
  bool readWhole(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source, MutableBitmap& target,
                 PixelPoint at);
  bool readStrips(X11SharedSegment& strips, xcb_drawable_t drawable, const X11PixelFormat& format,
                  const PixelRect& source, int stripRows, MutableBitmap& target, PixelPoint at);

  X11Connection& connection_;
  bool sharedMemoryRefused_ = false;
};

}  // namespace vellora
