#pragma once

#include "base/Color.h"

namespace vellora {

/// A colour in computation: sRGB components and alpha, 0 to 255, multiplied by alpha. Four floats, so that compilers
/// keep one in a vector register.
struct alignas(16) Rgba {
  float red = 0;
  float green = 0;
  float blue = 0;
  float alpha = 0;

  friend Rgba operator+(const Rgba& a, const Rgba& b) {
    return {a.red + b.red, a.green + b.green, a.blue + b.blue, a.alpha + b.alpha};
  }
  friend Rgba operator-(const Rgba& a, const Rgba& b) {
    return {a.red - b.red, a.green - b.green, a.blue - b.blue, a.alpha - b.alpha};
  }
  friend Rgba operator*(const Rgba& a, float factor) {
    return {a.red * factor, a.green * factor, a.blue * factor, a.alpha * factor};
  }
  Rgba& operator+=(const Rgba& other) { return *this = *this + other; }
};

inline Rgba premultiplied(const ColorComponents& color) {
  const auto part = [&](double value) { return static_cast<float>(value * color.alpha * 255); };
  return {part(color.red), part(color.green), part(color.blue), static_cast<float>(color.alpha * 255)};
}

}  // namespace vellora
