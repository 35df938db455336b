#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "media/pictures/FileBytes.h"

namespace vellora {

/// A box of ISO/IEC 14496-12: what it is and where its content lies in the file.
struct IsoBox {
  std::string_view type;
  std::size_t start = 0, content = 0, end = 0;
};

/// The box at an offset, which has to end at `limit` or before; nothing when it does not.
inline std::optional<IsoBox> isoBoxAt(FileBytes file, std::size_t at, std::size_t limit) {
  if (limit - at < 8) return std::nullopt;
  IsoBox box{{reinterpret_cast<const char*>(file.data()) + at + 4, 4}, at, at + 8, limit};
  std::uint64_t size = big32(file, at);
  if (size == 1) {
    if (limit - at < 16) return std::nullopt;
    size = std::uint64_t{big32(file, at + 8)} << 32 | big32(file, at + 12);
    box.content = at + 16;
  }
  if (size == 0) return box;  // to the end of what encloses it
  if (size < box.content - at || size > limit - at) return std::nullopt;
  box.end = at + static_cast<std::size_t>(size);
  return box;
}

/// Calls `take` with each box in a part of the file until it says false; false then, and when they do not fill it.
template <class Take>
bool forEachBox(FileBytes file, std::size_t at, std::size_t limit, const Take& take) {
  while (at < limit) {
    const auto box = isoBoxAt(file, at, limit);
    if (!box || !take(*box)) return false;
    at = box->end;
  }
  return true;
}

}  // namespace vellora
