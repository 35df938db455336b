#include "media/PngPalette.h"

#include <cstring>

#include "media/PixelRows.h"

namespace vellora {
namespace {

constexpr std::uint32_t colorBits = 0x00FFFFFF;
/// Rows this far apart are looked at first: a photograph anywhere shows itself soon.
constexpr int sampleEvery = 61;

}  // namespace

bool PngPalette::add(std::uint32_t color) {
  std::size_t slot = hash(color);
  while (slots_[slot].color != unused) {
    if (slots_[slot].color == color) return true;
    slot = (slot + 1) % slots_.size();
  }
  if (colors_.size() == maximumColors) return false;
  slots_[slot] = {color, static_cast<std::uint8_t>(colors_.size())};
  colors_.push_back(color);
  return true;
}

bool PngPalette::addRow(const Bitmap& bitmap, int y) {
  const std::byte* row = bitmap.row(y);
  std::uint32_t before = unused;
  for (int x = 0; x < bitmap.width(); ++x, row += 4) {
    std::uint32_t word = 0;
    std::memcpy(&word, row, sizeof(word));
    word &= colorBits;
    if (word == before) continue;
    before = word;
    if (!add(word)) return false;
  }
  return true;
}

std::optional<PngPalette> PngPalette::of(const Bitmap& bitmap) {
  PngPalette palette;
  palette.colors_.reserve(maximumColors);
  for (int y = 0; y < bitmap.height(); y += sampleEvery) {
    if (!palette.addRow(bitmap, y)) return std::nullopt;
  }
  for (int y = 0; y < bitmap.height(); ++y) {
    if (y > 0 && samePixels(bitmap.row(y - 1), bitmap.row(y), static_cast<std::size_t>(bitmap.width()), colorBits))
      continue;
    if (!palette.addRow(bitmap, y)) return std::nullopt;
  }
  return palette;
}

}  // namespace vellora
