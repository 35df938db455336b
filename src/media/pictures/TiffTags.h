#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>

#include "media/pictures/FileBytes.h"

namespace vellora {

/// Numbers of TIFF 6.0 and its supplements.
namespace tiff {

constexpr std::uint32_t byteType = 1, shortType = 3, longType = 4, rationalType = 5, undefinedType = 7, ifdType = 13;
constexpr std::uint32_t long8Type = 16, ifd8Type = 18;

constexpr std::uint32_t imageWidth = 256, imageLength = 257, bitsPerSample = 258, compression = 259, photometric = 262;
constexpr std::uint32_t stripOffsets = 273, orientation = 274, samplesPerPixel = 277, rowsPerStrip = 278;
constexpr std::uint32_t stripByteCounts = 279, xResolution = 282, yResolution = 283, planarConfiguration = 284;
constexpr std::uint32_t resolutionUnit = 296, predictor = 317, tileWidth = 322, tileLength = 323, tileOffsets = 324;
constexpr std::uint32_t tileByteCounts = 325, subDirectories = 330, extraSamples = 338, xmp = 700, profile = 34675;
constexpr std::uint32_t dngVersion = 50706;

/// Whether an entry says how the pixels are stored, colored or printed, and nothing else.
bool isAboutPixels(std::uint32_t tag);

}  // namespace tiff

/// Numbers in a TIFF structure, read with care: nothing where they would lie outside.
struct TiffNumbers {
  FileBytes bytes;
  bool isLittle = true;

  std::optional<std::uint64_t> at(std::uint64_t place, std::size_t size) const;
};

/// Whether it begins as a classic TIFF structure (not BigTIFF).
bool isTiffStructure(FileBytes bytes);

}  // namespace vellora
