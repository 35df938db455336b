#include "platform/linux/desktop/SleepWatch.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusUnixFileDescriptor>
#include <QObject>

#include <utility>

namespace vellora {
namespace {

// org.freedesktop.login1(5)
const QString service = QStringLiteral("org.freedesktop.login1");
const QString path = QStringLiteral("/org/freedesktop/login1");
const QString interface = QStringLiteral("org.freedesktop.login1.Manager");
const QString occasions[] = {QStringLiteral("PrepareForSleep"), QStringLiteral("PrepareForShutdown")};

}  // namespace

class SleepWatch::Manager final : public QObject {
  Q_OBJECT

 public:
  void hold(const char* reason, std::function<void()> ending) {
    ending_ = std::move(ending);
    isHeld_ = true;
    QDBusConnection bus = QDBusConnection::systemBus();
    if (!bus.isConnected()) return;
    if (!std::exchange(isListening_, true)) {
      for (const QString& occasion : occasions) {
        bus.connect(service, path, interface, occasion, this, SLOT(preparing(bool)));
      }
    }
    QDBusMessage inhibit = QDBusMessage::createMethodCall(service, path, interface, QStringLiteral("Inhibit"));
    inhibit << QStringLiteral("sleep:shutdown") << QStringLiteral("Vellora") << QString::fromUtf8(reason)
            << QStringLiteral("delay");
    inhibit.setAutoStartService(false);
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(inhibit), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* done) {
      const QDBusPendingReply<QDBusUnixFileDescriptor> reply = *done;
      done->deleteLater();
      if (isHeld_ && !reply.isError()) lock_ = reply.value();
    });
  }

  void release() {
    isHeld_ = false;
    ending_ = nullptr;
    lock_ = {};
  }

 private:
  Q_SLOT void preparing(bool isAboutToBegin) {
    if (!isAboutToBegin) return;
    if (const auto ending = std::exchange(ending_, nullptr)) ending();
  }

  std::function<void()> ending_;
  bool isHeld_ = false;
  bool isListening_ = false;
  QDBusUnixFileDescriptor lock_;
};

SleepWatch::SleepWatch() = default;
SleepWatch::~SleepWatch() = default;

void SleepWatch::hold(const char* reason, std::function<void()> ending) {
  if (!manager_) manager_ = std::make_unique<Manager>();
  manager_->hold(reason, std::move(ending));
}

void SleepWatch::release() {
  if (manager_) manager_->release();
}

}  // namespace vellora

#include "SleepWatch.moc"
