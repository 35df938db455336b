#include "rtmp/wire/RTMPMessageType.h"

namespace vellora {

std::optional<RTMPMessageType> messageTypeFrom(std::uint8_t id) {
  const auto type = static_cast<RTMPMessageType>(id);
  switch (type) {
    case RTMPMessageType::chunkSize:
    case RTMPMessageType::abort:
    case RTMPMessageType::ack:
    case RTMPMessageType::user:
    case RTMPMessageType::windowAck:
    case RTMPMessageType::bandwidth:
    case RTMPMessageType::audio:
    case RTMPMessageType::video:
    case RTMPMessageType::amf3Data:
    case RTMPMessageType::amf3Shared:
    case RTMPMessageType::amf3Command:
    case RTMPMessageType::amf0Data:
    case RTMPMessageType::amf0Shared:
    case RTMPMessageType::amf0Command:
    case RTMPMessageType::aggregate:
      return type;
  }
  return std::nullopt;
}

}  // namespace vellora
