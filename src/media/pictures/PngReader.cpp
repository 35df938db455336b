#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <utility>

#include "base/PixelMemory.h"
#include "media/ByteBuffer.h"
#include "media/PngUnfilter.h"
#include "media/pictures/ExifBlock.h"
#include "media/pictures/Orientation.h"
#include "media/pictures/PictureFormats.h"
#include "media/pictures/PngFile.h"

namespace vellora {
namespace {

/// Deflate says 258 bytes with two bits at best (RFC 1951, 3.2.5).
constexpr std::size_t mostInflated = 1032;

/// A picture as it lies in the data: the whole, or every few pixels of it.
struct Pass {
  int x, y;           // of its first pixel
  int stepX, stepY;   // to the next
  int width, height;  // in pixels, either may be 0
};

/// The passes of an interlaced file (8.1), or the one of any other.
std::vector<Pass> passesOf(const PngFile& png) {
  if (!png.isInterlaced) return {{0, 0, 1, 1, png.width, png.height}};
  std::vector<Pass> passes{{0, 0, 8, 8, 0, 0}, {4, 0, 8, 8, 0, 0}, {0, 4, 4, 8, 0, 0}, {2, 0, 4, 4, 0, 0},
                           {0, 2, 2, 4, 0, 0}, {1, 0, 2, 2, 0, 0}, {0, 1, 1, 2, 0, 0}};
  for (Pass& pass : passes) {
    pass.width = (png.width - pass.x + pass.stepX - 1) / pass.stepX;
    pass.height = (png.height - pass.y + pass.stepY - 1) / pass.stepY;
  }
  return passes;
}

std::size_t rowBytesOf(const PngFile& png, int width) {
  return (static_cast<std::size_t>(width) * static_cast<std::size_t>(png.channels() * png.depth) + 7) / 8;
}

std::size_t inflatedBytesOf(const PngFile& png) {
  std::size_t bytes = 0;
  for (const Pass& pass : passesOf(png)) {
    if (pass.width > 0) bytes += (rowBytesOf(png, pass.width) + 1) * static_cast<std::size_t>(pass.height);
  }
  return bytes;
}

bool hasAlphaChannel(const PngFile& png) {
  if (png.color == PngColor::Rgba || png.color == PngColor::GrayAlpha) return true;
  if (png.color != PngColor::Indexed) return !png.transparency.empty();
  return std::any_of(png.transparency.begin(), png.transparency.end(), [](std::byte a) { return a != std::byte{255}; });
}

RasterLayout layoutOf(const PngFile& png) {
  const bool isGrey = png.color == PngColor::Gray || png.color == PngColor::GrayAlpha;
  if (isGrey) return hasAlphaChannel(png) ? RasterLayout::GreyAlpha : RasterLayout::Grey;
  return hasAlphaChannel(png) ? RasterLayout::Rgba : RasterLayout::Rgb;
}

/// Whether samples stand in the file as in a raster.
bool hasPlainRows(const PngFile& png) {
  return png.depth == 8 && png.color != PngColor::Indexed && png.transparency.empty();
}

/// Whether the raster's own memory serves for inflating.
bool isUnfilteredInPlace(const PngFile& png) {
  return hasPlainRows(png) && !png.isInterlaced;
}

PictureInfo infoOf(const PngFile& png) {
  PictureInfo info{.type = PictureType::Png, .width = png.width, .height = png.height};
  info.orientation = exifFacts({octets(png.exif), png.exif.size()}).orientation;
  if (isSideways(info.orientation)) std::swap(info.width, info.height);
  info.frames = static_cast<int>(std::min(png.frames, 0x7FFFFFFFU));
  info.isAnimated = png.frames > 1;
  info.bitsPerSample = png.depth;
  if (png.color == PngColor::Indexed) info.colors = PictureColors::Palette;
  if (png.color == PngColor::Gray || png.color == PngColor::GrayAlpha) info.colors = PictureColors::Grey;
  info.hasAlpha = hasAlphaChannel(png);
  info.hasProfile = !png.profile.empty();
  info.hasMetadata = !png.exif.empty() || png.hasTexts;
  info.workingBytes = (isUnfilteredInPlace(png) ? 0 : inflatedBytesOf(png)) + png.deflatedBytes;
  return info;
}

/// What filters look back.
std::size_t filterDistance(const PngFile& png) {
  return static_cast<std::size_t>(std::max(1, png.channels() * png.depth / 8));
}

/// Makes samples of the rows of one pass, one after another.
class RowDecoder {
 public:
  RowDecoder(const PngFile& png, int width)
      : png_(png), width_(static_cast<std::size_t>(width)), rowBytes_(rowBytesOf(png, width)), bytes_(2 * rowBytes_) {
    if (png.color == PngColor::Indexed) return;
    const std::uint32_t mask = (1U << png.depth) - 1;
    for (std::size_t i = 0; i < png.transparency.size() / 2; ++i) {
      clear_[i] = static_cast<std::uint16_t>(big16(png.transparency, 2 * i) & mask);
    }
  }

  std::size_t filteredBytes() const { return rowBytes_ + 1; }

  /// False when the row's filter is unknown.
  bool decode(const std::byte* filtered, std::uint8_t* target) {
    isOdd_ = !isOdd_;
    const std::span row(&bytes_[isOdd_ ? rowBytes_ : 0], rowBytes_);
    const std::span above(&bytes_[isOdd_ ? 0 : rowBytes_], rowBytes_);
    if (!unfilterBytes(filtered, above, row, filterDistance(png_))) return false;
    if (hasPlainRows(png_)) {
      std::memcpy(target, row.data(), row.size());
    } else if (png_.color == PngColor::Indexed) {
      takeIndexed(row, target);
    } else if (png_.depth == 16) {
      takeDeep(row, reinterpret_cast<std::uint16_t*>(target));
    } else if (png_.color == PngColor::Rgb) {
      takeKeyed(row, target);
    } else {
      takeGrey(row, target);
    }
    return true;
  }

 private:
  /// Red, green and blue, of which one color is transparent.
  void takeKeyed(std::span<const std::uint8_t> row, std::uint8_t* target) const {
    for (std::size_t x = 0; x < row.size(); x += 3, target += 4) {
      std::memcpy(target, &row[x], 3);
      const bool isClear = row[x] == clear_[0] && row[x + 1] == clear_[1] && row[x + 2] == clear_[2];
      target[3] = isClear ? 0 : 255;
    }
  }

  unsigned int packed(std::span<const std::uint8_t> row, std::size_t x) const {
    const auto depth = static_cast<std::size_t>(png_.depth);
    if (depth == 8) return row[x];
    const std::size_t bit = x * depth;
    return static_cast<unsigned int>(row[bit / 8]) >> (8 - depth - bit % 8) & ((1U << depth) - 1);
  }

  void takeIndexed(std::span<const std::uint8_t> row, std::uint8_t* target) const {
    const std::size_t step = hasAlphaChannel(png_) ? 4 : 3, colors = png_.palette.size() / 3;
    for (std::size_t x = 0; x < width_; ++x, target += step) {
      const std::size_t index = packed(row, x);
      // An index outside the palette shows black.
      for (std::size_t i = 0; i < 3; ++i) {
        target[i] = index < colors ? std::to_integer<std::uint8_t>(png_.palette[3 * index + i]) : std::uint8_t{0};
      }
      if (step == 3) continue;
      target[3] = index < png_.transparency.size() ? std::to_integer<std::uint8_t>(png_.transparency[index])
                                                   : std::uint8_t{255};
    }
  }

  /// Grey of less than 8 bits, or of which one level is transparent.
  void takeGrey(std::span<const std::uint8_t> row, std::uint8_t* target) const {
    const unsigned int highest = (1U << png_.depth) - 1;
    for (std::size_t x = 0; x < width_; ++x) {
      const unsigned int level = packed(row, x);
      *target++ = static_cast<std::uint8_t>(level * 255 / highest);
      if (!png_.transparency.empty()) *target++ = level == clear_[0] ? 0 : 255;
    }
  }

  void takeDeep(std::span<const std::uint8_t> row, std::uint16_t* target) const {
    const auto channels = static_cast<std::size_t>(png_.channels());
    const std::uint8_t* source = row.data();
    for (std::size_t x = 0; x < width_; ++x) {
      bool isClear = true;
      for (std::size_t i = 0; i < channels; ++i, source += 2) {
        const auto sample = static_cast<std::uint16_t>(source[0] << 8 | source[1]);
        if (i < clear_.size()) isClear = isClear && sample == clear_[i];
        *target++ = sample;
      }
      if (!png_.transparency.empty()) *target++ = isClear ? 0 : 0xFFFF;
    }
  }

  const PngFile& png_;
  const std::size_t width_, rowBytes_;
  std::vector<std::uint8_t> bytes_;       // two rows in turn
  std::array<std::uint16_t, 3> clear_{};  // the color tRNS makes transparent
  bool isOdd_ = false;
};

/// Whether there is enough data at all: to be asked before any memory is taken.
bool mayInflate(const PngFile& png) {
  return inflatedBytesOf(png) / mostInflated <= png.deflatedBytes;
}

Result<void, PictureFailure> inflate(const PngFile& png, std::byte* target) {
  FileBytes deflated = png.deflated.front();
  ByteBuffer joined;
  if (png.deflated.size() > 1) {
    if (joined.reserve(png.deflatedBytes) == nullptr) return refused(PictureError::OutOfMemory);
    for (const FileBytes piece : png.deflated) {
      if (!joined.append(piece)) return refused(PictureError::OutOfMemory);
    }
    deflated = joined.bytes();
  }
  const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
      libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
  if (!decompressor) return refused(PictureError::OutOfMemory);
  // Without a place for the actual size, any other size is an error.
  if (libdeflate_zlib_decompress(decompressor.get(), deflated.data(), deflated.size(), target, inflatedBytesOf(png),
                                 nullptr) != LIBDEFLATE_SUCCESS) {
    return refused(PictureError::Damaged, "corrupt compressed data");
  }
  return {};
}

/// Unfilters rows where they were inflated: each moves up by the filters' numbers before it.
bool unfilterInPlace(const PngFile& png, Raster& raster) {
  const std::size_t rowBytes = raster.stride();
  const std::vector<std::uint8_t> nothing(rowBytes);
  const std::uint8_t* above = nothing.data();
  const auto* filtered = reinterpret_cast<const std::byte*>(raster.row(0));
  for (int y = 0; y < png.height; ++y, filtered += rowBytes + 1) {
    std::uint8_t* const row = raster.row(y);
    if (!unfilterBytes(filtered, {above, rowBytes}, {row, rowBytes}, filterDistance(png))) return false;
    above = row;
  }
  return true;
}

bool decodePasses(const PngFile& png, const std::byte* filtered, Raster& raster) {
  const std::size_t bytesPerPixel = raster.bytesPerPixel();
  std::vector<std::uint8_t> spread(png.isInterlaced ? raster.stride() : 0);
  for (const Pass& pass : passesOf(png)) {
    if (pass.width == 0) continue;
    RowDecoder rows(png, pass.width);
    for (int row = 0; row < pass.height; ++row, filtered += rows.filteredBytes()) {
      std::uint8_t* const target = raster.row(pass.y + row * pass.stepY);
      if (!png.isInterlaced) {
        if (!rows.decode(filtered, target)) return false;
        continue;
      }
      if (!rows.decode(filtered, spread.data())) return false;
      for (int i = 0; i < pass.width; ++i) {
        std::memcpy(target + static_cast<std::size_t>(pass.x + i * pass.stepX) * bytesPerPixel,
                    &spread[static_cast<std::size_t>(i) * bytesPerPixel], bytesPerPixel);
      }
    }
  }
  return true;
}

}  // namespace

Result<PictureInfo, PictureFailure> inspectPng(FileBytes file) {
  const auto png = readPngFile(file, false);
  if (!png) return failure(png.error());
  return infoOf(*png);
}

Result<DecodedPicture, PictureFailure> decodePngPicture(FileBytes file, const DecodeOptions&) {
  const auto png = readPngFile(file, true);
  if (!png) return failure(png.error());
  DecodedPicture picture{.info = infoOf(*png)};
  if (!mayInflate(*png)) return refused(PictureError::Damaged, "too little data");
  const bool isInPlace = isUnfilteredInPlace(*png);
  auto raster = rasterFor(png->width, png->height, layoutOf(*png), png->depth == 16 ? 16 : 8,
                          isInPlace ? static_cast<std::size_t>(png->height) : 0);
  if (!raster) return failure(raster.error());
  const auto pixels = isInPlace ? nullptr : allocatePixels(inflatedBytesOf(*png));
  if (!isInPlace && !pixels) return refused(PictureError::OutOfMemory);
  const auto inflated = inflate(*png, isInPlace ? reinterpret_cast<std::byte*>(raster->row(0)) : pixels.get());
  if (!inflated) return failure(inflated.error());
  const bool isWhole = isInPlace ? unfilterInPlace(*png, *raster) : decodePasses(*png, pixels.get(), *raster);
  if (!isWhole) return refused(PictureError::Damaged, "unknown filter");
  picture.raster = std::move(*raster);
  picture.metadata = {copyOf(png->exif), png->xmp, png->profile, png->dotsPerInch};
  if (png->color == PngColor::Indexed) picture.palette = static_cast<int>(png->palette.size() / 3);
  return picture;
}

}  // namespace vellora
