#include "editor/backdrop/EdgeBlur.h"

#include <array>
#include <cstring>
#include <vector>

#include <QImage>
#include <QRect>

#include "editor/backdrop/Rgba.h"
#include "editor/backdrop/SmoothGrid.h"

namespace vellora {
namespace {

using Direction = BackdropSettings::EdgeBlurDirection;

/// A part of a picture made smaller by a whole factor, and then blurred: a node stands for the middle of its block.
struct Level {
  int factor;
  QPoint origin;  ///< of the part, in pixels of the picture
  SmoothGrid<Rgba> nodes;
};

int blocks(int length, int factor) {
  return (length + factor - 1) / factor;
}

Level reduced(const QImage& image, const QRect& part, int factor) {
  Level level{factor, part.topLeft(), {blocks(part.width(), factor), blocks(part.height(), factor)}};
  for (int y = 0; y < level.nodes.rows(); ++y) {
    Rgba* target = level.nodes.row(y);
    const int rows = std::min(factor, part.height() - y * factor);
    for (int i = 0; i < rows; ++i) {
      const uchar* pixel = image.constScanLine(part.top() + y * factor + i) + part.left() * 4;
      for (int x = 0; x < level.nodes.columns(); ++x) {
        const uchar* const end = pixel + std::min(factor, part.width() - x * factor) * 4;
        for (; pixel < end; pixel += 4) target[x] += Rgba::fromPixel(pixel);
      }
    }
    for (int x = 0; x < level.nodes.columns(); ++x) {
      target[x] = target[x] * (1.0F / static_cast<float>(rows * std::min(factor, part.width() - x * factor)));
    }
  }
  return level;
}

/// The level at half its size, where that loses nothing that counts: its last block may stand for less.
Level halved(const Level& level, int times) {
  Level result{
      level.factor * times, level.origin, {blocks(level.nodes.columns(), times), blocks(level.nodes.rows(), times)}};
  for (int y = 0; y < result.nodes.rows(); ++y) {
    for (int x = 0; x < result.nodes.columns(); ++x) {
      const int right = std::min((x + 1) * times, level.nodes.columns());
      const int bottom = std::min((y + 1) * times, level.nodes.rows());
      Rgba sum;
      for (int j = y * times; j < bottom; ++j) {
        for (int i = x * times; i < right; ++i) sum += level.nodes.row(j)[i];
      }
      result.nodes.row(y)[x] = sum * (1.0F / static_cast<float>((right - x * times) * (bottom - y * times)));
    }
  }
  return result;
}

/// A running mean over 2 × radius + 1 nodes; the edges repeat.
void meanLine(Rgba* first, std::size_t step, int count, int radius, std::vector<Rgba>& copy) {
  const auto length = static_cast<std::size_t>(count + 2 * radius + 1);
  copy.resize(length);
  for (std::size_t i = 0; i < length; ++i) {
    const int from = std::clamp(static_cast<int>(i) - radius, 0, count - 1);
    copy[i] = first[static_cast<std::size_t>(from) * step];
  }
  const auto width = static_cast<std::size_t>(2 * radius + 1);
  Rgba sum;
  for (std::size_t i = 0; i < width; ++i) sum += copy[i];
  const float share = 1.0F / static_cast<float>(width);
  for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
    first[i * step] = sum * share;
    sum = sum + copy[i + width] - copy[i];
  }
}

/// Three running means after each other come close to a Gaussian; their variance is r (r + 1).
void blur(Level& level, double sigma) {
  const double nodes = sigma / level.factor;
  const int radius = std::max(1, static_cast<int>(std::lround((std::sqrt(1 + 4 * nodes * nodes) - 1) / 2)));
  std::vector<Rgba> copy;
  const auto columns = static_cast<std::size_t>(level.nodes.columns());
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < level.nodes.rows(); ++y) meanLine(level.nodes.row(y), 1, level.nodes.columns(), radius, copy);
    for (std::size_t x = 0; x < columns; ++x) {
      meanLine(level.nodes.row(0) + x, columns, level.nodes.rows(), radius, copy);
    }
  }
}

/// Small enough that three running means of a few nodes do, large enough that it does not show.
int factorFor(double sigma) {
  int factor = 1;
  while (factor * 2 <= sigma / 1.5) factor *= 2;
  return factor;
}

/// 0 inside, 1 at the edge.
float nearness(double distance, double reach) {
  const auto t = static_cast<float>(std::clamp(1 - distance / reach, 0.0, 1.0));
  return t * t * (3 - 2 * t);
}

/// How near every column or row of `length` is to the edges that are blurred.
std::vector<float> nearnesses(int length, bool first, bool last, double reach) {
  std::vector<float> values(static_cast<std::size_t>(length), 0.0F);
  for (int i = 0; i < length; ++i) {
    float& value = values[static_cast<std::size_t>(i)];
    if (first) value = nearness(i + 0.5, reach);
    if (last) value = std::max(value, nearness(length - i - 0.5, reach));
  }
  return values;
}

struct RowBlender {
  const std::array<Level, 3>& levels;
  std::array<std::vector<Rgba>, 3> samples;
  std::vector<Rgba> line;

  /// Blends the pixels from `from` to before `to` of a row with the levels that belong to their amounts.
  void blend(uchar* pixels, int y, int from, int to, float row, const std::vector<float>& columns) {
    const int count = to - from;
    if (count <= 0) return;
    for (std::size_t k = 0; k < levels.size(); ++k) {
      const Level& level = levels[k];
      samples[k].resize(static_cast<std::size_t>(count));
      level.nodes.sampleRow((from - level.origin.x() + 0.5) / level.factor - 0.5,
                            (y - level.origin.y() + 0.5) / level.factor - 0.5, 1.0 / level.factor, count, line,
                            [target = samples[k].data()](int i, const Rgba& value) { target[i] = value; });
    }
    for (int i = 0; i < count; ++i) {
      // Two edges that meet in a corner add up smoothly.
      const float amount = 1 - (1 - row) * (1 - columns[static_cast<std::size_t>(from + i)]);
      if (amount < 0.002F) continue;
      uchar* pixel = pixels + (from + i) * 4;
      const float place = amount * 3;
      const auto upper = std::min<std::size_t>(static_cast<std::size_t>(place), 2);
      const float share = place - static_cast<float>(upper);
      const auto index = static_cast<std::size_t>(i);
      const Rgba near = upper == 0 ? Rgba::fromPixel(pixel) : samples[upper - 1][index];
      const std::uint32_t mixed = (near + (samples[upper][index] - near) * share).toPixel(0.5F);
      std::memcpy(pixel, &mixed, sizeof mixed);
    }
  }
};

}  // namespace

void blurEdges(QImage& image, Direction direction, double strength) {
  if (direction == Direction::None || !(strength > 0) || image.isNull()) return;
  strength = std::min(strength, 1.0);
  const int width = image.width();
  const int height = image.height();
  const double sigma = std::max(width, height) * 0.016 * strength;
  if (sigma < 0.3) return;
  const bool all = direction == Direction::All;
  const auto reachOf = [&](int length) { return length * (all ? 0.12 + 0.16 * strength : 0.28 + 0.27 * strength); };
  const bool left = all || direction == Direction::Left;
  const bool right = all || direction == Direction::Right;
  const bool bottom = all || direction == Direction::Bottom;
  const std::vector<float> columns = nearnesses(width, left, right, reachOf(width));
  const std::vector<float> rows = nearnesses(height, all, bottom, reachOf(height));

  // Only what is blurred, and what flows into it.
  QRect part(0, 0, width, height);
  const int inflow = static_cast<int>(4 * sigma) + 8;
  if (direction == Direction::Bottom) part.setTop(std::max(0, static_cast<int>(height - reachOf(height)) - inflow));
  if (direction == Direction::Left) part.setWidth(std::min(width, static_cast<int>(reachOf(width)) + inflow));
  if (direction == Direction::Right) part.setLeft(std::max(0, static_cast<int>(width - reachOf(width)) - inflow));

  const std::array<double, 3> sigmas{sigma / 5, sigma / 2, sigma};
  std::array<Level, 3> levels{reduced(image, part, factorFor(sigmas[0])), Level{}, Level{}};
  for (std::size_t k = 1; k < 3; ++k) levels[k] = halved(levels[0], factorFor(sigmas[k]) / levels[0].factor);
  for (std::size_t k = 0; k < 3; ++k) blur(levels[k], sigmas[k]);

  // A row whose own edge is far is only touched near the sides.
  const int leftEnd = left ? std::min(width, static_cast<int>(reachOf(width)) + 1) : 0;
  const int rightBegin = right ? std::max(leftEnd, static_cast<int>(width - reachOf(width)) - 1) : width;
  RowBlender blender{levels, {}, {}};
  for (int y = 0; y < height; ++y) {
    const float row = rows[static_cast<std::size_t>(y)];
    if (row == 0 && leftEnd == 0 && rightBegin == width) continue;
    uchar* pixels = image.scanLine(y);
    if (row > 0) {
      blender.blend(pixels, y, 0, width, row, columns);
    } else {
      blender.blend(pixels, y, 0, leftEnd, row, columns);
      blender.blend(pixels, y, rightBegin, width, row, columns);
    }
  }
}

}  // namespace vellora
