#pragma once

#include <chrono>
#include <optional>

#include <QString>
#include <QStringList>

#include "base/Result.h"
#include "platform/linux/desktop/InstanceBus.h"

namespace vellora {

enum class InstanceError {
  NotRunning,  ///< no instance, or no session bus to find one on
  TimedOut,    ///< it did not answer in time; it may still carry the command out
  Failed,      ///< it ended or refused before it answered
};

/// Reaches the running instance. Connects with the first call; never starts an instance or a bus. One thread at a time,
/// no event loop needed; each call waits for its answer.
class InstanceClient {
 public:
  InstanceClient();
  ~InstanceClient();
  InstanceClient(const InstanceClient&) = delete;
  InstanceClient& operator=(const InstanceClient&) = delete;

  bool isRunning();
  Result<void, InstanceError> activate();
  Result<void, InstanceError> openSettings();

  /// Has the instance carry out a command line; without `timeout` waits as long as that takes.
  Result<CommandOutcome, InstanceError> run(const QStringList& arguments, const QString& workingDirectory,
                                            std::optional<std::chrono::milliseconds> timeout = std::nullopt);

 private:
  bool connect();
  Result<QVariantList, InstanceError> call(const char* method, const QVariantList& arguments, int timeoutMilliseconds);

  const QString connectionName_;
  bool tried_ = false;
};

}  // namespace vellora
