#pragma once

#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

#include "rtmp/wire/AMFReader.h"
#include "rtmp/wire/AMFValue.h"

/// For the targets of both value formats.
namespace vellora::fuzz {

template <class Serializer>
std::optional<std::vector<AMFValue>> readAll(ByteView data) {
  Serializer serializer(data);
  std::vector<AMFValue> values;
  while (!serializer.atEnd()) {
    auto value = serializer.deserialize();
    if (!value) return std::nullopt;
    values.push_back(std::move(*value));
  }
  return values;
}

template <class Serializer>
Bytes writeAll(const std::vector<AMFValue>& values) {
  Serializer serializer;
  for (const AMFValue& value : values) serializer.serialize(value);
  return serializer.takeData();
}

/// What is written reads as what writes the same bytes. Indices written as keys may carry large data over its limit.
template <class Serializer>
void expectStable(const std::vector<AMFValue>& values) {
  const Bytes written = writeAll<Serializer>(values);
  const auto again = readAll<Serializer>(written);
  if (!again && written.size() < AMFLimits::bytes / 2) std::abort();
  if (again && (again->size() != values.size() || writeAll<Serializer>(*again) != written)) std::abort();
}

}  // namespace vellora::fuzz
