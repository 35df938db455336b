#include "rtmp/wire/AMF0Serializer.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>
#include <variant>

#include "rtmp/wire/BigEndian.h"

namespace vellora {
namespace {

constexpr std::size_t longestText = std::numeric_limits<std::uint16_t>::max();
constexpr std::size_t longestLongText = std::numeric_limits<std::uint32_t>::max();

/// An array index as text.
class IndexText {
 public:
  explicit IndexText(std::size_t index) : end_(std::to_chars(digits_, digits_ + sizeof(digits_), index).ptr) {}
  operator std::string_view() const { return {digits_, static_cast<std::size_t>(end_ - digits_)}; }

 private:
  char digits_[20]{};
  char* end_;
};

}  // namespace

enum class AMF0Serializer::Marker : std::uint8_t {
  number = 0x00,
  boolean = 0x01,
  string = 0x02,
  object = 0x03,
  null = 0x05,
  undefined = 0x06,
  reference = 0x07,
  ecmaArray = 0x08,
  objectEnd = 0x09,
  strictArray = 0x0A,
  date = 0x0B,
  longString = 0x0C,
  unsupported = 0x0D,
  xmlDocument = 0x0F,
  typedObject = 0x10,
  avmPlus = 0x11,
};

AMF0Serializer& AMF0Serializer::serialize(double value) {
  put(Marker::number);
  appendBigEndian<8>(output_, std::bit_cast<std::uint64_t>(value));
  return *this;
}

AMF0Serializer& AMF0Serializer::serialize(bool value) {
  put(Marker::boolean);
  output_.push_back(value ? 1 : 0);
  return *this;
}

AMF0Serializer& AMF0Serializer::serialize(std::string_view value) {
  if (value.size() > longestText) {
    put(Marker::longString);
    putLongText(value);
    return *this;
  }
  put(Marker::string);
  return serializeUTF(value);
}

AMF0Serializer& AMF0Serializer::serialize(std::nullptr_t) {
  put(Marker::null);
  return *this;
}

AMF0Serializer& AMF0Serializer::serialize(const AMFObject& value) {
  if (value.className.empty()) {
    put(Marker::object);
  } else {
    put(Marker::typedObject);
    serializeUTF(value.className);
  }
  putProperties(value);
  return *this;
}

AMF0Serializer& AMF0Serializer::serialize(const AMFArray& value) {
  if (value.isStrict) {
    put(Marker::strictArray);
    appendBigEndian<4>(output_, value.values.size());
    for (const AMFValue& each : value.values) serialize(each);
    return *this;
  }
  put(Marker::ecmaArray);
  appendBigEndian<4>(output_, value.values.size() + value.named.properties().size());
  for (std::size_t i = 0; i < value.values.size(); ++i) {
    serializeUTF(IndexText(i));
    serialize(value.values[i]);
  }
  putProperties(value.named);
  return *this;
}

AMF0Serializer& AMF0Serializer::serialize(const AMFValue& value) {
  std::visit([this](const auto& held) { put(held); }, value.storage());
  return *this;
}

AMF0Serializer& AMF0Serializer::serializeUTF(std::string_view value) {
  const std::string_view text = cutText(value, longestText);
  appendBigEndian<2>(output_, text.size());
  appendText(output_, text);
  return *this;
}

void AMF0Serializer::put(AMFUndefined) {
  put(Marker::undefined);
}

void AMF0Serializer::put(AMFDate value) {
  put(Marker::date);
  appendBigEndian<8>(output_, std::bit_cast<std::uint64_t>(value.milliseconds));
  appendBigEndian<2>(output_, 0);  // the time zone, which the format reserves
}

void AMF0Serializer::put(const AMFXML& value) {
  put(Marker::xmlDocument);
  putLongText(value.text);
}

void AMF0Serializer::put(AMFUnsupported) {
  put(Marker::unsupported);
}

void AMF0Serializer::put(const Bytes& value) {
  put(Marker::avmPlus);
  const Bytes written = AMF3Serializer().serialize(AMFValue(value)).takeData();
  output_.insert(output_.end(), written.begin(), written.end());
}

void AMF0Serializer::putLongText(std::string_view text) {
  const std::string_view said = cutText(text, longestLongText);
  appendBigEndian<4>(output_, said.size());
  appendText(output_, said);
}

void AMF0Serializer::putProperties(const AMFObject& object) {
  for (const AMFProperty& property : object.properties()) {
    serializeUTF(property.key);
    serialize(property.value);
  }
  serializeUTF({});
  put(Marker::objectEnd);
}

Result<AMFValue, AMFSerializerError> AMF0Serializer::deserialize() {
  AMFValue value;
  if (!readValue(value, 1)) return failure(reader_.error());
  return value;
}

Result<std::string, AMFSerializerError> AMF0Serializer::deserializeUTF() {
  std::string_view text;
  if (!readUTF(text)) return failure(reader_.error());
  return std::string(text);
}

bool AMF0Serializer::readValue(AMFValue& value, int depth) {
  const std::size_t start = reader_.position();
  std::uint8_t byte = 0;
  if (!reader_.read(byte)) return false;
  const auto marker = static_cast<Marker>(byte);
  if (depth > maximumDepth) return reader_.fail(AMFSerializerError::deserialize);
  // These two hand on to a value that is counted itself.
  if (marker == Marker::avmPlus) return readAVMPlus(value, depth);
  if (marker == Marker::reference) return readReference(value, depth);
  if (!reader_.countValues()) return false;
  switch (marker) {
    case Marker::number: {
      double number = 0;
      if (!reader_.read(number)) return false;
      value = number;
      return true;
    }
    case Marker::boolean: {
      std::uint8_t truth = 0;
      if (!reader_.read(truth)) return false;
      value = truth != 0;
      return true;
    }
    case Marker::string: {
      std::string_view text;
      if (!readUTF(text)) return false;
      value = text;
      return true;
    }
    case Marker::longString: {
      std::string_view text;
      if (!readLongText(text)) return false;
      value = text;
      return true;
    }
    case Marker::xmlDocument: {
      std::string_view text;
      if (!readLongText(text)) return false;
      value = AMFXML{std::string(text)};
      return true;
    }
    case Marker::null:
      value = AMFNull{};
      return true;
    case Marker::undefined:
      value = AMFValue();
      return true;
    case Marker::unsupported:
      value = AMFUnsupported{};
      return true;
    case Marker::date:
      return readDate(value);
    case Marker::object:
    case Marker::ecmaArray:
    case Marker::strictArray:
    case Marker::typedObject:
      return readReferable(marker, start, value, depth);
    default:
      return reader_.fail(AMFSerializerError::deserialize);
  }
}

bool AMF0Serializer::readReferable(Marker marker, std::size_t start, AMFValue& value, int depth) {
  const std::size_t index = referables_.size();
  if (!isRepeating_) referables_.push_back({start});
  switch (marker) {
    case Marker::ecmaArray:
      if (!readECMAArray(value, depth)) return false;
      break;
    case Marker::strictArray:
      if (!readStrictArray(value, depth)) return false;
      break;
    default:
      if (!readObject(marker == Marker::typedObject, value, depth)) return false;
  }
  if (!isRepeating_) referables_[index].isComplete = true;
  return true;
}

bool AMF0Serializer::readReference(AMFValue& value, int depth) {
  std::uint16_t index = 0;
  if (!reader_.read(index)) return false;
  if (index >= referables_.size() || !referables_[index].isComplete) {
    return reader_.fail(AMFSerializerError::deserialize);
  }
  const std::size_t behind = reader_.position();
  const bool wasRepeating = std::exchange(isRepeating_, true);
  reader_.moveTo(referables_[index].start);
  if (!readValue(value, depth)) return false;
  isRepeating_ = wasRepeating;
  reader_.moveTo(behind);
  return true;
}

bool AMF0Serializer::readAVMPlus(AMFValue& value, int depth) {
  if (!avmPlus_) avmPlus_.emplace();
  avmPlus_->reader_ = reader_;
  avmPlus_->isRepeating_ = isRepeating_;
  const bool isRead = avmPlus_->readValue(value, depth);
  reader_ = avmPlus_->reader_;
  return isRead;
}

bool AMF0Serializer::readObject(bool isTyped, AMFValue& value, int depth) {
  AMFObject object;
  if (isTyped) {
    std::string_view className;
    if (!readUTF(className)) return false;
    object.className = className;
  }
  while (true) {
    std::string_view key;
    bool isEnd = false;
    if (!readKey(key, isEnd)) return false;
    if (isEnd) break;
    if (!readValue(object.append(std::string(key), {}), depth + 1)) return false;
  }
  value = std::move(object);
  return true;
}

bool AMF0Serializer::readECMAArray(AMFValue& value, int depth) {
  std::uint32_t announced = 0;  // only a hint: the end is marked
  if (!reader_.read(announced)) return false;
  AMFArray array;
  while (true) {
    std::string_view key;
    bool isEnd = false;
    if (!readKey(key, isEnd)) return false;
    if (isEnd) break;
    // Positions that come after names stay names, so that the order is kept.
    const bool isPosition = array.named.empty() && key == IndexText(array.values.size());
    AMFValue& held = isPosition ? array.values.emplace_back() : array.named.append(std::string(key), {});
    if (!readValue(held, depth + 1)) return false;
  }
  value = std::move(array);
  return true;
}

bool AMF0Serializer::readStrictArray(AMFValue& value, int depth) {
  std::uint32_t count = 0;
  if (!reader_.read(count) || !reader_.require(count)) return false;  // no value is shorter than a byte
  AMFArray array;
  array.isStrict = true;
  array.values.reserve(std::min<std::size_t>(count, 4));
  for (std::uint32_t i = 0; i < count; ++i) {
    if (!readValue(array.values.emplace_back(), depth + 1)) return false;
  }
  value = std::move(array);
  return true;
}

bool AMF0Serializer::readKey(std::string_view& key, bool& isEnd) {
  if (!readUTF(key)) return false;
  isEnd = key.empty() && reader_.nextIs(static_cast<std::uint8_t>(Marker::objectEnd));
  if (isEnd) reader_.skip(1);
  return true;
}

bool AMF0Serializer::readUTF(std::string_view& text) {
  std::uint16_t length = 0;
  return reader_.read(length) && reader_.read(length, text) && reader_.countBytes(length);
}

bool AMF0Serializer::readLongText(std::string_view& text) {
  std::uint32_t length = 0;
  return reader_.read(length) && reader_.read(length, text) && reader_.countBytes(length);
}

bool AMF0Serializer::readDate(AMFValue& value) {
  AMFDate date;
  std::uint16_t reservedTimeZone = 0;
  if (!reader_.read(date.milliseconds) || !reader_.read(reservedTimeZone)) return false;
  value = date;
  return true;
}

}  // namespace vellora
