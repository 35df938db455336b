#pragma once

#include <functional>

#include "capture/CaptureCommands.h"
#include "platform/linux/desktop/InstanceServer.h"

namespace vellora {

/// Carries out what the command line hands over, in the running program or in one started for a single command.
class InstanceCommands {
 public:
  /// `reopen` opens the history's entry of that index; false when there is none.
  InstanceCommands(CaptureCommands& captures, std::function<bool(int index)> reopen);

  /// Understands "capture REQUEST text|json" and "reopen N". Replies once.
  void run(const InstanceServer::Command& command, InstanceServer::Reply reply);

 private:
  CaptureCommands& captures_;
  std::function<bool(int)> reopen_;
};

}  // namespace vellora
