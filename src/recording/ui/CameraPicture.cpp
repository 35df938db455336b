#include "recording/ui/CameraPicture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace vellora {
namespace {

constexpr int weightBits = 14;
constexpr int fractionBits = 16;

/// Which samples a row or column of the result is made of, and how much of each: a triangle over every sample it stands
/// for, and over the two nearest ones where the picture is enlarged.
struct Taps {
  int perPixel = 0;
  std::vector<int> first;             ///< by pixel
  std::vector<std::uint16_t> weight;  ///< perPixel of them by pixel; together 2^weightBits
};

Taps tapsFor(double start, double length, int samples, int pixels) {
  const double step = length / pixels;
  const double reach = std::max(1.0, step);
  Taps taps;
  taps.perPixel = std::min(samples, static_cast<int>(std::ceil(2 * reach)) + 1);
  std::vector<double> parts(static_cast<std::size_t>(taps.perPixel));
  for (int i = 0; i < pixels; ++i) {
    const double middle = start + (i + 0.5) * step - 0.5;  // in samples
    const int first = std::clamp(static_cast<int>(std::floor(middle - reach)) + 1, 0, samples - taps.perPixel);
    double sum = 0;
    for (int t = 0; t < taps.perPixel; ++t) {
      parts[static_cast<std::size_t>(t)] = std::max(0.0, 1 - std::abs(first + t - middle) / reach);
      sum += parts[static_cast<std::size_t>(t)];
    }
    if (sum <= 0) {
      parts[middle < first ? 0 : parts.size() - 1] = sum = 1;
    }
    taps.first.push_back(first);
    int left = 1 << weightBits;
    std::size_t heaviest = 0;
    for (std::size_t t = 0; t < parts.size(); ++t) {
      const int weight = static_cast<int>(std::lround(parts[t] / sum * (1 << weightBits)));
      left -= weight;
      if (parts[t] > parts[heaviest]) heaviest = t;
      taps.weight.push_back(static_cast<std::uint16_t>(weight));
    }
    // What rounding left over.
    auto& most = taps.weight[taps.weight.size() - parts.size() + heaviest];
    most = static_cast<std::uint16_t>(most + left);
  }
  return taps;
}

/// One plane on its way to the size of the result: row by row, first down, then across.
class PlaneScaler {
 public:
  /// The square of `length` samples at `x`, `y` of a plane of `width` × `height` samples.
  PlaneScaler(const std::uint8_t* plane, std::ptrdiff_t bytesPerRow, int width, int height, double x, double y,
              double length, int side)
      : plane_(plane),
        bytesPerRow_(bytesPerRow),
        across_(tapsFor(x, length, width, side)),
        down_(tapsFor(y, length, height, side)),
        from_(*std::min_element(across_.first.begin(), across_.first.end())),
        to_(*std::max_element(across_.first.begin(), across_.first.end()) + across_.perPixel),
        sums_(static_cast<std::size_t>(to_ - from_)) {}

  /// The samples of row `row` of the result.
  void row(int row, std::uint8_t* to) {
    const auto index = static_cast<std::size_t>(row);
    const std::uint16_t* const weights = &down_.weight[index * static_cast<std::size_t>(down_.perPixel)];
    const std::size_t count = sums_.size();
    std::fill(sums_.begin(), sums_.end(), 1u << (weightBits - 9));
    for (int t = 0; t < down_.perPixel; ++t) {
      const std::uint32_t weight = weights[t];
      if (weight == 0) continue;
      const std::uint8_t* const samples = plane_ + (down_.first[index] + t) * bytesPerRow_ + from_;
      for (std::size_t i = 0; i < count; ++i) sums_[i] += weight * samples[i];
    }
    // Eight bits below the point are kept between the two passes.
    for (std::uint32_t& sum : sums_) sum >>= weightBits - 8;
    const std::uint16_t* weight = across_.weight.data();
    for (std::size_t i = 0; i < across_.first.size(); ++i) {
      const std::uint32_t* const samples = &sums_[static_cast<std::size_t>(across_.first[i] - from_)];
      std::uint32_t sum = 1u << (weightBits + 7);
      for (int t = 0; t < across_.perPixel; ++t) sum += *weight++ * samples[t];
      to[i] = static_cast<std::uint8_t>(sum >> (weightBits + 8));
    }
  }

 private:
  const std::uint8_t* plane_;
  std::ptrdiff_t bytesPerRow_;
  Taps across_;
  Taps down_;
  int from_;
  int to_;
  std::vector<std::uint32_t> sums_;
};

/// From limited range Y'CbCr to R'G'B' of 0 to 255, times 2^16 (ITU-R BT.709-6 and BT.601-7, 3).
struct Matrix {
  int y, rFromV, gFromU, gFromV, bFromU;
};
constexpr Matrix matrixFor(double kr, double kb) {
  constexpr double chroma = 255.0 / 224 * (1 << fractionBits);
  const double kg = 1 - kr - kb;
  return {static_cast<int>(255.0 / 219 * (1 << fractionBits) + 0.5), static_cast<int>(2 * (1 - kr) * chroma + 0.5),
          static_cast<int>(2 * (1 - kb) * kb / kg * chroma + 0.5),
          static_cast<int>(2 * (1 - kr) * kr / kg * chroma + 0.5), static_cast<int>(2 * (1 - kb) * chroma + 0.5)};
}
constexpr Matrix bt709 = matrixFor(0.2126, 0.0722);
constexpr Matrix bt601 = matrixFor(0.299, 0.114);

std::uint32_t toByte(int value) {
  return static_cast<std::uint32_t>(std::clamp(value >> fractionBits, 0, 255));
}

}  // namespace

QImage mirroredSquare(const CameraFrame& frame, int side) {
  const bool hasPixels = frame.width >= 2 && frame.height >= 2 && frame.planes[0] != nullptr &&
                         frame.planes[1] != nullptr && frame.planes[2] != nullptr;
  if (!hasPixels || side < 1) return {};
  QImage picture(side, side, QImage::Format_RGB32);
  if (picture.isNull()) return {};
  const double length = std::min(frame.width, frame.height);
  const double x = (frame.width - length) / 2;
  const double y = (frame.height - length) / 2;
  PlaneScaler luma(frame.planes[0], frame.bytesPerRow[0], frame.width, frame.height, x, y, length, side);
  const auto chroma = [&](int plane) {
    return PlaneScaler(frame.planes[plane], frame.bytesPerRow[plane], (frame.width + 1) / 2, (frame.height + 1) / 2,
                       x / 2, y / 2, length / 2, side);
  };
  PlaneScaler u = chroma(1);
  PlaneScaler v = chroma(2);
  const Matrix& matrix = frame.isBt709 ? bt709 : bt601;
  std::vector<std::uint8_t> rows(static_cast<std::size_t>(side) * 3);
  std::uint8_t* const ys = rows.data();
  std::uint8_t* const us = ys + side;
  std::uint8_t* const vs = us + side;
  for (int row = 0; row < side; ++row) {
    luma.row(row, ys);
    u.row(row, us);
    v.row(row, vs);
    auto* const line = reinterpret_cast<std::uint32_t*>(picture.scanLine(row));
    for (int i = 0; i < side; ++i) {
      const int light = (ys[i] - 16) * matrix.y + (1 << (fractionBits - 1));
      const int cb = us[i] - 128;
      const int cr = vs[i] - 128;
      line[side - 1 - i] = 0xFF000000U | toByte(light + cr * matrix.rFromV) << 16 |
                           toByte(light - cb * matrix.gFromU - cr * matrix.gFromV) << 8 |
                           toByte(light + cb * matrix.bFromU);
    }
  }
  return picture;
}

}  // namespace vellora
