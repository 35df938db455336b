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
  /// A length other than the payload's starts the payload anew, zero-filled; the same length changes nothing.
  void setMessageLength(std::size_t length);
  const Bytes& payload() const { return payload_; }
  std::size_t position() const { return position_; }
  bool isComplete() const { return position_ == messageLength_; }

  /// Copies the next chunk's part of the payload.
  Result<void, RTMPChunkError> put(RTMPChunkBuffer& buffer, std::size_t chunkSize);
  /// The message once it is complete and of a known type; the next one then starts from its beginning.
  std::optional<RTMPMessage> makeMessage();
  /// Drops what has arrived of the message.
  void abort();

 private:
  std::size_t messageLength_ = 0;
  Bytes payload_;
  std::size_t position_ = 0;
};

}  // namespace vellora
