#pragma once

#include <functional>

#include "capture/CaptureCommands.h"
#include "platform/linux/desktop/InstanceServer.h"

namespace vellora {

/// Carries out what the command line hands over, in the running program or in one started for a single command.
class InstanceCommands {
 public:
  struct Windows {
    /// Opens the history's entry of that index; false when there is none.
    std::function<bool(int index)> reopen;
    /// Opens a picture file or a recording project and calls back with what was wrong for a person, empty when nothing.
    std::function<void(const QString& path, std::function<void(const QString& problem)> done)> edit;
    /// Opens the compressor with these files and folders, which may be none.
    std::function<void(const QStringList& paths)> compress;
  };

  InstanceCommands(CaptureCommands& captures, Windows windows);

  /// Understands "capture REQUEST text|json", "reopen N", "edit FILE…" and "compress [PATH…]". Replies once.
  void run(const InstanceServer::Command& command, InstanceServer::Reply reply);

 private:
  void edit(const QStringList& paths, InstanceServer::Reply reply);

  CaptureCommands& captures_;
  const Windows windows_;
};

}  // namespace vellora
