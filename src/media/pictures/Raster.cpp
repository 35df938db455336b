#include "media/pictures/Raster.h"

#include <cstdlib>

namespace vellora {

std::optional<Raster> Raster::create(int width, int height, RasterLayout layout, int bitsPerSample) {
  if (width <= 0 || height <= 0 || width > maximumEdge || height > maximumEdge) return std::nullopt;
  if (bitsPerSample != 8 && bitsPerSample != 16) return std::nullopt;
  Raster raster;
  raster.width_ = width;
  raster.height_ = height;
  raster.layout_ = layout;
  raster.bitsPerSample_ = bitsPerSample;
  if (raster.bytes() > maximumBytes) return std::nullopt;
  // Large blocks come from calloc as fresh pages, which nobody has to clear.
  auto* samples = static_cast<std::uint8_t*>(std::calloc(raster.bytes(), 1));
  if (samples == nullptr) return std::nullopt;
  raster.samples_ = std::shared_ptr<std::uint8_t[]>(samples, [](std::uint8_t* memory) { std::free(memory); });
  return raster;
}

}  // namespace vellora
