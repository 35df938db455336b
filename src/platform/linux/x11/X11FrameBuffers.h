#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "platform/ScreenStream.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11FrameRegion.h"
#include "platform/linux/x11/X11SharedSegment.h"

namespace vellora {

/// Memory for one picture of a stream: BGRA rows without gaps.
struct X11FrameBuffer {
  std::unique_ptr<X11SharedSegment> segment;  ///< null where the server shares no memory
  std::shared_ptr<std::byte> memory;
  PixelSize size;
  /// Rows that differ from what the picture would have to show now.
  RowBands stale;

  /// Memory for a picture of that size, filled with zeros; shared with the server where it can be. Empty when there is
  /// none.
  static X11FrameBuffer make(X11Connection& connection, PixelSize size);

  std::size_t rowBytes() const { return static_cast<std::size_t>(size.width) * 4; }
  std::byte* row(int y) const { return memory.get() + rowBytes() * static_cast<std::size_t>(y); }
};

/// The buffers of a stream. They are made when they are needed, and the one that came back last is taken first, but for
/// that of the last frame: a receiver that holds one frame costs two or three. Used on the stream's thread; frames may
/// go on any.
class X11FrameBuffers {
 public:
  X11FrameBuffers(X11Connection& connection, PixelSize size, int limit);
  ~X11FrameBuffers();

  /// Makes a buffer beforehand, so that the first frame does not wait for it. False when there is no memory.
  bool prepare();
  /// A buffer nobody holds; null when the receiver holds all. It belongs to the caller until `release` or `frame`.
  X11FrameBuffer* take();
  void release(const X11FrameBuffer& buffer);
  /// The buffer's picture, for the receiver; comes back when the last one lets go of it.
  std::shared_ptr<ScreenFrame> frame(const X11FrameBuffer& buffer);
  /// The last frame's buffer, as it was delivered; null when there is none, or it had to be used again.
  const X11FrameBuffer* latest() const { return latest_; }
  /// These rows of the picture are others now.
  void markStale(RowBand rows);

 private:
  class Returned;
  class Frame;

  X11FrameBuffer* make();
  std::size_t indexOf(const X11FrameBuffer& buffer) const;

  X11Connection& connection_;
  const PixelSize size_;
  const std::size_t limit_;
  std::vector<std::unique_ptr<X11FrameBuffer>> buffers_;
  std::shared_ptr<Returned> returned_;
  const X11FrameBuffer* latest_ = nullptr;
};

}  // namespace vellora
