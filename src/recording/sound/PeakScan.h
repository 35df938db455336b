#pragma once

#include <span>

namespace vellora {

/// The largest absolute value; what is not a number counts as silence. 0 for no samples. Any thread.
float peakOf(std::span<const float> samples);

}  // namespace vellora
