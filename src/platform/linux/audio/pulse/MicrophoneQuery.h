#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/CaptureDevice.h"
#include "platform/linux/audio/pulse/PulseConnection.h"

namespace vellora {

/// Asks the server for its microphones: all sources but monitors of outputs and those with nothing plugged in, the
/// default one first, the others by their names.
class MicrophoneQuery {
 public:
  explicit MicrophoneQuery(std::function<void()> done) : done_(std::move(done)) {}
  MicrophoneQuery(const MicrophoneQuery&) = delete;
  MicrophoneQuery& operator=(const MicrophoneQuery&) = delete;

  /// Takes back what was asked before. Locked, or on the connection's thread, where `done` is called.
  void start(const PulseConnection& connection);
  bool isDone() const { return isDone_; }
  const std::vector<CaptureDeviceInfo>& microphones() const { return microphones_; }

 private:
  void take(const pa_source_info& source);
  void finish();

  std::function<void()> done_;
  PulseOperationPointer operation_;
  bool isDone_ = false;
  std::string defaultSource_;
  std::vector<CaptureDeviceInfo> microphones_;
};

}  // namespace vellora
