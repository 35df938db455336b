#pragma once

#include "base/Bitmap.h"

namespace vellora {

/// A captured picture and how its pixels relate to points.
struct CapturedImage {
  Bitmap image;
  double scale = 1;  ///< device pixels per point
};

}  // namespace vellora
