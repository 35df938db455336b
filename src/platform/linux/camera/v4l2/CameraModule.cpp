#include "platform/linux/camera/LoadedCameraCapture.h"
#include "platform/linux/camera/v4l2/V4l2CameraCapture.h"

extern "C" __attribute__((visibility("default"))) vellora::CameraCapture* vellora_camera_capture() {
  return new vellora::V4l2CameraCapture;
}
