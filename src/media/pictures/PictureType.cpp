#include "media/pictures/PictureType.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string>

#include "media/pictures/FileBytes.h"

namespace vellora {
namespace {

/// "BM" alone begins many texts: the header behind has to have one of the lengths that exist.
bool isBmp(FileBytes file) {
  if (!holdsAt(file, 0, "BM") || file.size() < 18) return false;
  static constexpr std::array<std::uint32_t, 8> headerLengths{12, 16, 40, 52, 56, 64, 108, 124};
  return std::find(headerLengths.begin(), headerLengths.end(), little32(file, 14)) != headerLengths.end();
}

/// Files in boxes (ISO/IEC 14496-12) begin with the brands they conform to: the major one, a version, then more.
std::optional<PictureType> typeOfBrands(FileBytes file) {
  if (!holdsAt(file, 4, "ftyp") || file.size() < 16) return std::nullopt;
  const std::size_t end = std::min<std::size_t>(big32(file, 0), file.size());
  bool isHeic = false;
  for (std::size_t at = 8; at + 4 <= end; at += 4) {
    if (at == 12) continue;
    if (holdsAt(file, at, "avif") || holdsAt(file, at, "avis")) return PictureType::Avif;
    for (const std::string_view brand : {"heic", "heix", "heim", "heis", "hevc", "hevx", "hevm", "hevs"}) {
      isHeic = isHeic || holdsAt(file, at, brand);
    }
  }
  return isHeic ? std::optional(PictureType::Heic) : std::nullopt;
}

}  // namespace

std::optional<PictureType> pictureTypeOf(std::span<const std::byte> file) {
  using namespace std::string_view_literals;
  if (holdsAt(file, 0, "\xFF\xD8\xFF")) return PictureType::Jpeg;
  if (holdsAt(file, 0, "\x89PNG\r\n\x1A\n")) return PictureType::Png;
  if (holdsAt(file, 0, "RIFF") && holdsAt(file, 8, "WEBP")) return PictureType::WebP;
  for (const std::string_view start : {"II*\0"sv, "MM\0*"sv, "II+\0"sv, "MM\0+"sv}) {
    if (holdsAt(file, 0, start)) return PictureType::Tiff;
  }
  if (holdsAt(file, 0, "GIF87a") || holdsAt(file, 0, "GIF89a")) return PictureType::Gif;
  if (holdsAt(file, 0, "\xFF\x0A") || holdsAt(file, 0, "\0\0\0\x0CJXL \r\n\x87\n"sv)) return PictureType::JpegXL;
  if (isBmp(file)) return PictureType::Bmp;
  return typeOfBrands(file);
}

std::string_view fileExtension(PictureType type) {
  switch (type) {
    case PictureType::Jpeg:
      return "jpg";
    case PictureType::Png:
      return "png";
    case PictureType::WebP:
      return "webp";
    case PictureType::Tiff:
      return "tiff";
    case PictureType::Bmp:
      return "bmp";
    case PictureType::Gif:
      return "gif";
    case PictureType::Heic:
      return "heic";
    case PictureType::Avif:
      return "avif";
    case PictureType::JpegXL:
      return "jxl";
  }
  return {};
}

std::string_view nameOf(PictureType type) {
  switch (type) {
    case PictureType::Jpeg:
      return "JPEG";
    case PictureType::Png:
      return "PNG";
    case PictureType::WebP:
      return "WebP";
    case PictureType::Tiff:
      return "TIFF";
    case PictureType::Bmp:
      return "BMP";
    case PictureType::Gif:
      return "GIF";
    case PictureType::Heic:
      return "HEIC";
    case PictureType::Avif:
      return "AVIF";
    case PictureType::JpegXL:
      return "JPEG XL";
  }
  return {};
}

bool isExtensionOf(PictureType type, std::string_view extension) {
  std::string lower(extension);
  for (char& letter : lower) letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
  if (lower == fileExtension(type)) return true;
  switch (type) {
    case PictureType::Jpeg:
      return lower == "jpeg" || lower == "jpe" || lower == "jfif";
    case PictureType::Png:
      return lower == "apng";
    case PictureType::Tiff:
      return lower == "tif";
    case PictureType::Bmp:
      return lower == "dib";
    case PictureType::Heic:
      return lower == "heif" || lower == "hif";
    default:
      return false;
  }
}

bool isLossy(PictureType type) {
  switch (type) {
    case PictureType::Jpeg:
    case PictureType::WebP:
    case PictureType::Heic:
    case PictureType::Avif:
    case PictureType::JpegXL:
      return true;
    default:
      return false;
  }
}

}  // namespace vellora
