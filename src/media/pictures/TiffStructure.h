#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>

namespace vellora {

/// What a directory says of one tag.
struct TiffEntry {
  static constexpr std::uint32_t shortType = 3, rationalType = 5;

  std::uint32_t tag;
  std::uint32_t type;
  std::uint32_t count;
  std::size_t valueAt;  ///< where the value, or its offset, stands
};

/// A TIFF structure (TIFF 6.0; not BigTIFF), as Exif blocks are, read with care: every number is asked for by its
/// place, which may lie outside.
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
      take(TiffEntry{*tag, *type, *values, at + 8});
    }
    return directory + 2 + 12 * std::size_t{*count};
  }

  std::optional<double> rational(const TiffEntry& entry) const {
    if (entry.type != TiffEntry::rationalType || entry.count != 1) return std::nullopt;
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

}  // namespace vellora
