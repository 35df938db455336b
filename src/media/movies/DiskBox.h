#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "media/movies/DiskFile.h"

namespace vellora {

/// The header of a box in a file (ISO/IEC 14496-12, 4.2).
struct DiskBox {
  std::string type;
  std::uint64_t start = 0;    ///< in the file
  std::uint64_t content = 0;  ///< behind the header
  std::uint64_t end = 0;      ///< may lie beyond the file's

  /// The box at a place of a file of that size; nothing when its header is not whole.
  static std::optional<DiskBox> at(const DiskFile& file, std::uint64_t place, std::uint64_t fileSize);
  /// Nothing when it is not whole or has more than `mostBytes`.
  std::optional<std::vector<std::uint8_t>> read(const DiskFile& file, std::uint64_t mostBytes) const;
};

}  // namespace vellora
