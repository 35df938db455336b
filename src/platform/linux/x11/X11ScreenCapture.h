#pragma once

#include <memory>
#include <string>

#include "platform/ScreenCaptureService.h"

namespace vellora {

/// Pictures of an X desktop. Any thread; calls are served one after the other. Connects with the first call, so that
/// making one costs nothing; holds no picture memory between calls. A lost connection stays lost: every later call says
/// NotAvailable.
class X11ScreenCapture final : public ScreenCaptureService {
 public:
  /// `display` as in DISPLAY (":0"); empty takes DISPLAY.
  explicit X11ScreenCapture(std::string display = {});
  ~X11ScreenCapture() override;

  Result<ShareableContent, ScreenCaptureError> shareableContent() override;
  Result<Bitmap, ScreenCaptureError> displayImage(DisplayId display) override;
  Result<Bitmap, ScreenCaptureError> regionImage(const PixelRect& region) override;
  Result<Bitmap, ScreenCaptureError> windowImage(WindowId window) override;

 private:
  class Session;
  std::unique_ptr<Session> session_;
};

}  // namespace vellora
