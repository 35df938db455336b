#include "media/pictures/TiffTags.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace vellora {
namespace {

using namespace std::string_view_literals;

/// In order. From TIFF 6.0, its supplements on JPEG, and libtiff's lists of what is in use.
constexpr std::array<std::uint32_t, 74> pixelTags{
    254, 255, 256, 257, 258, 259, 262, 263, 264, 265,   266,   273,   274,   277,   278,   279,   280,  281, 282,
    283, 284, 286, 287, 290, 291, 292, 293, 296, 297,   301,   317,   318,   319,   320,   321,   322,  323, 324,
    325, 326, 327, 328, 330, 332, 334, 336, 338, 339,   340,   341,   342,   346,   347,   512,   513,  514, 515,
    517, 518, 519, 520, 521, 529, 530, 531, 532, 32995, 32996, 32997, 32998, 34675, 37439, 50674, 50675};

static_assert(std::is_sorted(pixelTags.begin(), pixelTags.end()));

}  // namespace

bool tiff::isAboutPixels(std::uint32_t tag) {
  return std::binary_search(pixelTags.begin(), pixelTags.end(), tag);
}

std::optional<std::uint64_t> TiffNumbers::at(std::uint64_t place, std::size_t size) const {
  if (place > bytes.size() || bytes.size() - place < size) return std::nullopt;
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < size; ++i) {
    value = value << 8 | byteAt(bytes, static_cast<std::size_t>(place) + (isLittle ? size - 1 - i : i));
  }
  return value;
}

bool isTiffStructure(FileBytes bytes) {
  return bytes.size() >= 8 && (holdsAt(bytes, 0, "II*\0"sv) || holdsAt(bytes, 0, "MM\0*"sv));
}

}  // namespace vellora
