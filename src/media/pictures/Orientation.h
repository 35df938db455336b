#pragma once

#include <optional>

#include "media/pictures/Raster.h"

namespace vellora {

/// Whether a picture of this orientation of Exif (1 to 8) lies on its side.
constexpr bool isSideways(int orientation) {
  return orientation >= 5;
}

/// The raster as it is to be seen when its file gives it this orientation. Turns in place where width and height stay,
/// so nobody else may hold `raster`. Nothing when memory is short.
std::optional<Raster> turnedUpright(Raster raster, int orientation);

}  // namespace vellora
