#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "rtmp/wire/AMF3Serializer.h"
#include "rtmp/wire/AMFReader.h"
#include "rtmp/wire/AMFSerializerError.h"
#include "rtmp/wire/AMFValue.h"

namespace vellora {

/// Writes and reads AMF0, the published "Action Message Format -- AMF 0". One object either writes (start empty, take
/// `data()`) or reads (start with the data, call `deserialize` until `atEnd()`). After an error nothing more can be
/// read.
///
/// Text is kept as it comes, valid UTF-8 or not. References are read as copies of what they stand for; one to an object
/// that contains it is an error, as are movie clips and record sets, which the format reserves.
class AMF0Serializer {
 public:
  /// Values within values, counted from the outermost.
  static constexpr int maximumDepth = AMFLimits::depth;
  /// Values in all that one serializer hands out, so that a short hostile text cannot fill the memory.
  static constexpr std::size_t maximumValues = AMFLimits::values;
  /// Bytes of all keys and texts one serializer hands out together: references multiply short data.
  static constexpr std::size_t maximumBytes = AMFLimits::bytes;

  AMF0Serializer() = default;
  /// Reads `data`, which has to outlive the serializer.
  explicit AMF0Serializer(ByteView data) : reader_(data) {}

  /// Makes room for so many bytes, where the size to be written is roughly known.
  void reserve(std::size_t bytes) { output_.reserve(bytes); }
  AMF0Serializer& serialize(double value);
  AMF0Serializer& serialize(bool value);
  /// As a string, or as a long string from 65,536 bytes on.
  AMF0Serializer& serialize(std::string_view value);
  AMF0Serializer& serialize(const std::string& value) { return serialize(std::string_view(value)); }
  AMF0Serializer& serialize(const char* value) { return serialize(std::string_view(value)); }
  AMF0Serializer& serialize(std::nullptr_t);
  /// A typed object when it has a class name.
  AMF0Serializer& serialize(const AMFObject& value);
  /// An ECMA array, or a strict array when it `isStrict`.
  AMF0Serializer& serialize(const AMFArray& value);
  /// Any value; bytes, for which AMF0 has no form, in AMF3 behind the marker that says so.
  AMF0Serializer& serialize(const AMFValue& value);
  /// A 16-bit length and the text, without a marker. Longer text is cut at a character border.
  AMF0Serializer& serializeUTF(std::string_view value);

  Result<AMFValue, AMFSerializerError> deserialize();
  Result<std::string, AMFSerializerError> deserializeUTF();

  bool atEnd() const { return reader_.atEnd(); }
  std::size_t position() const { return reader_.position(); }
  const Bytes& data() const { return output_; }
  Bytes takeData() { return std::move(output_); }

 private:
  enum class Marker : std::uint8_t;
  /// An object or array that was read, for references to it.
  struct Referable {
    std::size_t start = 0;  ///< of its marker
    bool isComplete = false;
  };

  void put(Marker marker) { output_.push_back(static_cast<std::uint8_t>(marker)); }
  void put(AMFUndefined);
  void put(AMFNull) { serialize(nullptr); }
  void put(bool value) { serialize(value); }
  void put(double value) { serialize(value); }
  void put(const std::string& value) { serialize(value); }
  void put(const AMFObject& value) { serialize(value); }
  void put(const AMFArray& value) { serialize(value); }
  void put(AMFDate value);
  void put(const AMFXML& value);
  void put(AMFUnsupported);
  void put(const Bytes& value);
  void putLongText(std::string_view text);
  void putProperties(const AMFObject& object);

  bool readValue(AMFValue& value, int depth);
  bool readReferable(Marker marker, std::size_t start, AMFValue& value, int depth);
  bool readReference(AMFValue& value, int depth);
  bool readAVMPlus(AMFValue& value, int depth);
  bool readObject(bool isTyped, AMFValue& value, int depth);
  bool readECMAArray(AMFValue& value, int depth);
  bool readStrictArray(AMFValue& value, int depth);
  /// The key of the next property; `isEnd` when there was none any more.
  bool readKey(std::string_view& key, bool& isEnd);
  bool readUTF(std::string_view& text);
  bool readLongText(std::string_view& text);
  bool readDate(AMFValue& value);

  Bytes output_;
  AMFReader reader_;
  std::vector<Referable> referables_;
  bool isRepeating_ = false;               ///< reads for a reference: adds nothing to the tables
  std::optional<AMF3Serializer> avmPlus_;  ///< for values in AMF3; its tables hold for all of them
};

}  // namespace vellora
