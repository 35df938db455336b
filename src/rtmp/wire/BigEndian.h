#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "rtmp/wire/Bytes.h"

namespace vellora {

/// Appends the lowest `count` bytes of `value`, the highest first.
template <std::size_t count>
void appendBigEndian(Bytes& bytes, std::uint64_t value) {
  static_assert(count <= sizeof(value));
  const std::size_t at = bytes.size();
  bytes.resize(at + count);
  for (std::size_t i = 0; i < count; ++i) bytes[at + i] = static_cast<std::uint8_t>(value >> (8 * (count - 1 - i)));
}

/// The number at `at`, where sizeof(Number) bytes have to be.
template <std::unsigned_integral Number>
Number bigEndian(const std::uint8_t* at) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < sizeof(Number); ++i) value = value << 8 | at[i];
  return static_cast<Number>(value);
}

inline void appendText(Bytes& bytes, std::string_view text) {
  bytes.insert(bytes.end(), text.begin(), text.end());
}

/// The longest beginning of `text` that has at most `maximum` bytes and ends at a border of UTF-8 characters.
inline std::string_view cutText(std::string_view text, std::size_t maximum) {
  if (text.size() <= maximum) return text;
  std::size_t end = maximum;
  while (end > 0 && maximum - end < 3 && (static_cast<std::uint8_t>(text[end]) & 0xC0) == 0x80) --end;
  // Bytes that are no UTF-8 have no borders.
  if ((static_cast<std::uint8_t>(text[end]) & 0xC0) == 0x80) end = maximum;
  return text.substr(0, end);
}

}  // namespace vellora
