#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <span>
#include <vector>

#include "media/pictures/MetadataStripper.h"
#include "media/pictures/PictureReader.h"

using namespace vellora;

namespace {

constexpr std::size_t longestRestatement = 64;
constexpr std::size_t mostPixels = 4096;

void require(bool isTrue) {
  if (!isTrue) std::abort();
}

/// The pixels of a small picture in a file that needs no module.
std::optional<std::vector<std::uint8_t>> pixelsOf(std::span<const std::byte> file, PictureType type) {
  if (type >= PictureType::Heic) return std::nullopt;
  const auto info = inspectPicture(file);
  if (!info || static_cast<std::size_t>(info->width) * static_cast<std::size_t>(info->height) > mostPixels) {
    return std::nullopt;
  }
  const auto picture = decodePicture(file, {.keepsDepth = true, .keepsProfile = true});
  if (!picture) return std::nullopt;
  return std::vector<std::uint8_t>(picture->raster.row(0), picture->raster.row(0) + picture->raster.bytes());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto file = std::as_bytes(std::span(data, size));
  const auto type = pictureTypeOf(file);
  if (!type) return 0;
  const auto stripped = withoutMetadata(file, *type);
  if (!stripped) return 0;
  require(pictureTypeOf(*stripped) == type && stripped->size() <= size + longestRestatement);
  require(withoutMetadata(*stripped, *type) == stripped);
  const auto before = pixelsOf(file, *type), after = pixelsOf(*stripped, *type);
  // libjpeg looks closer at codes near the end of the file, which a tail of other data had moved away.
  const bool isSeenCloser = type == PictureType::Jpeg && !after;
  if (before && !isSeenCloser) require(before == after);
  return 0;
}
