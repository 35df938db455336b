#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "base/Result.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPChunk.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {

class RTMPChunkBuffer;

/// The message being put together on one incoming chunk stream.
class RTMPChunkMessageHeader {
 public:
  /// That of the last header read: absolute from a chunk of type zero, a difference from types one and two;
  /// milliseconds.
  std::uint32_t timestamp = 0;
  std::uint8_t type = 0;
  std::uint32_t streamId = 0;

  std::size_t messageLength() const { return messageLength_; }
  /// Another length starts the payload anew; the same length changes nothing.
  void setMessageLength(std::size_t length);
  /// A new length makes `filledAtOnce` zeros of it at most. Beyond those, and of further messages of the same length,
  /// only what has arrived is there: announcing a message costs neither memory nor time.
  const Bytes& payload() const { return payload_; }
  std::size_t position() const { return position_; }
  static constexpr std::size_t filledAtOnce = 4096;
  bool isComplete() const { return position_ == messageLength_; }

  /// The memory the message takes or is going to take, once any of it has arrived.
  std::size_t assembling() const { return position_ == 0 ? 0 : messageLength_; }
  /// Copies the next chunk's part of the payload: `chunkSize` bytes or what is missing, or none with `bufferUnderflow`.
  Result<void, RTMPChunkError> put(RTMPChunkBuffer& buffer, std::size_t chunkSize);
  /// The message once it is complete and can be read; nothing before that, and for a message of an unknown type. With a
  /// complete message, read or not, the next one of the same header starts.
  std::optional<RTMPMessage> makeMessage();
  /// Drops what has arrived of the message.
  void abort();

 private:
  std::size_t messageLength_ = 0;
  Bytes payload_;
  std::size_t position_ = 0;
};

}  // namespace vellora
