#include "rtmp/wire/RTMPMessage.h"

namespace vellora {

RTMPAudioMessage::RTMPAudioMessage(std::uint32_t stream, std::uint32_t time, Bytes body)
    : RTMPMessageBase{stream, time, std::move(body)} {}

RTMPVideoMessage::RTMPVideoMessage(std::uint32_t stream, std::uint32_t time, Bytes body)
    : RTMPMessageBase{stream, time, std::move(body)} {}

RTMPAggregateMessage::RTMPAggregateMessage(std::uint32_t stream, std::uint32_t time, Bytes body)
    : RTMPMessageBase{stream, time, std::move(body)} {}

RTMPMessageView viewOf(const RTMPMessage& message) {
  return std::visit([](const auto& record) { return viewOf(record); }, message);
}

std::optional<RTMPMessage> messageFrom(std::uint8_t typeId, std::uint32_t streamId, std::uint32_t timestamp,
                                       Bytes payload) {
  const auto type = messageTypeFrom(typeId);
  if (!type) return std::nullopt;
  RTMPMessageBase received{streamId, timestamp, std::move(payload)};
  switch (*type) {
    case RTMPMessageType::chunkSize:
      return RTMPSetChunkSizeMessage::from(std::move(received));
    case RTMPMessageType::abort:
      return RTMPAbortMessge::from(std::move(received));
    case RTMPMessageType::ack:
      return RTMPAcknowledgementMessage::from(std::move(received));
    case RTMPMessageType::user:
      return RTMPUserControlMessage::from(std::move(received));
    case RTMPMessageType::windowAck:
      return RTMPWindowAcknowledgementSizeMessage::from(std::move(received));
    case RTMPMessageType::bandwidth:
      return RTMPSetPeerBandwidthMessage::from(std::move(received));
    case RTMPMessageType::audio:
      return RTMPAudioMessage(streamId, timestamp, std::move(received.payload));
    case RTMPMessageType::video:
      return RTMPVideoMessage(streamId, timestamp, std::move(received.payload));
    case RTMPMessageType::amf3Data:
      return RTMPDataMessage::from(RTMPObjectEncoding::amf3, std::move(received));
    case RTMPMessageType::amf3Shared:
      return RTMPSharedObjectMessage::from(RTMPObjectEncoding::amf3, std::move(received));
    case RTMPMessageType::amf3Command:
      return RTMPCommandMessage::from(RTMPObjectEncoding::amf3, std::move(received));
    case RTMPMessageType::amf0Data:
      return RTMPDataMessage::from(RTMPObjectEncoding::amf0, std::move(received));
    case RTMPMessageType::amf0Shared:
      return RTMPSharedObjectMessage::from(RTMPObjectEncoding::amf0, std::move(received));
    case RTMPMessageType::amf0Command:
      return RTMPCommandMessage::from(RTMPObjectEncoding::amf0, std::move(received));
    case RTMPMessageType::aggregate:
      return RTMPAggregateMessage(streamId, timestamp, std::move(received.payload));
  }
  return std::nullopt;
}

}  // namespace vellora
