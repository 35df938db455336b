#include "platform/linux/desktop/DesktopAppearance.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QObject>

#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

const QString service = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");
const QString appearance = QStringLiteral("org.freedesktop.appearance");
const QString colorScheme = QStringLiteral("color-scheme");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");
const QString animations = QStringLiteral("enable-animations");

/// Answers wrap the value once or twice, depending on the portal's version.
QVariant unwrapped(QVariant value) {
  while (value.canConvert<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
  return value;
}

}  // namespace

class DesktopAppearance::Portal final : public QObject {
  Q_OBJECT

 public:
  void watch() {
    if (!sessionBus::isReachable()) return;
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return;
    bus.connect(service, path, interface, QStringLiteral("SettingChanged"), this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    ask(appearance, colorScheme);
    ask(gnome, animations);
  }

  std::function<void()> changed;
  std::optional<bool> prefersDark;
  std::optional<bool> reducesMotion;

 private:
  Q_SLOT void settingChanged(const QString& group, const QString& key, const QDBusVariant& value) {
    apply(group, key, value.variant());
  }

  void ask(const QString& group, const QString& key) {
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Read"));
    call << group << key;
    call.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, group, key](QDBusPendingCallWatcher* done) {
      const QDBusPendingReply<QDBusVariant> reply = *done;
      done->deleteLater();
      if (!reply.isError()) apply(group, key, reply.value().variant());
    });
  }

  void apply(const QString& group, const QString& key, const QVariant& wrapped) {
    const QVariant value = unwrapped(wrapped);
    if (group == appearance && key == colorScheme) {
      const uint scheme = value.toUInt();  // 0 no preference, 1 dark, 2 light
      prefersDark = scheme == 1 ? std::optional(true) : scheme == 2 ? std::optional(false) : std::nullopt;
    } else if (group == gnome && key == animations && value.typeId() == QMetaType::Bool) {
      reducesMotion = !value.toBool();
    } else {
      return;
    }
    if (changed) changed();
  }
};

DesktopAppearance::DesktopAppearance() : portal_(std::make_unique<Portal>()) {}
DesktopAppearance::~DesktopAppearance() = default;

void DesktopAppearance::watch() {
  portal_->watch();
}

void DesktopAppearance::setChangeHandler(std::function<void()> changed) {
  portal_->changed = std::move(changed);
}

std::optional<bool> DesktopAppearance::prefersDark() const {
  return portal_->prefersDark;
}

std::optional<bool> DesktopAppearance::reducesMotion() const {
  return portal_->reducesMotion;
}

}  // namespace vellora

#include "DesktopAppearance.moc"
