#pragma once

#include <memory>
#include <mutex>

#include "platform/CameraCapture.h"

namespace vellora {

/// The module's cameras, loaded by the first call that needs them. Where it is not installed there are none.
class LoadedCameraCapture final : public CameraCapture {
 public:
  std::vector<CaptureDeviceInfo> cameras() override;
  Result<std::unique_ptr<CameraStream>, CameraCaptureError> start(const QString& deviceID, int width, int height,
                                                                  Callbacks callbacks) override;

 private:
  CameraCapture* loaded();

  std::once_flag once_;
  std::unique_ptr<CameraCapture> capture_;
};

/// The one function the module exports. The caller owns what it makes.
using CameraCaptureEntry = CameraCapture*();
inline constexpr char cameraCaptureEntryName[] = "vellora_camera_capture";

}  // namespace vellora
