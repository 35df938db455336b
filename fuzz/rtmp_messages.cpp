#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <variant>

#include "rtmp/wire/RTMPMessage.h"

using namespace vellora;

namespace {

constexpr std::uint32_t streamId = 1, timestamp = 40;

RTMPSetChunkSizeMessage rebuilt(const RTMPSetChunkSizeMessage& message) {
  return RTMPSetChunkSizeMessage(message.size);
}
RTMPAbortMessge rebuilt(const RTMPAbortMessge& message) {
  return RTMPAbortMessge(message.chunkStreamId);
}
RTMPAcknowledgementMessage rebuilt(const RTMPAcknowledgementMessage& message) {
  return RTMPAcknowledgementMessage(message.sequence);
}
RTMPWindowAcknowledgementSizeMessage rebuilt(const RTMPWindowAcknowledgementSizeMessage& message) {
  return RTMPWindowAcknowledgementSizeMessage(message.size);
}
RTMPSetPeerBandwidthMessage rebuilt(const RTMPSetPeerBandwidthMessage& message) {
  return {message.size, message.limit};
}
RTMPUserControlMessage rebuilt(const RTMPUserControlMessage& message) {
  return {message.event, message.value};
}
RTMPAudioMessage rebuilt(const RTMPAudioMessage& message) {
  return {message.streamId, message.timestamp, message.payload};
}
RTMPVideoMessage rebuilt(const RTMPVideoMessage& message) {
  return {message.streamId, message.timestamp, message.payload};
}
RTMPAggregateMessage rebuilt(const RTMPAggregateMessage& message) {
  return {message.streamId, message.timestamp, message.payload};
}
RTMPDataMessage rebuilt(const RTMPDataMessage& message) {
  return {message.objectEncoding, message.streamId, message.timestamp, message.handlerName, message.arguments};
}
RTMPSharedObjectMessage rebuilt(const RTMPSharedObjectMessage& message) {
  return {message.objectEncoding, message.timestamp, message.sharedObjectName,
          message.currentVersion, message.flags,     message.events};
}
RTMPCommandMessage rebuilt(const RTMPCommandMessage& message) {
  return {message.streamId,    message.transactionId, message.objectEncoding,
          message.commandName, message.commandObject, message.arguments};
}

Bytes rebuiltPayload(const RTMPMessage& message) {
  return std::visit([](const auto& record) { return rebuilt(record).payload; }, message);
}

std::optional<RTMPMessage> read(std::uint8_t type, Bytes payload) {
  return messageFrom(type, streamId, timestamp, std::move(payload));
}

}  // namespace

/// The type id, then the payload.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const Bytes payload(data + 1, data + size);
  const auto message = read(data[0], payload);
  if (!message) return 0;
  const RTMPMessageView view = viewOf(*message);
  if (static_cast<std::uint8_t>(view.type) != data[0] || view.streamId != streamId || view.timestamp != timestamp ||
      view.payload.size() != payload.size()) {
    std::abort();
  }
  // A message built from what was read is one that reads as the same.
  const Bytes built = rebuiltPayload(*message);
  const auto again = read(data[0], built);
  if (!again || rebuiltPayload(*again) != built) std::abort();
  if (std::holds_alternative<RTMPSharedObjectMessage>(*message) && built != payload) std::abort();
  return 0;
}
