#include "media/Thumbnail.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace vellora {
namespace {

/// Which source pixels, along one axis, make up a pixel of the thumbnail, and how much each counts; the weights add up
/// to 1.
struct Taps {
  int first = 0;
  int last = -1;
  float firstWeight = 0;
  float innerWeight = 0;  // of each one between
  float lastWeight = 0;
  float coverage = 0;  // the part of the thumbnail's pixel that the picture covers
};

/// The taps of the thumbnail's pixel from `at` to `at` + 1, for `count` source pixels spread over `start` to `start` +
/// `length`.
Taps tapsFor(double at, double start, double length, int count) {
  const double begin = std::max(at, start), end = std::min(at + 1, start + length);
  Taps taps;
  if (!(end > begin)) return taps;
  taps.coverage = static_cast<float>(end - begin);
  const double perPixel = count / length;
  if (perPixel > 1) {
    // Shrinking: the average of what lies under the pixel.
    const double low = std::clamp((begin - start) * perPixel, 0.0, static_cast<double>(count));
    const double high = std::clamp((end - start) * perPixel, low, static_cast<double>(count));
    taps.first = std::min(static_cast<int>(low), count - 1);
    taps.last = std::clamp(static_cast<int>(std::ceil(high)) - 1, taps.first, count - 1);
    const double span = high - low;
    if (taps.first == taps.last || !(span > 0)) {
      taps.last = taps.first;
      taps.firstWeight = 1;
      return taps;
    }
    taps.firstWeight = static_cast<float>((taps.first + 1 - low) / span);
    taps.lastWeight = static_cast<float>((high - taps.last) / span);
    taps.innerWeight = static_cast<float>(1 / span);
    return taps;
  }
  // Growing: between the two source pixels whose centres lie around the middle.
  const double middle = std::clamp(((begin + end) / 2 - start) * perPixel - 0.5, 0.0, count - 1.0);
  taps.first = static_cast<int>(middle);
  taps.last = std::min(taps.first + 1, count - 1);
  const auto part = static_cast<float>(middle - taps.first);
  taps.firstWeight = taps.last == taps.first ? 1 : 1 - part;
  taps.lastWeight = taps.last == taps.first ? 0 : part;
  return taps;
}

using Color = std::array<float, 4>;  // blue, green, red, alpha; 0 to 255, premultiplied

/// Adds up columns of source rows with weights.
class RowSum {
 public:
  RowSum(const Bitmap& image, int left, int right)
      : image_(image),
        offset_(static_cast<std::size_t>(left) * 4),
        count_(static_cast<std::size_t>(right - left) * 4),
        total_(count_),
        inner_(count_) {}

  /// The weighted sum of rows; four numbers for each column from `left` on.
  const std::vector<float>& of(const Taps& rows) {
    std::fill(total_.begin(), total_.end(), 0.0F);
    add(rows.first, rows.firstWeight);
    if (rows.last != rows.first) add(rows.last, rows.lastWeight);
    for (int y = rows.first + 1; y < rows.last;) y = addInner(y, rows.last, rows.innerWeight);
    return total_;
  }

 private:
  const std::uint8_t* row(int y) const { return reinterpret_cast<const std::uint8_t*>(image_.row(y)) + offset_; }

  void add(int y, float weight) {
    const std::uint8_t* source = row(y);
    for (std::size_t i = 0; i < count_; ++i) total_[i] += weight * source[i];
  }

  /// Rows of equal weight are added as short integers, as many as those can hold; returns the row after them.
  int addInner(int begin, int end, float weight) {
    constexpr int mostRows = 0xFFFF / 0xFF;
    end = std::min(end, begin + mostRows);
    std::fill(inner_.begin(), inner_.end(), std::uint16_t{0});
    std::uint16_t* __restrict sums = inner_.data();
    for (int y = begin; y < end; ++y) {
      const std::uint8_t* __restrict source = row(y);
      for (std::size_t i = 0; i < count_; ++i) sums[i] = static_cast<std::uint16_t>(sums[i] + source[i]);
    }
    for (std::size_t i = 0; i < count_; ++i) total_[i] += weight * sums[i];
    return end;
  }

  const Bitmap& image_;
  const std::size_t offset_;
  const std::size_t count_;
  std::vector<float> total_;
  std::vector<std::uint16_t> inner_;
};

class Canvas {
 public:
  Canvas() { pixels_.fill({255, 255, 255, 255}); }

  /// Draws `image` over what is there, stretched to `place` in thumbnail pixels.
  void draw(const Bitmap& image, const Rect& place) {
    std::array<Taps, width> columns;
    int left = image.width(), right = 0;
    for (int x = 0; x < width; ++x) {
      Taps& taps = columns[static_cast<std::size_t>(x)];
      taps = tapsFor(x, place.minX(), place.size.width, image.width());
      if (!(taps.coverage > 0)) continue;
      left = std::min(left, taps.first);
      right = std::max(right, taps.last + 1);
    }
    if (left >= right) return;
    RowSum rows(image, left, right);
    const bool opaque = image.alpha() == PixelAlpha::Opaque;
    for (int y = 0; y < height; ++y) {
      const Taps taps = tapsFor(y, place.minY(), place.size.height, image.height());
      if (!(taps.coverage > 0)) continue;
      const std::vector<float>& sums = rows.of(taps);
      for (int x = 0; x < width; ++x) {
        const Taps& column = columns[static_cast<std::size_t>(x)];
        if (!(column.coverage > 0)) continue;
        Color color = average(sums, column, left);
        if (opaque) color[3] = 255;
        blend(at(x, y), color, column.coverage * taps.coverage);
      }
    }
  }

  std::optional<Bitmap> finish() {
    auto bitmap = MutableBitmap::create(thumbnailSize, PixelAlpha::Premultiplied);
    if (!bitmap) return std::nullopt;
    for (int y = 0; y < height; ++y) {
      std::byte* out = bitmap->row(y);
      for (int x = 0; x < width; ++x) {
        const float inside = cornerCoverage(x, y);
        for (const float part : at(x, y)) {
          *out++ = static_cast<std::byte>(std::lround(std::clamp(part * inside, 0.0F, 255.0F)));
        }
      }
    }
    return std::move(*bitmap).finish();
  }

 private:
  static constexpr int width = thumbnailSize.width, height = thumbnailSize.height;

  Color& at(int x, int y) { return pixels_[static_cast<std::size_t>(y) * width + static_cast<std::size_t>(x)]; }

  static Color average(const std::vector<float>& sums, const Taps& taps, int left) {
    Color color{};
    const float* source = sums.data() + static_cast<std::size_t>(taps.first - left) * 4;
    for (int x = taps.first; x <= taps.last; ++x) {
      const float weight = x == taps.first ? taps.firstWeight : x == taps.last ? taps.lastWeight : taps.innerWeight;
      for (float& part : color) part += weight * *source++;
    }
    return color;
  }

  static void blend(Color& below, const Color& color, float coverage) {
    const float rest = 1 - coverage * color[3] / 255;
    for (std::size_t i = 0; i < below.size(); ++i) below[i] = color[i] * coverage + below[i] * rest;
  }

  /// The part of a pixel inside the rounded rectangle, from a grid of points in it.
  static float cornerCoverage(int x, int y) {
    constexpr int grid = 16;
    const double nearX = std::min(x, width - 1 - x), nearY = std::min(y, height - 1 - y);
    if (nearX >= thumbnailRadius || nearY >= thumbnailRadius) return 1;
    int inside = 0;
    for (int row = 0; row < grid; ++row) {
      const double fromY = thumbnailRadius - (nearY + (row + 0.5) / grid);
      for (int column = 0; column < grid; ++column) {
        const double fromX = thumbnailRadius - (nearX + (column + 0.5) / grid);
        if (fromX * fromX + fromY * fromY <= thumbnailRadius * thumbnailRadius) ++inside;
      }
    }
    return static_cast<float>(inside) / (grid * grid);
  }

  std::array<Color, std::size_t{width} * std::size_t{height}> pixels_{};
};

bool isFinite(const Rect& rect) {
  return std::isfinite(rect.origin.x) && std::isfinite(rect.origin.y) && std::isfinite(rect.size.width) &&
         std::isfinite(rect.size.height);
}

}  // namespace

std::optional<Bitmap> renderThumbnail(std::span<const ThumbnailPiece> pieces, const Rect& all) {
  if (all.isEmpty() || !isFinite(all)) return std::nullopt;
  const double scale = std::max(thumbnailSize.width / all.size.width, thumbnailSize.height / all.size.height);
  if (!std::isfinite(scale)) return std::nullopt;
  const double offset = (thumbnailSize.width - all.size.width * scale) / 2;
  Canvas canvas;
  for (const ThumbnailPiece& piece : pieces) {
    const Rect place{{offset + scale * (piece.frame.minX() - all.minX()), scale * (piece.frame.minY() - all.minY())},
                     {scale * piece.frame.size.width, scale * piece.frame.size.height}};
    if (piece.image.isNull() || place.isEmpty() || !isFinite(place)) continue;
    canvas.draw(piece.image, place);
  }
  return canvas.finish();
}

}  // namespace vellora
