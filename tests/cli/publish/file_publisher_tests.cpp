#include "cli/publish/FilePublisher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <asio/co_spawn.hpp>
#include <asio/post.hpp>
#include <asio/use_future.hpp>
#include <future>
#include <thread>

#include "cli/publish/FakeMediaReader.h"
#include "support/ScriptedIngest.h"

namespace vellora::test {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using State = PublishOutcome::State;

PublishRequest requestFor(const std::string& url) {
  PublishRequest request;
  auto address = RTMPPublishAddress::parse(url);
  EXPECT_TRUE(address);
  if (address) {
    request.server = address->server;
    request.streamName = address->streamName;
  }
  return request;
}

PublishRequest fastRequestFor(const ScriptedIngest& ingest) {
  PublishRequest request = requestFor(ingest.url("live/key"));
  request.asFastAsPossible = true;
  return request;
}

/// A publisher at work in a thread of its own.
class Publishing {
 public:
  Publishing(MediaReader& reader, PublishRequest request) : publisher_(context_, reader, std::move(request)) {
    outcome_ = asio::co_spawn(context_, publisher_.run(), asio::use_future);
    thread_ = std::thread([this] { context_.run(); });
  }
  ~Publishing() {
    context_.stop();
    thread_.join();
  }
  void stop() {
    asio::post(context_, [this] { publisher_.stop(); });
  }
  PublishOutcome outcome() {
    if (outcome_.wait_for(10s) == std::future_status::ready) return outcome_.get();
    ADD_FAILURE() << "publishing does not end";
    return {};
  }
  /// Once it has ended.
  PublishProgress progress() const { return publisher_.progress(); }
  /// Waits, while it runs, until so many frames have been dropped.
  bool waitForDrops(std::uint64_t count) {
    for (const auto end = Clock::now() + 8s; Clock::now() < end; std::this_thread::sleep_for(10ms)) {
      const auto dropped = [this]() -> asio::awaitable<std::uint64_t> {
        co_return publisher_.progress().droppedFrames;
      };
      if (asio::co_spawn(context_, dropped, asio::use_future).get() >= count) return true;
    }
    return false;
  }

 private:
  asio::io_context context_{1};
  FilePublisher publisher_;
  std::future<PublishOutcome> outcome_;
  std::thread thread_;
};

std::string codeOf(const PublishOutcome& outcome) {
  return outcome.failure ? outcome.failure->code : "";
}

/// Frames, without configurations and ends of sequences.
std::vector<WireMessage> frames(const ScriptedIngest& ingest, std::uint8_t type) {
  std::vector<WireMessage> frames = ingest.messages(type);
  std::erase_if(frames,
                [](const WireMessage& message) { return message.payload.size() < 2 || message.payload[1] != 1; });
  return frames;
}

bool hasEndedProperly(const ScriptedIngest& ingest) {
  const auto names = ingest.names();
  return std::find(names.begin(), names.end(), "deleteStream") != names.end();
}

TEST(FilePublisher, SendsEverythingInOrderAndEndsTheStream) {
  const ScriptedIngest ingest;
  FakeMediaReader reader(50, 80);
  Publishing publishing(reader, fastRequestFor(ingest));
  EXPECT_EQ(publishing.outcome().state, State::done);
  EXPECT_EQ(publishing.progress().videoFrames, 50U);
  EXPECT_EQ(publishing.progress().audioFrames, 80U);
  EXPECT_EQ(publishing.progress().time, 50 * FakeMediaReader::videoFrame);
  EXPECT_GT(publishing.progress().bytes, 50U * 200U);

  ASSERT_TRUE(ingest.waitUntil([&] { return hasEndedProperly(ingest); }));
  const auto video = frames(ingest, wire::video);
  const auto audio = frames(ingest, wire::audio);
  ASSERT_EQ(video.size(), 50U);
  ASSERT_EQ(audio.size(), 80U);
  for (std::size_t i = 0; i < video.size(); ++i) {
    EXPECT_EQ(video[i].time, i * 40);
    EXPECT_EQ(video[i].payload[5], i);
    EXPECT_EQ(video[i].payload[0], i % 10 == 0 ? 0x17 : 0x27);
  }
  EXPECT_EQ(audio.back().payload[2], 79);
  EXPECT_TRUE(ingest.complaints().empty());
}

TEST(FilePublisher, KeepsRealTime) {
  const ScriptedIngest ingest;
  FakeMediaReader reader(15, 0);
  const auto start = Clock::now();
  Publishing publishing(reader, requestFor(ingest.url("live/key")));
  EXPECT_EQ(publishing.outcome().state, State::done);
  EXPECT_GE(Clock::now() - start, 14 * FakeMediaReader::videoFrame - PacingClock::lead);
  EXPECT_EQ(frames(ingest, wire::video).size(), 15U);
}

TEST(FilePublisher, LoopsOnOneTimelineUntilStopped) {
  ScriptedIngest ingest;
  FakeMediaReader reader(10, 19);  // the audio is 5.3 ms longer
  reader.setEncodedFrom("vp9");    // read in a thread of its own
  PublishRequest request = fastRequestFor(ingest);
  request.loop = true;
  Publishing publishing(reader, request);
  ASSERT_TRUE(ingest.waitForMessages(wire::video, 100));
  publishing.stop();
  EXPECT_EQ(publishing.outcome().state, State::interrupted);
  ASSERT_TRUE(ingest.waitUntil([&] { return hasEndedProperly(ingest); }));
  const auto video = frames(ingest, wire::video);
  const double round = 19 * 21.333;
  for (std::size_t i = 0; i < video.size(); ++i) {
    ASSERT_EQ(video[i].payload[5], i % 10);
    ASSERT_NEAR(static_cast<double>(video[i].time),
                round * static_cast<double>(i / 10) + 40.0 * static_cast<double>(i % 10), 1);
  }
  EXPECT_TRUE(ingest.complaints().empty());
}

TEST(FilePublisher, DropsGroupsOfVideoWhenTheNetworkIsTooSlow) {
  ScriptedIngest ingest({[](IngestPeer& peer) {
                          peer.answer(peer.expect("publish"));
                          peer.waitForMark("go on");
                          peer.serve();
                        }},
                        {.receiveBuffer = 4096});
  FakeMediaReader reader(250, 0, 60000);
  PublishRequest request = requestFor(ingest.url("live/key"));
  request.longestQueue = 500ms;
  Publishing publishing(reader, request);
  ASSERT_TRUE(publishing.waitForDrops(10));
  ingest.mark("go on");
  ASSERT_TRUE(ingest.waitForMessages(wire::video, 40));
  publishing.stop();
  EXPECT_EQ(publishing.outcome().state, State::interrupted);
  const PublishProgress progress = publishing.progress();
  EXPECT_GE(progress.droppedFrames, 10U);
  const auto video = frames(ingest, wire::video);
  bool hasGap = false;
  for (std::size_t i = 1; i < video.size(); ++i) {
    const int step = video[i].payload[5] - video[i - 1].payload[5];
    if (step == 1) continue;
    hasGap = true;
    EXPECT_EQ(video[i].payload[0], 0x17) << "after frames were left out the next one stands alone";
    EXPECT_EQ(video[i].time - video[i - 1].time, static_cast<std::uint64_t>(step) * 40);
  }
  EXPECT_TRUE(hasGap);
}

TEST(FilePublisher, GivesUpOnAServerThatTakesNothing) {
  const ScriptedIngest ingest({[](IngestPeer& peer) {
                                peer.answer(peer.expect("publish"));
                                peer.waitForMark("never");
                              }},
                              {.receiveBuffer = 4096});
  FakeMediaReader reader(500, 0, 60000);
  PublishRequest request = fastRequestFor(ingest);
  request.longestStall = 1s;
  Publishing publishing(reader, request);
  EXPECT_EQ(codeOf(publishing.outcome()), "stalled");
}

TEST(FilePublisher, TellsThatTheServerEndedTheStream) {
  const ScriptedIngest ingest([](IngestPeer& peer) {
    peer.answer(peer.expect("publish"));
    peer.next();
    peer.close();
  });
  FakeMediaReader reader(500, 0);
  Publishing publishing(reader, requestFor(ingest.url("live/key")));
  const PublishOutcome outcome = publishing.outcome();
  EXPECT_EQ(outcome.state, State::failed);
  EXPECT_EQ(codeOf(outcome), "connectionLost");
  EXPECT_GT(publishing.progress().videoFrames, 0U);
}

TEST(FilePublisher, RepeatsWhatTheServerComplainedOf) {
  const ScriptedIngest ingest([](IngestPeer& peer) {
    const WireMessage publish = peer.expect("publish");
    peer.answer(publish);
    peer.status("error", "NetStream.Failed", publish.streamId, "the disk is full");
    peer.serve();
  });
  FakeMediaReader reader(500, 0);
  Publishing publishing(reader, requestFor(ingest.url("live/key")));
  const PublishOutcome outcome = publishing.outcome();
  EXPECT_EQ(codeOf(outcome), "connectionLost");
  EXPECT_NE(outcome.failure->message.find("the disk is full"), std::string::npos) << outcome.failure->message;
}

TEST(FilePublisher, TellsRefusalsApart) {
  FakeMediaReader reader(5, 0);
  const auto codeWith = [&](ScriptedIngest::Script script) {
    const ScriptedIngest ingest(std::move(script));
    Publishing publishing(reader, fastRequestFor(ingest));
    return codeOf(publishing.outcome());
  };
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              const WireMessage publish = peer.expect("publish");
              peer.status("error", "NetStream.Publish.BadName", publish.streamId);
              peer.serve();
            }),
            "streamRefused");
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              peer.expect("publish");
              peer.close();
            }),
            "streamRefused");
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              peer.refuse(peer.expect("connect"), "NetConnection.Connect.InvalidApp", "no such application");
              peer.serve();
            }),
            "applicationRefused");
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              peer.refuse(peer.expect("connect"), "NetConnection.Connect.Rejected",
                          "[ AccessManager.Reject ] : [ code=403 need auth; authmod=adobe ] : ");
              peer.serve();
            }),
            "loginNeeded");
  EXPECT_EQ(codeWith([](IngestPeer& peer) { peer.close(); }), "protocolBroken");
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              peer.expect("connect");
              peer.close();
            }),
            "applicationRefused");
  EXPECT_EQ(codeWith([](IngestPeer& peer) {
              peer.readC0C1();
              peer.raw(Octets(4000, 'x'));
              peer.readOnly();
            }),
            "protocolBroken");

  std::uint16_t unusedPort = 0;
  {
    const ScriptedIngest gone;
    unusedPort = gone.port();
  }
  Publishing nobody(reader, requestFor("rtmp://127.0.0.1:" + std::to_string(unusedPort) + "/live/key"));
  EXPECT_EQ(codeOf(nobody.outcome()), "connectionRefused");
}

TEST(FilePublisher, AFileThatBreaksInTheMiddleStillEndsTheStream) {
  const ScriptedIngest ingest;
  FakeMediaReader reader(50, 80);
  reader.breakAfter(30);
  Publishing publishing(reader, fastRequestFor(ingest));
  EXPECT_EQ(codeOf(publishing.outcome()), "fileDamaged");
  EXPECT_TRUE(ingest.waitUntil([&] { return hasEndedProperly(ingest); }));
  EXPECT_EQ(publishing.progress().videoFrames + publishing.progress().audioFrames, 30U);
}

TEST(FilePublisher, StopsSoonWhateverTheServerDoes) {
  const auto until = [](const char* request) {
    return [request](IngestPeer& peer) {
      peer.expect(request);
      peer.mark("here");
      peer.readOnly();
    };
  };
  const std::vector<ScriptedIngest::Script> scripts{
      [](IngestPeer& peer) {
        peer.mark("here");
        peer.readOnly();
      },
      until("connect"),
      until("createStream"),
      until("publish"),
      [](IngestPeer& peer) {  // takes nothing more once frames flow
        peer.answer(peer.expect("publish"));
        peer.next();
        peer.mark("here");
        peer.waitForMark("never");
      },
  };
  for (std::size_t i = 0; i < scripts.size(); ++i) {
    SCOPED_TRACE(i);
    const ScriptedIngest ingest({scripts[i]}, {.receiveBuffer = 4096});
    FakeMediaReader reader(500, 0, 60000);
    Publishing publishing(reader, i == 4 ? fastRequestFor(ingest) : requestFor(ingest.url("live/key")));
    ASSERT_TRUE(ingest.waitForMark("here"));
    const auto start = Clock::now();
    publishing.stop();
    EXPECT_EQ(publishing.outcome().state, State::interrupted);
    EXPECT_LT(Clock::now() - start, 1500ms);
  }
}

}  // namespace
}  // namespace vellora::test
