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
constexpr std::uint32_t opaqueBlack = 0xFF000000U;

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
  info.workingBytes = inflatedBytesOf(png) + png.deflatedBytes;
  return info;
}

/// Makes samples of the rows of one pass, one after another.
class RowDecoder {
 public:
  RowDecoder(const PngFile& png, int width)
      : png_(png),
        width_(static_cast<std::size_t>(width)),
        rowBytes_(rowBytesOf(png, width)),
        takesWords_(png.depth == 8 && (png.color == PngColor::Rgb || png.color == PngColor::Rgba)) {
    if (takesWords_) {
      words_.resize(2 * width_, png.color == PngColor::Rgb ? opaqueBlack : 0);
    } else {
      bytes_.resize(2 * rowBytes_);
    }
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
    if (takesWords_) {
      std::uint32_t* const row = &words_[isOdd_ ? width_ : 0];
      const std::uint32_t* const above = &words_[isOdd_ ? 0 : width_];
      const bool isRgb = png_.color == PngColor::Rgb;
      if (!(isRgb ? unfilterRgb : unfilterRgba)(filtered, above, row, width_)) return false;
      takeWords(row, target);
      return true;
    }
    const std::span row(&bytes_[isOdd_ ? rowBytes_ : 0], rowBytes_);
    const std::span above(&bytes_[isOdd_ ? 0 : rowBytes_], rowBytes_);
    const auto distance = static_cast<std::size_t>(std::max(1, png_.channels() * png_.depth / 8));
    if (!unfilterBytes(filtered, above, row, distance)) return false;
    if (png_.color == PngColor::Indexed) {
      takeIndexed(row, target);
    } else if (png_.depth == 16) {
      takeDeep(row, reinterpret_cast<std::uint16_t*>(target));
    } else {
      takeGrey(row, target);
    }
    return true;
  }

 private:
  /// From blue, green, red, alpha.
  void takeWords(const std::uint32_t* row, std::uint8_t* target) const {
    if (png_.color == PngColor::Rgb && png_.transparency.empty()) {
      packRgb(row, target);
      return;
    }
    const bool isKeyed = png_.color == PngColor::Rgb;
    const std::uint32_t clear =
        opaqueBlack | std::uint32_t{clear_[0]} << 16 | std::uint32_t{clear_[1]} << 8 | clear_[2];
    for (std::size_t x = 0; x < width_; ++x, target += 4) {
      const std::uint32_t word = row[x];
      target[0] = static_cast<std::uint8_t>(word >> 16);
      target[1] = static_cast<std::uint8_t>(word >> 8);
      target[2] = static_cast<std::uint8_t>(word);
      target[3] = isKeyed && word == clear ? 0 : static_cast<std::uint8_t>(word >> 24);
    }
  }

  /// Four pixels at a time, which fill three words.
  void packRgb(const std::uint32_t* row, std::uint8_t* target) const {
    const auto rgb = [](std::uint32_t word) { return __builtin_bswap32(word) >> 8; };
    std::size_t x = 0;
    for (; x + 4 <= width_; x += 4, target += 12) {
      const std::uint32_t a = rgb(row[x]), b = rgb(row[x + 1]), c = rgb(row[x + 2]), d = rgb(row[x + 3]);
      const std::array<std::uint32_t, 3> words{a | b << 24, b >> 8 | c << 16, c >> 16 | d << 8};
      std::memcpy(target, words.data(), sizeof(words));
    }
    for (; x < width_; ++x, target += 3) {
      const std::uint32_t last = rgb(row[x]);
      std::memcpy(target, &last, 3);
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

  /// Grey, with or without alpha, of up to 8 bits.
  void takeGrey(std::span<const std::uint8_t> row, std::uint8_t* target) const {
    if (png_.color == PngColor::GrayAlpha || (png_.depth == 8 && png_.transparency.empty())) {
      std::memcpy(target, row.data(), row.size());
      return;
    }
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
  const bool takesWords_;
  std::vector<std::uint8_t> bytes_;       // two rows in turn
  std::vector<std::uint32_t> words_;      // likewise
  std::array<std::uint16_t, 3> clear_{};  // the color tRNS makes transparent
  bool isOdd_ = false;
};

Result<std::shared_ptr<std::byte[]>, PictureFailure> inflate(const PngFile& png) {
  const std::size_t bytes = inflatedBytesOf(png);
  if (bytes / mostInflated > png.deflatedBytes) return refused(PictureError::Damaged, "too little data");
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
  auto pixels = allocatePixels(bytes);
  if (!decompressor || !pixels) return refused(PictureError::OutOfMemory);
  // Without a place for the actual size, any other size is an error.
  if (libdeflate_zlib_decompress(decompressor.get(), deflated.data(), deflated.size(), pixels.get(), bytes, nullptr) !=
      LIBDEFLATE_SUCCESS) {
    return refused(PictureError::Damaged, "corrupt compressed data");
  }
  return pixels;
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
  // The data first: it is found to be too short before any memory is taken.
  const auto pixels = inflate(*png);
  if (!pixels) return failure(pixels.error());
  auto raster = rasterFor(png->width, png->height, layoutOf(*png), png->depth == 16 ? 16 : 8);
  if (!raster) return failure(raster.error());
  if (!decodePasses(*png, pixels->get(), *raster)) return refused(PictureError::Damaged, "unknown filter");
  picture.raster = std::move(*raster);
  picture.metadata = {copyOf(png->exif), png->xmp, png->profile, png->dotsPerInch};
  if (png->color == PngColor::Indexed) picture.palette = static_cast<int>(png->palette.size() / 3);
  return picture;
}

}  // namespace vellora
