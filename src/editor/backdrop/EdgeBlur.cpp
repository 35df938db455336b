#include "editor/backdrop/EdgeBlur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <vector>

#include <QImage>

namespace vellora {
namespace {

using Direction = BackdropSettings::EdgeBlurDirection;

/// Pixels in 8.4 fixed point per component.
using Wide = std::array<std::uint16_t, 4>;

/// A picture made smaller by a whole factor and blurred.
struct Level {
  int factor = 1;
  int width = 0;
  int height = 0;
  std::vector<Wide> pixels;
};

Level reduced(const QImage& image, int factor) {
  Level level{factor, (image.width() + factor - 1) / factor, (image.height() + factor - 1) / factor, {}};
  level.pixels.resize(static_cast<std::size_t>(level.width) * static_cast<std::size_t>(level.height));
  std::vector<std::array<std::uint32_t, 4>> sums(static_cast<std::size_t>(level.width));
  for (int y = 0; y < level.height; ++y) {
    std::ranges::fill(sums, std::array<std::uint32_t, 4>{});
    const int rows = std::min(factor, image.height() - y * factor);
    for (int i = 0; i < rows; ++i) {
      const uchar* line = image.constScanLine(y * factor + i);
      for (int x = 0; x < image.width(); ++x) {
        auto& sum = sums[static_cast<std::size_t>(x / factor)];
        for (std::size_t c = 0; c < 4; ++c) sum[c] += line[x * 4 + static_cast<int>(c)];
      }
    }
    for (int x = 0; x < level.width; ++x) {
      const int columns = std::min(factor, image.width() - x * factor);
      auto& pixel = level.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(level.width) +
                                 static_cast<std::size_t>(x)];
      for (std::size_t c = 0; c < 4; ++c) {
        pixel[c] = static_cast<std::uint16_t>(sums[static_cast<std::size_t>(x)][c] * 16 /
                                              static_cast<std::uint32_t>(rows * columns));
      }
    }
  }
  return level;
}

/// A running mean over 2 × radius + 1 pixels; the edges repeat.
void meanLine(Wide* first, std::size_t step, int count, int radius, std::vector<Wide>& copy) {
  copy.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) copy[static_cast<std::size_t>(i)] = first[static_cast<std::size_t>(i) * step];
  const auto at = [&](int i) -> const Wide& { return copy[static_cast<std::size_t>(std::clamp(i, 0, count - 1))]; };
  std::array<std::uint32_t, 4> sum{};
  for (int i = -radius; i <= radius; ++i) {
    for (std::size_t c = 0; c < 4; ++c) sum[c] += at(i)[c];
  }
  const auto width = static_cast<std::uint32_t>(2 * radius + 1);
  for (int i = 0; i < count; ++i) {
    Wide& target = first[static_cast<std::size_t>(i) * step];
    for (std::size_t c = 0; c < 4; ++c) {
      target[c] = static_cast<std::uint16_t>((sum[c] + width / 2) / width);
      sum[c] += at(i + radius + 1)[c];
      sum[c] -= at(i - radius)[c];
    }
  }
}

Level blurredLevel(const QImage& image, double sigma) {
  // Small enough that three running means of a few pixels do, large enough that it does not show.
  const int factor = std::max(1, static_cast<int>(sigma / 3));
  Level level = reduced(image, factor);
  const double small = sigma / factor;
  const int radius = std::max(1, static_cast<int>(std::lround((std::sqrt(1 + 4 * small * small) - 1) / 2)));
  std::vector<Wide> copy;
  const auto width = static_cast<std::size_t>(level.width);
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < level.height; ++y) {
      meanLine(&level.pixels[static_cast<std::size_t>(y) * width], 1, level.width, radius, copy);
    }
    for (int x = 0; x < level.width; ++x)
      meanLine(&level.pixels[static_cast<std::size_t>(x)], width, level.height, radius, copy);
  }
  return level;
}

/// The place of a pixel between two of a level, the second's share in parts of 256.
struct Between {
  int first;
  int second;
  std::uint32_t share;
};

Between between(int pixel, int factor, int count) {
  const double place = std::clamp((pixel + 0.5) / factor - 0.5, 0.0, count - 1.0);
  const int first = static_cast<int>(place);
  return {first, std::min(first + 1, count - 1), static_cast<std::uint32_t>((place - first) * 256)};
}

/// 0 inside, 1 at the edge.
double nearness(double distance, double reach) {
  const double t = std::clamp(1 - distance / reach, 0.0, 1.0);
  return t * t * (3 - 2 * t);
}

}  // namespace

void blurEdges(QImage& image, Direction direction, double strength) {
  if (direction == Direction::None || !(strength > 0) || image.isNull()) return;
  strength = std::min(strength, 1.0);
  const double extent = std::max(image.width(), image.height());
  const double sigma = extent * 0.016 * strength;
  if (sigma < 0.3) return;
  // Three strengths, and blends of neighbours in between.
  const std::array<Level, 3> levels{blurredLevel(image, sigma / 5), blurredLevel(image, sigma / 2),
                                    blurredLevel(image, sigma)};
  const bool all = direction == Direction::All;
  const auto reachOf = [&](int length) { return length * (all ? 0.16 + 0.16 * strength : 0.28 + 0.27 * strength); };
  const auto width = static_cast<std::size_t>(image.width());
  std::vector<double> columns(width, 0);
  for (std::size_t x = 0; x < width; ++x) {
    const double left = static_cast<double>(x) + 0.5;
    const double right = image.width() - left;
    if (all || direction == Direction::Left) columns[x] = nearness(left, reachOf(image.width()));
    if (all || direction == Direction::Right)
      columns[x] = std::max(columns[x], nearness(right, reachOf(image.width())));
  }
  std::array<std::vector<Between>, 3> across;
  for (std::size_t k = 0; k < 3; ++k) {
    for (int x = 0; x < image.width(); ++x) across[k].push_back(between(x, levels[k].factor, levels[k].width));
  }
  for (int y = 0; y < image.height(); ++y) {
    const double top = y + 0.5;
    const double bottom = image.height() - top;
    double row = 0;
    if (all) row = nearness(top, reachOf(image.height()));
    if (all || direction == Direction::Bottom) row = std::max(row, nearness(bottom, reachOf(image.height())));
    if (row <= 0 && std::ranges::all_of(columns, [](double value) { return value <= 0; })) continue;
    std::array<Between, 3> down;
    for (std::size_t k = 0; k < 3; ++k) down[k] = between(y, levels[k].factor, levels[k].height);
    uchar* const line = image.scanLine(y);
    for (std::size_t x = 0; x < width; ++x) {
      // Both sides of a corner add up smoothly.
      const double amount = 1 - (1 - row) * (1 - columns[x]);
      if (amount <= 0.002) continue;
      const double place = amount * 3;
      const auto upper = std::min<std::size_t>(static_cast<std::size_t>(place), 2);
      const auto share = static_cast<std::uint32_t>((place - static_cast<double>(upper)) * 256);
      const auto sample = [&](std::size_t k, std::size_t c) {
        const Level& level = levels[k];
        const Between& h = across[k][x];
        const Between& v = down[k];
        const auto at = [&](int column, int line_) {
          return std::uint32_t{level.pixels[static_cast<std::size_t>(line_) * static_cast<std::size_t>(level.width) +
                                            static_cast<std::size_t>(column)][c]};
        };
        const std::uint32_t above = at(h.first, v.first) * (256 - h.share) + at(h.second, v.first) * h.share;
        const std::uint32_t below = at(h.first, v.second) * (256 - h.share) + at(h.second, v.second) * h.share;
        return ((above >> 4) * (256 - v.share) + (below >> 4) * v.share) >> 12;  // 8.4 again
      };
      for (std::size_t c = 0; c < 4; ++c) {
        const std::uint32_t near = upper == 0 ? std::uint32_t{line[x * 4 + c]} * 16 : sample(upper - 1, c);
        const std::uint32_t far = sample(upper, c);
        line[x * 4 + c] = static_cast<uchar>((near * (256 - share) + far * share + 2048) >> 12);
      }
    }
  }
}

}  // namespace vellora
