#pragma once

#include <functional>
#include <memory>

#include <QString>
#include <QStringList>

#include "platform/linux/desktop/InstanceBus.h"

namespace vellora {

/// Makes this process the one running instance of the session and receives what later starts hand over. Main thread,
/// with an event loop; handlers run there.
class InstanceServer {
 public:
  /// One command line handed over; relative paths in it count from `workingDirectory`.
  struct Command {
    QStringList arguments;
    QString workingDirectory;
  };
  using Reply = std::function<void(CommandOutcome)>;
  struct Handlers {
    std::function<void()> activate;
    std::function<void()> openSettings;
    /// Answers by calling `reply` once, now or later, on the main thread. Letting go of `reply` unused answers with an
    /// error.
    std::function<void(Command command, Reply reply)> run;
  };
  enum class Start {
    First,           ///< this process is the instance now
    AlreadyRunning,  ///< another one is; use InstanceClient
    NoBus,           ///< no session bus: nobody can find this process, nor it another one
  };

  explicit InstanceServer(Handlers handlers);
  ~InstanceServer();
  InstanceServer(const InstanceServer&) = delete;
  InstanceServer& operator=(const InstanceServer&) = delete;

  /// Claims the name. Of several processes that try at once exactly one is First.
  Start start();

 private:
  class Object;
  std::unique_ptr<Object> object_;
};

}  // namespace vellora
