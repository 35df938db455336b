#pragma once

#include "editor/backdrop/Rgba.h"

namespace vellora {

/// A colour in the OKLab space (published in 2020), in which equal steps look equal: blends keep their brightness and
/// saturation on the way.
struct OkLab {
  float lightness = 0;  ///< 0 to 1
  float a = 0;          ///< green to red
  float b = 0;          ///< blue to yellow

  friend OkLab operator+(const OkLab& x, const OkLab& y) { return {x.lightness + y.lightness, x.a + y.a, x.b + y.b}; }
  friend OkLab operator*(const OkLab& x, float factor) { return {x.lightness * factor, x.a * factor, x.b * factor}; }
};

inline OkLab mix(const OkLab& from, const OkLab& to, float part) {
  return from * (1 - part) + to * part;
}

OkLab toOkLab(const ColorComponents& color);
/// Of a colour written as 0xRRGGBB.
OkLab okLab(unsigned rgb);
/// The opaque sRGB colour, brought into its range.
Rgba toRgba(const OkLab& color);

}  // namespace vellora
