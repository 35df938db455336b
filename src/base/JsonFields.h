#pragma once

#include <optional>

#include "base/Json.h"

namespace vellora::json {

/// Reads members of an object into fields and remembers whether one had a value that could not be read. A missing
/// member leaves its field as it is.
class FieldReader {
 public:
  /// `object` must outlive the reader.
  explicit FieldReader(const Json& object) : object_(object), ok_(object.is_object()) {}

  /// `reader` gives an optional of something the field can take.
  template <class T, class Reader>
  void into(T& field, const char* key, Reader reader) {
    const Json* value = member(object_, key);
    if (!value) return;
    if (const auto result = reader(*value)) {
      field = *result;
    } else {
      ok_ = false;
    }
  }

  /// The same, but a missing member is a fault too.
  template <class T, class Reader>
  void required(T& field, const char* key, Reader reader) {
    if (!member(object_, key)) ok_ = false;
    into(field, key, reader);
  }

  /// An enumeration stored by raw value, from 0 to `last`.
  template <class Enum>
  void rawValue(Enum& field, const char* key, Enum last) {
    into(field, key, [last](const Json& value) -> std::optional<Enum> {
      const auto raw = integer(value);
      if (!raw || *raw < 0 || *raw > static_cast<int>(last)) return std::nullopt;
      return static_cast<Enum>(*raw);
    });
  }

  bool ok() const { return ok_; }

 private:
  const Json& object_;
  bool ok_;
};

}  // namespace vellora::json
