#pragma once

#include <ostream>

#include "base/Geometry.h"

/// Lets a failing test show geometry in numbers.
namespace vellora {

inline void PrintTo(const PixelPoint& p, std::ostream* out) {
  *out << p.x << "," << p.y;
}
inline void PrintTo(const PixelSize& s, std::ostream* out) {
  *out << s.width << "x" << s.height;
}
inline void PrintTo(const PixelRect& r, std::ostream* out) {
  *out << r.x << "," << r.y << " " << r.width << "x" << r.height;
}

}  // namespace vellora
