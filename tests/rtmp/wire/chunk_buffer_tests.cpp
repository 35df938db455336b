#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <numeric>
#include <optional>
#include <vector>

#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkMessageHeader.h"

namespace vellora {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

Bytes numbered(std::size_t length) {
  Bytes bytes(length);
  for (std::size_t i = 0; i < length; ++i) bytes[i] = static_cast<std::uint8_t>(i * 7 + i / 256);
  return bytes;
}

std::vector<Bytes> chunksOf(RTMPChunkBuffer& buffer, RTMPChunkType type, std::uint16_t id,
                            const RTMPMessageView& message) {
  std::vector<Bytes> chunks;
  auto sequence = buffer.putMessage(type, id, message);
  for (ByteView chunk = sequence.next(); !chunk.empty(); chunk = sequence.next()) {
    chunks.emplace_back(chunk.begin(), chunk.end());
  }
  return chunks;
}

std::optional<std::pair<int, int>> basicHeader(const Bytes& bytes) {
  RTMPChunkBuffer buffer;
  buffer.put(bytes);
  const auto header = buffer.getBasicHeader();
  EXPECT_EQ(buffer.remaining(), header ? 0 : bytes.size());
  if (!header) return std::nullopt;
  return std::pair(static_cast<int>(header->first), static_cast<int>(header->second));
}

TEST(ChunkBuffer, ReadsBasicHeadersOfOneToThreeBytes) {
  EXPECT_EQ(basicHeader({0x03}), std::pair(0, 3));
  EXPECT_EQ(basicHeader({0xFF}), std::pair(3, 63));
  EXPECT_EQ(basicHeader({0x40, 0x0A}), std::pair(1, 74));
  EXPECT_EQ(basicHeader({0x80, 0xFF}), std::pair(2, 319));
  EXPECT_EQ(basicHeader({0x01, 0x02, 0x03}), std::pair(0, 834));
  EXPECT_EQ(basicHeader({0x01, 0xBF, 0xFF}), std::pair(0, 65535));
  for (const Bytes& cut : {Bytes{}, Bytes{0x00}, Bytes{0x01}, Bytes{0x01, 0x02}}) {
    EXPECT_EQ(basicHeader(cut), std::nullopt);
  }
  RTMPChunkBuffer beyond;
  beyond.put(Bytes{0x01, 0xC0, 0xFF});
  EXPECT_EQ(beyond.getBasicHeader().error(), RTMPChunkError::limitExceeded);
}

TEST(ChunkBuffer, WritesBasicHeadersOfOneToThreeBytes) {
  RTMPChunkBuffer buffer;
  const RTMPMessageView message{RTMPMessageType::audio, 1, 0, {}};
  const auto header = [&](std::uint16_t id) { return chunksOf(buffer, RTMPChunkType::three, id, message).at(0); };
  EXPECT_THAT(header(2), ElementsAre(0xC2));
  EXPECT_THAT(header(63), ElementsAre(0xFF));
  EXPECT_THAT(header(64), ElementsAre(0xC0, 0));
  EXPECT_THAT(header(319), ElementsAre(0xC0, 0xFF));
  EXPECT_THAT(header(320), ElementsAre(0xC1, 0x01, 0x00));
  EXPECT_THAT(header(834), ElementsAre(0xC1, 0x03, 0x02));
}

TEST(ChunkBuffer, WritesOfEachTypeWhatItsHeaderHolds) {
  RTMPChunkBuffer buffer;
  const Bytes payload{0xAB, 0xCD};
  const RTMPMessageView message{RTMPMessageType::video, 0x01020304, (1U << 24) + 0x10, payload};
  EXPECT_THAT(chunksOf(buffer, RTMPChunkType::zero, 5, message),
              ElementsAre(ElementsAre(0x05, 0, 0, 0x10, 0, 0, 2, 9, 4, 3, 2, 1, 0xAB, 0xCD)));
  EXPECT_THAT(chunksOf(buffer, RTMPChunkType::one, 5, message),
              ElementsAre(ElementsAre(0x45, 0, 0, 0x10, 0, 0, 2, 9, 0xAB, 0xCD)));
  EXPECT_THAT(chunksOf(buffer, RTMPChunkType::two, 5, message), ElementsAre(ElementsAre(0x85, 0, 0, 0x10, 0xAB, 0xCD)));
  EXPECT_THAT(chunksOf(buffer, RTMPChunkType::three, 5, message), ElementsAre(ElementsAre(0xC5, 0xAB, 0xCD)));
  const RTMPMessageView empty{RTMPMessageType::audio, 1, 0xFFFFFF, {}};
  EXPECT_THAT(chunksOf(buffer, RTMPChunkType::one, 4, empty),
              ElementsAre(ElementsAre(0x44, 0xFF, 0xFF, 0xFF, 0, 0, 0, 8)));
}

TEST(ChunkBuffer, CutsALongMessageInOneReusedPieceOfMemory) {
  RTMPChunkBuffer buffer;
  buffer.setChunkSize(8192);
  const Bytes payload = numbered(20000);
  const RTMPMessageView message{RTMPMessageType::video, 1, 40, payload};
  auto sequence = buffer.putMessage(RTMPChunkType::one, 5, message);
  const std::uint8_t* memory = nullptr;
  Bytes received;
  std::vector<std::size_t> lengths;
  for (ByteView chunk = sequence.next(); !chunk.empty(); chunk = sequence.next()) {
    EXPECT_TRUE(memory == nullptr || chunk.data() == memory);
    EXPECT_EQ(chunk[0], memory == nullptr ? 0x45 : 0xC5);
    const ByteView part = chunk.subspan(memory == nullptr ? 8 : 1);
    memory = chunk.data();
    received.insert(received.end(), part.begin(), part.end());
    lengths.push_back(part.size());
  }
  EXPECT_THAT(lengths, ElementsAre(8192, 8192, 3616));
  EXPECT_EQ(received, payload);

  const Bytes exact(16384);
  EXPECT_EQ(chunksOf(buffer, RTMPChunkType::zero, 5, {RTMPMessageType::video, 1, 0, exact}).size(), 2U);
  const Bytes unsayable(0x1000000);
  EXPECT_TRUE(chunksOf(buffer, RTMPChunkType::zero, 5, {RTMPMessageType::video, 1, 0, unsayable}).empty());
}

TEST(ChunkBuffer, KeepsWhatWasNotReadInFrontOfWhatArrives) {
  RTMPChunkBuffer buffer;
  const Bytes sent = numbered(100000);
  Bytes received;
  ByteView left = sent;
  for (std::size_t round = 0; received.size() < sent.size(); ++round) {
    const ByteView block = left.first(std::min<std::size_t>(left.size(), round * 37 % 1500));
    buffer.put(block);
    left = left.subspan(block.size());
    const ByteView taken = buffer.take(std::min<std::size_t>(buffer.remaining(), round * 53 % 1400));
    received.insert(received.end(), taken.begin(), taken.end());
  }
  EXPECT_EQ(received, sent);
}

TEST(ChunkBuffer, ReadsMessageHeadersAndExtendedTimestamps) {
  const auto read = [](RTMPChunkType type, RTMPChunkMessageHeader& header, const Bytes& bytes) {
    RTMPChunkBuffer buffer;
    buffer.put(bytes);
    const auto done = buffer.getMessageHeader(type, header);
    EXPECT_EQ(buffer.remaining(), done ? 0 : bytes.size());
    return done.has_value();
  };
  RTMPChunkMessageHeader header;
  ASSERT_TRUE(read(RTMPChunkType::zero, header, {0, 1, 2, 0, 0, 9, 8, 1, 2, 3, 4}));
  EXPECT_EQ(header.timestamp, 0x102U);
  EXPECT_EQ(header.messageLength(), 9U);
  EXPECT_EQ(header.type, 8);
  EXPECT_EQ(header.streamId, 0x04030201U);
  ASSERT_TRUE(read(RTMPChunkType::two, header, {0, 0, 23}));
  EXPECT_EQ(header.timestamp, 23U);

  EXPECT_FALSE(read(RTMPChunkType::one, header, {0xFF, 0xFF, 0xFF, 0, 0, 5, 9, 1, 0, 0}));
  EXPECT_EQ(header.timestamp, 23U) << "a header cut short says nothing yet";
  EXPECT_EQ(header.messageLength(), 9U);
  ASSERT_TRUE(read(RTMPChunkType::one, header, {0xFF, 0xFF, 0xFF, 0, 0, 5, 9, 1, 0, 0, 0}));
  EXPECT_EQ(header.timestamp, 1U << 24);
  EXPECT_EQ(header.messageLength(), 5U);
  ASSERT_TRUE(read(RTMPChunkType::three, header, {}));
  EXPECT_EQ(header.timestamp, 1U << 24);

  ASSERT_TRUE(read(RTMPChunkType::two, header, {0xFF, 0xFF, 0xFF, 0, 0xFF, 0xFF, 0xFF}));
  EXPECT_FALSE(read(RTMPChunkType::three, header, {1, 2, 3})) << "the timestamp held says that an extended one follows";
  ASSERT_TRUE(read(RTMPChunkType::three, header, {1, 2, 3, 4}));
  EXPECT_EQ(header.timestamp, 0x01020304U);
}

TEST(ChunkMessageHeader, TakesAChunkWhollyOrNotAtAll) {
  RTMPChunkBuffer buffer;
  RTMPChunkMessageHeader header;
  header.type = 9;
  header.setMessageLength(10);
  EXPECT_EQ(header.payload(), Bytes(10));
  const Bytes sent = numbered(20);
  buffer.put(ByteView(sent).first(7));
  EXPECT_EQ(header.put(buffer, 8).error(), RTMPChunkError::bufferUnderflow);
  EXPECT_EQ(header.position(), 0U);
  EXPECT_EQ(buffer.remaining(), 7U);
  buffer.put(ByteView(sent).subspan(7));
  ASSERT_TRUE(header.put(buffer, 8));
  EXPECT_FALSE(header.makeMessage());

  header.setMessageLength(10);
  EXPECT_EQ(header.position(), 8U) << "the same length changes nothing";
  ASSERT_TRUE(header.put(buffer, 8));
  EXPECT_EQ(buffer.remaining(), 10U);
  const auto message = header.makeMessage();
  ASSERT_TRUE(message);
  EXPECT_THAT(viewOf(*message).payload, ElementsAreArray(sent.begin(), sent.begin() + 10));

  ASSERT_TRUE(header.put(buffer, 8));
  header.setMessageLength(4);
  EXPECT_EQ(header.payload(), Bytes(4)) << "another length starts anew";
  EXPECT_EQ(header.position(), 0U);
  header.abort();
  EXPECT_EQ(header.payload().capacity(), 0U) << "what was aborted holds no memory";
}

}  // namespace
}  // namespace vellora
