#include "Scenes.h"

#include <array>
#include <cmath>
#include <cstring>

namespace vellora::bench {
namespace {

constexpr PixelSize size{3840, 2160};

std::uint32_t mixed(std::uint32_t a, std::uint32_t b) {
  std::uint32_t value = a * 0x9E3779B1U ^ (b + 0x7F4A7C15U) * 0x85EBCA77U;
  value ^= value >> 15;
  value *= 0xC2B2AE3DU;
  return value ^ value >> 13;
}

std::uint32_t grey(std::uint32_t level) {
  return level * 0x010101U;
}

std::uint32_t noise(int x, int y) {
  return mixed(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
}

/// Lines of letters from an alphabet of sixty, 11 × 16 pixels each with soft edges; words, ragged lines, blank rows
/// between.
std::uint32_t text(int x, int y) {
  constexpr int advance = 11, lineHeight = 26, letterHeight = 16, letters = 60;
  const int line = y / lineHeight, row = y % lineHeight, column = x / advance;
  const auto lineLength = static_cast<int>(noise(line, 5) % 220 + 60);
  if (row >= letterHeight || column >= lineLength) return grey(255);
  const std::uint32_t letter = noise(column, line) % (letters + 12);
  if (letter >= letters) return grey(255);
  const auto px = static_cast<double>(x % advance), py = static_cast<double>(row);
  // Two strokes: a stem and a bow, placed by the letter.
  const double stem = std::abs(px - 2 - letter % 4),
               bow = std::abs(std::hypot(px - 5, py - 5 - letter % 7) - 2.5 - letter % 3);
  const double ink = std::max(1.4 - stem, 1.4 - bow);
  return grey(static_cast<std::uint32_t>(255 - 230 * std::clamp(ink, 0.0, 1.0)));
}

/// Waves of several lengths with the grain of a sensor.
std::uint32_t photo(int x, int y) {
  const std::uint32_t grain = noise(x, y);
  const auto channel = [&](double phase, unsigned shift) {
    const double wave =
        std::sin(x * 0.0061 + phase) + std::sin(y * 0.0093 - phase) + std::sin((x + 2 * y) * 0.031 * phase) * 0.4;
    const double value = 128 + 48 * wave + static_cast<double>(grain >> shift & 15) - 7.5;
    return static_cast<std::uint32_t>(std::clamp(value, 0.0, 255.0));
  };
  return channel(0.7, 0) | channel(1.1, 8) << 8 | channel(1.9, 16) << 16;
}

/// A gradient wallpaper under two windows of text, one dark, and a photograph.
std::uint32_t desktop(int x, int y) {
  if (x >= 2200 && x < 3300 && y >= 1250 && y < 2010) return photo(x, y);
  if (x >= 1900 && x < 3700 && y >= 150 && y < 1700) return ~text(x - 1900, y - 150) & 0x00FFFFFF;
  if (x >= 120 && x < 2000 && y >= 90 && y < 1900) return text(x - 120, y - 90);
  const auto shade = static_cast<std::uint32_t>(y * 40 / size.height);
  return (60 - shade) << 16 | (90 - shade) << 8 | (120 - shade);
}

std::uint32_t flat(int, int) {
  return 0x002F6FED;
}

}  // namespace

const Bitmap& scene(Scene kind) {
  static std::array<Bitmap, 5> made;
  Bitmap& bitmap = made[static_cast<std::size_t>(kind)];
  if (!bitmap.isNull()) return bitmap;
  constexpr std::array painters{desktop, text, photo, flat, noise};
  auto pixels = MutableBitmap::create(size, PixelAlpha::Opaque);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint32_t word = painters[static_cast<std::size_t>(kind)](x, y);
      std::memcpy(pixels->row(y) + static_cast<std::size_t>(x) * 4, &word, sizeof(word));
    }
  }
  bitmap = std::move(*pixels).finish();
  return bitmap;
}

const char* nameOf(Scene kind) {
  constexpr std::array names{"desktop", "text", "photo", "flat", "noise"};
  return names[static_cast<std::size_t>(kind)];
}

}  // namespace vellora::bench
