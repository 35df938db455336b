#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "platform/CameraCapture.h"

namespace vellora::test {

/// A camera's picture whose samples the test sets.
class SyntheticCameraFrame final : public CameraFrame {
 public:
  /// All of one color.
  SyntheticCameraFrame(int frameWidth, int frameHeight, std::uint8_t y = 16, std::uint8_t u = 128,
                       std::uint8_t v = 128) {
    width = frameWidth;
    height = frameHeight;
    const int chromaWidth = (width + 1) / 2;
    const int chromaHeight = (height + 1) / 2;
    samples_[0].assign(static_cast<std::size_t>(width * height), y);
    samples_[1].assign(static_cast<std::size_t>(chromaWidth * chromaHeight), u);
    samples_[2].assign(samples_[1].size(), v);
    for (int i = 0; i < 3; ++i) planes[i] = samples_[i].data();
    bytesPerRow[0] = width;
    bytesPerRow[1] = bytesPerRow[2] = chromaWidth;
  }
  std::uint8_t& at(int plane, int x, int y) {
    return samples_[plane][static_cast<std::size_t>(y * bytesPerRow[plane] + x)];
  }

 private:
  std::vector<std::uint8_t> samples_[3];
};

/// Something like a person before a wall, for eyes.
inline std::shared_ptr<SyntheticCameraFrame> portrait(int width, int height) {
  auto frame = std::make_shared<SyntheticCameraFrame>(width, height, 150, 120, 124);
  const auto inside = [](double x, double y, double rx, double ry) { return x * x / rx / rx + y * y / ry / ry < 1; };
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const double across = (x - width / 2.0) / height;
      const double down = static_cast<double>(y) / height;
      const bool face = inside(across, down - 0.42, 0.17, 0.22);
      const bool body = inside(across, down - 1.05, 0.42, 0.42);
      const bool light = inside(across + 0.55, down - 0.3, 0.2, 0.3);  // to the left of the person in the picture
      if (light) frame->at(0, x, y) = 215;
      if (body) frame->at(0, x, y) = 70;
      if (face) frame->at(0, x, y) = 175;
      if (x % 2 != 0 || y % 2 != 0) continue;
      if (body) frame->at(1, x / 2, y / 2) = 165;
      if (face) {
        frame->at(1, x / 2, y / 2) = 108;
        frame->at(2, x / 2, y / 2) = 152;
      }
    }
  }
  return frame;
}

}  // namespace vellora::test
