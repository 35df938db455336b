#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>

#include "base/Result.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkMessageHeader.h"

namespace vellora {

/// Received bytes in, messages out, however the bytes were split. Obeys "set chunk size" and "abort" from the other
/// side itself, at once, because the chunks behind them depend on it; hands them out as well. Payload is taken as it
/// arrives, so that between two calls only a header cut short is kept beside the messages being put together.
class RTMPChunkReader {
 public:
  /// Chunk streams a server may use.
  static constexpr std::size_t maximumChunkStreams = 256;
  /// Announced bytes of all messages being put together: the longest there can be, and room for others beside it.
  static constexpr std::size_t maximumAssembly = 17U << 20;
  /// A larger chunk size is read as this one: no message is longer.
  static constexpr std::size_t maximumChunkSize = RTMPChunkBuffer::maximumMessageLength;

  using Handler = std::function<void(RTMPMessage message, RTMPChunkType type)>;

  /// Reads what has arrived with `block` and hands complete messages to `handler`, in order, with the type of the chunk
  /// that completed them. After an error nothing more can be read: every call returns it. `limitExceeded` for chunk
  /// sizes of 0 and of more than 31 bits as well.
  Result<void, RTMPChunkError> read(ByteView block, const Handler& handler);

  std::size_t chunkSize() const { return buffer_.chunkSize(); }
  std::size_t chunkStreams() const { return chunks_.size(); }

 private:
  Result<void, RTMPChunkError> startChunk();
  Result<void, RTMPChunkError> finishChunk(const Handler& handler);
  Result<void, RTMPChunkError> setChunkSize(std::uint32_t size);
  void abort(std::uint32_t chunkStreamId);

  RTMPChunkBuffer buffer_;
  std::map<std::uint16_t, RTMPChunkMessageHeader> chunks_;
  std::size_t assembly_ = 0;                 ///< announced bytes of the messages being put together
  RTMPChunkMessageHeader* chunk_ = nullptr;  ///< that of the chunk being read, an element of `chunks_`
  RTMPChunkType type_ = RTMPChunkType::zero;
  std::size_t missing_ = 0;  ///< payload of the chunk being read that has not arrived
  std::optional<RTMPChunkError> error_;
};

}  // namespace vellora
