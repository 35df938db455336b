#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

/// How far a server goes along before it does something else.
enum class Step {
  accepted,
  halfOfS1,
  s0s1,
  halfOfS2,
  connectAsked,
  halfOfConnectAnswer,
  connected,
  createStreamAsked,
  publishAsked,
  published,
};
constexpr Step allSteps[] = {Step::accepted,  Step::halfOfS1,          Step::s0s1,
                             Step::halfOfS2,  Step::connectAsked,      Step::halfOfConnectAnswer,
                             Step::connected, Step::createStreamAsked, Step::publishAsked,
                             Step::published};
constexpr bool isHandshake(Step step) {
  return step < Step::connectAsked;
}
constexpr bool isConnect(Step step) {
  return step < Step::connected;
}

enum class Ending { silent, closed, reset };

void goTo(IngestPeer& peer, Step step) {
  const auto part = [](const Octets& bytes, std::size_t from, std::size_t to) {
    return Octets(bytes.begin() + static_cast<std::ptrdiff_t>(from), bytes.begin() + static_cast<std::ptrdiff_t>(to));
  };
  if (step == Step::accepted) return;
  peer.readC0C1();
  if (step == Step::halfOfS1) return peer.raw(part(peer.s0s1(), 0, 700));
  peer.raw(peer.s0s1());
  if (step == Step::s0s1) return;
  peer.raw(part(peer.s2(), 0, 700));
  if (step == Step::halfOfS2) return peer.readC2();
  peer.raw(part(peer.s2(), 700, peer.s2().size()));
  peer.readC2();
  const WireMessage connect = peer.expect("connect");
  if (step == Step::connectAsked) return;
  if (step == Step::halfOfConnectAnswer) {
    return peer.raw(part(chunksOf(3, wire::command, 0, 0, Octets(300, 1), 128), 0, 200));
  }
  peer.answer(connect);
  if (step == Step::connected) return;
  const WireMessage create = peer.expect("createStream");
  if (step == Step::createStreamAsked) return;
  peer.answer(create);
  const WireMessage publish = peer.expect("publish");
  if (step == Step::publishAsked) return;
  peer.answer(publish);
}

ScriptedIngest::Script scriptOf(Step step, Ending ending) {
  return [=](IngestPeer& peer) {
    goTo(peer, step);
    peer.mark("there");
    if (ending == Ending::silent) peer.readOnly();
    if (ending == Ending::reset) return peer.reset();
    peer.close();
  };
}

std::string nameOf(Step step) {
  return "step " + std::to_string(static_cast<int>(step));
}

class ConnectionCutTest : public RTMPTest {
 protected:
  using Outcome = Result<void, RTMPFailure>;
  /// As far as it goes.
  static asio::awaitable<Outcome> wholeWay(RTMPConnection& connection, RTMPStream& stream, std::string url) {
    const auto connected = co_await connection.connect(url);
    if (!connected) co_return failure(connected.error());
    const auto created = co_await stream.createStream();
    if (!created) co_return failure(created.error());
    const auto published = co_await stream.publish("key");
    if (!published) co_return failure(published.error());
    co_return Outcome();
  }

  /// Waits until the client is as far as the server lets it, which the marks of the script tell.
  void waitForStep(const ScriptedIngest& ingest, const RTMPConnection& connection, Step step) {
    ASSERT_TRUE(ingest.waitForMark("there")) << nameOf(step);
    if (step == Step::connected) return;
    ASSERT_TRUE(ingest.waitUntil([&] { return connection.connected() == !isConnect(step); })) << nameOf(step);
  }
};

TEST_F(ConnectionCutTest, GivesUpOnSilenceInTime) {
  for (const Step step : allSteps) {
    if (step == Step::connected || step == Step::published) continue;
    SCOPED_TRACE(nameOf(step));
    ScriptedIngest ingest(scriptOf(step, Ending::silent));
    const auto connection = make(impatient());
    const auto stream = std::make_shared<RTMPStream>(connection);
    const auto before = Clock::now();
    const auto outcome = run(wholeWay(*connection, *stream, ingest.url()));
    const auto took = Clock::now() - before;
    ASSERT_FALSE(outcome);
    EXPECT_EQ(outcome.error().error, isHandshake(step) ? Error::connectionTimedOut : Error::requestTimedOut);
    EXPECT_GE(took, 140ms);
    EXPECT_LT(took, 1s);
    if (isConnect(step)) {
      EXPECT_FALSE(connection->connected());
      EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; })) << "the connection stays open";
    }
    EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
  }
}

TEST_F(ConnectionCutTest, TellsWhenTheServerGoes) {
  for (const Step step : allSteps) {
    for (const Ending ending : {Ending::closed, Ending::reset}) {
      SCOPED_TRACE(nameOf(step) + (ending == Ending::closed ? " closed" : " reset"));
      ScriptedIngest ingest(scriptOf(step, ending));
      const auto connection = make();
      const auto stream = std::make_shared<RTMPStream>(connection);
      auto statuses = start(remainingStatuses(connection));
      const auto before = Clock::now();
      const auto outcome = run(wholeWay(*connection, *stream, ingest.url()));
      EXPECT_LT(Clock::now() - before, 1s);
      if (step == Step::published) {
        // It may have gone before the answer to "publish" was looked at.
        EXPECT_TRUE(outcome || outcome.error().error == Error::socketErrorOccurred);
      } else {
        ASSERT_FALSE(outcome);
        EXPECT_EQ(outcome.error().error, Error::socketErrorOccurred);
        ASSERT_TRUE(outcome.error().socket);
        const RTMPSocketError socket = outcome.error().socket->error;
        // What is sent after an orderly end is answered with a reset.
        EXPECT_TRUE(socket == RTMPSocketError::connectionReset ||
                    (ending == Ending::closed && socket == RTMPSocketError::closedByPeer));
      }
      const auto codes = statuses.get();
      EXPECT_EQ(codes.empty() ? "" : codes.back(), isConnect(step) ? "" : "NetConnection.Connect.Closed");
      EXPECT_FALSE(connection->connected());
      EXPECT_EQ(stream->append(RTMPAudioFrame{0ms, {}}), RTMPAppendResult::notPublishing);
      run(stream->waitUntilQueuedBelow(1));
      run(stream->close());
      run(connection->close());
    }
  }
}

TEST_F(ConnectionCutTest, ClosesFromEveryState) {
  for (const Step step : allSteps) {
    SCOPED_TRACE(nameOf(step));
    ScriptedIngest ingest(scriptOf(step, Ending::silent));
    const auto connection = make();
    const auto stream = std::make_shared<RTMPStream>(connection);
    auto way = start(wholeWay(*connection, *stream, ingest.url()));
    auto status = start(remainingStatuses(connection));
    waitForStep(ingest, *connection, step);
    const auto before = Clock::now();
    run(connection->close());
    EXPECT_LT(Clock::now() - before, 1s);
    const auto outcome = way.get();
    if (step == Step::published) {
      EXPECT_TRUE(outcome || outcome.error().error == Error::invalidState);
    } else {
      ASSERT_FALSE(outcome);
      EXPECT_EQ(outcome.error().error, Error::invalidState);
    }
    status.get();
    EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; }));
    EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
  }
}

TEST_F(ConnectionCutTest, ClosesBeforeAndAfterEverything) {
  const auto unused = make();
  run(unused->close());
  run(unused->close());
  EXPECT_EQ(run(unused->nextStatus()), std::nullopt);
  const auto late = run(unused->connect("rtmp://127.0.0.1/live"));
  ASSERT_FALSE(late);
  EXPECT_EQ(late.error().error, Error::invalidState);

  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  auto first = start(connection->close());
  auto second = start(connection->close());
  first.get();
  second.get();
  run(connection->close());
  EXPECT_FALSE(connection->connected());
}

TEST_F(ConnectionCutTest, CanBeCancelledInEveryState) {
  for (const Step step : allSteps) {
    if (step == Step::connected || step == Step::published) continue;
    SCOPED_TRACE(nameOf(step));
    ScriptedIngest ingest(scriptOf(step, Ending::silent));
    const auto connection = make();
    const auto stream = std::make_shared<RTMPStream>(connection);
    auto way = start(wholeWay(*connection, *stream, ingest.url()));
    waitForStep(ingest, *connection, step);
    const auto before = Clock::now();
    way.cancel();
    try {
      const auto outcome = way.get();
      EXPECT_FALSE(outcome);
    } catch (const asio::system_error& cancelled) {
      EXPECT_EQ(cancelled.code(), asio::error::operation_aborted);
    }
    EXPECT_LT(Clock::now() - before, 1s);
    if (isConnect(step)) {
      EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; })) << "the connection stays open";
    }
    run(connection->close());
    EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; }));
  }
}

TEST_F(ConnectionCutTest, CancelsWaitingForStatusEvents) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  auto waiting = start(connection->nextStatus());
  EXPECT_FALSE(waiting.isReady(20ms));
  waiting.cancel();
  try {
    EXPECT_EQ(waiting.get(), std::nullopt);
  } catch (const asio::system_error& cancelled) {
    EXPECT_EQ(cancelled.code(), asio::error::operation_aborted);
  }
  EXPECT_TRUE(connection->connected());
  run(connection->close());
}

/// Owners let go of their objects while operations are under way, in any order.
TEST_F(ConnectionCutTest, MayBeDestroyedAtAnyTime) {
  for (const Step step : allSteps) {
    if (step == Step::connected) continue;
    for (const bool streamFirst : {true, false}) {
      SCOPED_TRACE(nameOf(step));
      ScriptedIngest ingest(scriptOf(step, Ending::silent));
      auto connection = make();
      auto stream = std::make_unique<RTMPStream>(connection);
      stream->setAudioSettings({RTMPAudioCodec::aac, 48000, 2, 128'000, {0x11, 0x90}});
      // Ends with the operation that was under way, and uses the objects no more.
      auto way = start(wholeWay(*connection, *stream, ingest.url()));
      waitForStep(ingest, *connection, step);
      if (step == Step::published) {
        EXPECT_TRUE(way.get());
        for (int i = 0; i < 100; ++i) stream->append(RTMPAudioFrame{i * 20ms, Bytes(200)});
      }
      if (streamFirst) stream.reset();
      connection.reset();
      stream.reset();
      if (step != Step::published) {
        EXPECT_FALSE(way.get());
      }
      EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; })) << "the connection stays open";
    }
  }
}

}  // namespace
}  // namespace vellora::test
