#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "media/pictures/FewColors.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

constexpr std::uint32_t fileHeaderBytes = 14;
constexpr std::uint32_t infoHeaderBytes = 40, version4Bytes = 108, version5Bytes = 124;
constexpr std::uint32_t bitFields = 3;
constexpr std::uint32_t colorsAreSrgb = 0x73524742, profileIsEmbedded = 0x4D424544;
constexpr double inchesPerMeter = 0.0254;

/// A file of Windows' device independent bitmaps: rows from the bottom, numbers little-endian.
class BmpFile {
 public:
  explicit BmpFile(std::size_t bytes) : bytes_(bytes) {}

  void put16(std::uint32_t number) { put(number, 2); }
  void put32(std::uint32_t number) { put(number, 4); }
  void skipTo(std::size_t at) { at_ = at; }
  std::uint8_t* at(std::size_t place) { return reinterpret_cast<std::uint8_t*>(&bytes_[place]); }
  std::vector<std::byte> take() { return std::move(bytes_); }

 private:
  void put(std::uint32_t number, int bytes) {
    for (int i = 0; i < bytes; ++i) bytes_[at_++] = static_cast<std::byte>(number >> (8 * i));
  }

  std::vector<std::byte> bytes_;
  std::size_t at_ = 0;
};

/// Rows of `bitsPerPixel`, each filled up to a multiple of four bytes.
struct BmpLayout {
  int bitsPerPixel;
  std::uint32_t headerBytes;
  std::size_t colors;
  std::size_t rowBytes(int width) const {
    return (static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel) + 31) / 32 * 4;
  }
};

void writeHeaders(BmpFile& file, const Raster& raster, const PictureMetadata& metadata, const BmpLayout& layout) {
  const auto start = static_cast<std::uint32_t>(fileHeaderBytes + layout.headerBytes + 4 * layout.colors);
  const auto pixelBytes =
      static_cast<std::uint32_t>(layout.rowBytes(raster.width()) * static_cast<std::size_t>(raster.height()));
  const auto profileBytes = static_cast<std::uint32_t>(metadata.profile.size());
  file.put16(0x4D42);
  file.put32(start + pixelBytes + profileBytes);
  file.put32(0);
  file.put32(start);
  file.put32(layout.headerBytes);
  file.put32(static_cast<std::uint32_t>(raster.width()));
  file.put32(static_cast<std::uint32_t>(raster.height()));
  file.put16(1);
  file.put16(static_cast<std::uint32_t>(layout.bitsPerPixel));
  file.put32(layout.bitsPerPixel == 32 ? bitFields : 0);
  file.put32(pixelBytes);
  const double density = std::clamp(metadata.dotsPerInch / inchesPerMeter, 0.0, 1e9);
  for (int i = 0; i < 2; ++i) file.put32(static_cast<std::uint32_t>(std::lround(density)));
  file.put32(static_cast<std::uint32_t>(layout.colors));
  file.put32(0);
  if (layout.headerBytes == infoHeaderBytes) return;
  if (layout.bitsPerPixel == 32) {
    for (const std::uint32_t mask : {0xFF0000U, 0xFF00U, 0xFFU, 0xFF000000U}) file.put32(mask);
  } else {
    file.skipTo(fileHeaderBytes + infoHeaderBytes + 16);
  }
  file.put32(metadata.profile.empty() ? colorsAreSrgb : profileIsEmbedded);
  if (layout.headerBytes < version5Bytes) return;
  constexpr std::size_t chromaticitiesAndGammas = 48;
  file.skipTo(fileHeaderBytes + infoHeaderBytes + 16 + 4 + chromaticitiesAndGammas);
  file.put32(4);  // intent: the picture's colors
  file.put32(layout.headerBytes + static_cast<std::uint32_t>(4 * layout.colors) + pixelBytes);
  file.put32(profileBytes);
}

void swapRedAndBlue(const std::uint8_t* source, std::uint8_t* target, int pixels, std::size_t samples) {
  for (int x = 0; x < pixels; ++x, source += samples, target += samples) {
    target[0] = source[2];
    target[1] = source[1];
    target[2] = source[0];
    if (samples == 4) target[3] = source[3];
  }
}

void packIndexes(const std::uint8_t* source, std::uint8_t* target, int pixels, int bitsPerPixel, const FewColors& few) {
  const int perByte = 8 / bitsPerPixel;
  for (int x = 0; x < pixels; ++x) {
    const int shift = (perByte - 1 - x % perByte) * bitsPerPixel;
    std::uint8_t& byte = target[x / perByte];
    byte = static_cast<std::uint8_t>(byte | few.indexOf(colorAt(source, x)) << shift);
  }
}

}  // namespace

EncodedPicture writeBmp(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options) {
  const bool isSolid = isOpaque(raster);
  const auto few = isSolid ? FewColors::of(raster, 256) : std::nullopt;
  BmpLayout layout{isSolid ? 24 : 32, isSolid ? infoHeaderBytes : version4Bytes, 0};
  if (few) {
    layout.colors = few->colors().size();
    layout.bitsPerPixel = layout.colors <= 2 ? 1 : layout.colors <= 16 ? 4 : 8;
  }
  if (!metadata.profile.empty()) layout.headerBytes = version5Bytes;
  const std::size_t rowBytes = layout.rowBytes(raster.width());
  const std::size_t start = fileHeaderBytes + layout.headerBytes + 4 * layout.colors;
  const std::size_t end = start + rowBytes * static_cast<std::size_t>(raster.height());
  if (end + metadata.profile.size() > UINT32_MAX) return refused(PictureError::CannotEncode, "more than 4 GB");
  BmpFile file(end + metadata.profile.size());
  writeHeaders(file, raster, metadata, layout);
  if (few) {
    file.skipTo(start - 4 * layout.colors);
    for (const std::uint32_t color : few->colors()) {
      file.put32((color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF));
    }
  }
  const bool isRgb = !few && isSolid;
  RowConverter rows(raster, isRgb ? RasterLayout::Rgb : RasterLayout::Rgba);
  std::uint8_t* target = file.at(start) + rowBytes * static_cast<std::size_t>(raster.height());
  for (int y = 0; y < raster.height(); ++y) {
    if (y % 256 == 0 && isCancelled(options)) return refused(PictureError::Cancelled);
    target -= rowBytes;
    if (few) {
      packIndexes(rows.row(y), target, raster.width(), layout.bitsPerPixel, *few);
    } else {
      swapRedAndBlue(rows.row(y), target, raster.width(), isRgb ? 3 : 4);
    }
  }
  if (!metadata.profile.empty()) {
    std::memcpy(target + (end - start), metadata.profile.data(), metadata.profile.size());
  }
  return file.take();
}

}  // namespace vellora
