#include <algorithm>

#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

class ConnectionTest : public RTMPTest {};

const std::string commandObject =
    "app:\"live/inst?token=1\", audioCodecs:1024, capabilities:239, flashVer:\"FMLE/3.0 (compatible; FMSc/1.0)\", "
    "fpad:false, objectEncoding:0, pageUrl:null, swfUrl:null, tcUrl:\"URL\", videoCodecs:128, videoFunction:1";

std::string withUrl(std::string text, const std::string& url) {
  return text.replace(text.find("URL"), 3, url);
}

TEST_F(ConnectionTest, TellsTheServerWhatItIs) {
  ScriptedIngest ingest;
  const std::string url = ingest.url("live/inst?token=1");
  const auto connection = make();
  const auto response = run(connection->connect(url, {"more", 5}));
  ASSERT_TRUE(response) << response.error().message;
  ASSERT_TRUE(response->status);
  EXPECT_EQ(response->status->code, RTMPConnection::textOf(RTMPConnection::Code::connectSuccess));
  EXPECT_EQ(response->status->level, "status");
  ASSERT_NE(response->commandObject.as<AMFObject>(), nullptr);
  EXPECT_EQ(response->commandObject.as<AMFObject>()->find("fmsVer")->text(), "FMS/3,0,1,123");
  EXPECT_TRUE(connection->connected());
  EXPECT_EQ(connection->readyState(), RTMPConnection::ReadyState::handshakeDone);

  const auto commands = ingest.messages(wire::command);
  ASSERT_EQ(commands.size(), 1U);
  ASSERT_EQ(commands[0].values.size(), 5U);
  EXPECT_EQ(commands[0].values[1].rendered(), "1");
  EXPECT_EQ(commands[0].values[2].rendered(), "{" + withUrl(commandObject, url) + "}");
  EXPECT_EQ(commands[0].values[3].rendered(), "\"more\"");
  EXPECT_EQ(commands[0].values[4].rendered(), "5");
  run(connection->close());
  EXPECT_FALSE(connection->connected());
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

TEST_F(ConnectionTest, TellsTheServerWhatTheOwnerWants) {
  ScriptedIngest ingest;
  RTMPConnection::Options options;
  options.swfUrl = "rtmp://a/b.swf";
  options.pageUrl = "http://a/";
  options.flashVer = "test/1";
  options.fourCcList = RTMPConnection::supportedFourCcList();
  options.videoFourCcInfoMap = RTMPConnection::supportedVideoFourCcInfoMap();
  options.audioFourCcInfoMap = RTMPConnection::supportedAudioFourCcInfoMap();
  options.capsEx = 4;
  options.chunkSize = 65536;
  const auto connection = make(options);
  const std::string host = "127.0.0.1:" + std::to_string(ingest.port());
  ASSERT_TRUE(run(connection->connect("rtmp://name:secret@" + host + "/live")));
  EXPECT_EQ(ingest.messages(wire::command).at(0).values.at(2).rendered(),
            "{app:\"live\", audioCodecs:1024, audioFourCcInfoMap:{Opus:2}, capabilities:239, capsEx:4, "
            "flashVer:\"test/1\", fourCcList:[\"hvc1\", \"Opus\"], fpad:false, objectEncoding:0, "
            "pageUrl:\"http://a/\", swfUrl:\"rtmp://a/b.swf\", tcUrl:\"rtmp://" +
                host + "/live\", videoCodecs:128, videoFourCcInfoMap:{hvc1:3}, videoFunction:1}");
  const auto sizes = ingest.messages(wire::setChunkSize);
  ASSERT_EQ(sizes.size(), 1U);
  EXPECT_EQ(sizes[0].number(), 65536U);
  run(connection->close());
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

struct Manner {
  IngestPeer::Writes writes;
  std::uint32_t chunkSize;
};

/// The whole way to a published stream, however the server cuts what it says.
TEST_F(ConnectionTest, UnderstandsAnswersHoweverTheyArrive) {
  using Writes = IngestPeer::Writes;
  for (const Manner& manner : {Manner{Writes::bytewise, 128}, Manner{Writes::bytewise, 1}, Manner{Writes::held, 128},
                               Manner{Writes::held, 1}, Manner{Writes::atOnce, 0x7FFFFFFF}}) {
    ScriptedIngest ingest([&](IngestPeer& peer) {
      peer.setWrites(manner.writes);
      const WireMessage connect = peer.expect("connect");
      peer.announceChunkSize(manner.chunkSize);
      peer.answer(connect);
      peer.announceChunkSize(manner.chunkSize);
      peer.serve();
    });
    const auto connection = connected(ingest);
    const auto stream = publishing(connection);
    run(stream->close());
    run(connection->close());
    EXPECT_EQ(ingest.names().back(), "deleteStream");
    EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
  }
}

TEST_F(ConnectionTest, RefusesMessagesBeforeTheHandshakeIsOver) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.readC0C1();
    peer.setWrites(IngestPeer::Writes::held);
    peer.raw(peer.s0s1());
    peer.raw(peer.s2());
    peer.message(wire::windowSize, bigEndian(2500000));
    peer.readOnly();
  });
  const auto connection = make();
  const auto response = run(connection->connect(ingest.url()));
  ASSERT_FALSE(response);
  EXPECT_EQ(response.error().error, Error::socketErrorOccurred);
  EXPECT_TRUE(response.error().protocol);
  EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; }));
}

TEST_F(ConnectionTest, MatchesAnswersToRequests) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    const WireMessage first = peer.expect("first");
    const WireMessage second = peer.expect("second");
    const WireValue result = WireValue::of("_result");
    const auto answer = [&](double transaction, const char* text) {
      peer.command({result, WireValue::of(transaction), WireValue::null(), WireValue::of(text)});
    };
    for (const double unknown : {0.0, -1.0, 1.0, 99.0, 1e300}) answer(unknown, "nobody asked");
    answer(second.transaction(), "for the second");
    answer(second.transaction(), "again");
    answer(first.transaction(), "for the first");
    peer.refuse(peer.expect("third"), "NetConnection.Call.Failed", "no such method");
    peer.refuse(peer.expect("fourth"), "NetConnection.Call.Prohibited", "not allowed");
    peer.expect("fifth");
    peer.serve();
  });
  RTMPConnection::Options options;
  options.requestTimeout = 500ms;
  const auto connection = connected(ingest, options);
  auto first = start(connection->call("first", {"a", nullptr, true, 2.5}));
  ASSERT_TRUE(ingest.waitForMessages(wire::command, 2));
  auto second = start(connection->call("second"));
  const auto ofFirst = first.get();
  const auto ofSecond = second.get();
  ASSERT_TRUE(ofFirst && ofSecond);
  EXPECT_EQ(ofFirst->arguments, std::vector<AMFValue>{"for the first"});
  EXPECT_EQ(ofSecond->arguments, std::vector<AMFValue>{"for the second"});
  const WireMessage sent = ingest.messages(wire::command).at(1);
  EXPECT_EQ(sent.transaction(), 2);
  ASSERT_EQ(sent.values.size(), 7U);
  EXPECT_EQ(sent.values[2].rendered() + sent.values[3].rendered() + sent.values[4].rendered() +
                sent.values[5].rendered() + sent.values[6].rendered(),
            "null\"a\"nulltrue2.5");

  const auto third = run(connection->call("third"));
  ASSERT_FALSE(third);
  EXPECT_EQ(third.error().error, Error::unsupportedCommand);
  const auto fourth = run(connection->call("fourth"));
  ASSERT_FALSE(fourth);
  EXPECT_EQ(fourth.error().error, Error::requestFailed);
  ASSERT_TRUE(fourth.error().status);
  EXPECT_EQ(fourth.error().status->description, "not allowed");
  const auto fifth = run(connection->call("fifth"));
  ASSERT_FALSE(fifth);
  EXPECT_EQ(fifth.error().error, Error::requestTimedOut);
  EXPECT_TRUE(connection->connected());
}

TEST_F(ConnectionTest, FailsWithTheReasonOfARejection) {
  const std::pair<const char*, Error> codes[] = {
      {"NetConnection.Call.BadVersion", Error::requestFailed},
      {"NetConnection.Connect.AppShutdown", Error::requestFailed},
      {"NetConnection.Connect.Closed", Error::requestFailed},
      {"NetConnection.Connect.Failed", Error::requestFailed},
      {"NetConnection.Connect.IdleTimeOut", Error::requestFailed},
      {"NetConnection.Connect.InvalidApp", Error::requestFailed},
      {"NetConnection.Connect.NetworkChange", Error::requestFailed},
      {"NetConnection.Connect.Rejected", Error::requestFailed},
  };
  enum class By { error, status, result };
  for (const auto& [code, error] : codes) {
    for (const By by : {By::error, By::status, By::result}) {
      const bool isOfConnect = std::string(code).starts_with("NetConnection.Connect");
      if (by == By::status && !isOfConnect) continue;
      ScriptedIngest ingest([&, text = code](IngestPeer& peer) {
        const WireMessage connect = peer.expect("connect");
        const auto status = WireValue::object(
            {{"level", WireValue::of("error")}, {"code", WireValue::of(text)}, {"description", WireValue::of("no")}});
        if (by == By::error) peer.refuse(connect, text, "no");
        if (by == By::status) peer.status("error", text, 0, "no");
        if (by == By::result) {
          peer.command({WireValue::of("_result"), WireValue::of(1), WireValue::null(), status});
        }
      });
      const auto connection = make();
      const auto response = run(connection->connect(ingest.url()));
      ASSERT_FALSE(response) << code;
      EXPECT_EQ(response.error().error, error) << code;
      ASSERT_TRUE(response.error().status) << code;
      EXPECT_EQ(response.error().status->code, code);
      EXPECT_EQ(response.error().status->description, "no");
      EXPECT_FALSE(connection->connected());
    }
  }
}

TEST_F(ConnectionTest, ReportsWhatTheServerSaysAndTheEnd) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    peer.status("status", "NetStream.Anything", 7);
    peer.status("error", "NetConnection.Connect.AppShutdown", 0, "going down");
    peer.close();
  });
  const auto connection = connected(ingest);
  EXPECT_EQ(run(remainingStatuses(connection)),
            (std::vector<std::string>{"NetStream.Anything", "NetConnection.Connect.AppShutdown",
                                      "NetConnection.Connect.Closed"}));
  EXPECT_FALSE(connection->connected());
  const auto late = run(connection->call("anything"));
  ASSERT_FALSE(late);
  EXPECT_EQ(late.error().error, Error::socketErrorOccurred);
}

TEST_F(ConnectionTest, KeepsTheNewestStatusEvents) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    for (int i = 0; i < 200; ++i) peer.status("status", "event " + std::to_string(i), 0);
    peer.close();
  });
  const auto connection = connected(ingest);
  EXPECT_TRUE(ingest.waitUntil([&] { return !connection->connected(); }));
  const auto codes = run(remainingStatuses(connection));
  ASSERT_EQ(codes.size(), 64U);
  EXPECT_EQ(codes.front(), "event 137");
  EXPECT_EQ(codes.back(), "NetConnection.Connect.Closed");
}

TEST_F(ConnectionTest, AnswersPingsAndBandwidth) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    for (const std::uint32_t value : {0U, 1000U, 0xFFFFFFFFU}) {
      Octets ping = bigEndian(6, 2);
      const Octets number = bigEndian(value);
      ping.insert(ping.end(), number.begin(), number.end());
      peer.message(wire::userControl, ping);
    }
    Octets bandwidth = bigEndian(123456);
    for (const std::uint8_t limit : Octets{0, 1, 2, 77}) {
      bandwidth.resize(4);
      bandwidth.push_back(limit);
      peer.message(wire::peerBandwidth, bandwidth);
    }
    peer.serve();
  });
  const auto connection = connected(ingest);
  ASSERT_TRUE(ingest.waitForMessages(wire::userControl, 3));
  const auto pongs = ingest.messages(wire::userControl);
  EXPECT_EQ(pongs[0].payload, (Octets{0, 7, 0, 0, 0, 0}));
  EXPECT_EQ(pongs[1].payload, (Octets{0, 7, 0, 0, 3, 0xE8}));
  EXPECT_EQ(pongs[2].payload, (Octets{0, 7, 0xFF, 0xFF, 0xFF, 0xFF}));
  ASSERT_TRUE(ingest.waitUntil([&] {
    const auto sizes = ingest.messages(wire::windowSize);
    return !sizes.empty() && sizes.back().number() == 123456;
  }));
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

/// The server counts what it has sent and expects to hear of every window, neither earlier nor more than once.
TEST_F(ConnectionTest, AcknowledgesEveryWindow) {
  constexpr std::uint32_t window = 5000;
  constexpr int rounds = 6;
  std::vector<std::uint32_t> acknowledged;
  std::vector<std::uint64_t> sent;
  ScriptedIngest ingest([&](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    peer.message(wire::windowSize, bigEndian(window));
    for (int round = 0; round < rounds; ++round) {
      const std::uint64_t before = peer.sent();
      while (peer.sent() - before < window) peer.command({WireValue::of("filler"), WireValue::of(0.0)});
      for (;;) {
        const WireMessage message = peer.next();
        if (message.type != wire::acknowledgement) continue;
        acknowledged.push_back(message.number());
        break;
      }
      sent.push_back(peer.sent());
    }
    peer.mark("done");
    peer.serve();
  });
  const auto connection = connected(ingest);
  ASSERT_TRUE(ingest.waitForMark("done"));
  EXPECT_EQ(ingest.messages(wire::acknowledgement).size(), static_cast<std::size_t>(rounds));
  for (int i = 0; i < rounds; ++i) {
    const auto at = static_cast<std::size_t>(i);
    EXPECT_LE(acknowledged[at], sent[at]);
    EXPECT_GT(acknowledged[at] + window, sent[at] - 2 * 1537);
    EXPECT_GE(acknowledged[at] - (i > 0 ? acknowledged[at - 1] : 0), window);
  }
}

TEST_F(ConnectionTest, HearsOfAcknowledgementsAndCountsBytes) {
  ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    peer.message(wire::acknowledgement, bigEndian(0x89ABCDEF));
    peer.serve();
  });
  const auto connection = connected(ingest);
  EXPECT_TRUE(ingest.waitUntil([&] { return connection->acknowledged() == 0x89ABCDEF; }));
  EXPECT_GT(connection->sentBytes(), 3073U);
  EXPECT_GT(connection->receivedBytes(), 3073U);
}

TEST_F(ConnectionTest, SaysWhatCannotBeDone) {
  const auto unopened = make();
  const auto called = run(unopened->call("anything"));
  ASSERT_FALSE(called);
  EXPECT_EQ(called.error().error, Error::invalidState);

  for (const char* address : {"http://127.0.0.1/live", "rtmp://", "", "rtmp://[::1/live"}) {
    const auto response = run(make()->connect(address));
    ASSERT_FALSE(response) << address;
    EXPECT_EQ(response.error().error, Error::unsupportedCommand) << address;
    EXPECT_FALSE(response.error().message.empty());
  }

  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto twice = run(connection->connect(ingest.url()));
  ASSERT_FALSE(twice);
  EXPECT_EQ(twice.error().error, Error::invalidState);
  EXPECT_TRUE(connection->connected());
  run(connection->close());
  const auto again = run(connection->connect(ingest.url()));
  ASSERT_FALSE(again);
  EXPECT_EQ(again.error().error, Error::invalidState);
}

TEST_F(ConnectionTest, SaysThatNobodyListens) {
  std::string url;
  {
    ScriptedIngest ingest;
    url = ingest.url();
  }
  const auto response = run(make()->connect(url));
  ASSERT_FALSE(response);
  EXPECT_EQ(response.error().error, Error::socketErrorOccurred);
  ASSERT_TRUE(response.error().socket);
  EXPECT_EQ(response.error().socket->error, RTMPSocketError::connectionRefused);
}

}  // namespace
}  // namespace vellora::test
