#include "platform/linux/x11/X11FrameScaler.h"

#include <algorithm>
#include <cmath>

namespace vellora {
namespace {

constexpr int channels = 4;
constexpr double radius = 2;

double catmullRom(double x) {
  x = std::abs(x);
  if (x < 1) return (1.5 * x - 2.5) * x * x + 1;
  if (x < radius) return ((-0.5 * x + 2.5) * x - 4) * x + 2;
  return 0;
}

}  // namespace

X11FrameScaler::Axis X11FrameScaler::makeAxis(int from, int to) {
  const double step = static_cast<double>(from) / to;
  const double stretch = std::max(step, 1.0);
  Axis axis;
  axis.taps = std::min(static_cast<int>(std::ceil(2 * radius * stretch)) + 1, from);
  for (int i = 0; i < to; ++i) {
    const double center = (i + 0.5) * step;
    const int first = std::clamp(static_cast<int>(std::floor(center - radius * stretch)), 0, from - axis.taps);
    axis.first.push_back(first);
    double sum = 0;
    const std::size_t begin = axis.weights.size();
    for (int k = 0; k < axis.taps; ++k) {
      const double weight = catmullRom((first + k + 0.5 - center) / stretch);
      axis.weights.push_back(static_cast<float>(weight));
      sum += weight;
    }
    for (std::size_t k = begin; k < axis.weights.size(); ++k) axis.weights[k] /= static_cast<float>(sum);
  }
  return axis;
}

X11FrameScaler::X11FrameScaler(PixelSize from, PixelSize to)
    : width_(to.width),
      columns_(makeAxis(from.width, to.width)),
      rows_(makeAxis(from.height, to.height)),
      line_(static_cast<std::size_t>(from.width) * channels) {}

RowBand X11FrameScaler::affected(const Axis& axis, RowBand band) {
  const auto begin = axis.first.begin();
  const auto first = std::ranges::upper_bound(axis.first, band.top - axis.taps);
  const auto last = std::ranges::lower_bound(axis.first, band.bottom);
  return {static_cast<int>(first - begin), static_cast<int>(last - begin)};
}

void X11FrameScaler::scale(const X11FrameBuffer& source, RowBand rows, X11FrameBuffer& target, PixelPoint at) {
  const std::size_t length = line_.size();
  float* const line = line_.data();
  for (int y = rows.top; y < rows.bottom; ++y) {
    const auto row = static_cast<std::size_t>(y);
    std::ranges::fill(line_, 0.0F);
    for (int k = 0; k < rows_.taps; ++k) {
      const float weight = rows_.weights[row * static_cast<std::size_t>(rows_.taps) + static_cast<std::size_t>(k)];
      if (weight == 0) continue;
      const auto* pixels = reinterpret_cast<const std::uint8_t*>(source.row(rows_.first[row] + k));
      for (std::size_t i = 0; i < length; ++i) line[i] += weight * static_cast<float>(pixels[i]);
    }
    auto* out = reinterpret_cast<std::uint8_t*>(target.row(at.y + y)) + static_cast<std::ptrdiff_t>(at.x) * channels;
    for (std::size_t x = 0; x < static_cast<std::size_t>(width_); ++x, out += channels) {
      const float* from = line + static_cast<std::ptrdiff_t>(columns_.first[x]) * channels;
      const float* weight = columns_.weights.data() + x * static_cast<std::size_t>(columns_.taps);
      float sums[channels] = {};
      for (int k = 0; k < columns_.taps; ++k, from += channels) {
        for (int c = 0; c < channels; ++c) sums[c] += weight[k] * from[c];
      }
      for (int c = 0; c < channels; ++c) out[c] = static_cast<std::uint8_t>(std::clamp(sums[c], 0.0F, 255.0F) + 0.5F);
    }
  }
}

}  // namespace vellora
