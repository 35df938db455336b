#pragma once

#include <optional>

#include "base/Bitmap.h"

namespace vellora {

/// A blurred picture, made small: a blur needs no more pixels than its radius can tell apart.
struct BlurredPicture {
  Bitmap color;  ///< opaque: the blurred colours, from what is visible only
  Bitmap soft;   ///< the same with the transparency of the source; null when the source is opaque
};

/// How strongly a blur of `strength` (0 to 1) blurs: its standard deviation in points.
double blurSigma(double strength);

/// By how much, as a power of two, a picture blurred by `sigma` of its pixels is made smaller.
int blurReduction(double sigma);

/// Blurs a picture by a Gaussian of standard deviation `sigma` pixels, approximated by three box filters ("Filter
/// Effects Module Level 1", W3C, 9.3), after averaging blocks of 2^blurReduction pixels. Both edges of `picture` are
/// multiples of that. Transparent pixels lend no colour, so the edge of what is visible is not drawn in from outside.
/// Nothing when memory is short.
std::optional<BlurredPicture> gaussianBlur(const Bitmap& picture, double sigma);

}  // namespace vellora
