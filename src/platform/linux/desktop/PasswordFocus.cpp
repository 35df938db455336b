#include "platform/linux/desktop/PasswordFocus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>
#include <QTimer>

#include <functional>
#include <optional>

#include "platform/linux/desktop/SessionBus.h"

namespace vellora {
namespace {

// The interfaces and numbers of AT-SPI 2 (at-spi2-core: xml/*.xml, atspi-constants.h).
constexpr quint32 passwordText = 40;  // role
constexpr int activeState = 1, focusedState = 12;
constexpr int answerTime = 500;    // milliseconds a program has to answer
constexpr int restTime = 3000;     // milliseconds without a question after which nobody is listening
constexpr int mostVisited = 3000;  // objects looked at to find the field that is focused at the beginning

const QString accessible = QStringLiteral("org.a11y.atspi.Accessible");
const QString registry = QStringLiteral("org.a11y.atspi.Registry");
const QString registryPath = QStringLiteral("/org/a11y/atspi/registry");
const QString rootPath = QStringLiteral("/org/a11y/atspi/accessible/root");
const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");
const QString a11yBus = QStringLiteral("org.a11y.Bus");
const QString a11yBusPath = QStringLiteral("/org/a11y/bus");
const QString a11yStatus = QStringLiteral("org.a11y.Status");
const QString enabledProperty = QStringLiteral("IsEnabled");
const QString eventKinds[] = {QStringLiteral("object:state-changed:focused"), QStringLiteral("window:activate"),
                              QStringLiteral("window:deactivate")};

/// An object of a program.
struct Object {
  QString service;
  QString path;
  friend bool operator==(const Object&, const Object&) = default;
};

bool isSet(const QList<quint32>& states, int state) {
  return !states.isEmpty() && (states.front() >> state & 1U) != 0;
}

QList<Object> objectsIn(const QVariant& value) {
  QList<Object> objects;
  const auto argument = value.value<QDBusArgument>();
  if (argument.currentType() != QDBusArgument::ArrayType) return objects;
  argument.beginArray();
  while (!argument.atEnd()) {
    Object object;
    QDBusObjectPath path;
    argument.beginStructure();
    argument >> object.service >> path;
    argument.endStructure();
    object.path = path.path();
    objects.append(object);
  }
  argument.endArray();
  return objects;
}

}  // namespace

class PasswordFocus::Watch final : public QObject {
  Q_OBJECT

 public:
  Watch() {
    rest_.setSingleShot(true);
    rest_.setInterval(restTime);
    connect(&rest_, &QTimer::timeout, this, [this] { end(); });
  }
  ~Watch() override { end(); }

  bool hasKeyboard() {
    if (!rest_.isActive()) begin();
    rest_.start();
    return focus_ != Focus::Other;
  }

 private:
  enum class Focus { Other, Unknown, Password };
  using Answer = std::function<void(const QDBusMessage&)>;

  void begin() {
    if (!sessionBus::isReachable() || !QDBusConnection::sessionBus().isConnected()) return;
    QDBusMessage ask = QDBusMessage::createMethodCall(a11yBus, a11yBusPath, properties, QStringLiteral("Get"));
    ask << a11yStatus << enabledProperty;
    call(QDBusConnection::sessionBus(), ask, [this](const QDBusMessage& reply) {
      const bool wasEnabled = reply.arguments().value(0).value<QDBusVariant>().variant().toBool();
      if (reply.type() == QDBusMessage::ReplyMessage && !wasEnabled) setEnabled(true);
    });
    const QDBusMessage address =
        QDBusMessage::createMethodCall(a11yBus, a11yBusPath, a11yBus, QStringLiteral("GetAddress"));
    call(QDBusConnection::sessionBus(), address, [this](const QDBusMessage& reply) {
      if (reply.type() == QDBusMessage::ReplyMessage) listen(reply.arguments().value(0).toString());
    });
  }

  /// Programs tell nothing unless somebody wants to hear it.
  void setEnabled(bool enabled) {
    enabledByUs_ = enabled;
    QDBusMessage set = QDBusMessage::createMethodCall(a11yBus, a11yBusPath, properties, QStringLiteral("Set"));
    set << a11yStatus << enabledProperty << QVariant::fromValue(QDBusVariant(enabled));
    QDBusConnection::sessionBus().asyncCall(set);
  }

  void listen(const QString& address) {
    bus_ = QDBusConnection::connectToBus(address, connectionName_);
    if (!bus_->isConnected()) return;
    const QString objectEvents = QStringLiteral("org.a11y.atspi.Event.Object");
    const QString windowEvents = QStringLiteral("org.a11y.atspi.Event.Window");
    bus_->connect(QString(), QString(), objectEvents, QStringLiteral("StateChanged"), this,
                  SLOT(stateChanged(QDBusMessage)));
    bus_->connect(registry, rootPath, objectEvents, QStringLiteral("ChildrenChanged"), this,
                  SLOT(programsChanged(QDBusMessage)));
    bus_->connect(QString(), QString(), windowEvents, QStringLiteral("Activate"), this,
                  SLOT(windowActivated(QDBusMessage)));
    bus_->connect(QString(), QString(), windowEvents, QStringLiteral("Deactivate"), this,
                  SLOT(windowDeactivated(QDBusMessage)));
    bus_->connect(QStringLiteral("org.freedesktop.DBus"), QString(), QStringLiteral("org.freedesktop.DBus"),
                  QStringLiteral("NameOwnerChanged"), this, SLOT(ownerChanged(QString, QString, QString)));
    for (const QString& kind : eventKinds) {
      QDBusMessage add =
          QDBusMessage::createMethodCall(registry, registryPath, registry, QStringLiteral("RegisterEvent"));
      add << kind;
      bus_->asyncCall(add);
    }
    visited_ = 0;
    search({registry, rootPath}, 0);
  }

  void end() {
    rest_.stop();
    ++round_;
    focus_ = Focus::Other;
    field_.reset();
    if (enabledByUs_) setEnabled(false);
    if (!bus_) return;
    for (const QString& kind : eventKinds) {
      QDBusMessage remove =
          QDBusMessage::createMethodCall(registry, registryPath, registry, QStringLiteral("DeregisterEvent"));
      remove << kind;
      bus_->send(remove);
    }
    bus_.reset();
    QDBusConnection::disconnectFromBus(connectionName_);
  }

  /// Calls back with the answer, an error included, unless nobody listens any more.
  void call(const QDBusConnection& bus, const QDBusMessage& message, Answer answer) {
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(message, answerTime), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, answer = std::move(answer), round = round_](QDBusPendingCallWatcher* done) {
              done->deleteLater();
              if (round == round_) answer(done->reply());
            });
  }
  void callObject(const Object& object, const QString& method, Answer answer) {
    call(*bus_, QDBusMessage::createMethodCall(object.service, object.path, accessible, method), std::move(answer));
  }

  /// Looks for the field that has the keyboard: in the active windows of all programs (levels 0 the desktop, 1
  /// programs, 2 windows). Ends when a program tells of a focus by itself.
  void search(const Object& object, int level) {
    if (focus_ == Focus::Password || ++visited_ > mostVisited) return;
    callObject(object, QStringLiteral("GetChildren"), [this, level](const QDBusMessage& reply) {
      for (const Object& child : objectsIn(reply.arguments().value(0))) {
        if (level == 0) {
          search(child, 1);
          continue;
        }
        callObject(child, QStringLiteral("GetState"), [this, child, level](const QDBusMessage& answer) {
          const auto states = qdbus_cast<QList<quint32>>(answer.arguments().value(0));
          if (focus_ == Focus::Password) return;
          if (level > 1 && isSet(states, focusedState)) focusOn(child);
          if (level > 1 || isSet(states, activeState)) search(child, level + 1);
        });
      }
    });
  }

  void focusOn(const Object& object) {
    field_ = object;
    focus_ = Focus::Unknown;
    callObject(object, QStringLiteral("GetRole"), [this, object](const QDBusMessage& reply) {
      if (field_ != object) return;
      const bool isPassword =
          reply.type() == QDBusMessage::ReplyMessage && reply.arguments().value(0).toUInt() == passwordText;
      focus_ = isPassword ? Focus::Password : Focus::Other;
      fieldIsPassword_ = isPassword;
    });
  }

  Q_SLOT void stateChanged(const QDBusMessage& event) {
    if (event.arguments().value(0).toString() != QLatin1String("focused")) return;
    const Object object{event.service(), event.path()};
    if (event.arguments().value(1).toInt() != 0) {
      focusOn(object);
    } else if (field_ == object) {
      forget();
    }
  }

  /// A program that has just begun to talk may have a focus that it told nobody.
  Q_SLOT void programsChanged(const QDBusMessage& event) {
    if (event.arguments().value(0).toString() != QLatin1String("add")) return;
    visited_ = 0;
    search({registry, rootPath}, 0);
  }

  /// A window that comes back has its focus where it was; some programs do not tell that again.
  Q_SLOT void windowActivated(const QDBusMessage& event) {
    if (field_ && field_->service == event.service() && focus_ == Focus::Other && fieldIsPassword_) focusOn(*field_);
  }

  Q_SLOT void windowDeactivated(const QDBusMessage& event) {
    if (field_ && field_->service == event.service()) focus_ = Focus::Other;
  }

  Q_SLOT void ownerChanged(const QString& name, const QString&, const QString& newOwner) {
    if (newOwner.isEmpty() && field_ && field_->service == name) forget();
  }

  void forget() {
    field_.reset();
    focus_ = Focus::Other;
    fieldIsPassword_ = false;
  }

  const QString connectionName_ = QStringLiteral("vellora-accessibility-%1").arg(reinterpret_cast<quintptr>(this));
  QTimer rest_;
  std::optional<QDBusConnection> bus_;
  Focus focus_ = Focus::Other;
  std::optional<Object> field_;  ///< the one that was focused last
  bool fieldIsPassword_ = false;
  bool enabledByUs_ = false;
  int visited_ = 0;
  int round_ = 0;  ///< answers to questions of an earlier one do not count
};

PasswordFocus::PasswordFocus() = default;
PasswordFocus::~PasswordFocus() = default;

bool PasswordFocus::hasKeyboard() {
  if (!watch_) watch_ = std::make_unique<Watch>();
  return watch_->hasKeyboard();
}

}  // namespace vellora

#include "PasswordFocus.moc"
