#pragma once

#include <functional>
#include <memory>

#include "base/Lifetime.h"
#include "base/Result.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "capture/CaptureError.h"
#include "capture/CapturedImage.h"
#include "platform/ScreenCaptureService.h"
#include "platform/ScreenStill.h"

namespace vellora {

/// Takes pictures of the desktop off the main thread, one after the other. Main thread; callbacks come on the main
/// thread, never from inside the call, and not at all once the engine is gone. The pointer is never in a picture.
class CaptureEngine {
 public:
  using Content = Result<ShareableContent, CaptureError>;
  using Image = Result<CapturedImage, CaptureError>;
  template <class T>
  using Callback = std::function<void(T)>;

  /// Both must outlive the engine.
  CaptureEngine(ScreenCaptureService& service, RunLoop& runLoop);

  /// The displays and windows there are now.
  void shareableContent(Callback<Content> done);
  /// A whole display in device pixels; `display` as a recent shareableContent told it.
  void captureDisplay(const DisplayInfo& display, Callback<Image> done);
  /// The part of a display inside `part`, relative to its top-left corner; no pixel outside it is moved. CropFailed
  /// when it holds none of the display's pixels.
  void captureDisplay(const DisplayInfo& display, const PixelRect& part, Callback<Image> done);
  /// One window by itself; `scale` is that of its display.
  void captureWindow(WindowId window, double scale, Callback<Image> done);
  /// A part of the desktop in device pixels.
  void captureRegion(const PixelRect& region, double scale, Callback<Image> done);

  /// A display as it was when `still` was frozen. The still lives until the picture has been read.
  void readStill(std::shared_ptr<const ScreenStill> still, const DisplayInfo& display, Callback<Image> done);

  /// Waits until what was asked for so far has been taken; its callbacks still come later.
  void waitForPictures() { queue_.drain(); }

 private:
  template <class T>
  void run(std::function<T()> work, Callback<T> done);

  ScreenCaptureService& service_;
  RunLoop& runLoop_;
  Lifetime lifetime_;
  SerialQueue queue_{"dev.orlo.vellora.capture"};  // last: ends its tasks while the rest is there
};

}  // namespace vellora
