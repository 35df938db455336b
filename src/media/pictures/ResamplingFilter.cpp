#include "media/pictures/ResamplingFilter.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vellora {
namespace {

constexpr double lobes = 3;

double lanczosAt(double x) {
  if (std::abs(x) < 1e-9) return 1;
  if (std::abs(x) >= lobes) return 0;
  const double angle = std::numbers::pi * x;
  return lobes * std::sin(angle) * std::sin(angle / lobes) / (angle * angle);
}

}  // namespace

ResamplingFilter ResamplingFilter::lanczos(int sourceLength, int length) {
  ResamplingFilter filter;
  filter.windows.reserve(static_cast<std::size_t>(length));
  const double step = static_cast<double>(sourceLength) / length;
  const double stretch = std::max(step, 1.0);
  for (int i = 0; i < length; ++i) {
    const double center = (i + 0.5) * step;
    const int first = std::max(0, static_cast<int>(std::floor(center - lobes * stretch)));
    const int last = std::min(sourceLength, static_cast<int>(std::ceil(center + lobes * stretch)));
    Window window{first, last - first, static_cast<int>(filter.weights.size())};
    double sum = 0;
    int middleEnd = 0;
    for (int at = first; at < last; ++at) {
      const double x = (at + 0.5 - center) / stretch;
      const double weight = lanczosAt(x);
      if (std::abs(x) < 1) {
        if (middleEnd == 0) window.middleFirst = at - first;
        middleEnd = at - first + 1;
      }
      sum += weight;
      filter.weights.push_back(static_cast<float>(weight));
    }
    window.middleCount = middleEnd - window.middleFirst;
    for (int at = 0; at < window.count; ++at)
      filter.weights[static_cast<std::size_t>(window.weights + at)] /= static_cast<float>(sum);
    filter.widest = std::max(filter.widest, window.count);
    filter.windows.push_back(window);
  }
  return filter;
}

}  // namespace vellora
