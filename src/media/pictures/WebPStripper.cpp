#include <string_view>

#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

constexpr std::size_t riffHeaderBytes = 12, chunkHeaderBytes = 8, frameHeaderBytes = 16;
constexpr std::byte xmpFlag{0x04}, exifFlag{0x08};

void appendLittle32(std::vector<std::byte>& file, std::size_t number) {
  for (int i = 0; i < 4; ++i) file.push_back(static_cast<std::byte>(number >> (8 * i)));
}

void appendChunk(std::vector<std::byte>& file, std::string_view name, FileBytes data) {
  append(file, name);
  appendLittle32(file, data.size());
  append(file, data);
  if (data.size() % 2 != 0) file.push_back(std::byte{0});
}

/// Calls `take` with the name and data of each chunk; false when they do not fill `bytes` exactly.
template <class Take>
bool forEachChunk(FileBytes bytes, const Take& take) {
  while (!bytes.empty()) {
    if (bytes.size() < chunkHeaderBytes) return false;
    const std::size_t size = little32(bytes, 4);
    if (size > bytes.size() - chunkHeaderBytes) return false;
    const std::size_t padded = size + size % 2;
    if (padded > bytes.size() - chunkHeaderBytes) return false;
    const std::string_view name(reinterpret_cast<const char*>(bytes.data()), 4);
    if (!take(name, bytes.subspan(chunkHeaderBytes, size))) return false;
    bytes = bytes.subspan(chunkHeaderBytes + padded);
  }
  return true;
}

bool isPixels(std::string_view name) {
  return name == "VP8 " || name == "VP8L" || name == "ALPH";
}

/// A frame of an animation holds chunks itself.
bool appendFrame(std::vector<std::byte>& file, FileBytes data) {
  if (data.size() < frameHeaderBytes) return false;
  std::vector<std::byte> frame(data.begin(), data.begin() + frameHeaderBytes);
  const bool isWhole = forEachChunk(data.subspan(frameHeaderBytes), [&frame](std::string_view name, FileBytes chunk) {
    if (isPixels(name)) appendChunk(frame, name, chunk);
    return true;
  });
  appendChunk(file, "ANMF", frame);
  return isWhole;
}

}  // namespace

StrippedFile strippedWebP(FileBytes file) {
  const std::size_t size = little32(file, 4);
  if (size < 4 || size > file.size() - 8) return std::nullopt;
  std::vector<std::byte> out;
  out.reserve(file.size());
  append(out, file.first(riffHeaderBytes));
  std::byte flags{};
  bool isExtended = false, hasPixels = false, hasExif = false;
  ExifFacts facts;
  const FileBytes chunks = file.subspan(riffHeaderBytes, size - 4);
  const bool isWhole = forEachChunk(chunks, [&](std::string_view name, FileBytes data) {
    const bool isFirst = out.size() == riffHeaderBytes;
    if (name == "VP8X") {
      if (!isFirst || data.size() != 10) return false;
      isExtended = true;
      flags = data[0];
      appendChunk(out, name, data);
      out[riffHeaderBytes + chunkHeaderBytes] &= ~(xmpFlag | exifFlag);
    } else if (isPixels(name)) {
      // A simple file ends with its pixels, whatever follows.
      if (isExtended || !hasPixels) appendChunk(out, name, data);
      hasPixels = true;
    } else if (isExtended && name == "ANMF") {
      hasPixels = true;
      return appendFrame(out, data);
    } else if (isExtended && (name == "ICCP" || name == "ANIM")) {
      appendChunk(out, name, data);
    } else if (name == "EXIF" && (flags & exifFlag) != std::byte{0} && !hasExif) {
      hasExif = true;
      if (holdsAt(data, 0, std::string_view("Exif\0\0", 6))) data = data.subspan(6);
      facts = exifFacts({octets(data), data.size()});
    }
    return true;
  });
  if (!isWhole || !hasPixels) return std::nullopt;
  if (const auto exif = minimalExif(facts); !exif.empty()) {
    out[riffHeaderBytes + chunkHeaderBytes] |= exifFlag;
    appendChunk(out, "EXIF", exif);
  }
  const std::size_t riffSize = out.size() - 8;
  for (std::size_t i = 0; i < 4; ++i) out[4 + i] = static_cast<std::byte>(riffSize >> (8 * i));
  return out;
}

}  // namespace vellora
