#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/Bitmap.h"

namespace vellora {

/// The colours of an opaque picture that has at most 256 of them.
class PngPalette {
 public:
  static constexpr std::size_t maximumColors = 256;

  /// Nothing when the picture has more colours; usually found out after a few rows.
  static std::optional<PngPalette> of(const Bitmap& bitmap);

  /// Each colour as blue, green, red from the lowest byte on, by index.
  std::span<const std::uint32_t> colors() const { return colors_; }

  /// The index of a colour that the picture has.
  std::uint8_t indexOf(std::uint32_t color) const {
    std::size_t slot = hash(color);
    while (slots_[slot].color != color) slot = (slot + 1) % slots_.size();
    return slots_[slot].index;
  }

 private:
  struct Slot {
    std::uint32_t color = unused;
    std::uint8_t index = 0;
  };
  static constexpr std::uint32_t unused = 0xFFFFFFFF;
  static constexpr int slotBits = 11;

  PngPalette() = default;
  static std::size_t hash(std::uint32_t color) { return (color * 0x9E3779B1U) >> (32 - slotBits); }
  bool add(std::uint32_t color);
  bool addRow(const Bitmap& bitmap, int y);

  std::array<Slot, std::size_t{1} << slotBits> slots_{};
  std::vector<std::uint32_t> colors_;
};

}  // namespace vellora
