#pragma once

#include <chrono>
#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "base/Result.h"
#include "media/pictures/PictureFailure.h"
#include "media/pictures/Raster.h"

namespace vellora {

struct PngOptimizerOptions {
  /// How long to look for a smaller file, for each million pixels of the picture.
  std::chrono::milliseconds budgetPerMegapixel{900};
  int threads = 1;
  /// Whether pixels that happen to be grey may be written as such: not beside an RGB profile (11.3.2.3), which allows
  /// only RGB and palettes. Counts for rasters that are not grey themselves.
  bool allowsGrey = true;
  std::function<bool()> isCancelled{};
};

/// The smallest lossless PNG (W3C PNG, third edition) that is found in the time given: the cheapest exact kind of
/// pixels (grey, palette of 1 to 8 bits, RGB, with or without alpha, 16 bits only where they differ from 8), the best
/// filter of each row, strong deflate. Fully transparent pixels keep their colors only when `raster` is to come back
/// bit for bit, which it is. Makes pixels only: no ancillary chunk except tRNS. Any thread.
Result<std::vector<std::byte>, PictureFailure> optimizedPng(const Raster& raster,
                                                            const PngOptimizerOptions& options = {});

}  // namespace vellora
