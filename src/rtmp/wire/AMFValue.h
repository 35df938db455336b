#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "rtmp/wire/Bytes.h"

namespace vellora {

class AMFValue;
struct AMFProperty;

/// Text keys to values, in the order they were set. `className` is that of a typed object, empty for a plain one.
class AMFObject {
 public:
  AMFObject();
  AMFObject(std::initializer_list<AMFProperty> properties);
  AMFObject(const AMFObject&);
  AMFObject(AMFObject&&) noexcept;
  AMFObject& operator=(const AMFObject&);
  AMFObject& operator=(AMFObject&&) noexcept;
  ~AMFObject();

  /// Null when there is none; the first of several with one key.
  const AMFValue* find(std::string_view key) const;
  /// Replaces the value of `key`, or adds it at the end.
  void set(std::string key, AMFValue value);
  /// Adds without looking for the key, for readers. The value stays where it is until the next change.
  AMFValue& append(std::string key, AMFValue value);
  const std::vector<AMFProperty>& properties() const { return properties_; }
  bool empty() const { return properties_.empty(); }

  std::string className;
  bool operator==(const AMFObject&) const;

 private:
  std::vector<AMFProperty> properties_;
};

/// An array: values by position, and values by name as ECMA arrays have them. `isStrict` arrays have no names and are
/// written as strict arrays.
struct AMFArray {
  std::vector<AMFValue> values;
  AMFObject named;
  bool isStrict = false;

  AMFArray();
  ~AMFArray();
  AMFArray(const AMFArray&);
  AMFArray(AMFArray&&) noexcept;
  AMFArray& operator=(const AMFArray&);
  AMFArray& operator=(AMFArray&&) noexcept;
  bool operator==(const AMFArray&) const;
};

struct AMFUndefined {
  bool operator==(const AMFUndefined&) const = default;
};
struct AMFNull {
  bool operator==(const AMFNull&) const = default;
};
/// Something the other side could not or would not say (AMF0 "unsupported").
struct AMFUnsupported {
  bool operator==(const AMFUnsupported&) const = default;
};
/// A moment, in milliseconds since 1970 (UTC).
struct AMFDate {
  double milliseconds = 0;
  bool operator==(const AMFDate&) const = default;
};
/// An XML document as text.
struct AMFXML {
  std::string text;
  bool operator==(const AMFXML&) const = default;
};

/// One value of the Action Message Format. Cheap to move; copies deeply.
class AMFValue {
 public:
  using Storage = std::variant<AMFUndefined, AMFNull, bool, double, std::string, AMFObject, AMFArray, AMFDate, AMFXML,
                               AMFUnsupported, Bytes>;

  AMFValue() = default;  ///< undefined
  AMFValue(AMFNull) : storage_(AMFNull{}) {}
  AMFValue(std::nullptr_t) : storage_(AMFNull{}) {}
  AMFValue(bool value) : storage_(value) {}
  AMFValue(double value) : storage_(value) {}
  AMFValue(int value) : storage_(static_cast<double>(value)) {}
  AMFValue(const char* value) : storage_(std::string(value)) {}
  AMFValue(std::string_view value) : storage_(std::string(value)) {}
  AMFValue(std::string value) : storage_(std::move(value)) {}
  AMFValue(AMFObject value) : storage_(std::move(value)) {}
  AMFValue(AMFArray value) : storage_(std::move(value)) {}
  AMFValue(AMFDate value) : storage_(value) {}
  AMFValue(AMFXML value) : storage_(std::move(value)) {}
  AMFValue(AMFUnsupported) : storage_(AMFUnsupported{}) {}
  AMFValue(Bytes value) : storage_(std::move(value)) {}

  /// The value when it is a T, else null.
  template <class T>
  const T* as() const {
    return std::get_if<T>(&storage_);
  }
  template <class T>
  T* as() {
    return std::get_if<T>(&storage_);
  }
  /// The text, or "" for anything else.
  std::string_view text() const;
  /// Also true for undefined.
  bool isNull() const;
  const Storage& storage() const { return storage_; }
  bool operator==(const AMFValue&) const;

 private:
  Storage storage_;
};

struct AMFProperty {
  std::string key;
  AMFValue value;
  bool operator==(const AMFProperty&) const = default;
};

}  // namespace vellora
