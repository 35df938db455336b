#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"

namespace vellora {

/// A picture file in memory, or a part of one.
using FileBytes = std::span<const std::byte>;

// Numbers at an offset; the caller has seen that they are there.

inline std::uint32_t byteAt(FileBytes bytes, std::size_t at) {
  return std::to_integer<std::uint32_t>(bytes[at]);
}
inline std::uint32_t little16(FileBytes bytes, std::size_t at) {
  return byteAt(bytes, at) | byteAt(bytes, at + 1) << 8;
}
inline std::uint32_t little32(FileBytes bytes, std::size_t at) {
  return little16(bytes, at) | little16(bytes, at + 2) << 16;
}
inline std::uint32_t big16(FileBytes bytes, std::size_t at) {
  return byteAt(bytes, at) << 8 | byteAt(bytes, at + 1);
}
inline std::uint32_t big32(FileBytes bytes, std::size_t at) {
  return big16(bytes, at) << 16 | big16(bytes, at + 2);
}

/// Whether `text` stands at an offset.
inline bool holdsAt(FileBytes bytes, std::size_t at, std::string_view text) {
  if (at > bytes.size() || bytes.size() - at < text.size()) return false;
  return std::string_view(reinterpret_cast<const char*>(bytes.data()) + at, text.size()) == text;
}

inline const std::uint8_t* octets(FileBytes bytes) {
  return reinterpret_cast<const std::uint8_t*>(bytes.data());
}
inline std::vector<std::uint8_t> copyOf(FileBytes bytes) {
  return {octets(bytes), octets(bytes) + bytes.size()};
}
inline FileBytes bytesOf(const std::vector<std::uint8_t>& block) {
  return std::as_bytes(std::span(block));
}

/// The failed half of a Result: `return refused(PictureError::Damaged, "no header");`
inline auto refused(PictureError error, std::string detail = {}) {
  return failure(PictureFailure{error, std::move(detail)});
}

}  // namespace vellora
