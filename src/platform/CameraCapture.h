#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include <QString>

#include "base/Result.h"
#include "platform/CaptureDevice.h"

namespace vellora {

/// One picture of a camera: planar 4:2:0, 8 bits, limited range. May be held on any thread.
class CameraFrame {
 public:
  virtual ~CameraFrame() = default;
  int width = 0;  ///< pixels, even
  int height = 0;
  const std::uint8_t* planes[3] = {};
  std::ptrdiff_t bytesPerRow[3] = {};
  bool isBt709 = true;          ///< else BT.601
  double presentationTime = 0;  ///< seconds of the host clock
};

enum class CameraCaptureError {
  deviceNotFound,
  busy,    ///< another program has it
  failed,  ///< it gives no pictures
};

/// A running camera. Destroying it ends it; after that no callback comes. Main thread.
class CameraStream {
 public:
  virtual ~CameraStream() = default;
};

/// Cameras.
class CameraCapture {
 public:
  struct Callbacks {
    /// On the camera's own thread.
    std::function<void(std::shared_ptr<const CameraFrame>)> onFrame{};
    /// It was unplugged or fails; nothing follows. On the same thread.
    std::function<void(CameraCaptureError)> onLost{};
  };
  virtual ~CameraCapture() = default;

  /// Cameras as they are at the moment. Not on the main thread.
  virtual std::vector<CaptureDeviceInfo> cameras() = 0;
  /// Opens a camera at the size next to `width` × `height`.
  virtual Result<std::unique_ptr<CameraStream>, CameraCaptureError> start(const QString& deviceID, int width,
                                                                          int height, Callbacks callbacks) = 0;
};

}  // namespace vellora
