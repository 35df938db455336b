#pragma once

#include <cstddef>
#include <cstdint>

#include <QImage>
#include <QRect>

namespace vellora {

/// Memory of 32-bit premultiplied pixels being drawn on. Borrowed: the image must stay alive and unshared.
struct PixelTarget {
  std::uint32_t* pixels = nullptr;
  std::ptrdiff_t stride = 0;  ///< in pixels
  QRect area;                 ///< from (0, 0)

  explicit PixelTarget(QImage& image)
      : pixels(reinterpret_cast<std::uint32_t*>(image.bits())), stride(image.bytesPerLine() / 4), area(image.rect()) {}

  std::uint32_t* row(int y) const { return pixels + stride * y; }
};

/// `b` for weight 256, `a` for 0; channel by channel.
inline std::uint32_t mixPixels(std::uint32_t a, std::uint32_t b, std::uint32_t weight) {
  constexpr std::uint32_t even = 0x00FF00FFU;
  const std::uint32_t low = ((a & even) * (256 - weight) + (b & even) * weight) >> 8;
  const std::uint32_t high = ((a >> 8) & even) * (256 - weight) + ((b >> 8) & even) * weight;
  return (low & even) | (high & ~even);
}

/// `source` over `below`, both premultiplied.
inline std::uint32_t blendPixel(std::uint32_t source, std::uint32_t below) {
  constexpr std::uint32_t even = 0x00FF00FFU;
  const std::uint32_t rest = 255 - (source >> 24);
  // x × rest / 255, rounded.
  std::uint32_t low = (below & even) * rest;
  low = ((low + ((low >> 8) & even) + 0x00800080U) >> 8) & even;
  std::uint32_t high = ((below >> 8) & even) * rest;
  high = (high + ((high >> 8) & even) + 0x00800080U) & ~even;
  return source + (low | high);
}

}  // namespace vellora
