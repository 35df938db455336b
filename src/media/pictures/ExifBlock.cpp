#include "media/pictures/ExifBlock.h"

#include <cstddef>

#include "media/pictures/TiffStructure.h"

namespace vellora {
namespace {

constexpr std::uint32_t orientationTag = 0x0112, xResolutionTag = 0x011A, resolutionUnitTag = 0x0128;
constexpr std::uint32_t centimeters = 3;
constexpr double centimetersPerInch = 2.54;

bool isOrientation(const TiffEntry& entry) {
  return entry.tag == orientationTag && entry.type == TiffEntry::shortType && entry.count == 1;
}

}  // namespace

ExifFacts exifFacts(std::span<const std::uint8_t> exif) {
  ExifFacts facts;
  const TiffStructure tiff(exif);
  if (!tiff.isValid()) return facts;
  std::uint32_t unit = 2;
  tiff.entries(*tiff.number(4, 4), [&](const TiffEntry& entry) {
    if (isOrientation(entry)) {
      const std::uint32_t value = *tiff.number(entry.valueAt, 2);
      if (value >= 1 && value <= 8) facts.orientation = static_cast<int>(value);
    } else if (entry.tag == xResolutionTag) {
      facts.dotsPerInch = tiff.rational(entry).value_or(0);
    } else if (entry.tag == resolutionUnitTag && entry.type == TiffEntry::shortType) {
      unit = *tiff.number(entry.valueAt, 2);
    }
  });
  if (unit == centimeters) facts.dotsPerInch *= centimetersPerInch;
  return facts;
}

void setUpright(std::vector<std::uint8_t>& exif) {
  const TiffStructure tiff(exif);
  if (!tiff.isValid()) return;
  std::size_t directory = *tiff.number(4, 4);
  for (int i = 0; i < 2 && directory != 0; ++i) {  // the picture's, then the thumbnail's
    const auto next = tiff.entries(directory, [&](const TiffEntry& entry) {
      if (!isOrientation(entry)) return;
      exif[entry.valueAt] = tiff.isLittle() ? 1 : 0;
      exif[entry.valueAt + 1] = tiff.isLittle() ? 0 : 1;
    });
    if (!next) return;
    directory = tiff.number(*next, 4).value_or(0);
  }
}

}  // namespace vellora
