#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <random>
#include <span>
#include <vector>

#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkReader.h"

using namespace vellora;

namespace {

struct Received {
  RTMPChunkType chunkType;
  RTMPMessageType type;
  std::uint32_t streamId, timestamp;
  Bytes payload;
  bool operator==(const Received&) const = default;
};

struct Outcome {
  std::vector<Received> messages;
  std::optional<RTMPChunkError> error;
  bool operator==(const Outcome&) const = default;
};

/// What a reader makes of `bytes` in blocks, each as long as `blockLength` says.
template <class BlockLength>
Outcome read(ByteView bytes, BlockLength blockLength) {
  RTMPChunkReader reader;
  Outcome outcome;
  const auto keep = [&outcome](const RTMPMessage& message, RTMPChunkType type) {
    const RTMPMessageView view = viewOf(message);
    outcome.messages.push_back(
        {type, view.type, view.streamId, view.timestamp, Bytes(view.payload.begin(), view.payload.end())});
  };
  while (!bytes.empty() && !outcome.error) {
    const ByteView block = bytes.first(std::min<std::size_t>(blockLength(), bytes.size()));
    bytes = bytes.subspan(block.size());
    if (const auto done = reader.read(block, keep); !done) outcome.error = done.error();
    if (reader.chunkStreams() > RTMPChunkReader::maximumChunkStreams) std::abort();
  }
  return outcome;
}

void require(bool condition) {
  if (!condition) std::abort();
}

void append(Bytes& bytes, ByteView more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

/// Sends what was received again, in chunks of another size, and reads it back.
void checkSending(const Outcome& received, std::uint32_t chunkSize, std::uint16_t chunkStreamId) {
  RTMPChunkBuffer output;
  const std::uint8_t announced[] = {0, 0, static_cast<std::uint8_t>(chunkSize >> 8),
                                    static_cast<std::uint8_t>(chunkSize)};
  Bytes sent;
  const RTMPMessageView announcement{.type = RTMPMessageType::chunkSize, .payload = announced};
  append(sent, output.putMessage(RTMPChunkType::zero, 2, announcement).next());
  output.setChunkSize(chunkSize);
  std::vector<Received> expected;
  for (Received message : received.messages) {
    const bool isRaw = message.type == RTMPMessageType::audio || message.type == RTMPMessageType::video ||
                       message.type == RTMPMessageType::aggregate;
    message.timestamp &= 0xFFFFFF;
    if (!isRaw || message.timestamp == 0xFFFFFF) continue;
    message.chunkType = message.payload.size() > chunkSize ? RTMPChunkType::three : RTMPChunkType::zero;
    auto chunks = output.putMessage(RTMPChunkType::zero, chunkStreamId,
                                    {message.type, message.streamId, message.timestamp, message.payload});
    for (ByteView chunk = chunks.next(); !chunk.empty(); chunk = chunks.next()) append(sent, chunk);
    expected.push_back(std::move(message));
  }
  Outcome back = read(sent, [&sent] { return sent.size(); });
  require(!back.error && !back.messages.empty() && back.messages.front().type == RTMPMessageType::chunkSize);
  back.messages.erase(back.messages.begin());
  require(back.messages == expected);
}

}  // namespace

/// The first byte says how the others are split.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const ByteView bytes = std::span(data, size).subspan(1);
  const Outcome whole = read(bytes, [&bytes] { return bytes.size(); });
  require(read(bytes, [] { return 1; }) == whole);
  std::minstd_rand random(data[0] + 1U);
  const std::uint32_t longest = data[0] % 2 == 0 ? 9 : 300;
  require(read(bytes, [&] { return 1 + random() % longest; }) == whole);
  checkSending(whole, 1U + data[0] * 7U, data[0] < 2 ? 2 : data[0]);
  return 0;
}
