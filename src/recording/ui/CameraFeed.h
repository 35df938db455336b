#pragma once

#include <functional>
#include <memory>
#include <mutex>

#include <QImage>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "platform/CameraCapture.h"

namespace vellora {

/// Pictures of the camera on their way to the screen: only the newest counts, at most 30 a second are made, and making
/// them holds up neither the camera nor the main thread. Main thread but for `push`.
class CameraFeed {
 public:
  static constexpr double leastInterval = 1.0 / 30;

  explicit CameraFeed(RunLoop& runLoop) : runLoop_(runLoop) {}

  /// From now on `show` gets pictures of that side in device pixels, on the main thread.
  void open(int side, std::function<void(QImage)> show);
  /// The side changes; the newest frame comes once more.
  void setSide(int side);
  /// No picture is shown any more, and frames are dropped.
  void close();

  /// A new frame. Any thread.
  void push(std::shared_ptr<const CameraFrame> frame);

 private:
  void wake();
  void convert();

  RunLoop& runLoop_;
  std::function<void(QImage)> show_;
  int side_ = 0;
  bool isConverting_ = false;
  double convertedAt_ = -leastInterval;
  TimerHandle wait_;

  std::mutex mutex_;
  // Guarded by mutex_:
  bool isOpen_ = false;
  bool isNew_ = false;
  std::shared_ptr<const CameraFrame> newest_;

  // Pictures under way end before what their tasks use.
  SerialQueue queue_{"dev.orlo.vellora.recording.preview"};
  Lifetime lifetime_;
};

}  // namespace vellora
