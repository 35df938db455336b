#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>
#include <vector>

#include "media/frames/BgraKernels.h"
#include "media/frames/I420.h"

namespace vellora::test {
namespace {

/// BGRA with a few bytes between its rows.
struct Picture {
  Picture(int columns, int rows)
      : width(columns),
        height(rows),
        bytesPerRow(columns * 4 + 12),
        bytes(static_cast<std::size_t>(bytesPerRow) * rows) {}
  BgraView view() const { return {bytes.data(), bytesPerRow, width, height}; }
  /// Beyond the last column and row these repeat.
  const std::uint8_t* at(int x, int y) const {
    return bytes.data() + std::min(y, height - 1) * bytesPerRow + std::min(x, width - 1) * 4;
  }

  int width, height;
  std::ptrdiff_t bytesPerRow;
  std::vector<std::uint8_t> bytes;
};

struct Planes {
  Planes(int columns, int rows) : width(columns), height(rows) {
    for (int i = 0; i < 3; ++i)
      bytes[i].assign(static_cast<std::size_t>((columns >> (i > 0)) + 5) * (rows >> (i > 0)), 7);
  }
  I420View view() {
    I420View view{.width = width, .height = height};
    for (std::size_t i = 0; i < 3; ++i) {
      view.planes.at(i) = bytes[i].data();
      view.bytesPerRow.at(i) = (width >> (i > 0)) + 5;
    }
    return view;
  }
  I420Source source() {
    const I420View all = view();
    return {{all.planes[0], all.planes[1], all.planes[2]}, all.bytesPerRow, width, height};
  }
  int at(int plane, int x, int y) const { return bytes[plane][y * ((width >> (plane > 0)) + 5) + x]; }
  friend bool operator==(const Planes&, const Planes&) = default;

  int width, height;
  std::vector<std::uint8_t> bytes[3];
};

Picture randomPicture(int width, int height, unsigned seed) {
  Picture picture(width, height);
  std::mt19937 random(seed);
  for (std::uint8_t& byte : picture.bytes) {
    const auto value = static_cast<std::uint8_t>(random());
    byte = seed % 3 == 0 ? (value & 1) * 255 : value;  // the corners of the color cube, too
  }
  return picture;
}

struct Color {
  double y, u, v;
};

/// By the definition (ITU-R BT.709-6 with limited range; BT.601 with its two weights), not rounded.
Color exactColor(double r, double g, double b, double red = 0.2126, double blue = 0.0722) {
  const double y = red * r + (1 - red - blue) * g + blue * b;
  return {16 + y * 219 / 255, 128 + (b - y) / (2 * (1 - blue)) * 224 / 255,
          128 + (r - y) / (2 * (1 - red)) * 224 / 255};
}

void expectRounded(int value, double exact) {
  EXPECT_LE(std::abs(value - exact), 0.51) << exact;
}

std::vector<BgraKernel> kernels() {
  std::vector<BgraKernel> all{convertBlocksPortably, bestBgraKernel()};
#if defined(__x86_64__)
  all.push_back(convertBlocksWithSse2);
#endif
  return all;
}

TEST(I420, IsTheExactColorRounded) {
  const Picture picture = randomPicture(62, 40, 1);
  Planes planes(62, 40);
  convertBgra(picture.view(), planes.view());
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 62; ++x) {
      const std::uint8_t* p = picture.at(x, y);
      expectRounded(planes.at(0, x, y), exactColor(p[2], p[1], p[0]).y);
    }
  }
  for (int y = 0; y < 20; ++y) {
    for (int x = 0; x < 31; ++x) {
      double mean[3] = {};
      for (const auto& [dx, dy] : {std::pair{0, 0}, {1, 0}, {0, 1}, {1, 1}}) {
        for (int i = 0; i < 3; ++i) mean[i] += picture.at(2 * x + dx, 2 * y + dy)[i] / 4.0;
      }
      const Color exact = exactColor(mean[2], mean[1], mean[0]);
      expectRounded(planes.at(1, x, y), exact.u);
      expectRounded(planes.at(2, x, y), exact.v);
    }
  }
}

TEST(I420, MapsGrayToGray) {
  for (int gray = 0; gray < 256; ++gray) {
    Picture picture(2, 2);
    std::ranges::fill(picture.bytes, static_cast<std::uint8_t>(gray));
    Planes planes(2, 2);
    convertBgra(picture.view(), planes.view());
    EXPECT_EQ(planes.at(0, 0, 0), std::lround(16 + gray * 219 / 255.0));
    EXPECT_EQ(planes.at(1, 0, 0), 128);
    EXPECT_EQ(planes.at(2, 0, 0), 128);
  }
}

TEST(I420, IsTheSameWithEveryKernelAndSize) {
  unsigned seed = 0;
  for (const int width : {1, 2, 3, 15, 16, 17, 31, 32, 33, 34, 63, 64, 65, 95, 130, 257}) {
    for (const int height : {1, 2, 5, 8}) {
      const Picture picture = randomPicture(width, height, ++seed);
      // What a picture of even size with its last column and row twice gives.
      Picture even(evenSize(width), evenSize(height));
      for (int y = 0; y < even.height; ++y) {
        for (int x = 0; x < even.width; ++x)
          std::memcpy(even.bytes.data() + y * even.bytesPerRow + x * 4, picture.at(x, y), 4);
      }
      Planes expected(even.width, even.height);
      const PixelRect all{0, 0, even.width, even.height};
      convertBgra(even.view(), expected.view(), std::span(&all, 1), convertBlocksPortably);
      for (const BgraKernel kernel : kernels()) {
        Planes planes(even.width, even.height);
        const PixelRect whole{0, 0, width, height};
        convertBgra(picture.view(), planes.view(), std::span(&whole, 1), kernel);
        EXPECT_EQ(planes, expected) << width << " × " << height;
      }
    }
  }
}

TEST(I420, FollowsChangesByTheirRectangles) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    const int width = 1 + static_cast<int>(random() % 150), height = 1 + static_cast<int>(random() % 40);
    Picture picture = randomPicture(width, height, static_cast<unsigned>(round));
    Planes planes(evenSize(width), evenSize(height));
    convertBgra(picture.view(), planes.view());
    std::vector<PixelRect> changes;
    for (int i = 0; i < 3; ++i) {
      const PixelRect area{static_cast<int>(random() % width), static_cast<int>(random() % height),
                           static_cast<int>(random() % 60), static_cast<int>(random() % 20)};
      changes.push_back(area);
      const PixelRect inside = area.intersected({0, 0, width, height});
      for (int y = inside.y; y < inside.bottom(); ++y) {
        for (int x = inside.x * 4; x < inside.right() * 4; ++x) {
          picture.bytes[static_cast<std::size_t>(y * picture.bytesPerRow + x)] ^= 0x5a;
        }
      }
    }
    changes.push_back({-50, -50, 40, 40});
    changes.push_back({2147483000, 0, 2147483000, 5});
    convertBgra(picture.view(), planes.view(), changes);
    Planes expected(evenSize(width), evenSize(height));
    convertBgra(picture.view(), expected.view());
    ASSERT_EQ(planes, expected) << width << " × " << height;
  }
}

TEST(I420, TurnsOneMatrixIntoTheOther) {
  std::mt19937 random(5);
  for (int round = 0; round < 2000; ++round) {
    const int r = static_cast<int>(random() % 256), g = static_cast<int>(random() % 256),
              b = static_cast<int>(random() % 256);
    const Color from = exactColor(r, g, b, 0.299, 0.114), exact = exactColor(r, g, b);
    Planes source(2, 2), planes(2, 2);
    std::ranges::fill(source.bytes[0], static_cast<std::uint8_t>(std::lround(from.y)));
    std::ranges::fill(source.bytes[1], static_cast<std::uint8_t>(std::lround(from.u)));
    std::ranges::fill(source.bytes[2], static_cast<std::uint8_t>(std::lround(from.v)));
    convertBt601(source.source(), planes.view());
    // Both were rounded.
    for (int i = 0; i < 4; ++i) EXPECT_NEAR(planes.at(0, i % 2, i / 2), exact.y, 1.3);
    EXPECT_NEAR(planes.at(1, 0, 0), exact.u, 1.2);
    EXPECT_NEAR(planes.at(2, 0, 0), exact.v, 1.2);
  }
}

TEST(I420, CopiesAndInterleaves) {
  Planes source(6, 4);
  std::mt19937 random(9);
  for (auto& plane : source.bytes) std::ranges::generate(plane, [&] { return static_cast<std::uint8_t>(random()); });
  Planes copy(6, 4);
  copyI420(source.source(), copy.view());
  std::vector<std::uint8_t> luma(6 * 4), chroma(6 * 2);
  interleaveChroma(source.source(), {luma.data(), chroma.data()}, {6, 6});
  for (int y = 0; y < 4; ++y) {
    for (int x = 0; x < 6; ++x) {
      EXPECT_EQ(copy.at(0, x, y), source.at(0, x, y));
      EXPECT_EQ(luma[static_cast<std::size_t>(y * 6 + x)], source.at(0, x, y));
      if (y % 2 != 0) continue;
      const int plane = x % 2 + 1;
      EXPECT_EQ(copy.at(plane, x / 2, y / 2), source.at(plane, x / 2, y / 2));
      EXPECT_EQ(chroma[static_cast<std::size_t>(y / 2 * 6 + x)], source.at(plane, x / 2, y / 2));
    }
  }
}

}  // namespace
}  // namespace vellora::test
