#pragma once

#include <cstddef>
#include <cstdint>

namespace vellora {

/// The "fmt" of a chunk: how much of the message header it repeats.
enum class RTMPChunkType : std::uint8_t { zero = 0, one = 1, two = 2, three = 3 };

/// Bytes of the message header after the basic header, without an extended timestamp.
constexpr std::size_t headerLength(RTMPChunkType type) {
  constexpr std::size_t lengths[] = {11, 7, 3, 0};
  return lengths[static_cast<std::size_t>(type)];
}

/// The chunk stream each kind of message leaves on.
enum class RTMPChunkStreamId : std::uint16_t {
  control = 2,
  command = 3,
  audio = 4,
  video = 5,
  data = 8,
};

/// Why incoming chunks could not be read.
enum class RTMPChunkError {
  unknowChunkType,  ///< a chunk that continues or repeats a header its chunk stream never had
  bufferUnderflow,  ///< more bytes are needed
  limitExceeded,    ///< more than a well-meaning server ever sends: see the limits of RTMPChunkReader
};

}  // namespace vellora
