#include "support/IngestWire.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <optional>
#include <sstream>

namespace vellora::test {
namespace {

/// Reads big-endian numbers from the front of some bytes.
class Cursor {
 public:
  explicit Cursor(const Octets& bytes) : bytes_(bytes) {}
  std::size_t left() const { return bytes_.size() - position_; }
  bool failed() const { return failed_; }
  void fail() { failed_ = true; }

  std::uint64_t number(int bytes) {
    std::uint64_t value = 0;
    for (int i = 0; i < bytes; ++i) value = value << 8 | next();
    return value;
  }
  std::string text(std::size_t length) {
    if (length > left()) {
      failed_ = true;
      return {};
    }
    const auto from = bytes_.begin() + static_cast<std::ptrdiff_t>(position_);
    position_ += length;
    return {from, from + static_cast<std::ptrdiff_t>(length)};
  }

 private:
  std::uint8_t next() {
    if (left() == 0) failed_ = true;
    return failed_ ? std::uint8_t{0} : bytes_[position_++];
  }
  const Octets& bytes_;
  std::size_t position_ = 0;
  bool failed_ = false;
};

void put(Octets& to, std::uint64_t number, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) to.push_back(static_cast<std::uint8_t>(number >> (8 * i)));
}

void putText(Octets& to, const std::string& text) {
  put(to, text.size(), 2);
  to.insert(to.end(), text.begin(), text.end());
}

WireValue readValue(Cursor& from, int depth);

void readMembers(Cursor& from, WireValue& value, int depth) {
  for (;;) {
    std::string key = from.text(from.number(2));
    if (from.failed()) return;
    WireValue member = readValue(from, depth + 1);
    if (from.failed()) {
      return;
    }
    const bool isEnd = key.empty() && member.kind == WireValue::Kind::undefined && member.text == "end";
    if (isEnd) return;
    value.members.emplace_back(std::move(key), std::move(member));
  }
}

WireValue readValue(Cursor& from, int depth) {
  using Kind = WireValue::Kind;
  WireValue value;
  if (depth > 8) from.fail();
  switch (from.number(1)) {
    case 0x00:
      value = WireValue::of(std::bit_cast<double>(from.number(8)));
      break;
    case 0x01:
      value = WireValue::truth(from.number(1) != 0);
      break;
    case 0x02:
      value = WireValue::of(std::string_view(from.text(from.number(2))));
      break;
    case 0x03:
      value.kind = Kind::object;
      readMembers(from, value, depth);
      break;
    case 0x05:
      value.kind = Kind::null;
      break;
    case 0x06:
      break;
    case 0x08: {
      value.kind = Kind::ecmaArray;
      const std::uint64_t count = from.number(4);
      readMembers(from, value, depth);
      if (count != value.members.size()) from.fail();
      break;
    }
    case 0x09:
      value.text = "end";
      break;
    case 0x0A: {
      value.kind = Kind::strictArray;
      const std::uint64_t count = from.number(4);
      for (std::uint64_t i = 0; i < count && !from.failed(); ++i) {
        value.members.emplace_back(std::string(), readValue(from, depth + 1));
      }
      break;
    }
    default:
      from.fail();
  }
  return value;
}

}  // namespace

WireValue WireValue::of(double number) {
  WireValue value;
  value.kind = Kind::number;
  value.number = number;
  return value;
}

WireValue WireValue::of(std::string_view text) {
  WireValue value;
  value.kind = Kind::text;
  value.text = text;
  return value;
}

WireValue WireValue::truth(bool truth) {
  WireValue value;
  value.kind = Kind::boolean;
  value.number = truth ? 1 : 0;
  return value;
}

WireValue WireValue::null() {
  WireValue value;
  value.kind = Kind::null;
  return value;
}

WireValue WireValue::object(std::vector<std::pair<std::string, WireValue>> members) {
  WireValue value;
  value.kind = Kind::object;
  value.members = std::move(members);
  return value;
}

const WireValue* WireValue::find(std::string_view key) const {
  const auto found = std::find_if(members.begin(), members.end(), [&](const auto& each) { return each.first == key; });
  return found == members.end() ? nullptr : &found->second;
}

std::string WireValue::rendered() const {
  switch (kind) {
    case Kind::number: {
      std::ostringstream out;
      out.precision(12);
      out << number;
      return out.str();
    }
    case Kind::boolean:
      return number != 0 ? "true" : "false";
    case Kind::text:
      return '"' + text + '"';
    case Kind::null:
      return "null";
    case Kind::undefined:
      return "undefined";
    case Kind::strictArray:
    case Kind::ecmaArray:
    case Kind::object:
      break;
  }
  std::vector<std::string> parts;
  for (const auto& [key, value] : members) {
    parts.push_back(kind == Kind::strictArray ? value.rendered() : key + ":" + value.rendered());
  }
  if (kind != Kind::strictArray) std::sort(parts.begin(), parts.end());
  std::string all;
  for (const std::string& part : parts) all += (all.empty() ? "" : ", ") + part;
  return kind == Kind::object ? "{" + all + "}" : "[" + all + "]";
}

void putAmf0(Octets& to, const WireValue& value) {
  using Kind = WireValue::Kind;
  switch (value.kind) {
    case Kind::number:
      put(to, 0x00, 1);
      return put(to, std::bit_cast<std::uint64_t>(value.number), 8);
    case Kind::boolean:
      put(to, 0x01, 1);
      return put(to, value.number != 0 ? 1 : 0, 1);
    case Kind::text:
      put(to, 0x02, 1);
      return putText(to, value.text);
    case Kind::null:
      return put(to, 0x05, 1);
    case Kind::undefined:
      return put(to, 0x06, 1);
    case Kind::strictArray:
      put(to, 0x0A, 1);
      put(to, value.members.size(), 4);
      for (const auto& [key, member] : value.members) putAmf0(to, member);
      return;
    case Kind::object:
    case Kind::ecmaArray:
      put(to, value.kind == Kind::object ? 0x03 : 0x08, 1);
      if (value.kind == Kind::ecmaArray) put(to, value.members.size(), 4);
      for (const auto& [key, member] : value.members) {
        putText(to, key);
        putAmf0(to, member);
      }
      return put(to, 0x000009, 3);
  }
}

Octets amf0(const std::vector<WireValue>& values) {
  Octets result;
  for (const WireValue& value : values) putAmf0(result, value);
  return result;
}

std::vector<WireValue> readAmf0(const Octets& payload, std::vector<std::string>& complaints) {
  Cursor from(payload);
  std::vector<WireValue> values;
  while (from.left() > 0 && !from.failed()) values.push_back(readValue(from, 0));
  if (from.failed()) complaints.push_back("malformed AMF0");
  return values;
}

std::string WireMessage::name() const {
  return values.empty() ? std::string() : values.front().text;
}

double WireMessage::transaction() const {
  return values.size() < 2 ? -1 : values[1].number;
}

std::uint32_t WireMessage::number() const {
  return payload.size() < 4 ? 0 : static_cast<std::uint32_t>(Cursor(payload).number(4));
}

Octets bigEndian(std::uint32_t number, int bytes) {
  Octets result;
  put(result, number, bytes);
  return result;
}

Octets chunksOf(std::uint32_t chunkStream, std::uint8_t type, std::uint32_t streamId, std::uint32_t timestamp,
                const Octets& payload, std::size_t chunkSize) {
  const bool isExtended = timestamp >= 0xFFFFFF;
  const auto putBasic = [&](Octets& to, std::uint8_t format) {
    if (chunkStream < 64) {
      to.push_back(static_cast<std::uint8_t>(format << 6 | chunkStream));
    } else if (chunkStream < 320) {
      to.push_back(static_cast<std::uint8_t>(format << 6));
      to.push_back(static_cast<std::uint8_t>(chunkStream - 64));
    } else {
      to.push_back(static_cast<std::uint8_t>(format << 6 | 1));
      to.push_back(static_cast<std::uint8_t>(chunkStream - 64));
      to.push_back(static_cast<std::uint8_t>((chunkStream - 64) >> 8));
    }
  };
  Octets result;
  std::size_t sent = 0;
  do {
    putBasic(result, sent == 0 ? 0 : 3);
    if (sent == 0) {
      put(result, isExtended ? 0xFFFFFF : timestamp, 3);
      put(result, payload.size(), 3);
      result.push_back(type);
      for (int i = 0; i < 4; ++i) result.push_back(static_cast<std::uint8_t>(streamId >> (8 * i)));
    }
    if (isExtended) put(result, timestamp, 4);
    const std::size_t count = std::min(chunkSize, payload.size() - sent);
    const auto from = payload.begin() + static_cast<std::ptrdiff_t>(sent);
    result.insert(result.end(), from, from + static_cast<std::ptrdiff_t>(count));
    sent += count;
  } while (sent < payload.size());
  return result;
}

std::vector<WireMessage> StrictChunkReader::take(std::vector<std::string>& complaints) {
  std::vector<WireMessage> messages;
  while (!isLost_ && takeChunk(messages, complaints)) continue;
  if (isLost_) input_.clear();
  return messages;
}

bool StrictChunkReader::takeChunk(std::vector<WireMessage>& messages, std::vector<std::string>& complaints) {
  const auto lose = [&](std::string why) {
    complaints.push_back(std::move(why));
    isLost_ = true;
    return false;
  };
  if (input_.empty()) return false;
  const std::uint8_t format = input_[0] >> 6;
  const std::uint32_t id = input_[0] & 0x3F;
  if (id < 2) return lose("a chunk stream id of more than one byte");
  if (id != 2 && id != 3 && id != 4 && id != 5 && id != 8) return lose("chunk stream " + std::to_string(id));
  Stream& stream = streams_[id];
  if (format != 0 && !stream.started) return lose("chunk stream " + std::to_string(id) + " starts without a header");
  if (stream.inMessage && format != 3) return lose("a message within a message, on " + std::to_string(id));

  constexpr std::size_t lengths[] = {11, 7, 3, 0};
  std::size_t header = 1 + lengths[format];
  if (input_.size() < header) return false;
  const auto number = [&](std::size_t at, int bytes) {
    std::uint32_t value = 0;
    for (int i = 0; i < bytes; ++i) value = value << 8 | input_[at + static_cast<std::size_t>(i)];
    return value;
  };
  WireMessage& message = stream.message;
  std::uint32_t field = format < 3 ? number(1, 3) : message.field;
  const bool isExtended = format < 3 ? field == 0xFFFFFF : stream.isExtended;
  if (isExtended) {
    if (input_.size() < header + 4) return false;
    field = number(header, 4);
    header += 4;
  }
  const std::size_t length = format < 2 ? number(4, 3) : message.length;
  const std::size_t filled = stream.inMessage ? message.payload.size() : 0;
  const std::size_t count = std::min(length - filled, chunkSize_);
  if (input_.size() < header + count) return false;

  if (!stream.inMessage) {
    stream.started = true;
    stream.inMessage = true;
    stream.isExtended = isExtended;
    message.payload.clear();
    message.values.clear();
    message.chunkStream = id;
    message.chunkType = format;
    message.field = field;
    message.length = length;
    if (format < 2) message.type = input_[7];
    if (format == 0) {
      message.streamId = static_cast<std::uint32_t>(input_[8]) | static_cast<std::uint32_t>(input_[9]) << 8 |
                         static_cast<std::uint32_t>(input_[10]) << 16 | static_cast<std::uint32_t>(input_[11]) << 24;
      if (field < message.time) complaints.push_back("time goes back on chunk stream " + std::to_string(id));
      message.time = field;
    } else {
      if (format < 3) stream.delta = field;
      message.time += stream.delta;
    }
  }
  const auto from = input_.begin() + static_cast<std::ptrdiff_t>(header);
  message.payload.insert(message.payload.end(), from, from + static_cast<std::ptrdiff_t>(count));
  input_.erase(input_.begin(), from + static_cast<std::ptrdiff_t>(count));
  if (message.payload.size() < length) return true;

  stream.inMessage = false;
  if (message.type == wire::command || message.type == wire::data)
    message.values = readAmf0(message.payload, complaints);
  check(message, complaints);
  if (message.type == wire::setChunkSize) chunkSize_ = std::max<std::size_t>(1, message.number());
  messages.push_back(message);
  return true;
}

void StrictChunkReader::check(const WireMessage& message, std::vector<std::string>& complaints) const {
  const auto complain = [&](const std::string& what) {
    complaints.push_back(what + " (type " + std::to_string(message.type) + " on chunk stream " +
                         std::to_string(message.chunkStream) + ", message stream " + std::to_string(message.streamId) +
                         ")");
  };
  static const std::map<std::uint8_t, std::size_t> controlLengths = {{wire::setChunkSize, 4},
                                                                     {wire::abortMessage, 4},
                                                                     {wire::acknowledgement, 4},
                                                                     {wire::userControl, 6},
                                                                     {wire::windowSize, 4}};
  if (const auto control = controlLengths.find(message.type); control != controlLengths.end()) {
    if (message.chunkStream != 2) complain("control on another chunk stream than 2");
    if (message.streamId != 0) complain("control on a message stream");
    if (message.length != control->second) complain("control of a wrong length");
    if (message.type == wire::setChunkSize && (message.number() == 0 || message.number() > 0xFFFFFF)) {
      complain("a chunk size of " + std::to_string(message.number()));
    }
    return;
  }
  static const std::map<std::uint8_t, std::uint32_t> streams = {
      {wire::audio, 4}, {wire::video, 5}, {wire::data, 8}, {wire::command, 3}};
  const auto expected = streams.find(message.type);
  if (expected == streams.end()) return complain("not a message a publisher sends");
  if (expected->second != message.chunkStream) complain("unexpected chunk stream");
  if (message.type != wire::command && message.streamId == 0) complain("media without a message stream");
  if (message.type == wire::command) {
    const std::string name = message.name();
    const bool isOfStream = name == "publish" || name == "closeStream";
    if (isOfStream != (message.streamId != 0)) complain("wrong message stream for " + name);
    if (message.values.size() < 3 || message.values[1].kind != WireValue::Kind::number) complain("incomplete " + name);
  }
}

}  // namespace vellora::test
