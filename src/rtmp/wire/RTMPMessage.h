#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
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

/// What every message record has. `payload` is computed when the record is built from its fields; `from` makes a record
/// of a received payload, which it keeps, or nothing when the payload cannot be read.
struct RTMPMessageBase {
  std::uint32_t streamId = 0;
  std::uint32_t timestamp = 0;
  Bytes payload;
};

struct RTMPSetChunkSizeMessage : RTMPMessageBase {
  explicit RTMPSetChunkSizeMessage(std::uint32_t bytes);
  std::uint32_t size = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::chunkSize; }
  static std::optional<RTMPSetChunkSizeMessage> from(RTMPMessageBase received);

 private:
  explicit RTMPSetChunkSizeMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

struct RTMPAbortMessge : RTMPMessageBase {
  explicit RTMPAbortMessge(std::uint32_t chunkStream);
  std::uint32_t chunkStreamId = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::abort; }
  static std::optional<RTMPAbortMessge> from(RTMPMessageBase received);

 private:
  explicit RTMPAbortMessge(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

struct RTMPAcknowledgementMessage : RTMPMessageBase {
  explicit RTMPAcknowledgementMessage(std::uint32_t bytes);
  std::uint32_t sequence = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::ack; }
  static std::optional<RTMPAcknowledgementMessage> from(RTMPMessageBase received);

 private:
  explicit RTMPAcknowledgementMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

struct RTMPWindowAcknowledgementSizeMessage : RTMPMessageBase {
  explicit RTMPWindowAcknowledgementSizeMessage(std::uint32_t bytes);
  std::uint32_t size = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::windowAck; }
  static std::optional<RTMPWindowAcknowledgementSizeMessage> from(RTMPMessageBase received);

 private:
  explicit RTMPWindowAcknowledgementSizeMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

struct RTMPSetPeerBandwidthMessage : RTMPMessageBase {
  enum class Limit : std::uint8_t { hard = 0, soft = 1, dynamic = 2, unknown = 255 };
  RTMPSetPeerBandwidthMessage(std::uint32_t bytes, Limit kind);
  std::uint32_t size = 0;
  Limit limit = Limit::unknown;
  static constexpr RTMPMessageType type() { return RTMPMessageType::bandwidth; }
  static std::optional<RTMPSetPeerBandwidthMessage> from(RTMPMessageBase received);

 private:
  explicit RTMPSetPeerBandwidthMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
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
  RTMPUserControlMessage(Event what, std::int32_t number);
  Event event = Event::unknown;
  std::int32_t value = 0;
  static constexpr RTMPMessageType type() { return RTMPMessageType::user; }
  static std::optional<RTMPUserControlMessage> from(RTMPMessageBase received);

 private:
  explicit RTMPUserControlMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

/// The payload is the audio tag body (rtmp/wire/MediaTags.h).
struct RTMPAudioMessage : RTMPMessageBase {
  RTMPAudioMessage(std::uint32_t stream, std::uint32_t time, Bytes body);
  static constexpr RTMPMessageType type() { return RTMPMessageType::audio; }
};

/// The payload is the video tag body.
struct RTMPVideoMessage : RTMPMessageBase {
  RTMPVideoMessage(std::uint32_t stream, std::uint32_t time, Bytes body);
  static constexpr RTMPMessageType type() { return RTMPMessageType::video; }
};

/// AMF3 data and commands have a zero byte in front and AMF0 values after it, which may switch to AMF3 by the AMF0
/// marker for that, as servers send them.
struct RTMPDataMessage : RTMPMessageBase {
  RTMPDataMessage(RTMPObjectEncoding encoding, std::uint32_t stream, std::uint32_t time, std::string handler,
                  std::vector<AMFValue> values);
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string handlerName;
  std::vector<AMFValue> arguments;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Data : RTMPMessageType::amf3Data;
  }

  static std::optional<RTMPDataMessage> from(RTMPObjectEncoding encoding, RTMPMessageBase received);

 private:
  explicit RTMPDataMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

/// One change of a shared object: what happened, to which property, and its new value.
struct RTMPSharedObjectEvent {
  /// The kinds that name a property.
  static constexpr std::uint8_t requestChange = 3, change = 4, success = 5, remove = 9, requestRemove = 10;

  std::uint8_t kind = 0;
  std::optional<std::string> name;
  Bytes data;  ///< as it stands on the wire, after the name
};

/// Changes of an object that server and clients share, by section 7.1.3 of the published "Adobe's Real Time Messaging
/// Protocol"; with AMF3 a zero byte stands in front, as with commands.
struct RTMPSharedObjectMessage : RTMPMessageBase {
  /// A message with more is not read.
  static constexpr std::size_t maximumEvents = 65536;

  RTMPSharedObjectMessage(RTMPObjectEncoding encoding, std::uint32_t time, std::string name, std::uint32_t version,
                          Bytes eightFlags, std::vector<RTMPSharedObjectEvent> changes);
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string sharedObjectName;
  std::uint32_t currentVersion = 0;
  Bytes flags;  ///< eight bytes
  std::vector<RTMPSharedObjectEvent> events;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Shared : RTMPMessageType::amf3Shared;
  }

  static std::optional<RTMPSharedObjectMessage> from(RTMPObjectEncoding encoding, RTMPMessageBase received);

 private:
  explicit RTMPSharedObjectMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

/// What is received has to be readable to the end, or there is no record. A command object that is no object reads as
/// none.
struct RTMPCommandMessage : RTMPMessageBase {
  RTMPCommandMessage(std::uint32_t stream, std::int64_t transaction, RTMPObjectEncoding encoding, std::string name,
                     std::optional<AMFObject> object, std::vector<AMFValue> values = {});
  RTMPObjectEncoding objectEncoding = RTMPObjectEncoding::amf0;
  std::string commandName;
  std::int64_t transactionId = 0;
  std::optional<AMFObject> commandObject;
  std::vector<AMFValue> arguments;
  RTMPMessageType type() const {
    return objectEncoding == RTMPObjectEncoding::amf0 ? RTMPMessageType::amf0Command : RTMPMessageType::amf3Command;
  }

  static std::optional<RTMPCommandMessage> from(RTMPObjectEncoding encoding, RTMPMessageBase received);

 private:
  explicit RTMPCommandMessage(RTMPMessageBase received) : RTMPMessageBase(std::move(received)) {}
};

/// Kept as received.
struct RTMPAggregateMessage : RTMPMessageBase {
  RTMPAggregateMessage(std::uint32_t stream, std::uint32_t time, Bytes body);
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
