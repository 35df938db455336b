#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vellora::test {

/// The published RTMP chunk stream and AMF0 as a server's side sees them, written a second time and without anything of
/// the product, so that a fault on one side cannot cancel itself out on the other.
using Octets = std::vector<std::uint8_t>;

/// One AMF0 value.
struct WireValue {
  enum class Kind { number, boolean, text, object, null, undefined, ecmaArray, strictArray };

  static WireValue of(double number);
  static WireValue of(std::string_view text);
  static WireValue truth(bool value);
  static WireValue null();
  static WireValue object(std::vector<std::pair<std::string, WireValue>> members);

  /// Null when there is no such member.
  const WireValue* find(std::string_view key) const;
  /// `{app:"live", fpad:false}`, members in the order of their names, so that tests can compare whole values.
  std::string rendered() const;

  Kind kind = Kind::undefined;
  double number = 0;  ///< also 0 and 1 of booleans
  std::string text;
  std::vector<std::pair<std::string, WireValue>> members;
};

void putAmf0(Octets& to, const WireValue& value);
Octets amf0(const std::vector<WireValue>& values);
/// All values of `payload`; a complaint is added when it is not wholly well-formed.
std::vector<WireValue> readAmf0(const Octets& payload, std::vector<std::string>& complaints);

/// The message type ids tests speak of.
namespace wire {
inline constexpr std::uint8_t setChunkSize = 1, abortMessage = 2, acknowledgement = 3, userControl = 4, windowSize = 5,
                              peerBandwidth = 6, audio = 8, video = 9, data = 18, command = 20;
}  // namespace wire

/// One received message.
struct WireMessage {
  std::uint32_t chunkStream = 0;
  std::uint8_t chunkType = 0;  ///< of its first chunk
  std::uint8_t type = 0;
  std::uint32_t streamId = 0;
  std::uint32_t field = 0;  ///< the timestamp as it stood in the header
  std::uint64_t time = 0;   ///< milliseconds, summed up from the differences
  std::size_t length = 0;
  Octets payload;
  std::vector<WireValue> values;  ///< of commands and data

  /// The command or data handler, "" for anything else.
  std::string name() const;
  double transaction() const;
  /// The first four bytes of a control message.
  std::uint32_t number() const;
};

/// Cuts a message into chunks: a chunk of type zero, then ones of type three.
Octets chunksOf(std::uint32_t chunkStream, std::uint8_t type, std::uint32_t streamId, std::uint32_t timestamp,
                const Octets& payload, std::size_t chunkSize);
Octets bigEndian(std::uint32_t number, int bytes = 4);

/// Reads chunks as the published protocol defines them and complains about everything a careful server could mind.
class StrictChunkReader {
 public:
  void feed(const std::uint8_t* bytes, std::size_t count) { input_.insert(input_.end(), bytes, bytes + count); }
  /// The messages that are complete by now.
  std::vector<WireMessage> take(std::vector<std::string>& complaints);

 private:
  struct Stream {
    WireMessage message;
    std::uint32_t delta = 0;
    bool started = false;  ///< has had a header with everything
    bool inMessage = false;
    bool isExtended = false;
  };
  bool takeChunk(std::vector<WireMessage>& messages, std::vector<std::string>& complaints);
  void check(const WireMessage& message, std::vector<std::string>& complaints) const;

  Octets input_;
  std::map<std::uint32_t, Stream> streams_;
  std::size_t chunkSize_ = 128;
  bool isLost_ = false;  ///< what follows makes no sense any more
};

}  // namespace vellora::test
