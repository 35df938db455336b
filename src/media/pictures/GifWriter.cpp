#include <bit>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "media/pictures/FewColors.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/GifLzw.h"
#include "media/pictures/PaletteQuantizer.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

/// A pixel is there or it is not.
constexpr std::uint32_t leastAlpha = 128;
constexpr std::size_t mostColors = 256;

using Color = PaletteQuantizer::Color;
using File = std::vector<std::byte>;

void put(File& file, std::initializer_list<int> bytes) {
  for (const int byte : bytes) file.push_back(static_cast<std::byte>(byte));
}

/// Everything before the pixels (GIF89a, sections 17 to 23); the bits an index needs.
int writeStart(File& file, const Raster& raster, const std::vector<Color>& palette, std::optional<int> transparent) {
  const auto bits = std::max(1, static_cast<int>(std::bit_width(std::max<std::size_t>(palette.size(), 1) - 1)));
  const int width = raster.width(), height = raster.height();
  for (const char letter : std::string_view("GIF89a")) put(file, {letter});
  put(file, {width, width >> 8, height, height >> 8, 0xF0 | (bits - 1), 0, 0});
  for (const Color& color : palette) put(file, {color.red, color.green, color.blue});
  file.resize(file.size() + 3 * ((std::size_t{1} << bits) - palette.size()));
  if (transparent) put(file, {0x21, 0xF9, 4, 1, 0, 0, *transparent, 0});
  put(file, {0x2C, 0, 0, 0, 0, width, width >> 8, height, height >> 8, 0});
  return bits;
}

/// `fill` makes the indexes of a row from its pixels.
template <class Fill>
EncodedPicture encode(const Raster& raster, const std::vector<Color>& palette, std::optional<int> transparent,
                      const WriteOptions& options, const Fill& fill) {
  File file;
  const int bits = writeStart(file, raster, palette, transparent);
  const auto lzw = std::make_unique<GifLzw>(bits, file);
  RowConverter rows(raster, RasterLayout::Rgba);
  std::vector<std::uint8_t> indexes(static_cast<std::size_t>(raster.width()));
  for (int y = 0; y < raster.height(); ++y) {
    if (y % 64 == 0 && isCancelled(options)) return refused(PictureError::Cancelled);
    fill(rows.row(y), indexes);
    lzw->add(indexes);
  }
  lzw->finish();
  put(file, {0x3B});
  return file;
}

EncodedPicture encodeExactly(const Raster& raster, const FewColors& few, const WriteOptions& options) {
  std::vector<Color> palette;
  std::optional<int> transparent;
  for (const std::uint32_t color : few.colors()) {
    if (color == 0) transparent = static_cast<int>(palette.size());
    palette.push_back({static_cast<std::uint8_t>(color), static_cast<std::uint8_t>(color >> 8),
                       static_cast<std::uint8_t>(color >> 16)});
  }
  return encode(raster, palette, transparent, options, [&](const std::uint8_t* row, std::span<std::uint8_t> indexes) {
    for (std::size_t x = 0; x < indexes.size(); ++x) {
      indexes[x] = few.indexOf(thresholded(colorAt(row, static_cast<int>(x)), leastAlpha));
    }
  });
}

}  // namespace

EncodedPicture writeGif(const Raster& raster, const PictureMetadata&, const WriteOptions& options) {
  if (const auto few = FewColors::of(raster, mostColors, leastAlpha)) return encodeExactly(raster, *few, options);
  const bool isSolid = isOpaque(raster);
  PaletteQuantizer quantizer(raster, isSolid ? mostColors : mostColors - 1, leastAlpha);
  std::vector<Color> palette = quantizer.colors();
  std::optional<int> transparent;
  if (!isSolid) {
    transparent = static_cast<int>(palette.size());
    palette.push_back({0, 0, 0});
  }
  const auto transparentIndex = static_cast<std::uint8_t>(transparent.value_or(0));
  return encode(raster, palette, transparent, options, [&](const std::uint8_t* row, std::span<std::uint8_t> indexes) {
    quantizer.quantizeRow(row, indexes, transparentIndex);
  });
}

}  // namespace vellora
