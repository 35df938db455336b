#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/PictureType.h"
#include "media/pictures/Raster.h"

namespace vellora {

/// How the pixels stand in the file.
enum class PictureColors : std::uint8_t { Grey, Rgb, Palette, Cmyk };

/// What a file says about its picture before any of it is decoded.
struct PictureInfo {
  PictureType type = PictureType::Png;
  int width = 0;  ///< pixels, upright
  int height = 0;
  int frames = 1;  ///< of an animation, or pages
  bool isAnimated = false;
  int bitsPerSample = 8;
  PictureColors colors = PictureColors::Rgb;
  bool hasAlpha = false;
  int orientation = 1;  ///< of Exif, 1 to 8: how the stored pixels have to be turned
  bool hasProfile = false;
  bool hasMetadata = false;      ///< Exif, XMP, IPTC, comments
  std::size_t workingBytes = 0;  ///< what the decoder needs beside the pixels
};

/// What goes with the pixels. Blocks as they stand in a file, without the file's framing; empty for none.
struct PictureMetadata {
  std::vector<std::uint8_t> exif;  ///< a TIFF structure; its orientation is 1 because the pixels have been turned
  std::vector<std::uint8_t> xmp;
  std::vector<std::uint8_t> profile;  ///< ICC; empty means sRGB
  double dotsPerInch = 0;             ///< 0: not said
};

struct DecodedPicture {
  PictureInfo info;
  Raster raster;  ///< upright; Grey only when the file is grey
  PictureMetadata metadata;
  int palette = 0;  ///< colors of the file's palette; 0 without one
};

struct DecodeOptions {
  /// Where not 0, a picture whose longer edge is larger may come smaller, but not smaller than this, where that saves
  /// work (JPEG). What comes then has still to be resized.
  int neededEdge = 0;
  /// 16-bit samples stay so; else they become 8-bit ones.
  bool keepsDepth = false;
  /// Keeps the file's own colors and profile; else they are converted to sRGB and the profile is left out. CMYK always
  /// is.
  bool keepsProfile = false;
  bool keepsMetadata = false;
};

namespace pictureLimits {
inline constexpr std::uintmax_t fileBytes = std::uintmax_t{512} << 20;
}

/// The whole file. Never follows a name into a device or a pipe, never reads beyond the limits.
Result<std::vector<std::byte>, PictureFailure> readPictureFile(const std::filesystem::path& file);

/// Looks at the headers alone. Any thread.
Result<PictureInfo, PictureFailure> inspectPicture(std::span<const std::byte> file);

/// Decodes the first frame or page; truncated data is Damaged, never half a picture. Any thread.
Result<DecodedPicture, PictureFailure> decodePicture(std::span<const std::byte> file,
                                                     const DecodeOptions& options = {});

/// The bytes that decoding takes at most, for keeping several decodings within bounds.
std::size_t decodedBytesOf(const PictureInfo& info, const DecodeOptions& options = {});

}  // namespace vellora
