#pragma once

#include <cstdint>
#include <optional>

namespace vellora {

/// What a message is; the raw value is the message type id on the wire.
enum class RTMPMessageType : std::uint8_t {
  chunkSize = 1,
  abort = 2,
  ack = 3,
  user = 4,
  windowAck = 5,
  bandwidth = 6,
  audio = 8,
  video = 9,
  amf3Data = 15,
  amf3Shared = 16,
  amf3Command = 17,
  amf0Data = 18,
  amf0Shared = 19,
  amf0Command = 20,
  aggregate = 22,
};

/// Nothing for ids that mean no message.
std::optional<RTMPMessageType> messageTypeFrom(std::uint8_t id);

/// How values within commands, data and shared objects are written.
enum class RTMPObjectEncoding : std::uint8_t { amf0 = 0, amf3 = 3 };

}  // namespace vellora
