#include "rtmp/wire/AMFValue.h"

#include <algorithm>
#include <utility>

namespace vellora {

AMFObject::AMFObject() = default;
AMFObject::AMFObject(std::initializer_list<AMFProperty> properties) : properties_(properties) {}
AMFObject::AMFObject(const AMFObject&) = default;
AMFObject::AMFObject(AMFObject&&) noexcept = default;
AMFObject& AMFObject::operator=(const AMFObject&) = default;
AMFObject& AMFObject::operator=(AMFObject&&) noexcept = default;
AMFObject::~AMFObject() = default;
bool AMFObject::operator==(const AMFObject&) const = default;

const AMFValue* AMFObject::find(std::string_view key) const {
  const auto found =
      std::find_if(properties_.begin(), properties_.end(), [&](const AMFProperty& each) { return each.key == key; });
  return found == properties_.end() ? nullptr : &found->value;
}

void AMFObject::set(std::string key, AMFValue value) {
  const auto found =
      std::find_if(properties_.begin(), properties_.end(), [&](const AMFProperty& each) { return each.key == key; });
  if (found == properties_.end()) {
    append(std::move(key), std::move(value));
  } else {
    found->value = std::move(value);
  }
}

AMFValue& AMFObject::append(std::string key, AMFValue value) {
  // Most objects have several properties, hardly any has one.
  if (properties_.capacity() == 0) properties_.reserve(4);
  properties_.push_back({std::move(key), std::move(value)});
  return properties_.back().value;
}

AMFArray::AMFArray() = default;
AMFArray::~AMFArray() = default;
AMFArray::AMFArray(const AMFArray&) = default;
AMFArray::AMFArray(AMFArray&&) noexcept = default;
AMFArray& AMFArray::operator=(const AMFArray&) = default;
AMFArray& AMFArray::operator=(AMFArray&&) noexcept = default;
bool AMFArray::operator==(const AMFArray&) const = default;

std::string_view AMFValue::text() const {
  const auto* text = as<std::string>();
  return text == nullptr ? std::string_view() : std::string_view(*text);
}

bool AMFValue::isNull() const {
  return as<AMFNull>() != nullptr || as<AMFUndefined>() != nullptr;
}

bool AMFValue::operator==(const AMFValue&) const = default;

}  // namespace vellora
