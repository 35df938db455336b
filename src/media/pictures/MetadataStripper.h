#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "media/pictures/PictureType.h"

namespace vellora {

/// The file without what tells about people and places: Exif, GPS, XMP, IPTC, comments, texts, thumbnails, maker notes.
/// Its pixels, color profile, resolution, animation and orientation stay as they are, bit for bit; nothing is decoded,
/// and the result is not longer, except for an orientation that has to be said again (at most 64 bytes). Containers
/// whose offsets would shift keep their layout and have those parts blanked. Nothing when the file's structure is not
/// understood to the end. Any thread.
std::optional<std::vector<std::byte>> withoutMetadata(std::span<const std::byte> file, PictureType type);

}  // namespace vellora
