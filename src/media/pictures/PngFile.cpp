#include "media/pictures/PngFile.h"

#include <libdeflate.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string_view>
#include <utility>

namespace vellora {
namespace {

constexpr std::size_t chunkOverhead = 12;
constexpr std::uint32_t maximumLength = 0x7FFFFFFF;
constexpr std::size_t maximumInflated = std::size_t{16} << 20;
constexpr std::size_t longestKeyword = 79;
constexpr double inchesPerMeter = 0.0254;
constexpr std::string_view xmpKeyword("XML:com.adobe.xmp\0", 18);

constexpr std::uint32_t typeOf(const char (&name)[5]) {
  std::uint32_t type = 0;
  for (int i = 0; i < 4; ++i) type = type << 8 | static_cast<std::uint8_t>(name[i]);
  return type;
}

/// Ancillary chunks have a small first letter (5.4): a picture can be shown without them.
bool isCritical(std::uint32_t type) {
  return (type >> 24 & 0x20) == 0;
}

bool isDepthOf(std::uint32_t color, std::uint32_t depth) {
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

/// A zlib stream of unknown length; empty when it is broken or too long.
std::vector<std::uint8_t> inflated(FileBytes deflated) {
  const std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> decompressor(
      libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
  if (!decompressor) return {};
  for (std::size_t room = std::max<std::size_t>(4096, deflated.size() * 4); room <= maximumInflated; room *= 4) {
    std::vector<std::uint8_t> bytes(room);
    std::size_t size = 0;
    const auto result = libdeflate_zlib_decompress(decompressor.get(), deflated.data(), deflated.size(), bytes.data(),
                                                   bytes.size(), &size);
    if (result == LIBDEFLATE_INSUFFICIENT_SPACE) continue;
    bytes.resize(result == LIBDEFLATE_SUCCESS ? size : 0);
    return bytes;
  }
  return {};
}

/// Where a text that ends with a 0 byte ends, counted with it; nothing when the byte is missing.
std::optional<std::size_t> afterText(FileBytes data, std::size_t from) {
  for (std::size_t at = from; at < data.size(); ++at) {
    if (data[at] == std::byte{0}) return at + 1;
  }
  return std::nullopt;
}

/// What iCCP holds (11.3.2.3): a name, a method, a compressed profile.
std::vector<std::uint8_t> profileIn(FileBytes data) {
  const auto at = afterText(data, 0);
  if (!at || *at > longestKeyword + 1 || *at >= data.size() || data[*at] != std::byte{0}) return {};
  return inflated(data.subspan(*at + 1));
}

/// The XMP packet in an iTXt (11.3.3.4); empty when it holds something else.
std::vector<std::uint8_t> xmpIn(FileBytes data) {
  if (!holdsAt(data, 0, xmpKeyword) || data.size() < xmpKeyword.size() + 2) return {};
  const bool isCompressed = data[xmpKeyword.size()] != std::byte{0};
  const auto language = afterText(data, xmpKeyword.size() + 2);
  const auto translated = language ? afterText(data, *language) : std::nullopt;
  if (!translated) return {};
  const FileBytes text = data.subspan(*translated);
  return isCompressed ? inflated(text) : copyOf(text);
}

/// Takes the chunks one after another.
class ChunkReader {
 public:
  bool isDone() const { return isDone_; }
  PngFile& png() { return png_; }

  std::optional<PictureFailure> take(std::uint32_t type, FileBytes data) {
    const bool isFirst = !std::exchange(started_, true);
    if (isFirst != (type == typeOf("IHDR"))) return damaged("chunks out of order");
    if (type != typeOf("IDAT") && png_.deflatedBytes > 0) pixelsEnded_ = true;
    switch (type) {
      case typeOf("IHDR"):
        return header(data);
      case typeOf("PLTE"):
        return palette(data);
      case typeOf("IDAT"):
        return pixels(data);
      case typeOf("IEND"):
        if (png_.deflatedBytes == 0) return damaged("no pixels");
        isDone_ = true;
        return std::nullopt;
      default:
        if (isCritical(type)) return PictureFailure{PictureError::Unsupported, "unknown critical chunk"};
        ancillary(type, data);
        return std::nullopt;
    }
  }

  /// Settles what depends on several chunks (4.3: cICP outranks iCCP, that sRGB, that gAMA and cHRM).
  std::optional<PictureFailure> finish() {
    if (codePoints_) {
      const auto [primaries, transfer] = *codePoints_;
      if (transfer == 16 || transfer == 18) return PictureFailure{PictureError::Unsupported, "high dynamic range"};
      png_.profile = profileOfCodePoints(primaries, transfer);
    } else if (!profile_.empty()) {
      png_.profile = profileIn(profile_);
    } else if (!isSrgb_ && (description_.gamma != 0 || hasPrimaries_)) {
      constexpr double usual = 1 / 0.45455;
      if (std::abs(description_.gamma - usual) < 0.05) description_.gamma = 0;
      png_.profile = profileOf(description_);
    }
    return std::nullopt;
  }

 private:
  static PictureFailure damaged(const char* detail) { return {PictureError::Damaged, detail}; }

  std::optional<PictureFailure> header(FileBytes data) {
    if (data.size() != 13) return damaged("bad header");
    const std::uint32_t width = big32(data, 0), height = big32(data, 4);
    const std::uint32_t depth = byteAt(data, 8), color = byteAt(data, 9), interlacing = byteAt(data, 12);
    if (width == 0 || height == 0 || width > maximumLength || height > maximumLength) return damaged("bad size");
    if (!isDepthOf(color, depth) || byteAt(data, 10) != 0 || byteAt(data, 11) != 0 || interlacing > 1) {
      return damaged("bad header");
    }
    if (width > Raster::maximumEdge || height > Raster::maximumEdge) return PictureFailure{PictureError::TooLarge};
    png_.width = static_cast<int>(width);
    png_.height = static_cast<int>(height);
    png_.depth = static_cast<int>(depth);
    png_.color = static_cast<PngColor>(color);
    png_.isInterlaced = interlacing == 1;
    return std::nullopt;
  }

  std::optional<PictureFailure> palette(FileBytes data) {
    const bool isLate = png_.deflatedBytes > 0 || !png_.palette.empty();
    if (isLate || data.empty() || data.size() % 3 != 0 || data.size() > 768) return damaged("bad palette");
    png_.palette = data;
    return std::nullopt;
  }

  std::optional<PictureFailure> pixels(FileBytes data) {
    if (pixelsEnded_) return damaged("chunks out of order");
    if (png_.color == PngColor::Indexed && png_.palette.empty()) return damaged("no palette");
    if (data.empty()) return std::nullopt;
    png_.deflated.push_back(data);
    png_.deflatedBytes += data.size();
    return std::nullopt;
  }

  void ancillary(std::uint32_t type, FileBytes data) {
    const bool beforePixels = png_.deflatedBytes == 0;
    switch (type) {
      case typeOf("tRNS"):
        if (beforePixels) transparency(data);
        break;
      case typeOf("acTL"):
        if (beforePixels && data.size() == 8) png_.frames = std::max(1U, big32(data, 0));
        break;
      case typeOf("sRGB"):
        isSrgb_ = true;
        break;
      case typeOf("gAMA"):
        if (data.size() == 4 && big32(data, 0) > 0) description_.gamma = 1e5 / big32(data, 0);
        break;
      case typeOf("cHRM"):
        chromaticities(data);
        break;
      case typeOf("iCCP"):
        profile_ = data;
        break;
      case typeOf("cICP"):
        if (data.size() == 4) codePoints_ = {static_cast<int>(byteAt(data, 0)), static_cast<int>(byteAt(data, 1))};
        break;
      case typeOf("eXIf"):
        png_.exif = data;
        break;
      case typeOf("iTXt"):
        if (png_.xmp.empty()) png_.xmp = xmpIn(data);
        png_.hasTexts = true;
        break;
      case typeOf("tEXt"):
      case typeOf("zTXt"):
      case typeOf("tIME"):
        png_.hasTexts = true;
        break;
      case typeOf("pHYs"):
        if (data.size() == 9 && byteAt(data, 8) == 1) png_.dotsPerInch = big32(data, 0) * inchesPerMeter;
        break;
      default:
        break;
    }
  }

  void transparency(FileBytes data) {
    bool fits = false;
    if (png_.color == PngColor::Gray) fits = data.size() == 2;
    if (png_.color == PngColor::Rgb) fits = data.size() == 6;
    if (png_.color == PngColor::Indexed) fits = data.size() <= png_.palette.size() / 3;
    if (fits) png_.transparency = data;
  }

  void chromaticities(FileBytes data) {
    if (data.size() != 32) return;
    const auto at = [&](std::size_t i) {
      return ColorDescription::Chromaticity{big32(data, 8 * i) / 1e5, big32(data, 8 * i + 4) / 1e5};
    };
    description_.white = at(0);
    description_.red = at(1);
    description_.green = at(2);
    description_.blue = at(3);
    hasPrimaries_ = true;
  }

  PngFile png_;
  FileBytes profile_;
  ColorDescription description_;
  std::optional<std::pair<int, int>> codePoints_;
  bool started_ = false, pixelsEnded_ = false, isDone_ = false;
  bool isSrgb_ = false, hasPrimaries_ = false;
};

}  // namespace

int PngFile::channels() const {
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

Result<PngFile, PictureFailure> readPngFile(FileBytes file, bool checksPixels) {
  ChunkReader reader;
  FileBytes rest = file.subspan(8);
  while (!reader.isDone()) {
    if (rest.size() < chunkOverhead) return refused(PictureError::Damaged, "the file is incomplete");
    const std::uint32_t length = big32(rest, 0), type = big32(rest, 4);
    if (length > maximumLength || length > rest.size() - chunkOverhead) {
      return refused(PictureError::Damaged, "the file is incomplete");
    }
    const bool isChecked = checksPixels || type != typeOf("IDAT");
    const bool isIntact =
        !isChecked || libdeflate_crc32(0, &rest[4], length + std::size_t{4}) == big32(rest, length + std::size_t{8});
    if (!isIntact && isCritical(type)) return refused(PictureError::Damaged, "wrong checksum");
    if (isIntact) {
      if (auto fault = reader.take(type, rest.subspan(8, length))) return failure(std::move(*fault));
    }
    rest = rest.subspan(length + chunkOverhead);
  }
  if (auto fault = reader.finish()) return failure(std::move(*fault));
  return std::move(reader.png());
}

}  // namespace vellora
