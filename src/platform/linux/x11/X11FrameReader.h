#pragma once

#include <xcb/shm.h>
#include <xcb/xcb.h>

#include <memory>
#include <vector>

#include "base/Geometry.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrameBuffers.h"
#include "platform/linux/x11/X11Image.h"

namespace vellora {

/// Reads pieces of drawables into a buffer, all with one wait. Whole rows in the buffer's own format are written there
/// by the server itself; other pieces go through a piece of shared memory that is kept, or come as answers.
class X11FrameReader {
 public:
  explicit X11FrameReader(X11Connection& connection) : connection_(connection) {}

  /// Makes room for pieces of together `bytes`, as they lie in the drawables. Between readings only.
  void reserve(std::size_t bytes);

  /// Asks for `source`, which must lie inside the drawable, to be put at `at` of the buffer. `receive` has to be called
  /// before the buffer goes.
  void ask(xcb_drawable_t drawable, const X11PixelFormat& format, const PixelRect& source, X11FrameBuffer& buffer,
           PixelPoint at);
  /// Waits for everything asked for. False when the server refused any of it or is gone.
  bool receive();

 private:
  struct Piece {
    X11PixelFormat format;
    PixelSize size;
    X11FrameBuffer* buffer = nullptr;
    PixelPoint at;
    xcb_shm_get_image_cookie_t shared{};
    xcb_get_image_cookie_t plain{};
    const std::byte* staged = nullptr;  ///< where the server puts it; null: into the buffer, or as an answer
    bool isShared = false;
  };
  static void copy(const Piece& piece, const std::byte* pixels);

  X11Connection& connection_;
  std::unique_ptr<X11SharedSegment> staging_;
  std::size_t stagingBytes_ = 0;
  std::size_t stagingUsed_ = 0;
  bool stagingRefused_ = false;
  std::vector<Piece> asked_;
};

}  // namespace vellora
