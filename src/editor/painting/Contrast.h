#pragma once

#include "base/Color.h"

namespace vellora {

/// How bright a colour is on a screen, 0 to 1.
double luminance(const ColorComponents& color);

/// Black or white, whichever stands out more against `ground`: by the perceptual contrast of APCA 0.1.9, which agrees
/// with the eye on saturated colours where a plain ratio of luminances does not.
ColorComponents readableOn(const ColorComponents& ground);

}  // namespace vellora
