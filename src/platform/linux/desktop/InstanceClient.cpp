#include "platform/linux/desktop/InstanceClient.h"

#include <algorithm>
#include <limits>

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QVariant>

#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

constexpr int shortAnswerMilliseconds = 2000;

InstanceError errorFor(const QDBusMessage& reply) {
  // The bus's answer to a call that must not start the service; Qt has no value for it.
  if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) return InstanceError::NotRunning;
  switch (QDBusError(reply).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::Disconnected:
    case QDBusError::NoServer:
      return InstanceError::NotRunning;
    case QDBusError::NoReply:
      // The bus's own answer when the other side left carries this sender; Qt's, when time ran out, none.
      return reply.service().isEmpty() ? InstanceError::TimedOut : InstanceError::Failed;
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
      return InstanceError::TimedOut;
    default:
      return InstanceError::Failed;
  }
}

}  // namespace

InstanceClient::InstanceClient()
    : connectionName_(QStringLiteral("vellora-client-%1").arg(reinterpret_cast<quintptr>(this), 0, 16)) {}

InstanceClient::~InstanceClient() {
  if (tried_) QDBusConnection::disconnectFromBus(connectionName_);
}

bool InstanceClient::connect() {
  if (tried_) return QDBusConnection(connectionName_).isConnected();
  if (!sessionBus::isReachable()) return false;
  tried_ = true;
  return QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName_).isConnected();
}

Result<QVariantList, InstanceError> InstanceClient::call(const char* method, const QVariantList& arguments,
                                                         int timeoutMilliseconds) {
  if (!connect()) return failure(InstanceError::NotRunning);
  QDBusMessage message =
      QDBusMessage::createMethodCall(QLatin1String(instanceBus::service), QLatin1String(instanceBus::path),
                                     QLatin1String(instanceBus::interface), QLatin1String(method));
  message.setAutoStartService(false);
  message.setArguments(arguments);
  const QDBusMessage reply = QDBusConnection(connectionName_).call(message, QDBus::Block, timeoutMilliseconds);
  if (reply.type() != QDBusMessage::ReplyMessage) return failure(errorFor(reply));
  return reply.arguments();
}

bool InstanceClient::isRunning() {
  const auto answer = call("Ping", {}, shortAnswerMilliseconds);
  return answer || answer.error() != InstanceError::NotRunning;
}

Result<void, InstanceError> InstanceClient::activate() {
  const auto answer = call("Activate", {}, shortAnswerMilliseconds);
  if (!answer) return failure(answer.error());
  return {};
}

Result<void, InstanceError> InstanceClient::openSettings() {
  const auto answer = call("OpenSettings", {}, shortAnswerMilliseconds);
  if (!answer) return failure(answer.error());
  return {};
}

Result<CommandOutcome, InstanceError> InstanceClient::run(const QStringList& arguments, const QString& workingDirectory,
                                                          std::optional<std::chrono::milliseconds> timeout) {
  constexpr auto unlimited = std::numeric_limits<int>::max();
  const int milliseconds =
      timeout ? static_cast<int>(std::clamp<std::int64_t>(timeout->count(), 1, unlimited - 1)) : unlimited;
  const auto answer = call("Run", {arguments, workingDirectory}, milliseconds);
  if (!answer) return failure(answer.error());
  if (answer->size() != 3) return failure(InstanceError::Failed);
  return CommandOutcome{answer->at(0).toInt(), answer->at(1).toString(), answer->at(2).toString()};
}

}  // namespace vellora
