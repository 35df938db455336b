#include "rtmp/wire/AMF3Serializer.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <variant>

#include "rtmp/wire/BigEndian.h"

namespace vellora {
namespace {

constexpr double lowestInteger = -268435456.0;  // -2^28
constexpr double highestInteger = 268435455.0;
/// One bit of a length says that it is one.
constexpr std::size_t longest = (1U << 28) - 1;

constexpr std::uint32_t inlineBit = 1;
constexpr std::uint32_t inlineTraitsBit = 2;
constexpr std::uint32_t externalizableBit = 4;
constexpr std::uint32_t dynamicBit = 8;

constexpr std::uint32_t inlineLength(std::size_t length) {
  return static_cast<std::uint32_t>(length) << 1 | inlineBit;
}

}  // namespace

enum class AMF3Serializer::Marker : std::uint8_t {
  undefined = 0x00,
  null = 0x01,
  booleanFalse = 0x02,
  booleanTrue = 0x03,
  integer = 0x04,
  number = 0x05,
  string = 0x06,
  xmlDocument = 0x07,
  date = 0x08,
  array = 0x09,
  object = 0x0A,
  xml = 0x0B,
  byteArray = 0x0C,
  vectorInt = 0x0D,
  vectorUint = 0x0E,
  vectorDouble = 0x0F,
  vectorObject = 0x10,
  dictionary = 0x11,
};

AMF3Serializer& AMF3Serializer::serialize(const AMFValue& value) {
  std::visit([this](const auto& held) { put(held); }, value.storage());
  return *this;
}

AMF3Serializer& AMF3Serializer::serializeU29(std::uint32_t value) {
  const auto low7 = [&](int shift) { return static_cast<std::uint8_t>((value >> shift & 0x7F) | 0x80); };
  value &= 0x1FFFFFFF;
  if (value >= 0x200000) {
    output_.insert(output_.end(), {low7(22), low7(15), low7(8), static_cast<std::uint8_t>(value)});
    return *this;
  }
  if (value >= 0x4000) output_.push_back(low7(14));
  if (value >= 0x80) output_.push_back(low7(7));
  output_.push_back(value & 0x7F);
  return *this;
}

AMF3Serializer& AMF3Serializer::serializeUTF(std::string_view value) {
  const std::string_view text = cutText(value, longest);
  if (!text.empty()) {
    if (const auto written = writtenTexts_.find(text); written != writtenTexts_.end()) {
      return serializeU29(written->second << 1);
    }
    writtenTexts_.emplace(text, static_cast<std::uint32_t>(writtenTexts_.size()));
  }
  serializeU29(inlineLength(text.size()));
  appendText(output_, text);
  return *this;
}

void AMF3Serializer::put(AMFUndefined) {
  put(Marker::undefined);
}

void AMF3Serializer::put(AMFNull) {
  put(Marker::null);
}

void AMF3Serializer::put(bool value) {
  put(value ? Marker::booleanTrue : Marker::booleanFalse);
}

void AMF3Serializer::put(double value) {
  const bool isInteger = value >= lowestInteger && value <= highestInteger && value == std::trunc(value) &&
                         !(value == 0 && std::signbit(value));
  if (isInteger) {
    put(Marker::integer);
    serializeU29(static_cast<std::uint32_t>(static_cast<std::int32_t>(value)));
  } else {
    put(Marker::number);
    appendBigEndian<8>(output_, std::bit_cast<std::uint64_t>(value));
  }
}

void AMF3Serializer::put(const std::string& value) {
  put(Marker::string);
  serializeUTF(value);
}

void AMF3Serializer::put(const AMFObject& value) {
  put(Marker::object);
  if (const auto written = writtenClasses_.find(value.className); written != writtenClasses_.end()) {
    serializeU29(written->second << 2 | inlineBit);
  } else {
    writtenClasses_.emplace(value.className, static_cast<std::uint32_t>(writtenClasses_.size()));
    serializeU29(dynamicBit | inlineTraitsBit | inlineBit);
    serializeUTF(value.className);
  }
  putNamed(value);
}

void AMF3Serializer::put(const AMFArray& value) {
  put(Marker::array);
  serializeU29(inlineLength(value.values.size()));
  putNamed(value.isStrict ? AMFObject() : value.named);
  for (const AMFValue& each : value.values) serialize(each);
}

void AMF3Serializer::put(AMFDate value) {
  put(Marker::date);
  serializeU29(inlineBit);
  appendBigEndian<8>(output_, std::bit_cast<std::uint64_t>(value.milliseconds));
}

void AMF3Serializer::put(const AMFXML& value) {
  put(Marker::xmlDocument);
  const std::string_view text = cutText(value.text, longest);
  serializeU29(inlineLength(text.size()));
  appendText(output_, text);
}

void AMF3Serializer::put(const Bytes& value) {
  put(Marker::byteArray);
  const ByteView bytes = ByteView(value).first(std::min(value.size(), longest));
  serializeU29(inlineLength(bytes.size()));
  output_.insert(output_.end(), bytes.begin(), bytes.end());
}

void AMF3Serializer::putNamed(const AMFObject& object) {
  for (const AMFProperty& property : object.properties()) {
    if (property.key.empty()) continue;  // which would say the end
    serializeUTF(property.key);
    serialize(property.value);
  }
  serializeUTF({});
}

Result<AMFValue, AMFSerializerError> AMF3Serializer::deserialize() {
  AMFValue value;
  if (!readValue(value, 1)) return failure(reader_.error());
  return value;
}

Result<std::uint32_t, AMFSerializerError> AMF3Serializer::deserializeU29() {
  std::uint32_t value = 0;
  if (!readU29(value)) return failure(reader_.error());
  return value;
}

Result<std::string, AMFSerializerError> AMF3Serializer::deserializeUTF() {
  std::string_view text;
  if (!reader_.countValues() || !readUTF(text) || !reader_.countBytes(text.size())) return failure(reader_.error());
  return std::string(text);
}

bool AMF3Serializer::readValue(AMFValue& value, int depth) {
  const std::size_t start = reader_.position();
  std::uint8_t byte = 0;
  if (!reader_.read(byte)) return false;
  const auto marker = static_cast<Marker>(byte);
  if (depth > maximumDepth) return reader_.fail(AMFSerializerError::deserialize);
  if (!reader_.countValues()) return false;
  switch (marker) {
    case Marker::undefined:
      value = AMFValue();
      return true;
    case Marker::null:
      value = AMFNull{};
      return true;
    case Marker::booleanFalse:
    case Marker::booleanTrue:
      value = marker == Marker::booleanTrue;
      return true;
    case Marker::integer: {
      std::uint32_t bits = 0;
      if (!readU29(bits)) return false;
      // The highest of the 29 bits is the sign.
      value = static_cast<std::int32_t>(bits << 3) >> 3;
      return true;
    }
    case Marker::number: {
      double number = 0;
      if (!reader_.read(number)) return false;
      value = number;
      return true;
    }
    case Marker::string: {
      std::string_view text;
      if (!readUTF(text) || !reader_.countBytes(text.size())) return false;
      value = text;
      return true;
    }
    default:
      if (marker > Marker::dictionary) return reader_.fail(AMFSerializerError::deserialize);
      return readReferable(marker, start, value, depth);
  }
}

bool AMF3Serializer::readReferable(Marker marker, std::size_t start, AMFValue& value, int depth) {
  std::uint32_t header = 0;
  if (!readU29(header)) return false;
  if ((header & inlineBit) == 0) return readReference(marker, header >> 1, value, depth);
  if (isRepeating_) return readContent(marker, header, value, depth);
  const std::size_t index = referables_.size();
  referables_.push_back({start, marker});
  if (!readContent(marker, header, value, depth)) return false;
  referables_[index].isComplete = true;
  return true;
}

bool AMF3Serializer::readReference(Marker marker, std::size_t index, AMFValue& value, int depth) {
  if (index >= referables_.size() || !referables_[index].isComplete || referables_[index].marker != marker) {
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

bool AMF3Serializer::readContent(Marker marker, std::uint32_t header, AMFValue& value, int depth) {
  const std::uint32_t length = header >> 1;
  switch (marker) {
    case Marker::date: {
      AMFDate moment;
      if (!reader_.read(moment.milliseconds)) return false;
      value = moment;
      return true;
    }
    case Marker::xmlDocument:
    case Marker::xml: {
      std::string_view text;
      if (!reader_.read(length, text) || !reader_.countBytes(length)) return false;
      value = AMFXML{std::string(text)};
      return true;
    }
    case Marker::byteArray: {
      std::string_view bytes;
      if (!reader_.read(length, bytes) || !reader_.countBytes(length)) return false;
      value = Bytes(bytes.begin(), bytes.end());
      return true;
    }
    case Marker::array:
      return readArray(length, value, depth);
    case Marker::object:
      return readObject(header, value, depth);
    case Marker::dictionary:
      return readDictionary(length, value, depth);
    default:
      return readVector(marker, length, value, depth);
  }
}

bool AMF3Serializer::readArray(std::uint32_t count, AMFValue& value, int depth) {
  AMFArray array;
  if (!readNamed(array.named, depth) || !reader_.require(count)) return false;  // no value is shorter than a byte
  array.isStrict = array.named.empty();
  array.values.reserve(std::min<std::size_t>(count, 4));
  for (std::uint32_t i = 0; i < count; ++i) {
    if (!readValue(array.values.emplace_back(), depth + 1)) return false;
  }
  value = std::move(array);
  return true;
}

bool AMF3Serializer::readObject(std::uint32_t header, AMFValue& value, int depth) {
  std::shared_ptr<const Traits> traits;
  if ((header & inlineTraitsBit) != 0) {
    traits = readTraits(header);
    if (!traits) return false;
    if (!isRepeating_) traits_.push_back(traits);
  } else {
    const std::size_t index = header >> 2;
    if (index >= traits_.size()) return reader_.fail(AMFSerializerError::deserialize);
    traits = traits_[index];
  }
  if (!reader_.countBytes(traits->className.size())) return false;
  AMFObject object;
  object.className = traits->className;
  for (const std::string_view key : traits->sealed) {
    if (!reader_.countBytes(key.size())) return false;
    if (!readValue(object.append(std::string(key), {}), depth + 1)) return false;
  }
  if (traits->isDynamic && !readNamed(object, depth)) return false;
  value = std::move(object);
  return true;
}

std::shared_ptr<const AMF3Serializer::Traits> AMF3Serializer::readTraits(std::uint32_t header) {
  if ((header & externalizableBit) != 0) {
    reader_.fail(AMFSerializerError::deserialize);
    return nullptr;
  }
  auto traits = std::make_shared<Traits>();
  traits->isDynamic = (header & dynamicBit) != 0;
  const std::uint32_t count = header >> 4;
  if (!readUTF(traits->className) || !reader_.require(count) || !reader_.countValues(count)) return nullptr;
  traits->sealed.resize(count);
  for (std::string_view& key : traits->sealed) {
    if (!readUTF(key)) return nullptr;
  }
  return traits;
}

bool AMF3Serializer::readNamed(AMFObject& object, int depth) {
  while (true) {
    std::string_view key;
    if (!readUTF(key)) return false;
    if (key.empty()) return true;
    if (!reader_.countBytes(key.size())) return false;
    if (!readValue(object.append(std::string(key), {}), depth + 1)) return false;
  }
}

bool AMF3Serializer::readVector(Marker marker, std::uint32_t count, AMFValue& value, int depth) {
  std::uint8_t isFixed = 0;
  if (!reader_.read(isFixed)) return false;
  AMFArray array;
  array.isStrict = true;
  if (marker == Marker::vectorObject) {
    std::string_view className;
    if (!readUTF(className) || !reader_.require(count)) return false;
    for (std::uint32_t i = 0; i < count; ++i) {
      if (!readValue(array.values.emplace_back(), depth + 1)) return false;
    }
    value = std::move(array);
    return true;
  }
  const std::size_t size = marker == Marker::vectorDouble ? 8 : 4;
  if (!reader_.require(count * size) || !reader_.countValues(count)) return false;
  array.values.reserve(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    double number = 0;
    if (marker == Marker::vectorDouble) {
      if (!reader_.read(number)) return false;
    } else {
      std::uint32_t bits = 0;
      if (!reader_.read(bits)) return false;
      number = marker == Marker::vectorInt ? static_cast<double>(static_cast<std::int32_t>(bits)) : bits;
    }
    array.values.emplace_back(number);
  }
  value = std::move(array);
  return true;
}

bool AMF3Serializer::readDictionary(std::uint32_t count, AMFValue& value, int depth) {
  std::uint8_t hasWeakKeys = 0;
  if (!reader_.read(hasWeakKeys) || !reader_.require(count)) return false;
  AMFObject object;
  for (std::uint32_t i = 0; i < count; ++i) {
    std::uint8_t marker = 0;
    std::string_view key;
    if (!reader_.read(marker)) return false;
    if (static_cast<Marker>(marker) != Marker::string) return reader_.fail(AMFSerializerError::deserialize);
    if (!readUTF(key) || !reader_.countBytes(key.size())) return false;
    if (!readValue(object.append(std::string(key), {}), depth + 1)) return false;
  }
  value = std::move(object);
  return true;
}

bool AMF3Serializer::readU29(std::uint32_t& value) {
  value = 0;
  std::uint8_t byte = 0;
  for (int i = 0; i < 3; ++i) {
    if (!reader_.read(byte)) return false;
    value = value << 7 | (byte & 0x7FU);
    if (byte < 0x80) return true;
  }
  if (!reader_.read(byte)) return false;
  value = value << 8 | byte;
  return true;
}

bool AMF3Serializer::readUTF(std::string_view& text) {
  std::uint32_t header = 0;
  if (!readU29(header)) return false;
  const std::uint32_t number = header >> 1;
  if ((header & inlineBit) == 0) {
    if (number >= texts_.size()) return reader_.fail(AMFSerializerError::deserialize);
    text = texts_[number];
    return true;
  }
  if (!reader_.read(number, text)) return false;
  // The empty text is never referred to.
  if (!text.empty() && !isRepeating_) texts_.push_back(text);
  return true;
}

}  // namespace vellora
