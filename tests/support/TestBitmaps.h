#pragma once

#include <cstdint>
#include <cstring>

#include "base/Bitmap.h"

namespace vellora::test {

/// A picture of one colour, 0xAARRGGBB.
inline Bitmap solidBitmap(PixelSize size, std::uint32_t color, PixelAlpha alpha = PixelAlpha::Opaque) {
  auto bitmap = MutableBitmap::create(size, alpha);
  if (!bitmap) return {};
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) std::memcpy(bitmap->row(y) + x * 4, &color, 4);
  }
  return std::move(*bitmap).finish();
}

}  // namespace vellora::test
