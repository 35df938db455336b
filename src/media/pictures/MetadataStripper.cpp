#include "media/pictures/MetadataStripper.h"

#include <cmath>
#include <new>

#include "media/pictures/MetadataStrippers.h"
#include "media/pictures/TiffTags.h"

namespace vellora {
namespace {

StrippedFile stripped(FileBytes file, PictureType type) {
  switch (type) {
    case PictureType::Jpeg:
      return strippedJpeg(file);
    case PictureType::Png:
      return strippedPng(file);
    case PictureType::WebP:
      return strippedWebP(file);
    case PictureType::Tiff:
      return strippedTiff(file);
    case PictureType::Bmp:
      return strippedBmp(file);
    case PictureType::Gif:
      return strippedGif(file);
    case PictureType::Heic:
    case PictureType::Avif:
      return strippedHeif(file);
    case PictureType::JpegXL:
      return strippedJpegXL(file);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::vector<std::byte>> withoutMetadata(std::span<const std::byte> file, PictureType type) {
  if (pictureTypeOf(file) != type) return std::nullopt;
  try {
    return stripped(file, type);
  } catch (const std::bad_alloc&) {
    return std::nullopt;
  }
}

std::vector<std::byte> minimalExif(const ExifFacts& facts) {
  const bool isTurned = facts.orientation != 1;
  constexpr std::int64_t perDot = 10000, usual = 72 * perDot, most = 100000 * perDot;
  const bool isSensible = facts.dotsPerInch >= 1 && facts.dotsPerInch < 1e5;
  const std::int64_t resolution = isSensible ? std::llround(facts.dotsPerInch * perDot) : usual;
  const bool hasResolution = resolution != usual && resolution < most;
  if (!isTurned && !hasResolution) return {};
  const std::size_t entries = (isTurned ? 1U : 0U) + (hasResolution ? 3U : 0U);
  const std::size_t end = 8 + 2 + 12 * entries + 4;
  std::vector<std::byte> exif;
  exif.reserve(end + 8);
  append(exif, std::string_view("MM\0*\0\0\0\x08", 8));
  appendBig(exif, entries, 2);
  const auto appendEntry = [&exif](std::size_t tag, std::size_t type, std::size_t value) {
    appendBig(exif, tag, 2);
    appendBig(exif, type, 2);
    appendBig(exif, 1, 4);
    appendBig(exif, type == tiff::shortType ? value << 16 : value, 4);
  };
  if (isTurned) appendEntry(tiff::orientation, tiff::shortType, static_cast<std::size_t>(facts.orientation));
  if (hasResolution) {
    // Both directions have their values in the same place.
    appendEntry(tiff::xResolution, tiff::rationalType, end);
    appendEntry(tiff::yResolution, tiff::rationalType, end);
    appendEntry(tiff::resolutionUnit, tiff::shortType, 2);
  }
  appendBig(exif, 0, 4);
  if (hasResolution) {
    appendBig(exif, static_cast<std::size_t>(resolution), 4);
    appendBig(exif, static_cast<std::size_t>(perDot), 4);
  }
  return exif;
}

void append(std::vector<std::byte>& file, FileBytes bytes) {
  file.insert(file.end(), bytes.begin(), bytes.end());
}

void append(std::vector<std::byte>& file, std::string_view text) {
  for (const char letter : text) file.push_back(static_cast<std::byte>(letter));
}

void appendBig(std::vector<std::byte>& file, std::size_t number, int bytes) {
  for (int i = bytes - 1; i >= 0; --i) file.push_back(static_cast<std::byte>(number >> (8 * i)));
}

}  // namespace vellora
