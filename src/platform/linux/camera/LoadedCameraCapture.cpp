#include "platform/linux/camera/LoadedCameraCapture.h"

#include <utility>

#include "base/Module.h"

namespace vellora {

CameraCapture* LoadedCameraCapture::loaded() {
  std::call_once(once_, [this] {
    auto* const entry = moduleFunction<CameraCaptureEntry>("libvellora_v4l2.so", cameraCaptureEntryName);
    if (entry != nullptr) capture_.reset(entry());
  });
  return capture_.get();
}

std::vector<CaptureDeviceInfo> LoadedCameraCapture::cameras() {
  CameraCapture* const capture = loaded();
  return capture == nullptr ? std::vector<CaptureDeviceInfo>() : capture->cameras();
}

Result<std::unique_ptr<CameraStream>, CameraCaptureError> LoadedCameraCapture::start(const QString& deviceID, int width,
                                                                                     int height, Callbacks callbacks) {
  CameraCapture* const capture = loaded();
  if (capture == nullptr) return failure(CameraCaptureError::deviceNotFound);
  return capture->start(deviceID, width, height, std::move(callbacks));
}

}  // namespace vellora
