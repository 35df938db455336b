#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "base/Result.h"
#include "media/PngChunks.h"
#include "media/pictures/ColorConversion.h"
#include "media/pictures/FileBytes.h"

namespace vellora {

/// What a PNG file (W3C PNG, third edition) of any kind consists of. The spans point into the file.
struct PngFile {
  int width = 0;
  int height = 0;
  int depth = 8;  ///< bits per sample
  PngColor color = PngColor::Rgb;
  bool isInterlaced = false;
  unsigned int frames = 1;            ///< as the animation announces
  FileBytes palette;                  ///< red, green, blue
  FileBytes transparency;             ///< what tRNS holds; empty without one
  std::vector<FileBytes> deflated{};  ///< the pieces of the zlib stream
  std::size_t deflatedBytes = 0;
  FileBytes exif;
  std::vector<std::uint8_t> xmp{};
  std::vector<std::uint8_t> profile{};  ///< from iCCP, cICP or gAMA and cHRM, in the order of their rank
  double dotsPerInch = 0;
  bool hasTexts = false;

  int channels() const;
};

/// Takes a file apart. Ancillary chunks that break a rule are as if they were not there. With `checksPixels`, the
/// checksums of the compressed data count too.
Result<PngFile, PictureFailure> readPngFile(FileBytes file, bool checksPixels);

}  // namespace vellora
