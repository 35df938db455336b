#pragma once

#include <QString>

namespace vellora {

/// A microphone or a camera.
struct CaptureDeviceInfo {
  QString uniqueID;  ///< stays the same from start to start
  QString displayName;
  friend bool operator==(const CaptureDeviceInfo&, const CaptureDeviceInfo&) = default;
};

}  // namespace vellora
