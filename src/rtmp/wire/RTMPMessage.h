#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "rtmp/wire/AMFValue.h"
#include "rtmp/wire/Bytes.h"
#include "rtmp/wire/RTMPMessageType.h"

namespace vellora {

class RTMPChunkMessageHeader;

/// A message as the chunk writer needs it; `payload` belongs to the record.
struct RTMPMessageView {
  RTMPMessageType type;
  std::uint32_t streamId = 0;   ///< message stream id
  std::uint32_t timestamp = 0;  ///< milliseconds: absolute in a chunk of type zero, since the last message otherwise
  ByteView payload;
};

/// What every message record has. `payload` is computed when the record is built from its fields.
struct RTMPMessageBase {
  std::uint32_t streamId = 0;
  std::uint32_t timestamp = 0;
  Bytes payload;
};

struct RTMPSetChunkSizeMessage : RTMPMessageBase {
  explicit RTMPSetChunkSizeMessage(std::uint32_t size);
  std::uint32_t size = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::chunkSize; }
};

struct RTMPAbortMessge : RTMPMessageBase {
  explicit RTMPAbortMessge(std::uint32_t chunkStreamId);
  std::uint32_t chunkStreamId = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::abort; }
};

struct RTMPAcknowledgementMessage : RTMPMessageBase {
  explicit RTMPAcknowledgementMessage(std::uint32_t sequence);
  std::uint32_t sequence = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::ack; }
};

struct RTMPWindowAcknowledgementSizeMessage : RTMPMessageBase {
  explicit RTMPWindowAcknowledgementSizeMessage(std::uint32_t size);
  std::uint32_t size = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::windowAck; }
};

struct RTMPSetPeerBandwidthMessage : RTMPMessageBase {
  enum class Limit : std::uint8_t { hard = 0, soft = 1, dynamic = 2, unknown = 255 };
  RTMPSetPeerBandwidthMessage(std::uint32_t size, Limit limit);
  std::uint32_t size = 0;
  Limit limit = Limit::unknown;
  static constexpr RTMPMessageType type() { return RTMPMessageType::bandwidth; }
};

struct RTMPUserControlMessage : RTMPMessageBase {
  enum class Event : std::uint8_t {
    streamBegin = 0,
    streamEof = 1,
    streamDry = 2,
    setBuffer = 3,
    recorded = 4,
    ping = 6,
    pong = 7,
    bufferEmpty = 31,
    bufferFull = 32,
    unknown = 255,
  };
  RTMPUserControlMessage(Event event, std::int32_t value);
  Event event = Event::unknown;
  std::int32_t value = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::user; }
};

/// The payload is the audio tag body (rtmp/wire/MediaTags.h).
struct RTMPAudioMessage : RTMPMessageBase {
  RTMPAudioMessage(std::uint32_t streamId, std::uint32_t timestamp, Bytes payload);
  static constexpr RTMPMessageType type() { return RTMPMessageType::audio; }
};

/// The payload is the video tag body.
struct RTMPVideoMessage : RTMPMessageBase {
  RTMPVideoMessage(std::uint32_t streamId, std::uint32_t timestamp, Bytes payload);
  static constexpr RTMPMessageType type() { return RTMPMessageType::video; }
};

/// AMF3 data and commands have a zero byte in front and AMF0 values after it, which may switch to AMF3 by the AMF0
/// marker for that, as servers send them.
struct RTMPDataMessage : RTMPMessageBase {
  RTMPDataMessage(RTMPObjectEncoding objectEncoding, std::uint32_t streamId, std::uint32_t timestamp,
                  std::string handlerName, std::vector<AMFValue> arguments);
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string handlerName;
  std::vector<AMFValue> arguments;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Data : RTMPMessageType::amf3Data;
  }
};

/// One change of a shared object: what happened, to which property, and its new value.
struct RTMPSharedObjectEvent {
  std::uint8_t kind = 0;
  std::optional<std::string> name;
  Bytes data;  ///< as it stands on the wire, after the name
};

struct RTMPSharedObjectMessage : RTMPMessageBase {
  RTMPSharedObjectMessage(RTMPObjectEncoding objectEncoding, std::uint32_t timestamp, std::string sharedObjectName,
                          std::uint32_t currentVersion, Bytes flags, std::vector<RTMPSharedObjectEvent> events);
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string sharedObjectName;
  std::uint32_t currentVersion = 0;
  Bytes flags;  ///< eight bytes
  std::vector<RTMPSharedObjectEvent> events;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Shared : RTMPMessageType::amf3Shared;
  }
};

struct RTMPCommandMessage : RTMPMessageBase {
  RTMPCommandMessage(std::uint32_t streamId, std::int64_t transactionId, RTMPObjectEncoding objectEncoding,
                     std::string commandName, std::optional<AMFObject> commandObject,
                     std::vector<AMFValue> arguments = {});
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string commandName;
  std::int64_t transactionId = 0;
  std::optional<AMFObject> commandObject;
  std::vector<AMFValue> arguments;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Command : RTMPMessageType::amf3Command;
  }
};

/// Kept as received.
struct RTMPAggregateMessage : RTMPMessageBase {
  RTMPAggregateMessage(std::uint32_t streamId, std::uint32_t timestamp, Bytes payload);
  static constexpr RTMPMessageType type() { return RTMPMessageType::aggregate; }
};

using RTMPMessage =
    std::variant<RTMPSetChunkSizeMessage, RTMPAbortMessge, RTMPAcknowledgementMessage, RTMPUserControlMessage,
                 RTMPWindowAcknowledgementSizeMessage, RTMPSetPeerBandwidthMessage, RTMPAudioMessage, RTMPVideoMessage,
                 RTMPDataMessage, RTMPSharedObjectMessage, RTMPCommandMessage, RTMPAggregateMessage>;

/// What the chunk writer sends for `record`, which has to outlive the view.
template <class Record>
RTMPMessageView viewOf(const Record& record) {
  return {record.type(), record.streamId, record.timestamp, record.payload};
}
RTMPMessageView viewOf(const RTMPMessage& message);

/// The record of a completely received payload. Nothing for an unknown type id, and for a payload its type cannot be
/// read from (too short, or values that are not AMF): such a message is skipped, as one of an unknown type is.
std::optional<RTMPMessage> messageFrom(std::uint8_t typeId, std::uint32_t streamId, std::uint32_t timestamp,
                                       Bytes payload);

}  // namespace vellora
