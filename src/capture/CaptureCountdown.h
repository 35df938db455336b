#pragma once

#include <functional>

#include "base/RunLoop.h"

namespace vellora {

/// The seconds before a delayed capture. Main thread.
class CaptureCountdown {
 public:
  static constexpr int defaultSeconds = 3;

  /// `runLoop` must outlive the countdown.
  explicit CaptureCountdown(RunLoop& runLoop, int seconds = defaultSeconds) : runLoop_(runLoop), seconds_(seconds) {}
  CaptureCountdown(const CaptureCountdown&) = delete;
  CaptureCountdown& operator=(const CaptureCountdown&) = delete;

  /// Calls `tick` at once and after every second with the seconds that remain, and `fired` in place of a tick with 0.
  /// The callbacks may destroy the countdown. Starting again begins anew.
  void start(std::function<void(int remaining)> tick, std::function<void()> fired);
  /// Neither callback comes any more.
  void cancel();

  bool isRunning() const { return timer_ != nullptr; }
  int remaining() const { return remaining_; }

 private:
  void second();

  RunLoop& runLoop_;
  const int seconds_;
  int remaining_ = 0;
  std::function<void(int)> tick_;
  std::function<void()> fired_;
  TimerHandle timer_;
};

}  // namespace vellora
