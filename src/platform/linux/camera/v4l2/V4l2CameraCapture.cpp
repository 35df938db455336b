#include "platform/linux/camera/v4l2/V4l2CameraCapture.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/linux/camera/v4l2/CameraReader.h"
#include "platform/linux/camera/v4l2/V4l2Devices.h"

namespace vellora {
namespace {

const QString testCameraID = QStringLiteral("test:pattern");
constexpr int leastEdge = 64, mostEdge = 4096;

bool hasTestCamera() {
  return !qEnvironmentVariableIsEmpty("VELLORA_TEST_CAMERA");
}

CameraInput testInput(int width, int height) {
  const auto edge = [](int wished) { return std::to_string(std::clamp(wished, leastEdge, mostEdge) & ~1); };
  std::string pattern = "testsrc2=size=" + edge(width) + "x" + edge(height) + ":rate=30";
  const QByteArray value = qgetenv("VELLORA_TEST_CAMERA");
  if (value.endsWith('s')) pattern += ":duration=" + std::to_string(value.chopped(1).toDouble());
  return {.format = "lavfi", .url = pattern + ",realtime"};
}

CameraInput inputOf(const V4l2Device& device, int width, int height) {
  CameraInput input{.format = "v4l2", .url = device.path};
  if (const auto mode = bestMode(modesOf(device, width, height), width, height)) {
    input.options = {{"input_format", mode->format},
                     {"video_size", std::to_string(mode->width) + "x" + std::to_string(mode->height)}};
    if (mode->rate > 0) input.options.emplace_back("framerate", std::to_string(mode->rate));
  }
  return input;
}

}  // namespace

std::vector<CaptureDeviceInfo> V4l2CameraCapture::cameras() {
  std::vector<CaptureDeviceInfo> cameras;
  for (const V4l2Device& device : v4l2Devices()) cameras.push_back({device.id, device.name});
  if (hasTestCamera()) cameras.push_back({testCameraID, QStringLiteral("Test camera")});
  return cameras;
}

Result<std::unique_ptr<CameraStream>, CameraCaptureError> V4l2CameraCapture::start(const QString& deviceID, int width,
                                                                                   int height, Callbacks callbacks) {
  if (deviceID == testCameraID && hasTestCamera()) {
    return CameraReader::open(testInput(width, height), std::move(callbacks));
  }
  const auto devices = v4l2Devices();
  const auto device =
      std::find_if(devices.begin(), devices.end(), [&](const auto& each) { return each.id == deviceID; });
  if (device == devices.end()) return failure(CameraCaptureError::deviceNotFound);
  return CameraReader::open(inputOf(*device, width, height), std::move(callbacks));
}

}  // namespace vellora
