#pragma once

#include <functional>
#include <vector>

#include "platform/linux/audio/pulse/MicrophoneQuery.h"
#include "platform/linux/audio/pulse/PulseConnection.h"

namespace vellora {

/// Tells when the list of microphones has changed, also when the server goes or comes back, and once when it has come
/// to know them: what changed before is seen then.
class MicrophoneWatch {
 public:
  /// `changed` is called on a thread of this object's.
  explicit MicrophoneWatch(std::function<void()> changed);
  ~MicrophoneWatch();

 private:
  static constexpr double reconnectDelay = 2;  // seconds
  static constexpr double settleTime = 0.05;   // one device brings several events

  void connect();
  void stateChanged();
  void compare();

  std::function<void()> changed_;
  std::vector<CaptureDeviceInfo> known_;
  MicrophoneQuery query_;
  PulseConnection connection_;
  PulseConnection::Timer timer_;
};

}  // namespace vellora
