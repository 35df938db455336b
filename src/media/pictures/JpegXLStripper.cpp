#include <algorithm>
#include <array>
#include <string_view>

#include "media/pictures/IsoBox.h"
#include "media/pictures/MetadataStrippers.h"

namespace vellora {

/// ISO/IEC 18181-2: boxes without offsets into the file, so that some can simply be left out. The pixels' boxes tell
/// how the picture stands.
StrippedFile strippedJpegXL(FileBytes file) {
  std::vector<std::byte> out;
  out.reserve(file.size());
  if (holdsAt(file, 0, "\xFF\x0A")) {
    append(out, file);
    return out;
  }
  static constexpr std::array<std::string_view, 6> kept{"JXL ", "ftyp", "jxll", "jxli", "jxlc", "jxlp"};
  bool hasPixels = false;
  const bool isWhole = forEachBox(file, 0, file.size(), [&](const IsoBox& box) {
    hasPixels = hasPixels || box.type == "jxlc" || box.type == "jxlp";
    const bool isKept = std::find(kept.begin(), kept.end(), box.type) != kept.end();
    if (isKept) append(out, file.subspan(box.start, box.end - box.start));
    return true;
  });
  if (!isWhole || !hasPixels) return std::nullopt;
  return out;
}

}  // namespace vellora
