#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "media/pictures/IsoBox.h"

namespace vellora {

/// Something stored in a HEIF file (ISO/IEC 23008-12): a picture, or a block about one.
struct HeifItem {
  std::uint32_t id = 0;
  std::string type{};  ///< four letters
  struct Extent {
    std::size_t at = 0, size = 0;  ///< in the file
  };
  std::vector<Extent> extents{};

  bool isMetadata() const { return type == "Exif" || type == "mime" || type == "uri "; }
};

/// The items a `meta` box tells of, with their places; nothing when that is not understood, or when parts of them lie
/// in other files or items.
std::optional<std::vector<HeifItem>> heifItems(FileBytes file, const IsoBox& meta);

}  // namespace vellora
