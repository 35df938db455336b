#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "media/pictures/Raster.h"

namespace vellora {

/// A raster's rows in the form an encoder takes: 8 bits, samples of `layout`. 16 bits are rounded, grey is spread to
/// RGB, missing alpha is 255, and alpha the layout lacks becomes a white ground, blended in the samples' own values as
/// browsers do. RGB never becomes grey: `layout` is Rgb or Rgba unless the raster is grey.
class RowConverter {
 public:
  RowConverter(const Raster& raster, RasterLayout layout);

  /// Valid until the next call. The raster's own row when it already has the form.
  const std::uint8_t* row(int y);

 private:
  void convert(const std::uint8_t* source);

  const Raster& raster_;
  const RasterLayout layout_;
  std::vector<std::uint8_t> narrowed_, converted_;
};

/// A sample of 16 bits as the nearest of 8.
constexpr std::uint8_t narrowedSample(std::uint32_t deep) {
  return static_cast<std::uint8_t>((deep * 255 + 32895) >> 16);
}

/// Whether nothing lets anything through, whatever the layout.
bool isOpaque(const Raster& raster);

/// The whole raster in that form; itself when it already has it. Nothing when memory is short.
std::optional<Raster> converted(const Raster& raster, RasterLayout layout);

}  // namespace vellora
