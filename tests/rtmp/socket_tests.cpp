#include "rtmp/RTMPSocket.h"

#include <gtest/gtest.h>

#include <future>
#include <tuple>
#include <vector>

#include "rtmp/RTMPDialer.h"
#include "rtmp/RTMPResolver.h"
#include "rtmp/SocketTest.h"
#include "support/FreePort.h"

namespace vellora::test {
namespace {

using asio::ip::tcp;

/// A port of 127.0.0.1 that takes no connection and refuses none: the queue of its listener is full.
class BlackHole {
 public:
  BlackHole() : acceptor_(context_, tcp::endpoint(asio::ip::address_v4::loopback(), 0), false) {
    acceptor_.listen(0);
    fillers_.reserve(4);
    for (int i = 0; i < 4; ++i) {
      fillers_.emplace_back(context_);
      fillers_.back().async_connect(acceptor_.local_endpoint(), [](asio::error_code) {});
    }
    context_.poll();
  }
  tcp::endpoint endpoint() const { return acceptor_.local_endpoint(); }

 private:
  asio::io_context context_;
  tcp::acceptor acceptor_;
  std::vector<tcp::socket> fillers_;
};

asio::awaitable<Outcome> receiveNothing(RTMPSocket& socket) {
  auto block = co_await socket.recv();
  if (!block) co_return failure(std::move(block.error()));
  co_return Outcome{};
}

TEST_F(SocketTest, carriesBytesBothWaysAndTellsTheEnd) {
  const std::string greeting = "hello, server";
  bool isRight = false;
  ByteServer server([&](BytePeer& peer) {
    isRight = peer.read(greeting.size()) == greeting;
    for (const char c : std::string("split")) peer.write(std::string(1, c));
  });
  const auto socket = connected(server, {RTMPQualityOfService::background});
  ASSERT_TRUE(run(socket->send(viewOf(greeting))));
  ASSERT_TRUE(run(socket->send({})));
  const Received answer = run(receive(*socket, 5));
  ASSERT_TRUE(answer);
  EXPECT_EQ(*answer, "split");
  for (int i = 0; i < 2; ++i) EXPECT_EQ(errorOf(run(receive(*socket, 1))), RTMPSocketError::closedByPeer);
  EXPECT_TRUE(server.wait());
  EXPECT_TRUE(isRight);
  EXPECT_EQ(socket->sentBytes(), greeting.size());
  EXPECT_EQ(socket->receivedBytes(), 5U);
}

TEST_F(SocketTest, finishEndsOneDirectionOnly) {
  ByteServer server([](BytePeer& peer) { peer.write(peer.readAll() + "!"); });
  const auto socket = connected(server);
  ASSERT_TRUE(run(socket->send(viewOf("all of it"))));
  socket->finish();
  const Received answer = run(receive(*socket, 10));
  ASSERT_TRUE(answer);
  EXPECT_EQ(*answer, "all of it!");
}

TEST_F(SocketTest, saysWhyAHostCannotBeReached) {
  const Outcome refused = run(make()->connect("127.0.0.1", freePort()));
  ASSERT_FALSE(refused);
  EXPECT_EQ(refused.error().error, RTMPSocketError::connectionRefused) << refused.error().message;
  const Outcome unknown = run(make()->connect("no-such-host.invalid", 1935));
  ASSERT_FALSE(unknown);
  EXPECT_EQ(unknown.error().error, RTMPSocketError::resolveFailed) << unknown.error().message;
  const Outcome unreachable = run(make()->connect("255.255.255.255", 1935));
  ASSERT_FALSE(unreachable);
  EXPECT_EQ(unreachable.error().error, RTMPSocketError::unreachable) << unreachable.error().message;
}

TEST_F(SocketTest, findsAHostByName) {
  ByteServer server([](BytePeer& peer) { peer.write("x"); });
  const auto socket = make();
  const Outcome outcome = run(socket->connect("localhost", server.port()));
  ASSERT_TRUE(outcome) << outcome.error().message;
  EXPECT_TRUE(run(receive(*socket, 1)));
}

TEST_F(SocketTest, aResetIsAnErrorAndNoSignal) {
  ByteServer server([](BytePeer& peer) {
    peer.read(1);
    peer.endWithReset();
  });
  const auto socket = connected(server);
  ASSERT_TRUE(run(socket->send(viewOf("x"))));
  EXPECT_EQ(errorOf(run(receive(*socket, 1))), RTMPSocketError::connectionReset);
  for (int i = 0; i < 3; ++i) {
    const Outcome sent = run(socket->send(viewOf("into the void")));
    ASSERT_FALSE(sent);
    EXPECT_EQ(sent.error().error, RTMPSocketError::connectionReset);
  }
}

TEST_F(SocketTest, sendWaitsForASlowReader) {
  const std::string data = pattern(10U << 20);
  std::promise<void> go;
  std::string arrived;
  ByteServer server({.receiveBuffer = 32 << 10}, [&](BytePeer& peer) {
    go.get_future().wait();
    arrived = peer.readAll();
  });
  auto socket = connected(server);
  const auto sending = start(socket->send(viewOf(data)));
  EXPECT_FALSE(endsWithin(sending, 300ms));
  EXPECT_GT(socket->sentBytes(), 0U);
  EXPECT_LT(socket->sentBytes(), 1U << 20) << "the kernel hides what has not been sent";
  go.set_value();
  ASSERT_TRUE(finish(sending));
  EXPECT_EQ(socket->sentBytes(), data.size());
  socket->close();
  EXPECT_TRUE(server.wait());
  EXPECT_TRUE(arrived == data);
}

enum class Phase { resolving, connecting, shakingHands, sending, receiving };
enum class End { close, cancel, destroy };

class SocketPhases : public SocketTest, public ::testing::WithParamInterface<std::tuple<Phase, End>> {};

TEST_P(SocketPhases, endAtOnceWhenTheyAreEnded) {
  const auto [phase, end] = GetParam();
  const BlackHole hole;
  std::promise<void> over;
  ByteServer server({.receiveBuffer = 32 << 10}, [&](BytePeer&) { over.get_future().wait(); });
  const std::string data = pattern(8U << 20);
  auto socket =
      phase == Phase::sending || phase == Phase::receiving
          ? connected(server)
          : make({.securityLevel = phase == Phase::shakingHands ? RTMPSecurityLevel::tls : RTMPSecurityLevel::none});
  const auto work = [&, which = phase]() -> asio::awaitable<Outcome> {
    if (which == Phase::resolving) return socket->connect("no-such-host.invalid", 1935);
    if (which == Phase::connecting) return socket->connect("127.0.0.1", hole.endpoint().port());
    if (which == Phase::shakingHands) return socket->connect("127.0.0.1", server.port());
    if (which == Phase::sending) return socket->send(viewOf(data));
    return receiveNothing(*socket);
  };
  auto running = start(work());
  if (phase == Phase::resolving)
    context_.poll_one();
  else
    ASSERT_FALSE(endsWithin(running, 50ms)) << running.take().error().message;

  if (end == End::close)
    socket->close();
  else if (end == End::cancel)
    running.cancel();
  else
    socket.reset();
  EXPECT_TRUE(endsWithin(running, 1s));
  over.set_value();
  const Outcome outcome = finish(std::move(running));
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error().error, RTMPSocketError::cancelled) << outcome.error().message;
}

INSTANTIATE_TEST_SUITE_P(All, SocketPhases,
                         ::testing::Combine(::testing::Values(Phase::resolving, Phase::connecting, Phase::shakingHands,
                                                              Phase::sending, Phase::receiving),
                                            ::testing::Values(End::close, End::cancel, End::destroy)));

TEST_F(SocketTest, aCancelledReceiveLosesNothing) {
  std::promise<void> go;
  ByteServer server([&](BytePeer& peer) {
    go.get_future().wait();
    peer.write("kept");
  });
  const auto socket = connected(server);
  auto first = start(receive(*socket, 1));
  EXPECT_FALSE(endsWithin(first, 20ms));
  first.cancel();
  EXPECT_EQ(errorOf(finish(std::move(first))), RTMPSocketError::cancelled);
  go.set_value();
  const Received second = run(receive(*socket, 4));
  ASSERT_TRUE(second);
  EXPECT_EQ(*second, "kept");
}

TEST_F(SocketTest, nothingWorksAfterTheEndAndNothingBreaks) {
  const auto socket = make();
  EXPECT_FALSE(run(socket->send(viewOf("x"))));
  socket->finish();
  socket->close();
  socket->close();
  const Outcome outcome = run(socket->connect("127.0.0.1", freePort()));
  ASSERT_FALSE(outcome);
  EXPECT_EQ(outcome.error().error, RTMPSocketError::cancelled);
}

/// Who answered.
asio::awaitable<Result<tcp::endpoint, asio::error_code>> dial(RTMPDialer& dialer, RTMPDialer::Endpoints endpoints) {
  const auto socket = co_await dialer.dial(std::move(endpoints));
  if (!socket) co_return failure(socket.error());
  co_return socket->remote_endpoint();
}

TEST_F(SocketTest, theFirstAddressThatAnswersWins) {
  const BlackHole hole;
  ByteServer server([](BytePeer& peer) { peer.write("x"); });
  const tcp::endpoint good(asio::ip::address_v4::loopback(), server.port());
  const tcp::endpoint refusing(asio::ip::address_v4::loopback(), freePort());
  RTMPDialer dialer(context_.get_executor(), RTMPQualityOfService::live);
  const auto dialed = run(dial(dialer, {hole.endpoint(), refusing, good}));
  ASSERT_TRUE(dialed) << dialed.error().message();
  EXPECT_EQ(*dialed, good);

  RTMPDialer second(context_.get_executor(), RTMPQualityOfService::live);
  const auto failed = run(dial(second, {refusing, tcp::endpoint(asio::ip::address_v4::broadcast(), 1935)}));
  ASSERT_FALSE(failed);
  EXPECT_EQ(failed.error(), asio::error::connection_refused) << "the telling error is reported, not the last one";
}

TEST(RTMPResolver, hasTheFamiliesTakeTurns) {
  const auto at = [](const char* address) { return tcp::endpoint(asio::ip::make_address(address), 1); };
  const RTMPResolver::Endpoints found{at("2001:db8::1"), at("2001:db8::2"), at("2001:db8::3"), at("192.0.2.1")};
  const RTMPResolver::Endpoints expected{at("2001:db8::1"), at("192.0.2.1"), at("2001:db8::2"), at("2001:db8::3")};
  EXPECT_EQ(RTMPResolver::inTurns(found), expected);
}

}  // namespace
}  // namespace vellora::test
