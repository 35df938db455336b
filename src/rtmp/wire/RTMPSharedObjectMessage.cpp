#include "rtmp/wire/AMF0Serializer.h"
#include "rtmp/wire/BigEndian.h"
#include "rtmp/wire/RTMPMessage.h"

namespace vellora {
namespace {

constexpr std::size_t flagsSize = 8;
constexpr std::uint8_t amf3Prefix = 0;

void putText(Bytes& bytes, std::string_view text) {
  const Bytes written = AMF0Serializer().serializeUTF(text).takeData();
  bytes.insert(bytes.end(), written.begin(), written.end());
}

void putEvent(Bytes& bytes, const RTMPSharedObjectEvent& event) {
  Bytes content;
  if (event.name) putText(content, *event.name);
  content.insert(content.end(), event.data.begin(), event.data.end());
  bytes.push_back(event.kind);
  appendBigEndian<4>(bytes, content.size());
  bytes.insert(bytes.end(), content.begin(), content.end());
}

bool hasName(std::uint8_t kind) {
  switch (kind) {
    case RTMPSharedObjectEvent::requestChange:
    case RTMPSharedObjectEvent::change:
    case RTMPSharedObjectEvent::success:
    case RTMPSharedObjectEvent::remove:
    case RTMPSharedObjectEvent::requestRemove:
      return true;
    default:
      return false;
  }
}

/// Cuts the first `count` bytes off `rest`; nothing when there are fewer.
std::optional<ByteView> take(ByteView& rest, std::size_t count) {
  if (count > rest.size()) return std::nullopt;
  const ByteView taken = rest.first(count);
  rest = rest.subspan(count);
  return taken;
}

template <std::unsigned_integral Number>
std::optional<Number> takeNumber(ByteView& rest) {
  const auto taken = take(rest, sizeof(Number));
  if (!taken) return std::nullopt;
  return bigEndian<Number>(taken->data());
}

std::optional<std::string> takeText(ByteView& rest) {
  const auto length = takeNumber<std::uint16_t>(rest);
  if (!length) return std::nullopt;
  const auto text = take(rest, *length);
  if (!text) return std::nullopt;
  return std::string(text->begin(), text->end());
}

std::optional<RTMPSharedObjectEvent> takeEvent(ByteView& rest) {
  const auto kind = takeNumber<std::uint8_t>(rest);
  const auto length = takeNumber<std::uint32_t>(rest);
  if (!kind || !length) return std::nullopt;
  auto content = take(rest, *length);
  if (!content) return std::nullopt;
  RTMPSharedObjectEvent event{.kind = *kind};
  if (hasName(*kind) && !content->empty()) {
    event.name = takeText(*content);
    if (!event.name) return std::nullopt;
  }
  event.data.assign(content->begin(), content->end());
  return event;
}

}  // namespace

RTMPSharedObjectMessage::RTMPSharedObjectMessage(RTMPObjectEncoding encoding, std::uint32_t time, std::string name,
                                                 std::uint32_t version, Bytes eightFlags,
                                                 std::vector<RTMPSharedObjectEvent> changes)
    : RTMPMessageBase{0, time, {}},
      objectEncoding(encoding),
      sharedObjectName(std::move(name)),
      currentVersion(version),
      flags(std::move(eightFlags)),
      events(std::move(changes)) {
  flags.resize(flagsSize);
  if (encoding == RTMPObjectEncoding::amf3) payload.push_back(amf3Prefix);
  putText(payload, sharedObjectName);
  appendBigEndian<4>(payload, version);
  payload.insert(payload.end(), flags.begin(), flags.end());
  for (const RTMPSharedObjectEvent& event : events) putEvent(payload, event);
}

std::optional<RTMPSharedObjectMessage> RTMPSharedObjectMessage::from(RTMPObjectEncoding encoding,
                                                                     RTMPMessageBase received) {
  RTMPSharedObjectMessage message(std::move(received));
  message.objectEncoding = encoding;
  ByteView rest = message.payload;
  if (encoding == RTMPObjectEncoding::amf3 && takeNumber<std::uint8_t>(rest) != amf3Prefix) return std::nullopt;
  auto sharedName = takeText(rest);
  const auto objectVersion = takeNumber<std::uint32_t>(rest);
  const auto flagBytes = take(rest, flagsSize);
  if (!sharedName || !objectVersion || !flagBytes) return std::nullopt;
  message.sharedObjectName = std::move(*sharedName);
  message.currentVersion = *objectVersion;
  message.flags.assign(flagBytes->begin(), flagBytes->end());
  while (!rest.empty()) {
    auto event = takeEvent(rest);
    if (!event || message.events.size() == maximumEvents) return std::nullopt;
    message.events.push_back(std::move(*event));
  }
  return message;
}

}  // namespace vellora
