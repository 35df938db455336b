#pragma once

#include "platform/ScreenCaptureService.h"

namespace vellora {

/// Why a capture ended without a picture.
enum class CaptureError {
  WindowGone,  ///< the window was closed or hidden meanwhile
  CropFailed,  ///< the rectangle holds no pixel of the captured display
  NoDisplay,   ///< the display is not there (any more)
  Failed,      ///< the desktop cannot be captured or refused
};

/// The dotted key of the text a person reads ("capture.error.windowGone").
const char* localizationKey(CaptureError error);

/// The error's name in a log line ("window gone").
const char* description(CaptureError error);

CaptureError captureError(ScreenCaptureError error);

}  // namespace vellora
