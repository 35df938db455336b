#include <malloc.h>

#include <algorithm>
#include <random>

#include "rtmp/RTMPTest.h"

namespace vellora::test {
namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

/// Bytes the program holds from the allocator.
std::size_t heapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

Octets noise(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  Octets bytes(count);
  std::generate(bytes.begin(), bytes.end(), [&] { return static_cast<std::uint8_t>(random()); });
  return bytes;
}

Octets joined(std::initializer_list<Octets> parts) {
  Octets all;
  for (const Octets& part : parts) all.insert(all.end(), part.begin(), part.end());
  return all;
}

/// The header of a chunk of type zero on a chunk stream of any number.
Octets header(std::uint32_t chunkStream, std::uint32_t length, std::uint8_t type) {
  Octets chunk = chunksOf(chunkStream, type, 0, 0, Octets(1), 128);
  chunk.pop_back();
  const Octets size = bigEndian(length, 3);
  std::copy(size.begin(), size.end(), chunk.end() - 8);
  return chunk;
}

class HostileServerTest : public RTMPTest {
 protected:
  /// The connection ends by itself with a protocol error after the server has said `bytes`, having used little memory.
  void expectRefused(const Octets& bytes, const char* what) {
    SCOPED_TRACE(what);
    ScriptedIngest ingest([&](IngestPeer& peer) {
      const WireMessage connect = peer.expect("connect");
      peer.raw(bytes);
      peer.readOnly();
    });
    const std::size_t before = heapInUse();
    const auto connection = make();
    const auto response = run(connection->connect(ingest.url()));
    ASSERT_FALSE(response);
    EXPECT_EQ(response.error().error, Error::socketErrorOccurred) << response.error().message;
    EXPECT_TRUE(response.error().protocol) << response.error().message;
    EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; })) << "the connection stays open";
    EXPECT_LT(heapInUse(), before + 2 * megabyte);
  }

  /// The connection lives on after the server has said `bytes`, and uses little memory then.
  void expectIgnored(const Octets& bytes, const char* what) {
    SCOPED_TRACE(what);
    ScriptedIngest ingest([&](IngestPeer& peer) {
      const WireMessage connect = peer.expect("connect");
      peer.raw(bytes);
      peer.answer(connect);
      peer.serve();
    });
    const std::size_t before = heapInUse();
    const auto connection = make();
    const auto response = run(connection->connect(ingest.url()));
    EXPECT_TRUE(response) << response.error().message;
    EXPECT_LT(heapInUse(), before + 2 * megabyte);
    run(connection->close());
  }
};

TEST_F(HostileServerTest, RefusesOtherProtocols) {
  for (const std::string text : {"HTTP/1.1 400 Bad Request\r\n", "\x15\x03\x03"}) {
    ScriptedIngest ingest([&](IngestPeer& peer) {
      peer.readC0C1();
      Octets answer(text.begin(), text.end());
      answer.resize(1 + 2 * 1536, ' ');
      peer.raw(answer);
      peer.readOnly();
    });
    const auto response = run(make()->connect(ingest.url()));
    ASSERT_FALSE(response);
    EXPECT_EQ(response.error().error, Error::socketErrorOccurred);
    EXPECT_TRUE(response.error().protocol);
  }
}

TEST_F(HostileServerTest, EndsEndlessHandshakes) {
  // As fast as it goes.
  ScriptedIngest flood([](IngestPeer& peer) {
    peer.readC0C1();
    const Octets block = joined({{3}, Octets(megabyte, 7)});
    for (int i = 0; i < 64; ++i) peer.raw(block);
    peer.readOnly();
  });
  const std::size_t before = heapInUse();
  const auto flooded = run(make()->connect(flood.url()));
  ASSERT_FALSE(flooded);
  EXPECT_EQ(flooded.error().error, Error::socketErrorOccurred);
  EXPECT_LT(heapInUse(), before + 4 * megabyte);

  // So slowly that there is always something new.
  ScriptedIngest drip([](IngestPeer& peer) {
    peer.readC0C1();
    peer.raw({3});
    for (;;) {
      peer.tryRaw({7}, 1000);
      std::this_thread::sleep_for(2ms);
    }
  });
  const auto start = Clock::now();
  const auto dripped = run(make(impatient())->connect(drip.url()));
  ASSERT_FALSE(dripped);
  EXPECT_EQ(dripped.error().error, Error::connectionTimedOut);
  EXPECT_LT(Clock::now() - start, 1s);
}

TEST_F(HostileServerTest, RefusesChunksNoServerSends) {
  expectRefused(joined({header(2, 4, wire::setChunkSize), bigEndian(0)}), "a chunk size of 0");
  expectRefused(joined({header(2, 4, wire::setChunkSize), bigEndian(0x80000000U)}), "a chunk size of 2^31");
  expectRefused({0xC7}, "type 3 on an unknown chunk stream");
  expectRefused({0x87, 0, 0, 0}, "type 2 on an unknown chunk stream");

  Octets streams;
  for (std::uint32_t id = 3; id < 8000; ++id) {
    const Octets chunk = chunksOf(id, wire::command, 0, 0, Octets(1), 128);
    streams.insert(streams.end(), chunk.begin(), chunk.end());
  }
  expectRefused(streams, "thousands of chunk streams");

  Octets announced;
  for (std::uint32_t id = 3; id < 40; ++id) {
    const Octets chunk = joined({header(id, 0xFFFFFF, wire::video), Octets(128, 1)});
    announced.insert(announced.end(), chunk.begin(), chunk.end());
  }
  expectRefused(announced, "many messages of 16 MB, announced and never sent");
}

TEST_F(HostileServerTest, SkipsWhatItDoesNotUnderstand) {
  const auto command = [](const Octets& payload) { return chunksOf(3, wire::command, 0, 0, payload, 128); };
  const WireValue result = WireValue::of("_result");
  const Octets start = amf0({result, WireValue::of(1)});
  Octets nested = start;
  for (int i = 0; i < 100000; ++i) nested.insert(nested.end(), {0x03, 0x00, 0x01, 'a'});
  Octets arrays = start;
  for (int i = 0; i < 100000; ++i) arrays.insert(arrays.end(), {0x0A, 0xFF, 0xFF, 0xFF, 0xFF});

  expectIgnored(command(nested), "objects nested to a depth of 100000");
  expectIgnored(command(arrays), "arrays of 2^32 - 1 values each, nested");
  expectIgnored(command(joined({start, {0x0C, 0xFF, 0xFF, 0xFF, 0xFF, 'a'}})), "a long string of 2^32 - 1 bytes");
  expectIgnored(command(joined({start, {0x02, 0xFF, 0xFF, 'a'}})), "a string longer than its message");
  expectIgnored(command(joined({start, {0x08, 0xFF, 0xFF, 0xFF, 0xFF}})), "an array of 2^32 - 1 names");
  expectIgnored(command(joined({start, {0x07, 0, 0}})), "a reference to nothing");
  expectIgnored(command({}), "an empty command");
  expectIgnored(command(amf0({result})), "an answer to nothing");
  expectIgnored(command(amf0({WireValue::of("onStatus"), WireValue::of(0.0), WireValue::null()})),
                "a status without a status");
  expectIgnored(chunksOf(3, 17, 0, 0, noise(5000, 1), 128), "noise as an AMF3 command");
  for (const std::uint8_t type : Octets{0, 7, 21, 23, 255}) {
    expectIgnored(chunksOf(6, type, 0, 0, Octets(200, 1), 128), "an unknown type of message");
  }
  for (const std::uint8_t type : Octets{2, 3, 4, 5, 6, 15, 16, 18, 19, 22}) {
    expectIgnored(chunksOf(6, type, 0, 0, {1}, 128), "a message too short for its type");
  }
  expectIgnored(
      joined({header(6, 1000, wire::video), Octets(128, 1), chunksOf(2, wire::abortMessage, 0, 0, bigEndian(6), 128),
              chunksOf(6, wire::video, 0, 0, Octets(20), 128)}),
      "a message that is aborted");
  expectIgnored({0x47, 0, 0, 0, 0, 0, 1, 20, 0}, "a chunk stream that starts without a message stream");
  expectIgnored(joined({header(6, 1000, wire::video), Octets(128, 1)}), "a message that is never finished");
  expectIgnored(joined({chunksOf(2, wire::windowSize, 0, 0, bigEndian(0), 128),
                        chunksOf(2, wire::windowSize, 0, 0, bigEndian(0xFFFFFFFF), 128)}),
                "no window, and the largest one");
}

/// Whatever comes, the connection ends or goes on, and `close` ends it.
TEST_F(HostileServerTest, SurvivesNoise) {
  for (unsigned seed = 0; seed < 24; ++seed) {
    ScriptedIngest ingest([&](IngestPeer& peer) {
      if (seed % 4 == 0) peer.readC0C1();
      if (seed % 4 == 1) peer.handshake();
      if (seed % 4 == 2) peer.expect("connect");
      if (seed % 4 == 3) peer.answer(peer.expect("connect"));
      peer.raw(noise(20000, seed));
      peer.readOnly();
    });
    const auto connection = make(impatient());
    const auto response = run(connection->connect(ingest.url()));
    if (response) run(connection->call("anything"));
    const auto before = Clock::now();
    run(connection->close());
    EXPECT_LT(Clock::now() - before, 1s);
    EXPECT_TRUE(ingest.waitUntil([&] { return ingest.ended() == 1; }));
  }
}

/// A server that asks for answers and does not read them may not fill the memory.
TEST_F(HostileServerTest, BoundsAnswersNobodyReads) {
  constexpr std::size_t flood = 8 * megabyte;
  Octets pings;
  while (pings.size() < 60000) {
    const Octets ping = chunksOf(2, wire::userControl, 0, 0, {0, 6, 1, 2, 3, 4}, 128);
    pings.insert(pings.end(), ping.begin(), ping.end());
  }
  ScriptedIngest ingest({[&](IngestPeer& peer) {
                          peer.answer(peer.expect("connect"));
                          while (peer.sent() < flood && peer.tryRaw(pings, 300)) continue;
                          peer.mark("flooded");
                          peer.waitForMark("read");
                          peer.serve();
                        }},
                        {.receiveBuffer = 4096, .keepMedia = false});
  const auto connection = connected(ingest);
  const std::size_t before = heapInUse();
  ASSERT_TRUE(ingest.waitForMark("flooded"));
  EXPECT_LT(heapInUse(), before + 2 * megabyte);
  ingest.mark("read");
  EXPECT_TRUE(
      ingest.waitUntil([&] { return !connection->connected() || !ingest.messages(wire::userControl).empty(); }));
  const auto start = Clock::now();
  run(connection->close());
  EXPECT_LT(Clock::now() - start, 1s);
}

/// Large messages that make sense are read and forgotten.
TEST_F(HostileServerTest, KeepsNothingOfWhatItIsSent) {
  ScriptedIngest ingest([&](IngestPeer& peer) {
    peer.answer(peer.expect("connect"));
    peer.announceChunkSize(0xFFFFFF);
    const Octets largest = chunksOf(6, wire::video, 1, 0, Octets(0xFFFFFF, 1), 0xFFFFFF);
    for (int i = 0; i < 6; ++i) peer.raw(largest);
    peer.mark("sent");
    peer.serve();
  });
  const auto connection = connected(ingest);
  const std::size_t before = heapInUse();
  ASSERT_TRUE(ingest.waitForMark("sent"));
  const auto response = start(connection->call("createStream")).get();
  EXPECT_TRUE(response) << response.error().message;
  EXPECT_LT(heapInUse(), before + 40 * megabyte);
  run(connection->close());
}

}  // namespace
}  // namespace vellora::test
