#pragma once

namespace vellora {

/// An sRGB colour, each component 0 to 1, alpha not premultiplied.
struct ColorComponents {
  double red = 0;
  double green = 0;
  double blue = 0;
  double alpha = 1;
  friend bool operator==(const ColorComponents&, const ColorComponents&) = default;
};

}  // namespace vellora
