#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

constexpr std::size_t signatureBytes = 8, chunkOverhead = 12;

/// The chunks of the third edition, and of its extensions in use, that are about pixels.
bool isKept(std::string_view type) {
  static constexpr std::array<std::string_view, 24> kept{
      "IHDR", "PLTE", "IDAT", "IEND", "tRNS", "cHRM", "gAMA", "iCCP", "sBIT", "sRGB", "cICP", "mDCV",
      "mDCv", "cLLI", "cLLi", "bKGD", "hIST", "pHYs", "sPLT", "acTL", "fcTL", "fdAT", "oFFs", "sTER"};
  return std::find(kept.begin(), kept.end(), type) != kept.end();
}

struct Chunk {
  std::string_view type;
  FileBytes data, whole;

  bool isCritical() const { return type[0] >= 'A' && type[0] <= 'Z'; }
  bool isIntact() const {
    return libdeflate_crc32(0, whole.data() + 4, data.size() + 4) == big32(whole, whole.size() - 4);
  }
};

std::optional<Chunk> nextChunk(FileBytes rest) {
  if (rest.size() < chunkOverhead) return std::nullopt;
  const std::size_t length = big32(rest, 0);
  if (length > rest.size() - chunkOverhead) return std::nullopt;
  const auto* type = reinterpret_cast<const char*>(rest.data()) + 4;
  return Chunk{{type, 4}, rest.subspan(8, length), rest.first(length + chunkOverhead)};
}

std::vector<std::byte> exifChunk(int orientation) {
  std::vector<std::byte> chunk;
  const std::vector<std::byte> exif = minimalExif({orientation});
  if (exif.empty()) return chunk;
  appendBig(chunk, exif.size(), 4);
  append(chunk, "eXIf");
  append(chunk, exif);
  appendBig(chunk, libdeflate_crc32(0, &chunk[4], chunk.size() - 4), 4);
  return chunk;
}

}  // namespace

StrippedFile strippedPng(FileBytes file) {
  std::vector<std::byte> out;
  out.reserve(file.size());
  append(out, file.first(signatureBytes));
  std::vector<std::byte> exif;
  std::size_t exifAt = 0;
  bool hasPixels = false;
  for (FileBytes rest = file.subspan(signatureBytes);;) {
    const auto chunk = nextChunk(rest);
    if (!chunk || (chunk->isCritical() && !isKept(chunk->type))) return std::nullopt;
    const bool isFirst = rest.size() == file.size() - signatureBytes;
    if (isFirst != (chunk->type == "IHDR")) return std::nullopt;
    hasPixels = hasPixels || chunk->type == "IDAT";
    if (chunk->type == "eXIf" && chunk->isIntact()) {
      exif = exifChunk(exifFacts({octets(chunk->data), chunk->data.size()}).orientation);
      exifAt = out.size();
    }
    if (isKept(chunk->type)) append(out, chunk->whole);
    if (chunk->type == "IEND") break;
    rest = rest.subspan(chunk->whole.size());
  }
  if (!hasPixels) return std::nullopt;
  out.insert(out.begin() + static_cast<std::ptrdiff_t>(exifAt), exif.begin(), exif.end());
  return out;
}

}  // namespace vellora
