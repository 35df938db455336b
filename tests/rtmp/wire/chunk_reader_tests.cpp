#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "rtmp/wire/RTMPChunkReader.h"

namespace vellora {
namespace {

constexpr std::uint8_t video = 9;

struct Received {
  RTMPChunkType chunkType;
  RTMPMessageType type;
  std::uint32_t streamId, timestamp;
  Bytes payload;
  bool operator==(const Received&) const = default;
};

/// Bytes a server sends, put together by hand.
class Sender {
 public:
  Sender& raw(const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return *this;
  }
  Sender& number(std::size_t value, int count) {
    for (int i = count - 1; i >= 0; --i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    return *this;
  }
  /// A chunk of type zero.
  Sender& chunk(std::uint8_t id, std::size_t timestamp, std::size_t length, std::uint8_t type, const Bytes& part) {
    return number(id, 1).number(timestamp, 3).number(length, 3).number(type, 1).raw({1, 0, 0, 0}).raw(part);
  }
  Sender& more(std::uint8_t id, const Bytes& part) { return number(0xC0U | id, 1).raw(part); }
  Sender& chunkSize(std::size_t size) { return chunk(2, 0, 4, 1, {}).number(size, 4); }

  Bytes bytes;
};

class ChunkReader : public testing::Test {
 protected:
  Result<void, RTMPChunkError> read(ByteView block) {
    return reader_.read(block, [this](const RTMPMessage& message, RTMPChunkType type) {
      const RTMPMessageView view = viewOf(message);
      received_.push_back(
          {type, view.type, view.streamId, view.timestamp, Bytes(view.payload.begin(), view.payload.end())});
    });
  }
  std::vector<Bytes> payloads() const {
    std::vector<Bytes> all;
    for (const Received& message : received_) all.push_back(message.payload);
    return all;
  }

  RTMPChunkReader reader_;
  std::vector<Received> received_;
};

/// Everything that makes a split dangerous: messages within messages, all header types, extended timestamps with
/// payload behind them, a chunk size for the next chunk, an empty message, one of unknown type, and an abort.
Bytes conversation() {
  Sender sender;
  sender.chunk(5, 0xFFFFFF, 200, video, {}).number(0x01000010, 4).raw(Bytes(128, 1));
  sender.chunk(4, 7, 2, 8, {0xAF, 1});
  sender.raw({0x44, 0, 0, 23, 0, 0, 0, 8});
  sender.chunk(4, 30, 3, 8, {0xAF, 1, 2}).raw({0x84, 0, 0, 21, 0xAF, 1, 3}).more(4, {0xAF, 1, 4});
  sender.more(5, Bytes(72, 2));
  sender.chunkSize(3).chunk(5, 50, 5, video, {9, 8, 7}).more(5, {6, 5});
  sender.raw({0x00, 0xFF}).number(0, 3).number(4, 3).raw({7, 1, 0, 0, 0, 1, 2, 3}).raw({0xC0, 0xFF, 4});
  sender.chunk(6, 1, 9, video, {1, 1, 1}).chunk(2, 0, 4, 2, {0, 0, 0}).more(2, {6});
  sender.raw({0x46, 0xFF, 0xFF, 0xFF, 0, 0, 4, video}).number(0x00FFFFFF, 4).raw({5, 5, 5});
  sender.more(6, {}).number(0x02000000, 4).raw({6});
  return sender.bytes;
}

TEST_F(ChunkReader, GivesTheSameMessagesHoweverTheBytesAreSplit) {
  const Bytes bytes = conversation();
  ASSERT_TRUE(read(bytes));
  const std::vector<Received> whole = received_;
  ASSERT_EQ(whole.size(), 10U);
  Bytes first(128, 1);
  first.resize(200, 2);
  EXPECT_EQ(whole[0], (Received{RTMPChunkType::zero, RTMPMessageType::audio, 1, 7, {0xAF, 1}}));
  EXPECT_EQ(whole[1], (Received{RTMPChunkType::one, RTMPMessageType::audio, 1, 23, {}}));
  EXPECT_EQ(whole[4], (Received{RTMPChunkType::three, RTMPMessageType::audio, 1, 21, {0xAF, 1, 4}}));
  EXPECT_EQ(whole[5], (Received{RTMPChunkType::three, RTMPMessageType::video, 1, 0x01000010, first}));
  EXPECT_EQ(whole[6].type, RTMPMessageType::chunkSize);
  EXPECT_EQ(whole[7], (Received{RTMPChunkType::three, RTMPMessageType::video, 1, 50, {9, 8, 7, 6, 5}}));
  EXPECT_EQ(whole[8].type, RTMPMessageType::abort);
  EXPECT_EQ(whole[9], (Received{RTMPChunkType::three, RTMPMessageType::video, 1, 0x02000000, {5, 5, 5, 6}}));

  for (std::size_t length = 1; length < bytes.size(); ++length) {
    reader_ = {};
    received_.clear();
    for (std::size_t at = 0; at < bytes.size(); at += length) {
      ASSERT_TRUE(read(ByteView(bytes).subspan(at, std::min(length, bytes.size() - at))));
    }
    ASSERT_EQ(received_, whole) << "blocks of " << length;
  }
}

TEST_F(ChunkReader, RefusesAHeaderItsChunkStreamNeverHad) {
  for (const std::uint8_t first : Bytes{0x85, 0xC5}) {
    reader_ = {};
    EXPECT_EQ(read(Bytes{first}).error(), RTMPChunkError::unknowChunkType);
    EXPECT_EQ(read(Sender().chunk(5, 0, 1, video, {1}).bytes).error(), RTMPChunkError::unknowChunkType)
        << "after an error nothing is read";
  }
  EXPECT_TRUE(received_.empty());
  reader_ = {};
  ASSERT_TRUE(read(Bytes{0x45, 0, 0, 5, 0, 0, 1, video, 3}));
  EXPECT_EQ(received_.at(0).timestamp, 5U);
}

TEST_F(ChunkReader, TakesChunkSizesOf31Bits) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{0x80000000}, std::size_t{0xFFFFFFFF}}) {
    reader_ = {};
    EXPECT_EQ(read(Sender().chunkSize(size).bytes).error(), RTMPChunkError::limitExceeded) << size;
  }
  reader_ = {};
  ASSERT_TRUE(read(Sender().chunkSize(0x7FFFFFFF).chunk(5, 0, 50000, video, Bytes(50000, 3)).bytes));
  EXPECT_EQ(reader_.chunkSize(), RTMPChunkReader::maximumChunkSize);
  EXPECT_EQ(received_.back().payload, Bytes(50000, 3));
  ASSERT_TRUE(read(Sender().chunkSize(1).chunk(5, 0, 3, video, {1}).more(5, {2}).more(5, {3}).bytes));
  EXPECT_EQ(received_.back().payload, (Bytes{1, 2, 3}));
}

TEST_F(ChunkReader, LimitsChunkStreamsAndWhatIsAnnounced) {
  for (int id = 0; id < 256; ++id) {
    ASSERT_TRUE(read(Sender().raw({0x00, static_cast<std::uint8_t>(id)}).raw(Bytes(11)).bytes)) << id;
  }
  EXPECT_EQ(reader_.chunkStreams(), RTMPChunkReader::maximumChunkStreams);
  EXPECT_TRUE(read(Bytes{0xC0, 0xFF})) << "those there are go on";
  EXPECT_EQ(read(Sender().chunk(3, 0, 0, video, {}).bytes).error(), RTMPChunkError::limitExceeded);

  reader_ = {};
  received_.clear();
  const Bytes start(128);
  ASSERT_TRUE(read(Sender().chunk(5, 0, 0xFFFFFF, video, start).bytes)) << "the longest message there can be";
  ASSERT_TRUE(read(Sender().chunk(5, 0, 0xFFFFFE, video, start).bytes)) << "in place of the one before";
  ASSERT_TRUE(read(Sender().chunk(2, 0, 4, 2, {0, 0, 0, 5}).chunk(6, 0, 0x800000, video, start).bytes));
  ASSERT_TRUE(read(Sender().chunk(7, 0, 0x800000, video, start).chunk(8, 0, 0x100000, video, start).bytes));
  EXPECT_EQ(read(Sender().chunk(9, 0, 1, video, {}).bytes).error(), RTMPChunkError::limitExceeded);
}

TEST_F(ChunkReader, ForgetsWhatWasCompleted) {
  Sender sender;
  sender.chunkSize(0xFFFFFF);
  for (int i = 0; i < 4; ++i) {
    sender.chunk(static_cast<std::uint8_t>(5 + i), 0, 0x700000, video, Bytes(0x700000, static_cast<std::uint8_t>(i)));
  }
  ASSERT_TRUE(read(sender.bytes));
  ASSERT_EQ(received_.size(), 5U);
  EXPECT_EQ(received_[4].payload, Bytes(0x700000, 3));
}

TEST_F(ChunkReader, TakesAHugeChunkByteByByteInLinearTime) {
  constexpr std::size_t length = 4'000'000;
  ASSERT_TRUE(read(Sender().chunkSize(0x7FFFFFFF).chunk(5, 0, length, video, {}).bytes));
  const std::uint8_t byte = 0x5A;
  for (std::size_t i = 0; i < length; ++i) ASSERT_TRUE(read({&byte, 1}));
  EXPECT_EQ(received_.back().payload, Bytes(length, byte));
}

TEST_F(ChunkReader, AbortsOnlyWhatItIsToldTo) {
  ASSERT_TRUE(read(Sender().chunk(5, 0, 200, video, Bytes(128, 1)).chunk(6, 0, 200, video, Bytes(128, 2)).bytes));
  ASSERT_TRUE(read(Sender().chunk(2, 0, 4, 2, {0, 0, 0, 5}).bytes));
  ASSERT_TRUE(read(Sender().chunk(2, 0, 4, 2, {0, 1, 0, 6}).bytes)) << "no chunk stream";
  ASSERT_TRUE(read(Sender().more(6, Bytes(72, 2)).more(5, Bytes(128, 3)).more(5, Bytes(72, 3)).bytes));
  ASSERT_EQ(received_.size(), 4U);
  EXPECT_EQ(received_[2].payload, Bytes(200, 2));
  EXPECT_EQ(received_[3].payload, Bytes(200, 3));
}

}  // namespace
}  // namespace vellora
