#include "platform/linux/clipboard/PngToTiff.h"

#include <png.h>

#include <cstdint>
#include <cstring>
#include <memory>

namespace vellora {
namespace {

constexpr std::uint64_t maximumPixelBytes = std::uint64_t{1} << 30;

enum Tag : std::uint16_t {
  imageWidth = 256,
  imageLength = 257,
  bitsPerSample = 258,
  compression = 259,
  photometric = 262,
  stripOffsets = 273,
  samplesPerPixel = 277,
  rowsPerStrip = 278,
  stripByteCounts = 279,
  planarConfiguration = 284,
  extraSamples = 338,
};
enum Type : std::uint16_t { shortValue = 3, longValue = 4 };

/// Builds the one directory of the file in little-endian order.
class Directory {
 public:
  void add(Tag tag, Type type, std::uint32_t value) { add(tag, type, 1, value); }
  void add(Tag tag, Type type, std::uint32_t count, std::uint32_t value) {
    put16(tag);
    put16(type);
    put32(count);
    put32(value);
    ++entries_;
  }
  std::uint16_t entries() const { return entries_; }
  const std::vector<std::byte>& bytes() const { return bytes_; }
  void put16(std::uint32_t value) {
    bytes_.push_back(static_cast<std::byte>(value & 0xFF));
    bytes_.push_back(static_cast<std::byte>((value >> 8) & 0xFF));
  }
  void put32(std::uint32_t value) {
    put16(value & 0xFFFF);
    put16(value >> 16);
  }

 private:
  std::vector<std::byte> bytes_;
  std::uint16_t entries_ = 0;
};

struct ImageDeleter {
  void operator()(png_image* image) const { png_image_free(image); }
};

}  // namespace

std::optional<std::vector<std::byte>> tiffFromPng(std::span<const std::byte> png) {
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  const std::unique_ptr<png_image, ImageDeleter> cleanUp(&image);
  if (png_image_begin_read_from_memory(&image, png.data(), png.size()) == 0) return std::nullopt;
  const bool alpha = (image.format & PNG_FORMAT_FLAG_ALPHA) != 0;
  image.format = alpha ? PNG_FORMAT_RGBA : PNG_FORMAT_RGB;
  const std::uint32_t samples = alpha ? 4 : 3;
  const std::uint64_t pixelBytes = std::uint64_t{image.width} * image.height * samples;
  if (pixelBytes == 0 || pixelBytes > maximumPixelBytes) return std::nullopt;

  // File: header, pixels, bits per sample, directory.
  constexpr std::uint32_t headerBytes = 8;
  const auto pixelEnd = static_cast<std::uint32_t>(headerBytes + pixelBytes + (pixelBytes & 1));
  const std::uint32_t directoryAt = pixelEnd + samples * 2;
  Directory file;
  file.add(imageWidth, longValue, image.width);
  file.add(imageLength, longValue, image.height);
  file.add(bitsPerSample, shortValue, samples, pixelEnd);
  file.add(compression, shortValue, 1);
  file.add(photometric, shortValue, 2);
  file.add(stripOffsets, longValue, headerBytes);
  file.add(samplesPerPixel, shortValue, samples);
  file.add(rowsPerStrip, longValue, image.height);
  file.add(stripByteCounts, longValue, static_cast<std::uint32_t>(pixelBytes));
  file.add(planarConfiguration, shortValue, 1);
  if (alpha) file.add(extraSamples, shortValue, 2);

  Directory lead;
  lead.put16(0x4949);
  lead.put16(42);
  lead.put32(directoryAt);
  Directory tail;
  for (std::uint32_t i = 0; i < samples; ++i) tail.put16(8);
  tail.put16(file.entries());

  std::vector<std::byte> tiff(directoryAt + 2 + file.bytes().size() + 4);
  std::memcpy(tiff.data(), lead.bytes().data(), lead.bytes().size());
  if (png_image_finish_read(&image, nullptr, tiff.data() + headerBytes, 0, nullptr) == 0) return std::nullopt;
  std::memcpy(tiff.data() + pixelEnd, tail.bytes().data(), tail.bytes().size());
  std::memcpy(tiff.data() + directoryAt + 2, file.bytes().data(), file.bytes().size());
  return tiff;
}

}  // namespace vellora
