#include "media/pictures/PaletteQuantizer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "media/pictures/ColorHistogram.h"

namespace vellora {
namespace {

using Bin = ColorHistogram::Bin;
using Point = std::array<float, 3>;

constexpr int mostRefinements = 10;
/// A color that this part of those it stands for have exactly is taken as it is.
constexpr double exactShare = 0.3;
/// Passing on the whole of each difference makes noise where colors are far apart.
constexpr float diffusedShare = 0.9F;
constexpr float largestError = 48;
constexpr int knownBits = 16;
/// The answer for white and the last color, which is asked again each time.
constexpr std::uint32_t unknown = 0xFFFFFFFF;

/// A group of bins, to be cut where that takes away most of the variance.
class Box {
 public:
  Box(std::vector<Bin>& bins, std::size_t begin, std::size_t end) : bins_(&bins), begin_(begin), end_(end) {
    std::array<double, 3> sums{}, squares{};
    for (std::size_t i = begin; i < end; ++i) {
      const Bin& bin = bins[i];
      count_ += bin.count;
      for (std::size_t part = 0; part < 3; ++part) {
        sums[part] += double{bin.count} * bin.color[part];
        squares[part] += double{bin.count} * bin.color[part] * bin.color[part];
      }
    }
    double widest = -1;
    for (std::size_t part = 0; part < 3; ++part) {
      mean_[part] = static_cast<float>(sums[part] / count_);
      const double variance = squares[part] - sums[part] * sums[part] / count_;
      variance_ += variance;
      if (variance > widest) {
        widest = variance;
        axis_ = part;
      }
    }
  }

  double variance() const { return end_ - begin_ > 1 ? variance_ : 0; }
  const Point& mean() const { return mean_; }

  /// Where its bins, then sorted along the axis of the largest variance, are best cut.
  std::size_t cut() {
    const auto first = bins_->begin() + static_cast<std::ptrdiff_t>(begin_);
    const auto last = bins_->begin() + static_cast<std::ptrdiff_t>(end_);
    std::sort(first, last, [this](const Bin& a, const Bin& b) { return a.color[axis_] < b.color[axis_]; });
    double total = 0;
    for (auto bin = first; bin != last; ++bin) total += double{bin->count} * bin->color[axis_];
    double count = 0, sum = 0, best = -1;
    std::size_t place = begin_ + 1;
    for (std::size_t i = begin_; i + 1 < end_; ++i) {
      const Bin& bin = (*bins_)[i];
      count += bin.count;
      sum += double{bin.count} * bin.color[axis_];
      const double rest = total - sum;
      const double gain = sum * sum / count + rest * rest / (count_ - count);
      if (gain > best) {
        best = gain;
        place = i + 1;
      }
    }
    return place;
  }

  Box lower(std::size_t place) const { return {*bins_, begin_, place}; }
  Box upper(std::size_t place) const { return {*bins_, place, end_}; }

 private:
  std::vector<Bin>* bins_;
  std::size_t begin_, end_, axis_ = 0;
  double count_ = 0, variance_ = 0;
  Point mean_{};
};

std::vector<Point> cutApart(std::vector<Bin>& bins, std::size_t most) {
  std::vector<Box> boxes;
  if (!bins.empty()) boxes.emplace_back(bins, 0, bins.size());
  while (!boxes.empty() && boxes.size() < most) {
    const auto widest = std::max_element(boxes.begin(), boxes.end(),
                                         [](const Box& a, const Box& b) { return a.variance() < b.variance(); });
    if (widest->variance() <= 0) break;
    const std::size_t place = widest->cut();
    const Box lower = widest->lower(place), upper = widest->upper(place);
    *widest = lower;
    boxes.push_back(upper);
  }
  std::vector<Point> points;
  for (const Box& box : boxes) points.push_back(box.mean());
  return points;
}

/// Points in an order that lets the compiler compare several at once.
struct Points {
  explicit Points(const std::vector<Point>& points) {
    for (const Point& point : points) {
      for (std::size_t part = 0; part < 3; ++part) parts[part].push_back(point[part]);
    }
  }
  std::array<std::vector<float>, 3> parts;
};

std::size_t nearestOf(const std::array<std::vector<float>, 3>& parts, const Point& wanted) {
  std::array<float, 256> distances;
  const std::size_t count = parts[0].size();
  const float *red = parts[0].data(), *green = parts[1].data(), *blue = parts[2].data();
  for (std::size_t i = 0; i < count; ++i) {
    const float r = red[i] - wanted[0], g = green[i] - wanted[1], b = blue[i] - wanted[2];
    distances[i] = r * r + g * g + b * b;
  }
  return static_cast<std::size_t>(
      std::min_element(distances.begin(), distances.begin() + static_cast<std::ptrdiff_t>(count)) - distances.begin());
}

/// Moves the points to the middle of the bins they are nearest to, until that changes little. Gives each bin's point.
std::vector<std::size_t> refine(const std::vector<Bin>& bins, std::vector<Point>& points) {
  std::vector<std::size_t> nearest(bins.size());
  for (int round = 0; round < mostRefinements; ++round) {
    const Points parts(points);
    std::vector<std::array<double, 4>> sums(points.size());
    std::size_t moved = 0;
    for (std::size_t i = 0; i < bins.size(); ++i) {
      const std::size_t point = nearestOf(parts.parts, bins[i].color);
      if (round == 0 || point != nearest[i]) ++moved;
      nearest[i] = point;
      auto& sum = sums[point];
      for (std::size_t part = 0; part < 3; ++part) sum[part] += double{bins[i].count} * bins[i].color[part];
      sum[3] += bins[i].count;
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
      if (sums[i][3] == 0) continue;
      for (std::size_t part = 0; part < 3; ++part) points[i][part] = static_cast<float>(sums[i][part] / sums[i][3]);
    }
    if (moved * 200 < bins.size()) break;
  }
  return nearest;
}

std::uint8_t rounded(float value) {
  return static_cast<std::uint8_t>(std::clamp(value + 0.5F, 0.0F, 255.0F));
}

}  // namespace

PaletteQuantizer::PaletteQuantizer(const Raster& raster, std::size_t most, std::uint32_t leastAlpha)
    : leastAlpha_(leastAlpha), known_(std::size_t{1} << knownBits, unknown) {
  auto bins = ColorHistogram::of(raster, leastAlpha);
  auto points = cutApart(bins, most);
  const auto nearest = refine(bins, points);
  std::vector<double> counts(points.size());
  std::vector<const Bin*> commonest(points.size());
  for (std::size_t i = 0; i < bins.size(); ++i) {
    counts[nearest[i]] += bins[i].count;
    const Bin*& found = commonest[nearest[i]];
    if (found == nullptr || found->commonestCount < bins[i].commonestCount) found = &bins[i];
  }
  for (std::size_t i = 0; i < points.size(); ++i) {
    Color color{rounded(points[i][0] / colorWeights[0]), rounded(points[i][1] / colorWeights[1]),
                rounded(points[i][2] / colorWeights[2])};
    if (const Bin* bin = commonest[i]; bin != nullptr && bin->commonestCount >= counts[i] * exactShare) {
      color = {static_cast<std::uint8_t>(bin->commonest), static_cast<std::uint8_t>(bin->commonest >> 8),
               static_cast<std::uint8_t>(bin->commonest >> 16)};
    }
    colors_.push_back(color);
    weighted_[0].push_back(static_cast<float>(color.red) * colorWeights[0]);
    weighted_[1].push_back(static_cast<float>(color.green) * colorWeights[1]);
    weighted_[2].push_back(static_cast<float>(color.blue) * colorWeights[2]);
  }
  // One more on either side, so that the first and the last pixel have neighbors.
  errors_.resize(static_cast<std::size_t>(raster.width()) + 2);
  nextErrors_.resize(errors_.size());
}

std::uint8_t PaletteQuantizer::nearest(int red, int green, int blue) {
  const auto color = static_cast<std::uint32_t>(red << 24 | green << 16 | blue << 8);
  std::uint32_t& known = known_[color * 0x9E3779B1U >> (32 - knownBits)];
  if ((known & 0xFFFFFF00U) != color || known == unknown) {
    const Point wanted{static_cast<float>(red) * colorWeights[0], static_cast<float>(green) * colorWeights[1],
                       static_cast<float>(blue) * colorWeights[2]};
    known = color | static_cast<std::uint32_t>(nearestOf(weighted_, wanted));
  }
  return static_cast<std::uint8_t>(known);
}

void PaletteQuantizer::quantizeRow(const std::uint8_t* rgba, std::span<std::uint8_t> indexes,
                                   std::uint8_t transparent) {
  const std::size_t width = indexes.size();
  std::fill(nextErrors_.begin(), nextErrors_.end(), Error{});
  for (std::size_t step = 0; step < width; ++step) {
    const std::size_t x = isBackward_ ? width - 1 - step : step;
    const std::uint8_t* pixel = rgba + 4 * x;
    if (pixel[3] < leastAlpha_) {
      indexes[x] = transparent;
      continue;
    }
    std::array<int, 3> wanted;
    for (std::size_t part = 0; part < 3; ++part) {
      const float error = std::clamp(errors_[x + 1][part], -largestError, largestError);
      wanted[part] = rounded(static_cast<float>(pixel[part]) + error);
    }
    indexes[x] = nearest(wanted[0], wanted[1], wanted[2]);
    const Color& color = colors_[indexes[x]];
    const std::array<int, 3> got{color.red, color.green, color.blue};
    const std::size_t ahead = isBackward_ ? x : x + 2, behind = isBackward_ ? x + 2 : x;
    for (std::size_t part = 0; part < 3; ++part) {
      const float error = static_cast<float>(wanted[part] - got[part]) * diffusedShare / 16;
      errors_[ahead][part] += error * 7;
      nextErrors_[behind][part] += error * 3;
      nextErrors_[x + 1][part] += error * 5;
      nextErrors_[ahead][part] += error;
    }
  }
  std::swap(errors_, nextErrors_);
  isBackward_ = !isBackward_;
}

}  // namespace vellora
