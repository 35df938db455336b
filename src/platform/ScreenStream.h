#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/Geometry.h"
#include "base/Result.h"
#include "platform/ScreenCaptureService.h"

namespace vellora {

/// What a stream shows.
struct ScreenStreamConfiguration {
  /// Of the desktop in device pixels; its size is the picture's. For a window only the size counts: it is the window's
  /// at the start and stays the picture's; a window resized later is scaled into it, letterboxed in black.
  PixelRect area;
  std::optional<WindowId> window{};        ///< one window, uncovered wherever it goes, instead of `area`
  double minimumFrameInterval = 1.0 / 60;  ///< seconds
  bool showsCursor = true;
  int queueDepth = 8;  ///< frames the receiver may hold at once; more are dropped and counted
  /// Our own windows inside `area`, left out of the picture where the desktop can.
  std::vector<WindowId> leftOut{};
};

/// One picture of a stream: BGRA, 8 bits, opaque (whatever the fourth byte says), sRGB, top row first. It may be held,
/// on any thread, until the stream needs its memory: never more than `queueDepth` at once. Holding one keeps the memory
/// alive beyond the stream.
class ScreenFrame {
 public:
  virtual ~ScreenFrame() = default;
  int width = 0;  ///< pixels
  int height = 0;
  std::ptrdiff_t bytesPerRow = 0;
  const std::uint8_t* pixels = nullptr;
  /// When the picture was on the screen, in seconds of the host clock (RunLoop::hostTime).
  double presentationTime = 0;
  bool isComplete = true;
  /// What differs from the frame before it that was delivered; empty: nothing; one rectangle of the whole picture at
  /// the start and whenever it is not known.
  std::vector<PixelRect> changes;
};

struct ScreenStreamCounts {
  std::uint64_t captured = 0;  ///< delivered
  std::uint64_t dropped = 0;   ///< the receiver held all frames
  std::uint64_t late = 0;      ///< moments of the frame clock that passed while one was taken
};

/// A running stream. Destroying it stops it. Main thread.
class ScreenStream {
 public:
  virtual ~ScreenStream() = default;
  /// Final once the stream is stopped.
  virtual ScreenStreamCounts counts() const = 0;
  /// Waits for the stream's thread: after that no callback comes.
  virtual void stop() = 0;
  /// Asks for one more frame of the picture as it is, though nothing changed; at the end of a recording, for its
  /// length. Any thread.
  virtual void requestFrame() = 0;
  /// From one of the next frames on, leaves out these windows of ours and no others, as `leftOut` at the start; so that
  /// windows may come and go during a recording. A stream of one window shows nothing else anyway. Any thread.
  virtual void setLeftOut(std::vector<WindowId> windows) = 0;
};

/// Where the pointer is and how it looks, sampled beside the frames of a stream.
struct PointerSample {
  double time = 0;            ///< host clock
  PixelPoint position;        ///< of its hot spot in the picture, in pixels; may lie outside
  std::uint64_t shape = 0;    ///< names the cursor's picture; the same number for the same one
  std::uint32_t buttons = 0;  ///< bit 0 left, 1 middle, 2 right
  friend bool operator==(const PointerSample&, const PointerSample&) = default;
};

/// Streams of the desktop: a frame when something changed and the frame clock allows, so that a still screen costs next
/// to nothing.
class ScreenStreamService {
 public:
  struct Callbacks {
    /// On the stream's own thread, which must not be held up: frames are dropped meanwhile.
    std::function<void(std::shared_ptr<const ScreenFrame>)> onFrame{};
    /// The stream ended by itself: the display or window is gone, or the connection is. Once, on the stream's thread.
    std::function<void(ScreenCaptureError)> onStopped{};
    /// The pointer moved, changed its shape, or a button went down or up; at most once for each moment of the frame
    /// clock. On the stream's thread.
    std::function<void(const PointerSample&)> onPointer{};
  };
  virtual ~ScreenStreamService() = default;
  /// Opens a stream; takes some milliseconds. The first frame comes at once, whether or not anything changes. Main
  /// thread or a queue.
  virtual Result<std::unique_ptr<ScreenStream>, ScreenCaptureError> start(
      const ScreenStreamConfiguration& configuration, Callbacks callbacks) = 0;
};

}  // namespace vellora
