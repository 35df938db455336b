#pragma once

#include <cstddef>

#include "media/pictures/LinearLight.h"
#include "media/pictures/ResamplingFilter.h"

namespace vellora {

/// The loops in which resampling spends its time, in the widest instructions the processor has. Each sample of a result
/// is the weighted sum of its window, held within the extremes of what is under the filter's middle, so that it
/// depends on nothing but its window.
struct ResamplerKernels {
  /// Filters two rows along their length. `pairs` holds them side by side: a pixel of the first, then the one of the
  /// second, and so on.
  void (*acrossTwoRows)(const ResamplingFilter& filter, const LinearPixel* pairs, LinearPixel* first,
                        LinearPixel* second);
  /// Filters `pixels` columns, an even number, of the `window.count` rows.
  void (*down)(const ResamplingFilter::Window& window, const float* weights, const LinearPixel* const* rows,
               std::size_t pixels, LinearPixel* result);

  static const ResamplerKernels& ofThisMachine();
};

}  // namespace vellora
