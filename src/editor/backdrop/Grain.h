#pragma once

#include <cstddef>
#include <vector>

namespace vellora {

/// Film grain as it looks at one scale: a square of values around 0 that repeats. The grain lies in the document, half
/// a point wide: enlarged it grows, made smaller it averages out, as on a print.
class Grain {
 public:
  /// `scale` in pixels per point.
  explicit Grain(double scale);

  double scale() const { return scale_; }
  /// The value at a pixel; deviates from 0 by about `1` where grains are as large as pixels.
  float at(int x, int y) const {
    return values_[static_cast<std::size_t>(y % side_) * static_cast<std::size_t>(side_) +
                   static_cast<std::size_t>(x % side_)];
  }

 private:
  double scale_;
  int side_;
  std::vector<float> values_;
};

}  // namespace vellora
