#pragma once

#include "base/Color.h"

namespace vellora {

/// How bright a colour is to the eye, 0 to 1, by the definition of WCAG 2.
double relativeLuminance(const ColorComponents& color);

/// Black or white, whichever stands out more against `ground`.
ColorComponents readableOn(const ColorComponents& ground);

}  // namespace vellora
