#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "rtmp/wire/AMFReader.h"
#include "rtmp/wire/AMFSerializerError.h"
#include "rtmp/wire/AMFValue.h"

namespace vellora {

/// Writes and reads AMF3, the published "Action Message Format -- AMF 3". Used like AMF0Serializer; string, object and
/// trait references hold within one serializer.
///
/// Whole numbers of 29 bits leave as integers, all others as doubles; both are read as numbers. The format does not
/// know whether an array without names is strict, so it is read as one. Properties without a name cannot be written and
/// are left out. Vectors are read as strict arrays and dictionaries with text keys as objects; objects that write
/// themselves
/// ("externalizable") and dictionaries with other keys are errors.
class AMF3Serializer {
 public:
  static constexpr int maximumDepth = AMFLimits::depth;
  static constexpr std::size_t maximumValues = AMFLimits::values;
  /// Bytes of all values one serializer hands out together: references multiply short data.
  static constexpr std::size_t maximumBytes = AMFLimits::bytes;

  AMF3Serializer() = default;
  explicit AMF3Serializer(ByteView data) : reader_(data) {}

  AMF3Serializer& serialize(const AMFValue& value);
  /// A variable-length integer of 29 bits; higher bits are dropped.
  AMF3Serializer& serializeU29(std::uint32_t value);
  /// Length and text (or a reference to the same text before), without a marker.
  AMF3Serializer& serializeUTF(std::string_view value);

  Result<AMFValue, AMFSerializerError> deserialize();
  Result<std::uint32_t, AMFSerializerError> deserializeU29();
  Result<std::string, AMFSerializerError> deserializeUTF();

  bool atEnd() const { return reader_.atEnd(); }
  std::size_t position() const { return reader_.position(); }
  const Bytes& data() const { return output_; }
  Bytes takeData() { return std::move(output_); }

 private:
  friend class AMF0Serializer;

  enum class Marker : std::uint8_t;
  /// A value of a kind that references can stand for.
  struct Referable {
    std::size_t start = 0;  ///< of its marker
    Marker marker{};
    bool isComplete = false;
  };
  /// What objects of one class have in common. The texts belong to the data that is read.
  struct Traits {
    std::string_view className;
    std::vector<std::string_view> sealed;
    bool isDynamic = false;
  };
  using Indices = std::map<std::string, std::uint32_t, std::less<>>;

  void put(Marker marker) { output_.push_back(static_cast<std::uint8_t>(marker)); }
  void put(AMFUndefined);
  void put(AMFNull);
  void put(bool value);
  void put(double value);
  void put(const std::string& value);
  void put(const AMFObject& value);
  void put(const AMFArray& value);
  void put(AMFDate value);
  void put(const AMFXML& value);
  void put(AMFUnsupported) { put(AMFUndefined{}); }
  void put(const Bytes& value);
  void putNamed(const AMFObject& object);

  bool readValue(AMFValue& value, int depth);
  bool readReferable(Marker marker, std::size_t start, AMFValue& value, int depth);
  bool readReference(Marker marker, std::size_t index, AMFValue& value, int depth);
  bool readContent(Marker marker, std::uint32_t header, AMFValue& value, int depth);
  bool readArray(std::uint32_t count, AMFValue& value, int depth);
  bool readObject(std::uint32_t header, AMFValue& value, int depth);
  /// Null when they cannot be read.
  std::shared_ptr<const Traits> readTraits(std::uint32_t header);
  bool readNamed(AMFObject& object, int depth);
  bool readVector(Marker marker, std::uint32_t count, AMFValue& value, int depth);
  bool readDictionary(std::uint32_t count, AMFValue& value, int depth);
  bool readU29(std::uint32_t& value);
  bool readUTF(std::string_view& text);

  Bytes output_;
  Indices writtenTexts_;
  Indices writtenClasses_;

  AMFReader reader_;
  std::vector<std::string_view> texts_;
  std::vector<Referable> referables_;
  std::vector<std::shared_ptr<const Traits>> traits_;
  bool isRepeating_ = false;  ///< reads for a reference: adds nothing to the tables
};

}  // namespace vellora
