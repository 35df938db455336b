#pragma once

#include <functional>
#include <memory>

class QSocketNotifier;

namespace vellora {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main thread, so that logging out or Ctrl+C ends the program the
/// orderly way. One at a time.
class TerminationSignals {
 public:
  explicit TerminationSignals(std::function<void()> handler);
  ~TerminationSignals();
  TerminationSignals(const TerminationSignals&) = delete;
  TerminationSignals& operator=(const TerminationSignals&) = delete;

 private:
  std::unique_ptr<QSocketNotifier> notifier_;
  int descriptor_ = -1;
};

}  // namespace vellora
