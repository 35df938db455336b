#include <algorithm>
#include <atomic>
#include <set>
#include <thread>

#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

using Append = RTMPAppendResult;

constexpr std::size_t frameSize = 20000;
constexpr int groupLength = 10;
constexpr auto frameTime = 40ms;

/// A server that stops reading once the stream is published, until it is told to "read".
void stalling(IngestPeer& peer) {
  peer.answer(peer.expect("connect"));
  peer.answer(peer.expect("publish"));
  peer.waitForMark("read");
  peer.serve();
}

/// Frames carry their number behind the header of the tag.
Octets frameData(int index, std::size_t size) {
  Octets data = bigEndian(static_cast<std::uint32_t>(index));
  data.resize(std::max(size, data.size()));
  return data;
}

struct Frame {
  std::uint32_t index;
  std::uint64_t time;
  bool isKeyFrame;
};

class StreamQueueTest : public RTMPTest {
 protected:
  ScriptedIngest ingest_{{stalling}, {.receiveBuffer = 8192}};

  static Append appendVideo(RTMPStream& stream, int index, std::size_t size = frameSize) {
    const Octets data = frameData(index, size);
    return stream.append(RTMPVideoFrame{index * frameTime, index * frameTime, index % groupLength == 0, data});
  }
  static Append appendAudio(RTMPStream& stream, int index) {
    const Octets data = frameData(index, 200);
    return stream.append(RTMPAudioFrame{index * frameTime, data});
  }
  /// The frames of one kind that arrived, without configurations.
  std::vector<Frame> received(std::uint8_t type) const {
    const std::size_t header = type == wire::video ? 5 : 2;
    std::vector<Frame> frames;
    for (const WireMessage& message : ingest_.messages(type)) {
      if (message.payload.size() < header + 4 || message.payload[1] != 1) continue;
      std::uint32_t index = 0;
      for (std::size_t i = 0; i < 4; ++i) index = index << 8 | message.payload[header + i];
      frames.push_back({index, message.time, message.payload[0] >> 4 == 1});
    }
    return frames;
  }
  static RTMPConnection::Options bounded(std::size_t bytes) {
    RTMPConnection::Options options;
    options.maximumQueue = bytes;
    return options;
  }
};

TEST_F(StreamQueueTest, IsBoundedWhenTheServerDoesNotRead) {
  constexpr std::size_t bound = 400000;
  const auto connection = connected(ingest_, bounded(bound));
  const auto stream = publishing(connection);
  int index = 0;
  Append last = Append::queued;
  for (; index < 1000 && last == Append::queued; ++index) {
    last = appendVideo(*stream, index);
    ASSERT_LE(stream->queued().bytes, bound);
  }
  ASSERT_EQ(last, Append::queueFull);
  const RTMPQueueState full = stream->queued();
  EXPECT_GT(full.bytes, bound - 2 * frameSize);
  EXPECT_GT(full.videoFrames, bound / frameSize / 2);
  EXPECT_GT(full.duration, frameTime * (bound / frameSize / 2));
  // What depends on the frame that was lost is of no use.
  for (; index % groupLength != 0; ++index) EXPECT_EQ(appendVideo(*stream, index), Append::waitsForKeyFrame);
  EXPECT_EQ(appendVideo(*stream, index), Append::queueFull);

  auto waiting = start(stream->waitUntilQueuedBelow(bound / 4));
  EXPECT_FALSE(waiting.isReady(20ms));
  ingest_.mark("read");
  waiting.get();
  EXPECT_LT(stream->queued().bytes, bound / 4);
  EXPECT_EQ(appendVideo(*stream, index + 1), Append::waitsForKeyFrame);
  const int key = index + groupLength;
  EXPECT_EQ(appendVideo(*stream, key), Append::queued);
  finish(ingest_, *stream);
  const auto frames = received(wire::video);
  ASSERT_FALSE(frames.empty());
  EXPECT_EQ(frames.back().index, static_cast<std::uint32_t>(key));
  for (const Frame& frame : frames) EXPECT_EQ(frame.time, frame.index * 40U);
  EXPECT_EQ(ingest_.complaints(), std::vector<std::string>());
}

/// A live session that falls behind: whole groups go, sound stays, times stay right.
TEST_F(StreamQueueTest, DropsVideoAndKeepsAudio) {
  const auto connection = connected(ingest_);
  const auto stream = publishing(connection);
  // More than the kernel takes, which holds back what is sent on an idle connection.
  constexpr int before = 355;
  for (int i = 0; i < before; ++i) {
    ASSERT_EQ(appendVideo(*stream, i), Append::queued);
    ASSERT_EQ(appendAudio(*stream, i), Append::queued);
  }
  const RTMPQueueState waiting = stream->queued();
  EXPECT_GT(waiting.videoFrames, 0U);
  const std::size_t dropped = stream->dropQueuedVideo();
  EXPECT_GE(dropped, 1U);
  EXPECT_LE(dropped, waiting.videoFrames);
  EXPECT_EQ(stream->queued().videoFrames, 0U);
  EXPECT_LT(stream->queued().bytes, waiting.bytes);
  EXPECT_EQ(stream->dropQueuedVideo(), 0U);
  constexpr int all = before + 50;
  for (int i = before; i < all; ++i) {
    const Append expected = i < 360 ? Append::waitsForKeyFrame : Append::queued;
    ASSERT_EQ(appendVideo(*stream, i), expected) << i;
    ASSERT_EQ(appendAudio(*stream, i), Append::queued);
  }
  ingest_.mark("read");
  run(stream->waitUntilQueuedBelow(1));
  finish(ingest_, *stream);

  const auto audio = received(wire::audio);
  ASSERT_EQ(audio.size(), static_cast<std::size_t>(all));
  for (const Frame& frame : audio) ASSERT_EQ(frame.time, frame.index * 40U);
  const auto video = received(wire::video);
  EXPECT_EQ(video.size(), before - dropped + (all - 360));
  std::uint32_t expected = 0;
  for (const Frame& frame : video) {
    ASSERT_EQ(frame.time, frame.index * 40U);
    if (frame.index != expected) {
      EXPECT_EQ(frame.index, 360U);
      EXPECT_TRUE(frame.isKeyFrame);
    }
    expected = frame.index + 1;
  }
  EXPECT_EQ(expected, static_cast<std::uint32_t>(all));
  EXPECT_EQ(ingest_.complaints(), std::vector<std::string>());
}

TEST_F(StreamQueueTest, BoundsTheFramesThatWait) {
  const auto connection = connected(ingest_);
  const auto stream = publishing(connection);
  stream->setVideoInputBufferCounts(5);
  int index = 0;
  // The kernel takes some of them.
  while (index < 5000 && appendVideo(*stream, index) == Append::queued) {
    ++index;
    if (index % 4 == 0) std::this_thread::sleep_for(1ms);
  }
  ASSERT_LT(index, 5000);
  EXPECT_LE(stream->queued().videoFrames, 5U);
  EXPECT_EQ(appendAudio(*stream, index), Append::queued);
  ingest_.mark("read");
  run(stream->waitUntilQueuedBelow(1));
  const int key = (index / groupLength + 1) * groupLength;
  EXPECT_EQ(appendVideo(*stream, key + 1), Append::waitsForKeyFrame);
  EXPECT_EQ(appendVideo(*stream, key), Append::queued);
  finish(ingest_, *stream);
  EXPECT_EQ(received(wire::video).back().index, static_cast<std::uint32_t>(key));
}

TEST_F(StreamQueueTest, EndsInTimeWhenTheServerNeverReads) {
  const auto connection = connected(ingest_);
  const auto stream = publishing(connection);
  for (int i = 0; i < 500; ++i) appendVideo(*stream, i);
  auto waiting = start(stream->waitUntilQueuedBelow(1));
  const auto before = Clock::now();
  run(stream->close());
  const auto closed = Clock::now();
  EXPECT_LT(closed - before, 1s);
  run(connection->close());
  EXPECT_LT(Clock::now() - closed, 1s);
  waiting.get();
  EXPECT_EQ(stream->queued().bytes, 0U);
}

TEST_F(StreamQueueTest, SendsWhatWaitsBeforeTheEnd) {
  const auto connection = connected(ingest_);
  const auto stream = publishing(connection);
  for (int i = 0; i < 300; ++i) ASSERT_EQ(appendVideo(*stream, i), Append::queued);
  ingest_.mark("read");
  run(connection->close());
  EXPECT_EQ(received(wire::video).size(), 300U);
  EXPECT_EQ(ingest_.complaints(), std::vector<std::string>());
}

/// Two threads append without a break while others close, drop and let go.
TEST_F(StreamQueueTest, IsSafeFromManyThreads) {
  ingest_.mark("read");
  for (int round = 0; round < 12; ++round) {
    ScriptedIngest ingest({[](IngestPeer& peer) { peer.serve(); }}, {.receiveBuffer = 0, .keepMedia = false});
    auto connection = connected(ingest, bounded(2'000'000));
    auto stream = publishing(connection);
    std::atomic<int> refused = 0;
    std::atomic<int> appended = 0;
    const auto append = [&](bool isVideo) {
      for (int i = 0; refused < 2000 && i < 200000; ++i) {
        const Append result = isVideo ? appendVideo(*stream, i, 1000) : appendAudio(*stream, i);
        if (result == Append::queued) ++appended;
        if (result == Append::notPublishing) ++refused;
      }
    };
    std::thread video([&] { append(true); });
    std::thread audio([&] { append(false); });
    while (appended < 200) std::this_thread::yield();
    if (round % 3 == 0) stream->dropQueuedVideo();
    stream->setVideoSettings({RTMPVideoCodec::h264, 640, 360, 25, 500'000, {5, 6}});
    EXPECT_LE(stream->queued().bytes, 2'000'000U);
    if (round % 2 == 0) {
      auto closing = start(stream->close());
      run(connection->close());
      closing.get();
    } else {
      auto closing = start(connection->close());
      run(stream->close());
      closing.get();
    }
    refused = 2000;
    video.join();
    audio.join();
    if (round % 4 < 2) connection.reset();
    stream.reset();
    EXPECT_EQ(ingest.complaints(), std::vector<std::string>());
  }
}

}  // namespace
}  // namespace vellora::test
