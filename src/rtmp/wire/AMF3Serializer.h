#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/Result.h"
#include "rtmp/wire/AMFSerializerError.h"
#include "rtmp/wire/AMFValue.h"

namespace vellora {

/// Writes and reads AMF3, the published "Action Message Format -- AMF 3". Used like AMF0Serializer; string, object and
/// trait references hold within one serializer.
class AMF3Serializer {
 public:
  static constexpr int maximumDepth = 64;
  static constexpr int maximumValues = 65536;
  /// Bytes of all values one serializer hands out together: references multiply short data.
  static constexpr std::size_t maximumBytes = 16U << 20;

  AMF3Serializer() = default;
  explicit AMF3Serializer(ByteView data) : input_(data) {}

  AMF3Serializer& serialize(const AMFValue& value);
  /// A variable-length integer of 29 bits; higher bits are dropped.
  AMF3Serializer& serializeU29(std::uint32_t value);
  /// Length and text (or a reference to the same text before), without a marker.
  AMF3Serializer& serializeUTF(std::string_view value);

  Result<AMFValue, AMFSerializerError> deserialize();
  Result<std::uint32_t, AMFSerializerError> deserializeU29();
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
