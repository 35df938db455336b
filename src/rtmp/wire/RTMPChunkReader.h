#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>

#include "base/Result.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPChunkBuffer.h"
#include "rtmp/wire/RTMPChunkMessageHeader.h"

namespace vellora {

/// Received bytes in, messages out, however the bytes were split. Obeys "set chunk size" and "abort" from the other
/// side itself, at once, because the chunks behind them depend on it; hands them out as well.
class RTMPChunkReader {
 public:
  /// Chunk streams a server may use at a time.
  static constexpr std::size_t maximumChunkStreams = 256;
  /// Bytes of all messages being put together, and the largest message there can be.
  static constexpr std::size_t maximumAssembly = 16U << 20;
  /// A larger chunk size is read as this one: no message is longer.
  static constexpr std::size_t maximumChunkSize = 0xFFFFFF;

  using Handler = std::function<void(RTMPMessage message, RTMPChunkType type)>;

  /// Reads all complete chunks of what has been put so far and hands complete messages to `handler`, in order. After an
  /// error nothing more can be read. A chunk size of 0 is an error.
  Result<void, RTMPChunkError> read(ByteView block, const Handler& handler);

  std::size_t chunkSize() const { return buffer_.chunkSize(); }
  std::size_t chunkStreams() const { return chunks_.size(); }

 private:
  RTMPChunkBuffer buffer_;
  std::map<std::uint16_t, RTMPChunkMessageHeader> chunks_;
};

}  // namespace vellora
