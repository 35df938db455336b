#pragma once

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "media/movies/LibavPointers.h"
#include "media/movies/PictureConverter.h"
#include "platform/CameraCapture.h"
#include "platform/linux/camera/CameraClock.h"

namespace vellora {

/// A camera as libavdevice opens it.
struct CameraInput {
  std::string format;  ///< "v4l2", "lavfi"
  std::string url;     ///< a device node, a description of filters
  std::vector<std::pair<std::string, std::string>> options{};
};

/// Reads, decodes and converts a camera's pictures on a thread of its own.
class CameraReader final : public CameraStream {
 public:
  static Result<std::unique_ptr<CameraStream>, CameraCaptureError> open(const CameraInput& input,
                                                                        CameraCapture::Callbacks callbacks);
  ~CameraReader() override;

 private:
  explicit CameraReader(CameraCapture::Callbacks callbacks) : callbacks_(std::move(callbacks)) {}

  std::optional<CameraCaptureError> openInput(const CameraInput& input);
  bool openDecoder();
  void run();
  /// False when nothing more will come.
  bool readOne();
  void take(const AVFrame& picture, double arrival);
  /// Sleeps a little, unless it is to end.
  void rest();

  CameraCapture::Callbacks callbacks_;
  FormatPointer format_;
  const AVStream* stream_ = nullptr;
  CodecPointer codec_;
  FramePointer decoded_;
  PacketPointer packet_;
  std::optional<PictureConverter> converter_;
  CameraClock clock_;
  double lastPictureAt_ = 0;

  std::mutex mutex_;
  std::condition_variable ending_;
  std::atomic<bool> isEnding_ = false;  // written under mutex_
  std::thread thread_;
};

}  // namespace vellora
