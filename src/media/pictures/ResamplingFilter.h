#pragma once

#include <vector>

namespace vellora {

/// For each sample of one axis of the result, which samples of the source make it and with what weight.
struct ResamplingFilter {
  struct Window {
    int first = 0;  ///< of the source
    int count = 0;
    int weights = 0;      ///< where its weights begin
    int middleFirst = 0;  ///< those under the filter's main lobe, counted from `first`
    int middleCount = 0;
  };
  std::vector<Window> windows;
  std::vector<float> weights;  ///< those of a window add up to 1
  int widest = 0;

  /// Lanczos with three lobes (C. Duchon, "Lanczos Filtering in One and Two Dimensions", 1979), stretched when the
  /// result is smaller. At the borders only what exists counts.
  static ResamplingFilter lanczos(int sourceLength, int length);
};

}  // namespace vellora
