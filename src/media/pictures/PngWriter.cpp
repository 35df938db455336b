#include <libdeflate.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <string_view>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/FileBytes.h"
#include "media/pictures/PictureEncoders.h"
#include "media/pictures/PngOptimizer.h"
#include "media/pictures/RowConverter.h"

namespace vellora {
namespace {

constexpr std::size_t headerEnd = 8 + 25;  // the signature and IHDR
constexpr double inchesPerMeter = 0.0254;
constexpr int strongestDeflate = 12;
constexpr std::size_t longestChunk = 0x7FFFFFFF;

using Block = std::vector<std::uint8_t>;

void appendBig(Block& block, std::size_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) block.push_back(static_cast<std::uint8_t>(number >> shift));
}

void append(Block& block, std::string_view text) {
  block.insert(block.end(), text.begin(), text.end());
}

void appendChunk(Block& chunks, std::string_view type, const Block& data) {
  if (data.size() > longestChunk) return;
  appendBig(chunks, data.size());
  const std::size_t start = chunks.size();
  append(chunks, type);
  chunks.insert(chunks.end(), data.begin(), data.end());
  appendBig(chunks, libdeflate_crc32(0, &chunks[start], chunks.size() - start));
}

/// iCCP (11.3.2.3): a name, the method, the compressed profile.
Block profileChunk(const Block& profile) {
  const std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> compressor(
      libdeflate_alloc_compressor(strongestDeflate), libdeflate_free_compressor);
  if (!compressor) throw std::bad_alloc();
  Block data;
  append(data, std::string_view("ICC profile\0\0", 13));
  const std::size_t start = data.size();
  data.resize(start + libdeflate_zlib_compress_bound(compressor.get(), profile.size()));
  const std::size_t size =
      libdeflate_zlib_compress(compressor.get(), profile.data(), profile.size(), &data[start], data.size() - start);
  data.resize(start + size);
  return data;
}

/// What stands between IHDR and the pixels.
Block ancillaryChunks(const PictureMetadata& metadata) {
  Block chunks;
  if (!metadata.profile.empty()) appendChunk(chunks, "iCCP", profileChunk(metadata.profile));
  if (const double density = metadata.dotsPerInch / inchesPerMeter; density >= 1 && density < 1e9) {
    Block data;
    for (int i = 0; i < 2; ++i) appendBig(data, static_cast<std::size_t>(std::lround(density)));
    data.push_back(1);
    appendChunk(chunks, "pHYs", data);
  }
  if (!metadata.exif.empty()) appendChunk(chunks, "eXIf", metadata.exif);
  if (!metadata.xmp.empty()) {
    Block data;
    append(data, std::string_view("XML:com.adobe.xmp\0\0\0\0\0", 22));
    data.insert(data.end(), metadata.xmp.begin(), metadata.xmp.end());
    appendChunk(chunks, "iTXt", data);
  }
  return chunks;
}

}  // namespace

EncodedPicture writePng(const Raster& raster, const PictureMetadata& metadata, const WriteOptions& options) {
  PngOptimizerOptions optimizer{.threads = options.threads, .isCancelled = options.isCancelled};
  optimizer.allowsGrey = metadata.profile.empty();
  auto file = optimizedPng(raster, optimizer);
  if (!file) return file;
  const Block chunks = ancillaryChunks(metadata);
  if (chunks.empty()) return file;
  const auto bytes = std::as_bytes(std::span(chunks));
  file->insert(file->begin() + headerEnd, bytes.begin(), bytes.end());
  return file;
}

}  // namespace vellora
