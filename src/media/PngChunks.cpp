#include "media/PngChunks.h"

#include <libdeflate.h>

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace vellora {
namespace {

using Bytes = std::span<const std::byte>;
using Outcome = std::optional<PngDecodeError>;

constexpr std::size_t chunkOverhead = 12;
constexpr std::uint32_t maximumLength = 0x7FFFFFFF;
constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};

constexpr std::uint32_t typeOf(const char (&name)[5]) {
  std::uint32_t type = 0;
  for (int i = 0; i < 4; ++i) type = type << 8 | static_cast<std::uint8_t>(name[i]);
  return type;
}

int byteAt(Bytes bytes, std::size_t at) {
  return std::to_integer<int>(bytes[at]);
}

std::uint32_t bigEndian(Bytes bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) value = value << 8 | std::to_integer<std::uint32_t>(bytes[at + i]);
  return value;
}

/// Ancillary chunks have a small first letter (5.4): a picture can be shown without them.
bool isCritical(std::uint32_t type) {
  return (type >> 24 & 0x20) == 0;
}

bool isType(std::uint32_t type) {
  for (int shift = 0; shift < 32; shift += 8) {
    const std::uint32_t letter = (type >> shift & 0xFF) | 0x20;
    if (letter < 'a' || letter > 'z') return false;
  }
  return true;
}

/// Whether the standard has such a pair (table 12).
bool isDepthOf(int color, int depth) {
  switch (color) {
    case 0:
      return depth == 1 || depth == 2 || depth == 4 || depth == 8 || depth == 16;
    case 3:
      return depth == 1 || depth == 2 || depth == 4 || depth == 8;
    case 2:
    case 4:
    case 6:
      return depth == 8 || depth == 16;
    default:
      return false;
  }
}

/// Takes the chunks one after another.
class ChunkReader {
 public:
  ChunkReader(PngChunks& result, const PngLimits& limits) : result_(result), limits_(limits) {}

  bool isDone() const { return done_; }

  Outcome take(std::uint32_t type, Bytes data) {
    const bool first = !std::exchange(started_, true);
    if (first != (type == typeOf("IHDR"))) return PngDecodeError::Damaged;
    if (type != typeOf("IDAT") && result_.deflatedBytes > 0) pixelsEnded_ = true;
    switch (type) {
      case typeOf("IHDR"):
        return header(data);
      case typeOf("PLTE"):
        return palette(data);
      case typeOf("IDAT"):
        return pixels(data);
      case typeOf("IEND"):
        return end();
      case typeOf("tRNS"):
        return transparency(data);
      case typeOf("sRGB"):
        srgb_ = true;
        return std::nullopt;
      case typeOf("gAMA"):
      case typeOf("cHRM"):
        otherColors_ = true;
        return std::nullopt;
      case typeOf("iCCP"):
      case typeOf("cICP"):
      case typeOf("eXIf"):
        return PngDecodeError::Unsupported;
      default:
        return isCritical(type) ? Outcome(PngDecodeError::Unsupported) : std::nullopt;
    }
  }

 private:
  Outcome header(Bytes data) {
    if (data.size() != 13) return PngDecodeError::Damaged;
    const std::uint32_t width = bigEndian(data, 0), height = bigEndian(data, 4);
    if (width == 0 || height == 0 || width > maximumLength || height > maximumLength) return PngDecodeError::Damaged;
    const int depth = byteAt(data, 8), color = byteAt(data, 9), interlacing = byteAt(data, 12);
    if (!isDepthOf(color, depth)) return PngDecodeError::Damaged;
    if (byteAt(data, 10) != 0 || byteAt(data, 11) != 0 || interlacing > 1) return PngDecodeError::Damaged;
    const auto edge = static_cast<std::uint32_t>(std::min(limits_.edge, Bitmap::maximumEdge));
    if (width > edge || height > edge) return PngDecodeError::TooLarge;
    if (std::size_t{width} * height * 4 > std::min(limits_.bytes, Bitmap::maximumBytes)) {
      return PngDecodeError::TooLarge;
    }
    if (depth == 16 || interlacing == 1) return PngDecodeError::Unsupported;
    result_.size = {static_cast<int>(width), static_cast<int>(height)};
    result_.depth = depth;
    result_.color = static_cast<PngColor>(color);
    return std::nullopt;
  }

  Outcome palette(Bytes data) {
    if (result_.color == PngColor::Gray || result_.color == PngColor::GrayAlpha) return PngDecodeError::Unsupported;
    const bool late = result_.deflatedBytes > 0 || !result_.palette.empty();
    if (late || data.empty() || data.size() % 3 != 0 || data.size() > 768) return PngDecodeError::Damaged;
    if (!result_.transparency.empty()) return PngDecodeError::Unsupported;
    result_.palette = data;
    return std::nullopt;
  }

  Outcome transparency(Bytes data) {
    const bool late = result_.deflatedBytes > 0 || !result_.transparency.empty();
    bool fits = false;
    if (result_.color == PngColor::Gray) fits = data.size() == 2;
    if (result_.color == PngColor::Rgb) fits = data.size() == 6;
    if (result_.color == PngColor::Indexed) fits = !data.empty() && data.size() <= result_.palette.size() / 3;
    if (late || !fits) return PngDecodeError::Unsupported;
    result_.transparency = data;
    return std::nullopt;
  }

  Outcome pixels(Bytes data) {
    if (pixelsEnded_) return PngDecodeError::Damaged;
    if (result_.color == PngColor::Indexed && result_.palette.empty()) return PngDecodeError::Damaged;
    if (data.empty()) return std::nullopt;
    result_.deflated.push_back(data);
    result_.deflatedBytes += data.size();
    return std::nullopt;
  }

  Outcome end() {
    if (result_.deflatedBytes == 0) return PngDecodeError::Damaged;
    // sRGB outranks both (4.3); by themselves they describe a space that sRGB's numbers only approximate.
    if (otherColors_ && !srgb_) return PngDecodeError::Unsupported;
    done_ = true;
    return std::nullopt;
  }

  PngChunks& result_;
  const PngLimits& limits_;
  bool started_ = false, pixelsEnded_ = false, done_ = false;
  bool srgb_ = false, otherColors_ = false;
};

}  // namespace

int PngChunks::channels() const {
  switch (color) {
    case PngColor::Rgb:
      return 3;
    case PngColor::Rgba:
      return 4;
    case PngColor::GrayAlpha:
      return 2;
    case PngColor::Gray:
    case PngColor::Indexed:
      break;
  }
  return 1;
}

std::size_t PngChunks::rowBytes() const {
  const auto bits = static_cast<std::size_t>(channels()) * static_cast<std::size_t>(depth);
  return (static_cast<std::size_t>(size.width) * bits + 7) / 8;
}

Result<PngChunks, PngDecodeError> readPngChunks(Bytes file, const PngLimits& limits) {
  if (file.size() < signature.size()) return failure(PngDecodeError::Damaged);
  const auto start = std::as_bytes(std::span(signature));
  if (!std::equal(start.begin(), start.end(), file.begin())) return failure(PngDecodeError::Damaged);
  Bytes rest = file.subspan(signature.size());
  PngChunks result;
  ChunkReader reader(result, limits);
  while (!reader.isDone()) {
    if (rest.size() < chunkOverhead) return failure(PngDecodeError::Damaged);
    const std::uint32_t length = bigEndian(rest, 0), type = bigEndian(rest, 4);
    if (length > maximumLength || length > rest.size() - chunkOverhead) return failure(PngDecodeError::Damaged);
    if (!isType(type)) return failure(PngDecodeError::Damaged);
    if (libdeflate_crc32(0, &rest[4], length + std::size_t{4}) != bigEndian(rest, length + std::size_t{8})) {
      return failure(isCritical(type) ? PngDecodeError::Damaged : PngDecodeError::Unsupported);
    }
    if (const Outcome error = reader.take(type, rest.subspan(8, length))) return failure(*error);
    rest = rest.subspan(length + chunkOverhead);
  }
  return result;
}

}  // namespace vellora
