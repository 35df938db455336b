#include "capture/CaptureError.h"

namespace vellora {

const char* localizationKey(CaptureError error) {
  switch (error) {
    case CaptureError::WindowGone:
      return "capture.error.windowGone";
    case CaptureError::CropFailed:
      return "capture.error.cropFailed";
    case CaptureError::NoDisplay:
      return "capture.error.noDisplay";
    case CaptureError::Failed:
      break;
  }
  return "capture.error.failed";
}

const char* description(CaptureError error) {
  switch (error) {
    case CaptureError::WindowGone:
      return "window gone";
    case CaptureError::CropFailed:
      return "crop failed";
    case CaptureError::NoDisplay:
      return "no display";
    case CaptureError::Failed:
      break;
  }
  return "the desktop cannot be captured";
}

CaptureError captureError(ScreenCaptureError error) {
  switch (error) {
    case ScreenCaptureError::WindowGone:
      return CaptureError::WindowGone;
    case ScreenCaptureError::NoDisplay:
      return CaptureError::NoDisplay;
    case ScreenCaptureError::NotAvailable:
    case ScreenCaptureError::Failed:
      break;
  }
  return CaptureError::Failed;
}

}  // namespace vellora
