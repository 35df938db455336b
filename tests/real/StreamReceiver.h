#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/linux/x11/X11ScreenStream.h"
#include "support/XServer.h"

namespace vellora::test {

/// A picture as 0xRRGGBB, row by row.
using Pixels = std::vector<std::uint32_t>;

/// Receives a stream: keeps a picture made of nothing but what each frame says has changed, and the frames themselves
/// where asked to.
class StreamReceiver {
 public:
  struct Seen {
    double time = 0;
    std::vector<PixelRect> changes;
  };
  /// Called on the stream's thread with each frame, after it was counted.
  std::function<void(const ScreenFrame&)> inspect;

  /// Starts a stream of `server`; fails the running test when that fails.
  bool start(const XServer& server, ScreenStreamConfiguration configuration);
  std::optional<ScreenCaptureError> startError(const XServer& server, const ScreenStreamConfiguration& configuration);
  void stop() { stream_.reset(); }
  ScreenStream& stream() { return *stream_; }

  /// Frames held back from the stream until `letGo`.
  void holdFrames() { holding_ = true; }
  std::vector<std::shared_ptr<const ScreenFrame>> letGo();

  std::vector<Seen> frames() const;
  std::size_t count() const { return frames().size(); }
  Pixels picture() const;
  std::uint32_t pixel(int x, int y) const;
  std::vector<PointerSample> pointers() const;
  std::optional<ScreenCaptureError> stopped() const;

  /// Waits until frames stop coming: everything drawn so far is in the picture.
  void settle() const;

 private:
  void receive(const std::shared_ptr<const ScreenFrame>& frame);

  mutable std::mutex mutex_;
  std::vector<Seen> frames_;
  std::vector<std::shared_ptr<const ScreenFrame>> held_;
  std::vector<PointerSample> pointers_;
  Pixels picture_;
  int width_ = 0;
  std::optional<ScreenCaptureError> stopped_;
  std::atomic<bool> holding_ = false;
  std::unique_ptr<ScreenStream> stream_;
};

/// The frame's pixels without the fourth byte.
Pixels pixelsOf(const ScreenFrame& frame);

}  // namespace vellora::test
