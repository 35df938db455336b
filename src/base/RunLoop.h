#pragma once

#include <functional>
#include <memory>

#include "base/Date.h"

namespace vellora {

/// A pending timer; destroying it cancels it. Main thread only.
class Timer {
 public:
  virtual ~Timer() = default;
};
using TimerHandle = std::unique_ptr<Timer>;

/// The main thread as the models see it: hops to it, timers on it, and the clocks. Tests hand in one with virtual time.
class RunLoop {
 public:
  using Task = std::function<void()>;
  virtual ~RunLoop() = default;

  /// Runs `task` on the main thread, later and in the order of the calls. Any thread.
  virtual void post(Task task) = 0;

  /// Runs `task` once, `seconds` from now. Main thread.
  [[nodiscard]] virtual TimerHandle after(double seconds, Task task) = 0;

  /// Runs `task` every `seconds`, first after one interval. Main thread.
  [[nodiscard]] virtual TimerHandle every(double seconds, Task task) = 0;

  /// The wall clock. Any thread.
  virtual Date now() const = 0;

  /// Seconds of a clock that never jumps (CLOCK_MONOTONIC). Any thread.
  virtual double hostTime() const = 0;
};

}  // namespace vellora
