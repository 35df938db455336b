#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// What matters of an Exif block (CIPA DC-008: a TIFF structure) for showing its picture.
struct ExifFacts {
  int orientation = 1;     ///< 1 to 8
  double dotsPerInch = 0;  ///< 0: not said
};

/// Never fails: what cannot be understood is as if it were not there.
ExifFacts exifFacts(std::span<const std::uint8_t> exif);

/// Makes the block say that the picture and its thumbnail stand upright.
void setUpright(std::vector<std::uint8_t>& exif);

/// The block that says about a TIFF file what Exif says: the tags about the picture's making, with the directories of
/// Exif and GPS. Empty when there is nothing of the kind, and for BigTIFF.
std::vector<std::uint8_t> exifOfTiff(std::span<const std::uint8_t> file);

}  // namespace vellora
