#pragma once

#include "platform/CameraCapture.h"

namespace vellora {

/// The cameras of the Video4Linux devices. With the environment variable VELLORA_TEST_CAMERA set there is also "Test
/// camera", whose moving picture shows its time and number; a value such as "5s" lets it go after that time, as if it
/// were unplugged.
class V4l2CameraCapture final : public CameraCapture {
 public:
  std::vector<CaptureDeviceInfo> cameras() override;
  Result<std::unique_ptr<CameraStream>, CameraCaptureError> start(const QString& deviceID, int width, int height,
                                                                  Callbacks callbacks) override;
};

}  // namespace vellora
