#include "platform/linux/desktop/DesktopNotifier.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QObject>
#include <QVariantMap>

#include "base/Log.h"
#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

constexpr int serverDecides = -1;

}  // namespace

struct DesktopNotifier::Link {
  QObject context;
  quint32 shown = 0;
};

DesktopNotifier::DesktopNotifier() : link_(std::make_unique<Link>()) {}
DesktopNotifier::~DesktopNotifier() = default;

bool DesktopNotifier::notify(const QString& summary, const QString& body) {
  if (!sessionBus::isReachable()) return false;
  QDBusConnection bus = QDBusConnection::sessionBus();
  if (!bus.isConnected()) return false;
  QDBusMessage message = QDBusMessage::createMethodCall(
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("/org/freedesktop/Notifications"),
      QStringLiteral("org.freedesktop.Notifications"), QStringLiteral("Notify"));
  const QVariantMap hints{{QStringLiteral("desktop-entry"), QStringLiteral("dev.orlo.Vellora")},
                          {QStringLiteral("transient"), true}};
  // The body may carry markup, so plain text has to be escaped.
  message.setArguments({QStringLiteral("Vellora"), link_->shown, QStringLiteral("dev.orlo.Vellora"), summary,
                        body.toHtmlEscaped(), QStringList(), hints, serverDecides});
  auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message), &link_->context);
  QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &link_->context, [this, watcher] {
    const QDBusPendingReply<quint32> reply = *watcher;
    if (reply.isError()) {
      log::info(QStringLiteral("notification not shown: %1").arg(reply.error().message()));
    } else {
      link_->shown = reply.value();
    }
    watcher->deleteLater();
  });
  return true;
}

}  // namespace vellora
