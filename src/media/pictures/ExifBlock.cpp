#include "media/pictures/ExifBlock.h"

#include <cstddef>
#include <cstring>
#include <optional>

namespace vellora {
namespace {

constexpr std::uint32_t orientationTag = 0x0112, xResolutionTag = 0x011A, resolutionUnitTag = 0x0128;
constexpr std::uint32_t shortType = 3, rationalType = 5;
constexpr std::uint32_t centimeters = 3;
constexpr double centimetersPerInch = 2.54;

struct Entry {
  std::uint32_t tag;
  std::uint32_t type;
  std::uint32_t count;
  std::size_t valueAt;  // where the value, or its offset, stands
};

/// A TIFF structure, read with care: every number is asked for by its place, which may lie outside.
class TiffStructure {
 public:
  explicit TiffStructure(std::span<const std::uint8_t> bytes) : bytes_(bytes) {
    if (bytes.size() < 8) return;
    isLittle_ = std::memcmp(bytes.data(), "II*\0", 4) == 0;
    isValid_ = isLittle_ || std::memcmp(bytes.data(), "MM\0*", 4) == 0;
  }

  bool isValid() const { return isValid_; }
  bool isLittle() const { return isLittle_; }

  std::optional<std::uint32_t> number(std::size_t at, std::size_t bytes) const {
    if (at > bytes_.size() || bytes_.size() - at < bytes) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < bytes; ++i) value = value << 8 | bytes_[isLittle_ ? at + bytes - 1 - i : at + i];
    return value;
  }

  /// Calls `take` with every entry of the directory at an offset; where the next directory's offset stands.
  template <class Take>
  std::optional<std::size_t> entries(std::size_t directory, const Take& take) const {
    const auto count = number(directory, 2);
    if (!count) return std::nullopt;
    for (std::size_t i = 0; i < *count; ++i) {
      const std::size_t at = directory + 2 + 12 * i;
      const auto tag = number(at, 2), type = number(at + 2, 2), values = number(at + 4, 4);
      if (!tag || !type || !values || !number(at + 8, 4)) return std::nullopt;
      take(Entry{*tag, *type, *values, at + 8});
    }
    return directory + 2 + 12 * std::size_t{*count};
  }

  std::optional<double> rational(const Entry& entry) const {
    if (entry.type != rationalType || entry.count != 1) return std::nullopt;
    const auto at = number(entry.valueAt, 4);
    const auto numerator = number(*at, 4), denominator = number(std::size_t{*at} + 4, 4);
    if (!numerator || !denominator || *denominator == 0) return std::nullopt;
    return static_cast<double>(*numerator) / *denominator;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  bool isLittle_ = false;
  bool isValid_ = false;
};

bool isOrientation(const Entry& entry) {
  return entry.tag == orientationTag && entry.type == shortType && entry.count == 1;
}

}  // namespace

ExifFacts exifFacts(std::span<const std::uint8_t> exif) {
  ExifFacts facts;
  const TiffStructure tiff(exif);
  if (!tiff.isValid()) return facts;
  std::uint32_t unit = 2;
  tiff.entries(*tiff.number(4, 4), [&](const Entry& entry) {
    if (isOrientation(entry)) {
      const std::uint32_t value = *tiff.number(entry.valueAt, 2);
      if (value >= 1 && value <= 8) facts.orientation = static_cast<int>(value);
    } else if (entry.tag == xResolutionTag) {
      facts.dotsPerInch = tiff.rational(entry).value_or(0);
    } else if (entry.tag == resolutionUnitTag && entry.type == shortType) {
      unit = *tiff.number(entry.valueAt, 2);
    }
  });
  if (unit == centimeters) facts.dotsPerInch *= centimetersPerInch;
  return facts;
}

void setUpright(std::vector<std::uint8_t>& exif) {
  const TiffStructure tiff(exif);
  if (!tiff.isValid()) return;
  std::size_t directory = *tiff.number(4, 4);
  for (int i = 0; i < 2 && directory != 0; ++i) {  // the picture's, then the thumbnail's
    const auto next = tiff.entries(directory, [&](const Entry& entry) {
      if (!isOrientation(entry)) return;
      exif[entry.valueAt] = tiff.isLittle() ? 1 : 0;
      exif[entry.valueAt + 1] = tiff.isLittle() ? 0 : 1;
    });
    if (!next) return;
    directory = tiff.number(*next, 4).value_or(0);
  }
}

}  // namespace vellora
