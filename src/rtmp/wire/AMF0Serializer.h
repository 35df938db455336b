#pragma once

#include <string>
#include <string_view>

#include "base/Result.h"
#include "rtmp/wire/AMFSerializerError.h"
#include "rtmp/wire/AMFValue.h"

namespace vellora {

/// Writes and reads AMF0, the published "Action Message Format -- AMF 0". One object either writes (start empty, take
/// `data()`) or reads (start with the data, call `deserialize` until `atEnd()`).
class AMF0Serializer {
 public:
  /// Values within values, counted from the outermost.
  static constexpr int maximumDepth = 64;
  /// Values in all that one serializer hands out, so that a short hostile text cannot fill the memory.
  static constexpr int maximumValues = 65536;

  AMF0Serializer() = default;
  /// Reads `data`, which has to outlive the serializer.
  explicit AMF0Serializer(ByteView data) : input_(data) {}

  AMF0Serializer& serialize(double value);
  AMF0Serializer& serialize(bool value);
  /// As a string, or as a long string from 65,536 bytes on.
  AMF0Serializer& serialize(std::string_view value);
  AMF0Serializer& serialize(const char* value) { return serialize(std::string_view(value)); }
  AMF0Serializer& serialize(std::nullptr_t);
  AMF0Serializer& serialize(const AMFObject& value);
  /// An ECMA array, or a strict array when it `isStrict`.
  AMF0Serializer& serialize(const AMFArray& value);
  AMF0Serializer& serialize(const AMFValue& value);
  /// A 16-bit length and the text, without a marker. Longer text is cut at a character border.
  AMF0Serializer& serializeUTF(std::string_view value);

  Result<AMFValue, AMFSerializerError> deserialize();
  Result<std::string, AMFSerializerError> deserializeUTF();

  bool atEnd() const { return position_ >= input_.size(); }
  std::size_t position() const { return position_; }
  const Bytes& data() const { return output_; }
  Bytes takeData() { return std::move(output_); }

 private:
  Bytes output_;
  ByteView input_;
  std::size_t position_ = 0;
};

}  // namespace vellora
