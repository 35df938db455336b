#pragma once

#include <functional>
#include <memory>

#include <QSocketNotifier>

namespace vellora {

/// Ctrl-C and the other polite requests to end. The first one is told, on the thread of the event loop; from then on
/// each ends the program at once, also when it hangs. One at a time in a program.
class StopSignals {
 public:
  explicit StopSignals(std::function<void()> onFirst);
  ~StopSignals();
  StopSignals(const StopSignals&) = delete;
  StopSignals& operator=(const StopSignals&) = delete;

 private:
  int arrivals_ = -1;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace vellora
