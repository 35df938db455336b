#include "editor/rendering/GaussianBlur.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace vellora {
namespace {

constexpr int channels = 4;

/// Four channels of 16 bits a pixel, so that three passes lose nothing that is seen.
struct Plane {
  int width;
  int height;
  std::vector<std::uint16_t> values;

  std::uint16_t* row(int y) { return values.data() + static_cast<std::size_t>(y) * width * channels; }
};

Plane reduced(const Bitmap& picture, int reduction) {
  const int block = 1 << reduction;
  Plane plane{picture.width() / block, picture.height() / block, {}};
  const auto rowLength = static_cast<std::size_t>(plane.width) * channels;
  plane.values.resize(rowLength * static_cast<std::size_t>(plane.height));
  const bool opaque = picture.alpha() == PixelAlpha::Opaque;
  std::vector<std::uint32_t> sums(rowLength);
  for (int y = 0; y < plane.height; ++y) {
    std::ranges::fill(sums, 0);
    for (int line = 0; line < block; ++line) {
      const auto* bytes = reinterpret_cast<const std::uint8_t*>(picture.row(y * block + line));
      for (int x = 0; x < plane.width; ++x) {
        std::uint32_t* sum = sums.data() + static_cast<std::ptrdiff_t>(x) * channels;
        for (int i = 0; i < block; ++i, bytes += channels) {
          for (int channel = 0; channel < channels; ++channel) sum[channel] += bytes[channel];
        }
      }
    }
    std::uint16_t* out = plane.row(y);
    for (std::size_t i = 0; i < rowLength; ++i) out[i] = static_cast<std::uint16_t>((sums[i] << 8) >> (2 * reduction));
    if (opaque) {
      for (std::size_t i = 3; i < rowLength; i += channels) out[i] = 255 << 8;
    }
  }
  return plane;
}

/// A box filter of `length` values, the first of them `before` left of the result.
struct Box {
  int length;
  int before;
};

std::array<Box, 3> boxesOf(double sigma) {
  const int length = std::max(static_cast<int>(sigma * 3 * std::sqrt(2 * M_PI) / 4 + 0.5), 1);
  if (length % 2 == 1) return {Box{length, length / 2}, {length, length / 2}, {length, length / 2}};
  return {Box{length, length / 2}, {length, length / 2 - 1}, {length + 1, length / 2}};
}

/// sum / length as a multiplication; the sums stay below 2^24.
std::uint16_t divided(std::uint32_t sum, std::uint64_t reciprocal) {
  return static_cast<std::uint16_t>((sum * reciprocal) >> 32);
}

void blurAcross(Plane& plane, Box box) {
  const std::uint64_t reciprocal = (std::uint64_t{1} << 32) / static_cast<std::uint64_t>(box.length);
  std::vector<std::uint16_t> line(static_cast<std::size_t>(plane.width) * channels);
  for (int y = 0; y < plane.height; ++y) {
    std::uint16_t* row = plane.row(y);
    std::copy_n(row, line.size(), line.data());
    std::array<std::uint32_t, channels> sum{};
    const auto add = [&](int x) {
      if (x < 0 || x >= plane.width) return;
      for (int c = 0; c < channels; ++c)
        sum[static_cast<std::size_t>(c)] += line[static_cast<std::size_t>(x * channels + c)];
    };
    const auto remove = [&](int x) {
      if (x < 0 || x >= plane.width) return;
      for (int c = 0; c < channels; ++c)
        sum[static_cast<std::size_t>(c)] -= line[static_cast<std::size_t>(x * channels + c)];
    };
    for (int x = -box.before; x < box.length - box.before - 1; ++x) add(x);
    for (int x = 0; x < plane.width; ++x) {
      add(x + box.length - box.before - 1);
      for (int c = 0; c < channels; ++c) row[x * channels + c] = divided(sum[static_cast<std::size_t>(c)], reciprocal);
      remove(x - box.before);
    }
  }
}

void blurDown(Plane& plane, Box box) {
  const std::uint64_t reciprocal = (std::uint64_t{1} << 32) / static_cast<std::uint64_t>(box.length);
  const std::size_t length = static_cast<std::size_t>(plane.width) * channels;
  std::vector<std::uint32_t> sums(length);
  // The rows still needed after they were overwritten.
  std::vector<std::vector<std::uint16_t>> kept(static_cast<std::size_t>(box.before) + 1,
                                               std::vector<std::uint16_t>(length));
  const auto add = [&](int y) {
    if (y < 0 || y >= plane.height) return;
    const std::uint16_t* row = plane.row(y);
    for (std::size_t i = 0; i < length; ++i) sums[i] += row[i];
  };
  for (int y = 0; y < box.length - box.before - 1; ++y) add(y);
  for (int y = 0; y < plane.height; ++y) {
    add(y + box.length - box.before - 1);
    std::uint16_t* row = plane.row(y);
    std::copy_n(row, length, kept[static_cast<std::size_t>(y) % kept.size()].data());
    for (std::size_t i = 0; i < length; ++i) row[i] = divided(sums[i], reciprocal);
    const int leaving = y - box.before;
    if (leaving < 0) continue;
    const std::uint16_t* old = kept[static_cast<std::size_t>(leaving) % kept.size()].data();
    for (std::size_t i = 0; i < length; ++i) sums[i] -= old[i];
  }
}

}  // namespace

double blurSigma(double strength) {
  const double share = strength >= 0 ? std::min(strength, 1.0) : 0;
  return 2 + 18 * share * share;
}

int blurReduction(double sigma) {
  int reduction = 0;
  while (sigma / (2 << reduction) >= 2 && reduction < 6) ++reduction;
  return reduction;
}

std::optional<BlurredPicture> gaussianBlur(const Bitmap& picture, double sigma) {
  const int reduction = blurReduction(sigma);
  Plane plane = reduced(picture, reduction);
  const Plane source = picture.alpha() == PixelAlpha::Opaque ? Plane{0, 0, {}} : plane;
  for (const Box& box : boxesOf(sigma / (1 << reduction))) {
    blurAcross(plane, box);
    blurDown(plane, box);
  }

  const PixelSize size{plane.width, plane.height};
  auto color = MutableBitmap::create(size, PixelAlpha::Opaque);
  auto soft = MutableBitmap::create(size, PixelAlpha::Premultiplied);
  if (!color || !soft) return std::nullopt;
  bool isOpaque = true;
  for (int y = 0; y < plane.height; ++y) {
    const std::uint16_t* row = plane.row(y);
    auto* colors = reinterpret_cast<std::uint8_t*>(color->row(y));
    auto* softs = reinterpret_cast<std::uint8_t*>(soft->row(y));
    for (int x = 0; x < plane.width; ++x, row += channels, colors += channels, softs += channels) {
      const std::uint32_t weight = row[3];
      const std::uint32_t alpha =
          source.values.empty()
              ? 255
              : (source.values[(static_cast<std::size_t>(y) * plane.width + x) * channels + 3] + 128U) >> 8;
      isOpaque = isOpaque && alpha == 255;
      for (int c = 0; c < 3; ++c) {
        const std::uint32_t value = weight == 0 ? 0 : std::min((row[c] * 255U + weight / 2) / weight, 255U);
        colors[c] = static_cast<std::uint8_t>(value);
        softs[c] = static_cast<std::uint8_t>((value * alpha + 127) / 255);
      }
      colors[3] = 255;
      softs[3] = static_cast<std::uint8_t>(alpha);
    }
  }
  BlurredPicture blurred{std::move(*color).finish(), {}};
  if (!isOpaque) blurred.soft = std::move(*soft).finish();
  return blurred;
}

}  // namespace vellora
