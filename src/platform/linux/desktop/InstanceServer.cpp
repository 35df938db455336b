#include "platform/linux/desktop/InstanceServer.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

constexpr char introspection[] =
    "<interface name=\"dev.orlo.Vellora\">"
    "<method name=\"Activate\"/><method name=\"OpenSettings\"/><method name=\"Ping\"/>"
    "<method name=\"Run\"><arg name=\"arguments\" type=\"as\" direction=\"in\"/>"
    "<arg name=\"workingDirectory\" type=\"s\" direction=\"in\"/><arg name=\"exitCode\" type=\"i\" direction=\"out\"/>"
    "<arg name=\"standardOutput\" type=\"s\" direction=\"out\"/><arg name=\"standardError\" type=\"s\" "
    "direction=\"out\"/>"
    "</method></interface>";

/// Answers one delayed call exactly once. Knows the connection by name only: a copy would keep it, and the callers
/// waiting on it, alive beyond the server.
class PendingReply {
 public:
  PendingReply(const QString& connectionName, const QDBusMessage& call)
      : connectionName_(connectionName), call_(call) {}
  PendingReply(const PendingReply&) = delete;
  PendingReply& operator=(const PendingReply&) = delete;
  ~PendingReply() {
    if (!answered_) {
      send(call_.createErrorReply(QLatin1String(instanceBus::errorAbandoned), QStringLiteral("not answered")));
    }
  }
  void answer(const CommandOutcome& outcome) {
    if (std::exchange(answered_, true)) return;
    send(call_.createReply({outcome.exitCode, outcome.standardOutput, outcome.standardError}));
  }

 private:
  void send(const QDBusMessage& message) {
    const QDBusConnection connection(connectionName_);
    if (connection.isConnected()) connection.send(message);
  }

  QString connectionName_;
  QDBusMessage call_;
  bool answered_ = false;
};

}  // namespace

class InstanceServer::Object final : public QDBusVirtualObject {
 public:
  explicit Object(Handlers handlers)
      : handlers_(std::move(handlers)),
        connectionName_(QStringLiteral("vellora-instance-%1").arg(reinterpret_cast<quintptr>(this), 0, 16)) {}

  ~Object() override { QDBusConnection::disconnectFromBus(connectionName_); }

  Start start() {
    if (!sessionBus::isReachable()) return Start::NoBus;
    QDBusConnection connection = QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName_);
    if (!connection.isConnected()) return Start::NoBus;
    // The object first: whoever sees the name may call at once.
    if (!connection.registerVirtualObject(QLatin1String(instanceBus::path), this)) return Start::NoBus;
    const auto taken = connection.interface()->registerService(QLatin1String(instanceBus::service),
                                                               QDBusConnectionInterface::DontQueueService,
                                                               QDBusConnectionInterface::DontAllowReplacement);
    if (!taken.isValid()) return Start::NoBus;
    return taken.value() == QDBusConnectionInterface::ServiceRegistered ? Start::First : Start::AlreadyRunning;
  }

  QString introspect(const QString&) const override { return QLatin1String(introspection); }

  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    if (message.type() != QDBusMessage::MethodCallMessage) return false;
    if (!message.interface().isEmpty() && message.interface() != QLatin1String(instanceBus::interface)) return false;
    if (message.member() == QLatin1String("Run")) return run(message);
    const std::function<void()>* handler = nullptr;
    const std::function<void()> nothing = [] {};
    if (message.member() == QLatin1String("Activate")) handler = &handlers_.activate;
    if (message.member() == QLatin1String("OpenSettings")) handler = &handlers_.openSettings;
    if (message.member() == QLatin1String("Ping")) handler = &nothing;
    if (!handler) return false;
    // Answered first: what the handler opens may run an event loop of its own.
    if (message.isReplyRequired()) connection.send(message.createReply());
    if (*handler) (*handler)();
    return true;
  }

 private:
  bool run(const QDBusMessage& message) {
    if (message.signature() != QLatin1String("ass")) return false;
    message.setDelayedReply(true);
    const auto pending = std::make_shared<PendingReply>(connectionName_, message);
    if (handlers_.run) {
      handlers_.run({message.arguments().at(0).toStringList(), message.arguments().at(1).toString()},
                    [pending](const CommandOutcome& outcome) { pending->answer(outcome); });
    }
    return true;
  }

  const Handlers handlers_;
  const QString connectionName_;
};

InstanceServer::InstanceServer(Handlers handlers) : object_(std::make_unique<Object>(std::move(handlers))) {}
InstanceServer::~InstanceServer() = default;
InstanceServer::Start InstanceServer::start() {
  return object_->start();
}

}  // namespace vellora
