#pragma once

#include <optional>

#include "media/pictures/Raster.h"

namespace vellora {

/// The raster at another size, filtered in linear light with premultiplied alpha, so that thin lines and dark text keep
/// their weight and transparent edges have no fringe. Lanczos (three lobes) with the support stretched by the
/// reduction; overshoot is held within the range of the samples under the filter's middle, so that text gets no halo. 8
/// and 16 bits. Nothing when the size is empty or memory is short. Any thread; `threads` as in WriteOptions.
std::optional<Raster> resampled(const Raster& raster, int width, int height, int threads = 1);

}  // namespace vellora
