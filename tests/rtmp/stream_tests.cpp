#include <algorithm>

#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

using Append = RTMPAppendResult;

class StreamTest : public RTMPTest {};

Octets joined(std::initializer_list<Octets> parts) {
  Octets all;
  for (const Octets& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// What was received of one type, each as its time and payload.
using Received = std::vector<std::pair<std::uint64_t, Octets>>;
Received receivedOf(const ScriptedIngest& ingest, std::uint8_t type) {
  Received result;
  for (const WireMessage& each : ingest.messages(type)) result.emplace_back(each.time, each.payload);
  return result;
}

TEST_F(StreamTest, PublishesInTheRightOrder) {
  using How = RTMPStream::HowToPublish;
  for (const auto& [how, text] : {std::pair(How::live, "live"), std::pair(How::record, "record"),
                                  std::pair(How::append, "append"), std::pair(How::appendWithGap, "appendWithGap")}) {
    ScriptedIngest ingest;
    const auto connection = connected(ingest);
    RTMPStream stream(connection);
    stream.setVideoSettings({RTMPVideoCodec::h264, 1280, 720, 29.97, 2'500'000, {1, 2, 3, 4}});
    stream.setAudioSettings({RTMPAudioCodec::aac, 44100, 2, 128'000, {0x12, 0x10}});
    ASSERT_TRUE(run(stream.createStream()));
    const auto published = run(stream.publish("key?token=1", how));
    ASSERT_TRUE(published) << published.error().message;
    ASSERT_TRUE(published->status);
    EXPECT_EQ(published->status->code, "NetStream.Publish.Start");
    EXPECT_EQ(stream.append(RTMPVideoFrame{0ms, 0ms, true, Octets{9}}), Append::queued);
    run(stream.close());
    run(connection->close());

    EXPECT_EQ(ingest.names(), (std::vector<std::string>{"connect", "createStream", "releaseStream", "FCPublish",
                                                        "publish", "@setDataFrame", "FCUnpublish", "deleteStream"}));
    std::string rendered;
    double transaction = 0;
    for (const WireMessage& message : ingest.messages()) {
      if (message.name().empty() || message.name() == "connect") continue;
      if (message.type == wire::command) {
        // Ids are handed out one after the other, so that no answer can be taken for another's.
        EXPECT_GT(message.transaction(), transaction);
        transaction = message.transaction();
      }
      for (std::size_t i = message.type == wire::command ? 2 : 1; i < message.values.size(); ++i) {
        rendered += message.values[i].rendered() + " ";
      }
      rendered += "on " + std::to_string(message.streamId) + "\n";
    }
    EXPECT_EQ(rendered,
              "null on 0\n"
              "null \"key?token=1\" on 0\n"
              "null \"key?token=1\" on 0\n"
              "null \"key?token=1\" \"" +
                  std::string(text) +
                  "\" on 1\n"
                  "\"onMetaData\" [audiocodecid:10, audiodatarate:128, audiosamplerate:44100, framerate:29.97, "
                  "height:720, videocodecid:7, videodatarate:2500, width:1280] on 1\n"
                  "null \"key?token=1\" on 0\n"
                  "null 1 on 0\n");
    // Nothing of media before the stream is published, configurations before frames.
    std::vector<std::uint8_t> types;
    for (const WireMessage& message : ingest.messages()) {
      if (message.type >= wire::audio && message.type <= wire::data) types.push_back(message.type);
    }
    EXPECT_EQ(types, (std::vector<std::uint8_t>{wire::data, wire::video, wire::audio, wire::video, wire::video}));
    EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
  }
}

TEST_F(StreamTest, SendsFramesAsTheyAre) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto stream = publishing(connection);
  const Octets large(300000, 0xAB);
  EXPECT_EQ(stream->append(RTMPVideoFrame{10s, 10080ms, true, large}), Append::queued);
  EXPECT_EQ(stream->append(RTMPAudioFrame{10010ms, Octets{7, 8}}), Append::queued);
  EXPECT_EQ(stream->append(RTMPAudioFrame{10031333us, Octets{9}}), Append::queued);
  EXPECT_EQ(stream->append(RTMPVideoFrame{10033300us, 10033300us, false, Octets{5}}), Append::queued);
  EXPECT_EQ(stream->append(RTMPVideoFrame{10066600us, 10033300us, false, Octets{6}}), Append::queued);
  finish(ingest, *stream);

  const Octets zeros{0, 0, 0};
  const auto video = receivedOf(ingest, wire::video);
  ASSERT_EQ(video.size(), 5U);
  EXPECT_EQ(video[0], Received::value_type(0, joined({{0x17, 0}, zeros, {1, 2, 3, 4}})));
  EXPECT_EQ(video[1], Received::value_type(0, joined({{0x17, 1, 0, 0, 80}, large})));
  EXPECT_EQ(video[2], Received::value_type(33, joined({{0x27, 1}, zeros, {5}})));
  EXPECT_EQ(video[3], Received::value_type(67, {0x27, 1, 0xFF, 0xFF, 0xDE, 6}));
  EXPECT_EQ(video[4].second, joined({{0x17, 2}, zeros}));
  const auto audio = receivedOf(ingest, wire::audio);
  ASSERT_GE(audio.size(), 3U);
  EXPECT_EQ(audio[0], Received::value_type(0, {0xAF, 0, 0x11, 0x90}));
  EXPECT_EQ(audio[1], Received::value_type(10, {0xAF, 1, 7, 8}));
  EXPECT_EQ(audio[2], Received::value_type(31, {0xAF, 1, 9}));

  std::string order;
  for (const WireMessage& message : ingest.messages()) {
    if (message.type == wire::audio) order += 'a';
    if (message.type == wire::video) order += 'v';
  }
  EXPECT_TRUE(order.starts_with("vavaavv")) << order;
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

TEST_F(StreamTest, SendsTheExtendedFormOfNewerCodecs) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  RTMPStream stream(connection);
  stream.setVideoSettings({RTMPVideoCodec::hevc, 1920, 1080, 0, 0, {1, 2}});
  stream.setAudioSettings({RTMPAudioCodec::opus, 48000, 2, 0, {'O', 'p'}});
  ASSERT_TRUE(run(stream.createStream()));
  ASSERT_TRUE(run(stream.publish("key")));
  stream.append(RTMPVideoFrame{0ms, 40ms, true, Octets{9}});
  stream.append(RTMPAudioFrame{0ms, Octets{8}});
  finish(ingest, stream);
  const auto metadata = ingest.messages(wire::data);
  ASSERT_EQ(metadata.size(), 1U);
  EXPECT_EQ(metadata[0].values.at(2).find("videocodecid")->number, 0x68766331);
  const auto video = receivedOf(ingest, wire::video);
  ASSERT_GE(video.size(), 2U);
  EXPECT_EQ(video[0].second, (Octets{0x90, 'h', 'v', 'c', '1', 1, 2}));
  EXPECT_EQ(video[1].second, (Octets{0x91, 'h', 'v', 'c', '1', 0, 0, 40, 9}));
  const auto audio = receivedOf(ingest, wire::audio);
  ASSERT_GE(audio.size(), 2U);
  EXPECT_EQ(audio[0].second, (Octets{0x90, 'O', 'p', 'u', 's', 'O', 'p'}));
  EXPECT_EQ(audio[1].second, (Octets{0x91, 'O', 'p', 'u', 's', 8}));
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

/// Five hours in large steps: absolute timestamps of 24 bits end after less than that.
TEST_F(StreamTest, GoesOnPast24BitsOfMilliseconds) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto stream = publishing(connection);
  constexpr auto step = 1'700'000ms;
  for (int i = 0; i < 12; ++i) {
    const std::chrono::microseconds time = 1h + i * step;
    EXPECT_EQ(stream->append(RTMPVideoFrame{time, time, i % 4 == 0, Octets{1}}), Append::queued);
    EXPECT_EQ(stream->append(RTMPAudioFrame{time + 7ms, Octets{2}}), Append::queued);
  }
  finish(ingest, *stream);
  auto video = receivedOf(ingest, wire::video);
  auto audio = receivedOf(ingest, wire::audio);
  ASSERT_GE(video.size(), 13U);
  ASSERT_GE(audio.size(), 13U);
  for (std::size_t i = 0; i < 12; ++i) {
    EXPECT_EQ(video[i + 1].first, i * 1'700'000);
    EXPECT_EQ(audio[i + 1].first, i * 1'700'000 + 7);
  }
  // One header with everything for each kind, differences after it.
  for (const std::uint8_t type : {wire::audio, wire::video}) {
    const auto messages = ingest.messages(type);
    EXPECT_EQ(messages.front().chunkType, 0);
    EXPECT_TRUE(std::all_of(messages.begin() + 1, messages.end(), [](const auto& m) { return m.chunkType == 1; }));
  }
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

TEST_F(StreamTest, NeverGoesBackInTime) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto stream = publishing(connection);
  for (const auto time : {5000ms, 5040ms, 5020ms, 100ms, 5080ms}) {
    EXPECT_EQ(stream->append(RTMPVideoFrame{time, time, true, Octets{1}}), Append::queued);
  }
  EXPECT_EQ(stream->append(RTMPAudioFrame{4990ms, Octets{1}}), Append::queued);
  finish(ingest, *stream);
  std::vector<std::uint64_t> times;
  for (const auto& [time, payload] : receivedOf(ingest, wire::video)) times.push_back(time);
  times.resize(6);
  EXPECT_EQ(times, (std::vector<std::uint64_t>{0, 0, 40, 40, 40, 80}));
  EXPECT_EQ(receivedOf(ingest, wire::audio).at(1).first, 0U);
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

/// Without a configuration in front, too, sound and picture keep their distance.
TEST_F(StreamTest, CountsBothKindsOfMediaFromTheSameStart) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  RTMPStream stream(connection);
  stream.setVideoSettings({RTMPVideoCodec::h264, 640, 360, 25, 0, {}});
  stream.setAudioSettings({RTMPAudioCodec::aac, 48000, 2, 0, {}});
  ASSERT_TRUE(run(stream.createStream()));
  ASSERT_TRUE(run(stream.publish("key")));
  stream.append(RTMPAudioFrame{3000ms, Octets{1}});
  stream.append(RTMPVideoFrame{3700ms, 3700ms, true, Octets{2}});
  stream.append(RTMPVideoFrame{3740ms, 3740ms, false, Octets{3}});
  finish(ingest, stream);
  EXPECT_EQ(receivedOf(ingest, wire::audio).at(0).first, 0U);
  const auto video = receivedOf(ingest, wire::video);
  EXPECT_EQ(video.at(0).first, 700U);
  EXPECT_EQ(video.at(1).first, 740U);
}

TEST_F(StreamTest, TellsOfNewSettingsBeforeTheNextFrame) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto stream = publishing(connection);
  stream->append(RTMPVideoFrame{0ms, 0ms, true, Octets{1}});
  stream->setVideoSettings({RTMPVideoCodec::h264, 640, 360, 25, 500'000, {5, 6}});
  EXPECT_EQ(stream->metadata().named.find("width")->as<double>()[0], 640);
  stream->append(RTMPVideoFrame{40ms, 40ms, true, Octets{2}});
  finish(ingest, *stream);
  const auto metadata = ingest.messages(wire::data);
  ASSERT_EQ(metadata.size(), 2U);
  EXPECT_EQ(metadata[1].values.at(2).find("width")->number, 640);
  const auto video = receivedOf(ingest, wire::video);
  ASSERT_GE(video.size(), 4U);
  EXPECT_EQ(video[1].second.back(), 1);
  EXPECT_EQ(video[2], Received::value_type(0, {0x17, 0, 0, 0, 0, 5, 6}));
  EXPECT_EQ(video[3].first, 40U);
  EXPECT_EQ(video[3].second.back(), 2);
  EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
}

TEST_F(StreamTest, FailsWithWhatTheServerSays) {
  ScriptedIngest noStreams([](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    peer.refuse(peer.expect("createStream"), "NetConnection.Call.Prohibited", "no");
    const WireMessage create = peer.expect("createStream");
    peer.command({WireValue::of("_result"), WireValue::of(create.transaction()), WireValue::null(),
                  WireValue::of("not a number")});
    peer.serve();
  });
  const auto connection = connected(noStreams);
  RTMPStream stream(connection);
  for (int i = 0; i < 2; ++i) {
    const auto created = run(stream.createStream());
    ASSERT_FALSE(created);
    EXPECT_EQ(created.error().error, Error::requestFailed);
  }
  const auto early = run(stream.publish("key"));
  ASSERT_FALSE(early);
  EXPECT_EQ(early.error().error, Error::invalidState);

  enum class By { status, error };
  for (const By by : {By::status, By::error}) {
    for (const char* code : {"NetStream.Publish.BadName", "NetStream.Publish.Denied", "NetStream.Failed"}) {
      ScriptedIngest ingest([&](IngestPeer& peer) {
        peer.answer(peer.expect("connect"));
        const WireMessage publish = peer.expect("publish");
        if (by == By::status) peer.status("error", code, publish.streamId, "no");
        if (by == By::error) peer.refuse(publish, code, "no");
        peer.serve();
      });
      const auto refusing = connected(ingest);
      RTMPStream refused(refusing);
      ASSERT_TRUE(run(refused.createStream()));
      const auto published = run(refused.publish("key"));
      ASSERT_FALSE(published);
      EXPECT_EQ(published.error().error, Error::requestFailed) << code;
      ASSERT_TRUE(published.error().status) << code;
      EXPECT_EQ(published.error().status->code, code);
      EXPECT_EQ(refused.append(RTMPVideoFrame{0ms, 0ms, true, Octets{1}}), Append::notPublishing);
      run(refused.close());
      run(refusing->close());
      EXPECT_EQ(ingest.names().back(), "deleteStream");
      EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
    }
  }
}

TEST_F(StreamTest, TwoStreamsShareAConnection) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  const auto first = publishing(connection, "first");
  const auto second = publishing(connection, "second");
  for (int i = 0; i < 20; ++i) {
    first->append(RTMPVideoFrame{i * 40ms, i * 40ms, i == 0, Octets{1}});
    second->append(RTMPVideoFrame{1h + i * 30ms, 1h + i * 30ms, i == 0, Octets{2}});
  }
  run(first->close());
  EXPECT_EQ(second->append(RTMPVideoFrame{1h + 600ms, 1h + 600ms, true, Octets{2}}), Append::queued);
  finish(ingest, *second, 2);
  std::size_t ofFirst = 0;
  std::size_t ofSecond = 0;
  for (const WireMessage& message : ingest.messages(wire::video)) {
    const bool isFrame = message.payload.size() == 6 && message.payload[1] == 1;
    if (!isFrame) continue;
    ASSERT_EQ(message.payload.back(), message.streamId);
    ++(message.streamId == 1 ? ofFirst : ofSecond);
  }
  EXPECT_EQ(ofFirst, 20U);
  EXPECT_EQ(ofSecond, 21U);
}

TEST_F(StreamTest, RefusesFramesWhenItDoesNotPublish) {
  ScriptedIngest ingest;
  const auto connection = connected(ingest);
  RTMPStream stream(connection);
  const RTMPVideoFrame frame{0ms, 0ms, true, Octets{}};
  EXPECT_EQ(stream.append(frame), Append::notPublishing);
  const auto published = publishing(connection);
  const auto twice = run(published->publish("key"));
  ASSERT_FALSE(twice);
  EXPECT_EQ(twice.error().error, Error::invalidState);
  run(published->close());
  EXPECT_EQ(published->append(frame), Append::notPublishing);
  EXPECT_EQ(published->queued().bytes, 0U);
  run(published->close());
  run(connection->close());
  run(published->close());
}

}  // namespace
}  // namespace vellora::test
