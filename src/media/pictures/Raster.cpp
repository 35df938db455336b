#include "media/pictures/Raster.h"

#include "base/PixelMemory.h"

namespace vellora {

std::optional<Raster> Raster::create(int width, int height, RasterLayout layout, int bitsPerSample,
                                     std::size_t spareBytes) {
  if (width <= 0 || height <= 0 || width > maximumEdge || height > maximumEdge) return std::nullopt;
  if (bitsPerSample != 8 && bitsPerSample != 16) return std::nullopt;
  Raster raster;
  raster.width_ = width;
  raster.height_ = height;
  raster.layout_ = layout;
  raster.bitsPerSample_ = bitsPerSample;
  if (raster.bytes() > maximumBytes) return std::nullopt;
  raster.samples_ = allocatePixels(raster.bytes() + spareBytes);
  if (!raster.samples_) return std::nullopt;
  return raster;
}

}  // namespace vellora
