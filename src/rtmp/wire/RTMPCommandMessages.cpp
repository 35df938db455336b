#include <algorithm>
#include <cmath>

#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {
namespace {

/// Holds most commands without growing.
constexpr std::size_t usualSize = 512;
/// From here on a double skips whole numbers.
constexpr double highestTransactionId = 9007199254740992.0;  // 2^53

/// What stands in front of the values when they may be in AMF3.
constexpr std::uint8_t amf3Prefix = 0;

void putArguments(AMF0Serializer& serializer, const std::vector<AMFValue>& arguments) {
  for (const AMFValue& argument : arguments) serializer.serialize(argument);
}

Bytes payloadOf(AMF0Serializer& serializer, RTMPObjectEncoding encoding) {
  Bytes payload = serializer.takeData();
  if (encoding == RTMPObjectEncoding::amf3) payload.insert(payload.begin(), amf3Prefix);
  return payload;
}

/// The values in a received payload. Some peers leave the prefix of AMF3 out; a text, with which all begin, does not
/// look like it.
ByteView valuesOf(const Bytes& payload, RTMPObjectEncoding encoding) {
  const bool hasPrefix = encoding == RTMPObjectEncoding::amf3 && !payload.empty() && payload.front() == amf3Prefix;
  return ByteView(payload).subspan(hasPrefix ? 1 : 0);
}

std::optional<std::string> readText(AMF0Serializer& serializer) {
  auto value = serializer.deserialize();
  auto* text = value ? value->as<std::string>() : nullptr;
  if (text == nullptr) return std::nullopt;
  return std::move(*text);
}

/// False when something else than values is among them.
bool readArguments(AMF0Serializer& serializer, std::vector<AMFValue>& arguments) {
  while (!serializer.atEnd()) {
    auto value = serializer.deserialize();
    if (!value) return false;
    arguments.push_back(std::move(*value));
  }
  return true;
}

/// 0, which no request has, for what is no number.
std::int64_t transactionIdFrom(double number) {
  if (std::isnan(number)) return 0;
  return static_cast<std::int64_t>(std::clamp(number, -highestTransactionId, highestTransactionId));
}

/// Some servers send an array of names here.
std::optional<AMFObject> commandObjectFrom(AMFValue value) {
  if (auto* object = value.as<AMFObject>()) return std::move(*object);
  if (auto* array = value.as<AMFArray>(); array != nullptr && !array->isStrict) return std::move(array->named);
  return std::nullopt;
}

}  // namespace

RTMPDataMessage::RTMPDataMessage(RTMPObjectEncoding encoding, std::uint32_t stream, std::uint32_t time,
                                 std::string handler, std::vector<AMFValue> values)
    : RTMPMessageBase{stream, time, {}},
      objectEncoding(encoding),
      handlerName(std::move(handler)),
      arguments(std::move(values)) {
  AMF0Serializer serializer;
  serializer.reserve(usualSize);
  serializer.serialize(handlerName);
  putArguments(serializer, arguments);
  payload = payloadOf(serializer, encoding);
}

std::optional<RTMPDataMessage> RTMPDataMessage::from(RTMPObjectEncoding encoding, RTMPMessageBase received) {
  RTMPDataMessage message(std::move(received));
  message.objectEncoding = encoding;
  AMF0Serializer serializer(valuesOf(message.payload, encoding));
  auto name = readText(serializer);
  if (!name || !readArguments(serializer, message.arguments)) return std::nullopt;
  message.handlerName = std::move(*name);
  return message;
}

RTMPCommandMessage::RTMPCommandMessage(std::uint32_t stream, std::int64_t transaction, RTMPObjectEncoding encoding,
                                       std::string name, std::optional<AMFObject> object, std::vector<AMFValue> values)
    : RTMPMessageBase{stream, 0, {}},
      objectEncoding(encoding),
      commandName(std::move(name)),
      transactionId(transaction),
      commandObject(std::move(object)),
      arguments(std::move(values)) {
  AMF0Serializer serializer;
  serializer.reserve(usualSize);
  serializer.serialize(commandName).serialize(static_cast<double>(transaction));
  if (commandObject) {
    serializer.serialize(*commandObject);
  } else {
    serializer.serialize(nullptr);
  }
  putArguments(serializer, arguments);
  payload = payloadOf(serializer, encoding);
}

std::optional<RTMPCommandMessage> RTMPCommandMessage::from(RTMPObjectEncoding encoding, RTMPMessageBase received) {
  RTMPCommandMessage message(std::move(received));
  message.objectEncoding = encoding;
  AMF0Serializer serializer(valuesOf(message.payload, encoding));
  auto name = readText(serializer);
  if (!name) return std::nullopt;
  message.commandName = std::move(*name);
  const auto transaction = serializer.deserialize();
  if (!transaction || transaction->as<double>() == nullptr) return std::nullopt;
  message.transactionId = transactionIdFrom(*transaction->as<double>());
  if (serializer.atEnd()) return message;
  auto object = serializer.deserialize();
  if (!object || !readArguments(serializer, message.arguments)) return std::nullopt;
  message.commandObject = commandObjectFrom(std::move(*object));
  return message;
}

}  // namespace vellora
