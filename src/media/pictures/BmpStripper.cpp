#include <algorithm>

#include "media/pictures/MetadataStrippers.h"

namespace vellora {
namespace {

constexpr std::size_t fileHeaderBytes = 14, infoHeaderBytes = 40, version5Bytes = 124;
constexpr std::size_t colorSpaceAt = 14 + 56, profileOffsetAt = 14 + 112, profileSizeAt = 14 + 116;
constexpr std::uint32_t profileIsLinked = 0x4C494E4B, colorsAreSrgb = 0x73524742;
constexpr std::uint32_t uncompressed = 0, bitFields = 3;

void put32(std::vector<std::byte>& file, std::size_t at, std::uint32_t number) {
  for (std::size_t i = 0; i < 4; ++i) file[at + i] = static_cast<std::byte>(number >> (8 * i));
}

}  // namespace

/// The format has no place for texts: what can tell something is what follows the pixels, and the path of a color
/// profile on somebody's disk.
StrippedFile strippedBmp(FileBytes file) {
  const std::size_t header = little32(file, fileHeaderBytes);
  if (header < infoHeaderBytes || file.size() < fileHeaderBytes + header) return std::nullopt;
  std::uint64_t colors = little32(file, 46);
  const std::uint64_t width = little32(file, 18), bits = little16(file, 28), compression = little32(file, 30);
  const auto signedHeight = static_cast<std::int32_t>(little32(file, 22));
  const std::uint64_t height = static_cast<std::uint64_t>(std::abs(std::int64_t{signedHeight}));
  // Where packed pixels end is known to those who unpack them.
  std::uint64_t end = file.size();
  if (compression == uncompressed || compression == bitFields) {
    if (width > INT32_MAX) return std::nullopt;
    constexpr std::uint64_t masks = 4;
    if (bits > 8) {
      colors = compression == bitFields ? masks : 0;
    } else if (colors == 0 || colors > 256) {
      colors = std::uint64_t{1} << bits;
    }
    end = std::max(little32(file, 10) + (width * bits + 31) / 32 * 4 * height, fileHeaderBytes + header + 4 * colors);
  }
  std::vector<std::byte> out(file.begin(), file.end());
  if (header >= version5Bytes) {
    const std::uint64_t profile = fileHeaderBytes + std::uint64_t{little32(file, profileOffsetAt)};
    const std::uint64_t profileBytes = little32(file, profileSizeAt);
    if (little32(file, colorSpaceAt) == profileIsLinked) {
      if (profile < end) return std::nullopt;
      put32(out, colorSpaceAt, colorsAreSrgb);
      put32(out, profileOffsetAt, 0);
      put32(out, profileSizeAt, 0);
    } else if (profileBytes > 0) {
      end = std::max(end, profile + profileBytes);
    }
  }
  if (end > file.size()) return std::nullopt;
  out.resize(static_cast<std::size_t>(end));
  put32(out, 2, static_cast<std::uint32_t>(end));
  return out;
}

}  // namespace vellora
