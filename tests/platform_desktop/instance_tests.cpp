#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <chrono>
#include <future>

#include "platform/linux/desktop/DesktopNotifier.h"
#include "platform/linux/desktop/InstanceClient.h"
#include "platform/linux/desktop/InstanceServer.h"
#include "platform/linux/desktop/SessionBus.h"
#include "platform_desktop/DesktopSession.h"

namespace vellora::test {
namespace {

using namespace std::chrono_literals;
using Start = InstanceServer::Start;

/// Runs a client's blocking call on a thread of its own while this thread serves.
template <class Call>
auto fromAnotherProcess(Call call) {
  auto result = std::async(std::launch::async, [call] {
    InstanceClient client;
    return call(client);
  });
  EXPECT_TRUE(processUntil([&] { return result.wait_for(0s) == std::future_status::ready; }));
  return result.get();
}

TEST(InstanceTest, OnlyOneOfSeveralStartsIsFirst) {
  auto first = std::make_unique<InstanceServer>(InstanceServer::Handlers{});
  InstanceServer second({});
  EXPECT_EQ(first->start(), Start::First);
  EXPECT_EQ(second.start(), Start::AlreadyRunning);
  // The name is not queued for: the next start after the first one's end takes it, the waiting one does not.
  first.reset();
  EXPECT_FALSE(fromAnotherProcess([](InstanceClient& client) { return client.isRunning(); }));
  InstanceServer third({});
  EXPECT_EQ(third.start(), Start::First);
}

TEST(InstanceTest, CommandsReachTheInstanceAndAreAnsweredLater) {
  int activated = 0;
  int settings = 0;
  InstanceServer::Command received;
  InstanceServer::Reply later;
  InstanceServer server({[&] { ++activated; }, [&] { ++settings; },
                         [&](InstanceServer::Command command, InstanceServer::Reply reply) {
                           received = std::move(command);
                           later = std::move(reply);
                         }});
  ASSERT_EQ(server.start(), Start::First);
  EXPECT_TRUE(fromAnotherProcess([](InstanceClient& client) { return client.isRunning(); }));
  EXPECT_TRUE(fromAnotherProcess([](InstanceClient& client) { return client.activate(); }));
  EXPECT_TRUE(fromAnotherProcess([](InstanceClient& client) { return client.openSettings(); }));
  EXPECT_EQ(activated, 1);
  EXPECT_EQ(settings, 1);

  const QStringList arguments{"capture", "area", "--output", "ä b.png", ""};
  auto pending = std::async(std::launch::async, [&] {
    InstanceClient client;
    return client.run(arguments, "/some/where");
  });
  ASSERT_TRUE(processUntil([&] { return static_cast<bool>(later); }));
  EXPECT_EQ(received.arguments, arguments);
  EXPECT_EQ(received.workingDirectory, "/some/where");
  // Others are served while one command is under way.
  EXPECT_TRUE(fromAnotherProcess([](InstanceClient& client) { return client.isRunning(); }));
  EXPECT_EQ(pending.wait_for(0s), std::future_status::timeout);
  const CommandOutcome outcome{3, "out\n", "err ö"};
  later(outcome);
  later({9, {}, {}});
  const auto answer = pending.get();
  ASSERT_TRUE(answer);
  EXPECT_EQ(*answer, outcome);

  // Calls of another shape are refused, not guessed at.
  const auto odd = desktopSession().spawn({"dbus-send", "--session", "--print-reply", "--dest=dev.orlo.Vellora",
                                           "/dev/orlo/Vellora", "dev.orlo.Vellora.Run", "int32:5"});
  EXPECT_TRUE(processUntil([&] { return !odd->isRunning(); }));
  EXPECT_EQ(odd->wait(0), 1);
}

TEST(InstanceTest, FailuresAreToldApart) {
  const auto run = [](InstanceClient& client) { return client.run({"x"}, "/", 300ms); };
  {
    const auto answer = fromAnotherProcess(run);
    ASSERT_FALSE(answer);
    EXPECT_EQ(answer.error(), InstanceError::NotRunning);
  }
  InstanceServer::Reply kept;
  bool keep = false;
  auto server = std::make_unique<InstanceServer>(
      InstanceServer::Handlers{{}, {}, [&](const InstanceServer::Command&, InstanceServer::Reply reply) {
                                 if (keep) kept = std::move(reply);
                               }});
  ASSERT_EQ(server->start(), Start::First);
  const auto dropped = fromAnotherProcess(run);
  ASSERT_FALSE(dropped);
  EXPECT_EQ(dropped.error(), InstanceError::Failed);
  keep = true;
  const auto silent = fromAnotherProcess(run);
  ASSERT_FALSE(silent);
  EXPECT_EQ(silent.error(), InstanceError::TimedOut);

  kept = nullptr;
  auto pending = std::async(std::launch::async, [&] {
    InstanceClient client;
    return client.run({"x"}, "/");
  });
  ASSERT_TRUE(processUntil([&] { return static_cast<bool>(kept); }));
  server.reset();
  const auto ended = pending.get();
  ASSERT_FALSE(ended);
  EXPECT_EQ(ended.error(), InstanceError::Failed);
  kept({});  // too late for anybody, and harmless
}

TEST(InstanceTest, WithoutABusNobodyIsFoundAndNoneIsStarted) {
  const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
  qunsetenv("DBUS_SESSION_BUS_ADDRESS");
  EXPECT_FALSE(sessionBus::isReachable());
  InstanceServer server({});
  EXPECT_EQ(server.start(), Start::NoBus);
  EXPECT_FALSE(InstanceClient().isRunning());
  EXPECT_FALSE(DesktopNotifier().notify("a", "b"));
  sessionBus::forbidAutolaunch();
  EXPECT_EQ(qgetenv("DBUS_SESSION_BUS_ADDRESS"), "disabled:");
  EXPECT_FALSE(sessionBus::isReachable());
  qputenv("DBUS_SESSION_BUS_ADDRESS", address);
}

/// A notification service that notes what it is asked to show.
class NotificationService final : public QDBusVirtualObject {
 public:
  QString introspect(const QString&) const override { return {}; }
  bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
    shown.append(message.arguments());
    connection.send(message.createReply(QVariant(quint32{41} + static_cast<quint32>(shown.size()))));
    return true;
  }
  QList<QVariantList> shown;
};

TEST(NotifierTest, ShowsPlainTextAndReplacesItsLastBubble) {
  NotificationService service;
  QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "notification-service");
  ASSERT_TRUE(bus.registerVirtualObject("/org/freedesktop/Notifications", &service));
  ASSERT_TRUE(bus.registerService("org.freedesktop.Notifications"));
  DesktopNotifier notifier;
  ASSERT_TRUE(notifier.notify("Saved", "a <b> & c.png"));
  ASSERT_TRUE(processUntil([&] { return service.shown.size() == 1; }));
  QVariantList second;
  ASSERT_TRUE(processUntil([&] {
    notifier.notify("Copied", {});
    QCoreApplication::processEvents();
    return !service.shown.isEmpty() && service.shown.last().at(1).toUInt() != 0;
  }));
  EXPECT_EQ(service.shown.first().at(1).toUInt(), 0U);
  EXPECT_EQ(service.shown.first().at(3).toString(), "Saved");
  EXPECT_EQ(service.shown.first().at(4).toString(), "a &lt;b&gt; &amp; c.png");
  QDBusConnection::disconnectFromBus("notification-service");
}

}  // namespace
}  // namespace vellora::test
