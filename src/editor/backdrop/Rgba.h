#pragma once

#include <bit>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "base/Color.h"

namespace vellora {

/// A colour in computation: sRGB components and alpha, 0 to 255, multiplied by alpha. Kept in the order of a pixel's
/// bytes (blue, green, red, alpha) in one vector register.
class Rgba {
 public:
  Rgba() = default;
  Rgba(float red, float green, float blue, float alpha) : parts_{blue, green, red, alpha} {}

  float alpha() const { return parts_[3]; }
  void setAlpha(float alpha) { parts_[3] = alpha; }

  friend Rgba operator+(Rgba a, Rgba b) { return Rgba(a.parts_ + b.parts_); }
  friend Rgba operator-(Rgba a, Rgba b) { return Rgba(a.parts_ - b.parts_); }
  friend Rgba operator*(Rgba a, float factor) { return Rgba(a.parts_ * factor); }
  Rgba& operator+=(Rgba other) {
    parts_ += other.parts_;
    return *this;
  }
  friend Rgba smaller(Rgba a, Rgba b) { return Rgba(a.parts_ < b.parts_ ? a.parts_ : b.parts_); }
  friend Rgba greater(Rgba a, Rgba b) { return Rgba(a.parts_ > b.parts_ ? a.parts_ : b.parts_); }

  static Rgba fromPixel(const std::uint8_t* pixel) {
    return Rgba(Vector{static_cast<float>(pixel[0]), static_cast<float>(pixel[1]), static_cast<float>(pixel[2]),
                       static_cast<float>(pixel[3])});
  }
  /// The pixel of the components, each cut to a whole number after adding `rounding`.
  std::uint32_t toPixel(float rounding) const {
    const auto whole = __builtin_convertvector(parts_ + rounding, Whole);
#ifdef __SSE2__
    const __m128i halves = _mm_packs_epi32(std::bit_cast<__m128i>(whole), _mm_setzero_si128());
    return static_cast<std::uint32_t>(_mm_cvtsi128_si32(_mm_packus_epi16(halves, halves)));
#else
    return std::bit_cast<std::uint32_t>(__builtin_convertvector(whole, Bytes));
#endif
  }

 private:
  using Vector = float __attribute__((vector_size(16)));
  using Whole = std::int32_t __attribute__((vector_size(16)));
  using Bytes = std::uint8_t __attribute__((vector_size(4)));

  explicit Rgba(Vector parts) : parts_(parts) {}

  Vector parts_{};
};

inline Rgba premultiplied(const ColorComponents& color) {
  const auto part = [&](double value) { return static_cast<float>(value * color.alpha * 255); };
  return {part(color.red), part(color.green), part(color.blue), static_cast<float>(color.alpha * 255)};
}

}  // namespace vellora
