#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

#include "platform/CameraCapture.h"

namespace vellora::test {

/// A camera whose pictures the test sends. It may be opened and closed on any thread.
class FakeCameras final : public CameraCapture {
 public:
  std::vector<CaptureDeviceInfo> devices;
  std::atomic<bool> isOpen = false;

  std::vector<CaptureDeviceInfo> cameras() override { return devices; }
  Result<std::unique_ptr<CameraStream>, CameraCaptureError> start(const QString& deviceID, int, int,
                                                                  Callbacks callbacks) override {
    for (const CaptureDeviceInfo& device : devices) {
      if (device.uniqueID != deviceID) continue;
      const std::lock_guard lock(mutex_);
      callbacks_ = std::move(callbacks);
      isOpen = true;
      return std::make_unique<Stream>(*this);
    }
    return failure(CameraCaptureError::deviceNotFound);
  }
  void frame(double time) {
    if (!isOpen) return;
    auto frame = std::make_shared<CameraFrame>();
    frame->width = 640;
    frame->height = 360;
    frame->presentationTime = time;
    const std::lock_guard lock(mutex_);
    callbacks_.onFrame(std::move(frame));
  }
  void unplug() {
    const std::lock_guard lock(mutex_);
    callbacks_.onLost(CameraCaptureError::failed);
  }

 private:
  class Stream final : public CameraStream {
   public:
    explicit Stream(FakeCameras& cameras) : cameras_(cameras) {}
    ~Stream() override { cameras_.isOpen = false; }

   private:
    FakeCameras& cameras_;
  };
  std::mutex mutex_;
  Callbacks callbacks_;
};

}  // namespace vellora::test
