#pragma once

#include <optional>

#include <QImage>

#include "base/Bitmap.h"
#include "media/pictures/Raster.h"

namespace vellora {

/// The raster as an image that keeps its samples alive, without a copy; only grey with alpha is converted. Null for a
/// null raster and for one of 16 bits. Any thread.
QImage imageOf(const Raster& raster);

/// The bitmap with straight alpha, or without any when it is opaque. Nothing when memory is short. Any thread.
std::optional<Raster> rasterOf(const Bitmap& bitmap);

}  // namespace vellora
