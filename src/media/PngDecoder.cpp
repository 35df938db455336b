#include "media/PngDecoder.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <utility>
#include <vector>

#include "media/ByteBuffer.h"
#include "media/PixelRows.h"
#include "media/PngChunks.h"
#include "media/PngUnfilter.h"

namespace vellora {
namespace {

using Bytes = std::span<const std::byte>;
using Outcome = std::optional<PngDecodeError>;

constexpr std::uint32_t opaque = 0xFF000000U;
/// Deflate says 258 bytes with two bits at best (RFC 1951, 3.2.5).
constexpr std::size_t mostInflated = 1032;

std::uint32_t grayWord(std::uint32_t value) {
  return value * 0x010101U;
}

/// The word, blue lowest, for each value a sample of a grey or indexed picture can have.
std::array<std::uint32_t, 256> colorsOf(const PngChunks& png) {
  std::array<std::uint32_t, 256> colors;
  colors.fill(opaque);  // what an index outside the palette shows
  const auto at = [](Bytes bytes, std::size_t i) { return std::to_integer<std::uint32_t>(bytes[i]); };
  if (png.color == PngColor::Indexed) {
    for (std::size_t i = 0; i < png.palette.size() / 3; ++i) {
      const std::uint32_t alpha = i < png.transparency.size() ? at(png.transparency, i) : 255;
      colors[i] =
          alpha << 24 | at(png.palette, 3 * i) << 16 | at(png.palette, 3 * i + 1) << 8 | at(png.palette, 3 * i + 2);
    }
    return colors;
  }
  const std::uint32_t highest = (1U << png.depth) - 1;
  for (std::uint32_t value = 0; value <= highest; ++value) colors[value] = opaque | grayWord(value * 255 / highest);
  if (png.transparency.size() == 2) {
    const std::uint32_t clear = at(png.transparency, 0) << 8 | at(png.transparency, 1);
    if (clear <= highest) colors[clear] = 0;
  }
  return colors;
}

/// Unfilters rows that are not plain RGB. Each stays as it was before its transparency was applied until the next one,
/// whose filter may refer to it, is done.
class RowDecoder {
 public:
  explicit RowDecoder(const PngChunks& png)
      : png_(png), width_(static_cast<std::size_t>(png.size.width)), rowBytes_(png.rowBytes()) {
    if (png.color == PngColor::Rgb || png.color == PngColor::Rgba) {
      words_.resize(2 * width_, png.color == PngColor::Rgb ? opaque : 0);
      if (png.transparency.size() == 6) {
        const auto low = [&](std::size_t at) { return std::to_integer<std::uint32_t>(png.transparency[at]); };
        clear_ = opaque | low(1) << 16 | low(3) << 8 | low(5);
      }
    } else {
      bytes_.resize(2 * rowBytes_);
      words_.resize(width_);
      if (png.color != PngColor::GrayAlpha) colors_ = colorsOf(png);
    }
  }

  /// Makes `target` of the row that begins at `filtered`; they may overlap. False when its filter is unknown.
  bool decode(const std::byte* filtered, std::byte* target) {
    if (!straighten(filtered)) return false;
    if (isSolidRow(reinterpret_cast<const std::byte*>(straight_), width_)) {
      std::memcpy(target, straight_, width_ * 4);
      return true;
    }
    solid_ = false;
    premultiplyRow({straight_, width_}, target);
    return true;
  }

  /// Whether every pixel so far was opaque.
  bool isSolid() const { return solid_; }

 private:
  /// Leaves the row in straight_: blue, green, red, alpha, not multiplied.
  bool straighten(const std::byte* filtered) {
    odd_ = !odd_;
    switch (png_.color) {
      case PngColor::Rgb:
      case PngColor::Rgba: {
        std::uint32_t* const row = &words_[odd_ ? width_ : 0];
        const std::uint32_t* const above = &words_[odd_ ? 0 : width_];
        straight_ = row;
        if (png_.color == PngColor::Rgba) return unfilterRgba(filtered, above, row, width_);
        if (!unfilterRgb(filtered, above, row, width_)) return false;
        keyed_.assign(row, row + width_);
        std::replace(keyed_.begin(), keyed_.end(), clear_, 0U);
        straight_ = keyed_.data();
        return true;
      }
      case PngColor::Gray:
      case PngColor::Indexed:
      case PngColor::GrayAlpha:
        break;
    }
    const std::span row(&bytes_[odd_ ? rowBytes_ : 0], rowBytes_);
    const std::span above(&bytes_[odd_ ? 0 : rowBytes_], rowBytes_);
    if (!unfilterBytes(filtered, above, row, png_.color == PngColor::GrayAlpha ? 2 : 1)) return false;
    expand(row);
    straight_ = words_.data();
    return true;
  }

  void expand(std::span<const std::uint8_t> row) {
    if (png_.color == PngColor::GrayAlpha) {
      for (std::size_t x = 0; x < width_; ++x) {
        words_[x] = grayWord(row[2 * x]) | static_cast<std::uint32_t>(row[2 * x + 1]) << 24;
      }
    } else if (png_.depth == 8) {
      for (std::size_t x = 0; x < width_; ++x) words_[x] = colors_[row[x]];
    } else {
      const auto depth = static_cast<std::size_t>(png_.depth);
      const unsigned mask = (1U << depth) - 1;
      for (std::size_t x = 0; x < width_; ++x) {
        const std::size_t bit = x * depth;
        words_[x] = colors_[static_cast<unsigned>(row[bit / 8]) >> (8 - depth - bit % 8) & mask];
      }
    }
  }

  const PngChunks& png_;
  const std::size_t width_, rowBytes_;
  std::vector<std::uint8_t> bytes_;   // two rows in turn
  std::vector<std::uint32_t> words_;  // likewise, or one row made of bytes_
  std::vector<std::uint32_t> keyed_;
  std::array<std::uint32_t, 256> colors_{};
  const std::uint32_t* straight_ = nullptr;
  std::uint32_t clear_ = opaque;
  bool odd_ = false;
  bool solid_ = true;
};

Outcome inflate(const PngChunks& png, std::byte* target, std::size_t bytes) {
  Bytes deflated = png.deflated.front();
  ByteBuffer joined;
  if (png.deflated.size() > 1) {
    if (joined.reserve(png.deflatedBytes) == nullptr) return PngDecodeError::OutOfMemory;
    for (const Bytes piece : png.deflated) {
      if (!joined.append(piece)) return PngDecodeError::OutOfMemory;
    }
    deflated = joined.bytes();
  }
  const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
      libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
  if (!decompressor) return PngDecodeError::OutOfMemory;
  // Without a place for the actual size, any other size is an error.
  const auto result =
      libdeflate_zlib_decompress(decompressor.get(), deflated.data(), deflated.size(), target, bytes, nullptr);
  return result == LIBDEFLATE_SUCCESS ? std::nullopt : Outcome(PngDecodeError::Damaged);
}

/// Decodes rows of RGB without transparency straight into the bitmap, whose last row serves the next as the one above.
bool decodeRgb(const std::byte* filtered, std::size_t stride, std::byte* target, PixelSize size) {
  const auto width = static_cast<std::size_t>(size.width);
  const std::vector<std::uint32_t> black(width, opaque);
  const std::uint32_t* above = black.data();
  for (int y = 0; y < size.height; ++y, filtered += stride, target += width * 4) {
    auto* row = reinterpret_cast<std::uint32_t*>(target);
    if (!unfilterRgb(filtered, above, row, width)) return false;
    above = row;
  }
  return true;
}

Result<Bitmap, PngDecodeError> decode(Bytes file, const PngLimits& limits) {
  const auto png = readPngChunks(file, limits);
  if (!png) return failure(png.error());
  const PixelSize size = png->size;
  const std::size_t filteredStride = png->rowBytes() + 1;
  const std::size_t filteredBytes = filteredStride * static_cast<std::size_t>(size.height);
  if (filteredBytes / mostInflated > png->deflatedBytes) return failure(PngDecodeError::Damaged);

  // One pixel more for every row, or one row more, holds the filter bytes too.
  const PixelSize room =
      size.width < size.height ? PixelSize{size.width + 1, size.height} : PixelSize{size.width, size.height + 1};
  const bool plainRgb = png->color == PngColor::Rgb && png->transparency.empty();
  auto memory = MutableBitmap::create(room, PixelAlpha::Opaque);
  if (!memory) return failure(PngDecodeError::OutOfMemory);
  std::byte* const pixels = memory->row(0);
  std::byte* const filtered = memory->row(room.height) - filteredBytes;
  if (const Outcome error = inflate(*png, filtered, filteredBytes)) return failure(*error);

  const std::size_t stride = static_cast<std::size_t>(size.width) * 4;
  bool solid = true;
  if (plainRgb) {
    if (!decodeRgb(filtered, filteredStride, pixels, size)) return failure(PngDecodeError::Damaged);
  } else {
    RowDecoder rows(*png);
    for (std::size_t y = 0; y < static_cast<std::size_t>(size.height); ++y) {
      if (!rows.decode(filtered + y * filteredStride, pixels + y * stride)) return failure(PngDecodeError::Damaged);
    }
    solid = rows.isSolid();
  }
  const auto owner = std::move(*memory).finish().owner();
  return Bitmap(pixels, size, stride, solid ? PixelAlpha::Opaque : PixelAlpha::Premultiplied, owner);
}

}  // namespace

Result<Bitmap, PngDecodeError> decodePng(Bytes file, const PngLimits& limits) {
  try {
    return decode(file, limits);
  } catch (const std::bad_alloc&) {
    return failure(PngDecodeError::OutOfMemory);
  }
}

}  // namespace vellora
