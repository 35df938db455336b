#pragma once

#include <functional>
#include <memory>

namespace vellora {

/// Tells that the machine is about to sleep or to shut down, and asks it to wait a moment meanwhile (logind's
/// PrepareForSleep, PrepareForShutdown and "delay" locks). Machines without logind say nothing. Main thread, with an
/// event loop; nothing waits for an answer.
class SleepWatch {
 public:
  SleepWatch();
  ~SleepWatch();
  SleepWatch(const SleepWatch&) = delete;
  SleepWatch& operator=(const SleepWatch&) = delete;

  /// From now on `ending` is called when the machine is about to go, and it waits for `release`, as long as logind
  /// lets it (five seconds, usually). `reason` is for whoever asks logind what it waits for.
  void hold(const char* reason, std::function<void()> ending);
  /// The machine may go.
  void release();

 private:
  class Manager;
  std::unique_ptr<Manager> manager_;
};

}  // namespace vellora
