#pragma once

#include <xcb/xcb.h>

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/Geometry.h"
#include "base/Result.h"
#include "platform/ScreenStream.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Cursor.h"
#include "platform/linux/x11/X11FrameBuffers.h"

namespace vellora {

/// What a stream shows: a part of the desktop, or a window. Rectangles are the picture's.
class X11FrameSource {
 public:
  using Rects = std::vector<PixelRect>;
  /// The pointer in the picture.
  struct Cursor {
    PixelPoint position;
    double scale = 1;
    bool isShown = true;  ///< false when it is over something that is not in the picture
  };

  /// The source for `configuration`, with the same errors as the stream's start.
  static Result<std::unique_ptr<X11FrameSource>, ScreenCaptureError> make(
      X11Connection& connection, const ScreenStreamConfiguration& configuration);
  virtual ~X11FrameSource() = default;

  virtual PixelSize size() const = 0;
  /// Takes note of an event; others are ignored.
  virtual void handle(const xcb_generic_event_t& event) = 0;
  /// Whether `changes` would have something to tell.
  virtual bool isDirty() const = 0;
  /// What changed since the last call, of both this one and `read`. Fails when the source is gone.
  virtual Result<Rects, ScreenCaptureError> changes() = 0;
  /// Brings `bands` of the buffer up to date in one moment. Tells what changed since `changes`: of that, what lies in
  /// the bands is in the buffer, and the rest is not. Nothing when the server refused, because the source just changed:
  /// the rows are as old as they were, and what had changed is told anew.
  virtual std::optional<Rects> read(std::span<const RowBand> bands, X11FrameBuffer& buffer) = 0;
  /// Whether there is nothing to read for now, and the last picture stays.
  virtual bool isFrozen() const { return false; }
  /// After the events that came with `read`: whether it showed what it should.
  virtual bool isCurrent() const { return true; }
  virtual Cursor cursor(const X11Pointer& pointer) const = 0;
  /// These windows, and no others, are to be left out from now on. A source that shows none of them has nothing to do.
  virtual void leaveOut(const std::vector<WindowId>& /*windows*/) {}
};

}  // namespace vellora
