#include "rtmp/wire/BigEndian.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {
namespace {

Bytes payloadOf(std::uint32_t number) {
  Bytes payload;
  appendBigEndian<4>(payload, number);
  return payload;
}

/// Makes `field` of the first four bytes of the record's payload; nothing when there are fewer.
template <class Record>
std::optional<Record> withNumber(Record record, std::uint32_t Record::*field) {
  if (record.payload.size() < 4) return std::nullopt;
  record.*field = bigEndian<std::uint32_t>(record.payload.data());
  return record;
}

RTMPSetPeerBandwidthMessage::Limit limitFrom(std::uint8_t byte) {
  using Limit = RTMPSetPeerBandwidthMessage::Limit;
  return byte <= static_cast<std::uint8_t>(Limit::dynamic) ? static_cast<Limit>(byte) : Limit::unknown;
}

RTMPUserControlMessage::Event eventFrom(std::uint16_t id) {
  using Event = RTMPUserControlMessage::Event;
  if (id > static_cast<std::uint16_t>(Event::unknown)) return Event::unknown;
  switch (const auto event = static_cast<Event>(id)) {
    case Event::streamBegin:
    case Event::streamEof:
    case Event::streamDry:
    case Event::setBuffer:
    case Event::recorded:
    case Event::ping:
    case Event::pong:
    case Event::bufferEmpty:
    case Event::bufferFull:
      return event;
    case Event::unknown:
      break;
  }
  return Event::unknown;
}

}  // namespace

RTMPSetChunkSizeMessage::RTMPSetChunkSizeMessage(std::uint32_t bytes)
    : RTMPMessageBase{.payload = payloadOf(bytes)}, size(bytes) {}

std::optional<RTMPSetChunkSizeMessage> RTMPSetChunkSizeMessage::from(RTMPMessageBase received) {
  return withNumber(RTMPSetChunkSizeMessage(std::move(received)), &RTMPSetChunkSizeMessage::size);
}

RTMPAbortMessge::RTMPAbortMessge(std::uint32_t chunkStream)
    : RTMPMessageBase{.payload = payloadOf(chunkStream)}, chunkStreamId(chunkStream) {}

std::optional<RTMPAbortMessge> RTMPAbortMessge::from(RTMPMessageBase received) {
  return withNumber(RTMPAbortMessge(std::move(received)), &RTMPAbortMessge::chunkStreamId);
}

RTMPAcknowledgementMessage::RTMPAcknowledgementMessage(std::uint32_t bytes)
    : RTMPMessageBase{.payload = payloadOf(bytes)}, sequence(bytes) {}

std::optional<RTMPAcknowledgementMessage> RTMPAcknowledgementMessage::from(RTMPMessageBase received) {
  return withNumber(RTMPAcknowledgementMessage(std::move(received)), &RTMPAcknowledgementMessage::sequence);
}

RTMPWindowAcknowledgementSizeMessage::RTMPWindowAcknowledgementSizeMessage(std::uint32_t bytes)
    : RTMPMessageBase{.payload = payloadOf(bytes)}, size(bytes) {}

std::optional<RTMPWindowAcknowledgementSizeMessage> RTMPWindowAcknowledgementSizeMessage::from(
    RTMPMessageBase received) {
  return withNumber(RTMPWindowAcknowledgementSizeMessage(std::move(received)),
                    &RTMPWindowAcknowledgementSizeMessage::size);
}

RTMPSetPeerBandwidthMessage::RTMPSetPeerBandwidthMessage(std::uint32_t bytes, Limit kind)
    : RTMPMessageBase{.payload = payloadOf(bytes)}, size(bytes), limit(kind) {
  payload.push_back(static_cast<std::uint8_t>(limit));
}

std::optional<RTMPSetPeerBandwidthMessage> RTMPSetPeerBandwidthMessage::from(RTMPMessageBase received) {
  if (received.payload.size() < 5) return std::nullopt;
  RTMPSetPeerBandwidthMessage message(std::move(received));
  message.size = bigEndian<std::uint32_t>(message.payload.data());
  message.limit = limitFrom(message.payload[4]);
  return message;
}

RTMPUserControlMessage::RTMPUserControlMessage(Event what, std::int32_t number) : event(what), value(number) {
  appendBigEndian<2>(payload, static_cast<std::uint8_t>(event));
  appendBigEndian<4>(payload, static_cast<std::uint32_t>(value));
}

std::optional<RTMPUserControlMessage> RTMPUserControlMessage::from(RTMPMessageBase received) {
  if (received.payload.size() < 6) return std::nullopt;
  RTMPUserControlMessage message(std::move(received));
  message.event = eventFrom(bigEndian<std::uint16_t>(message.payload.data()));
  message.value = static_cast<std::int32_t>(bigEndian<std::uint32_t>(&message.payload[2]));
  return message;
}

}  // namespace vellora
