#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <functional>

#include "media/pictures/Resampler.h"

namespace vellora::test {
namespace {

using Paint = std::function<int(int x, int y, int sample)>;

template <class Sample>
Raster painted(int width, int height, RasterLayout layout, const Paint& paint) {
  Raster raster = *Raster::create(width, height, layout, sizeof(Sample) * 8);
  for (int y = 0; y < height; ++y) {
    auto* row = reinterpret_cast<Sample*>(raster.row(y));
    for (int x = 0; x < width; ++x)
      for (int i = 0; i < samplesOf(layout); ++i) *row++ = static_cast<Sample>(paint(x, y, i));
  }
  return raster;
}

template <class Sample>
Sample sampleAt(const Raster& raster, int x, int y, int sample) {
  return reinterpret_cast<const Sample*>(raster.row(y))[x * samplesOf(raster.layout()) + sample];
}

TEST(Resampler, KeepsFlatColorsAndTheSameSizeExactly) {
  for (const int width : {1, 7, 40, 63, 200}) {
    const Raster flat = painted<std::uint8_t>(64, 33, RasterLayout::Rgba, [](int, int, int i) {
      return std::array{200, 3, 97, 255}[static_cast<std::size_t>(i)];
    });
    const Raster result = *resampled(flat, width, 21, 2);
    for (int y = 0; y < 21; ++y)
      for (int x = 0; x < width; ++x) {
        EXPECT_EQ(sampleAt<std::uint8_t>(result, x, y, 0), 200);
        EXPECT_EQ(sampleAt<std::uint8_t>(result, x, y, 1), 3);
        EXPECT_EQ(sampleAt<std::uint8_t>(result, x, y, 2), 97);
        EXPECT_EQ(sampleAt<std::uint8_t>(result, x, y, 3), 255);
      }
  }
  const auto noise = [](int x, int y, int i) { return (x * 7919 + y * 104729 + i * 31) * 2654435761U >> 16 & 0xFFFF; };
  const Raster deep = painted<std::uint16_t>(50, 40, RasterLayout::Rgb, noise);
  const Raster same = *resampled(deep, 50, 40);
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 50; ++x)
      EXPECT_NEAR(sampleAt<std::uint16_t>(same, x, y, 1), sampleAt<std::uint16_t>(deep, x, y, 1), 1);
}

TEST(Resampler, MixesLightAndNotNumbers) {
  const Raster stripes =
      painted<std::uint8_t>(256, 64, RasterLayout::Grey, [](int x, int, int) { return x % 2 == 0 ? 0 : 255; });
  const Raster half = *resampled(stripes, 64, 16);
  // Half of the light of white is the sample 188.
  for (int x = 4; x < 60; ++x) EXPECT_NEAR(sampleAt<std::uint8_t>(half, x, 8, 0), 188, 2);
}

TEST(Resampler, PutsNoHaloAroundEdges) {
  const Raster edge =
      painted<std::uint8_t>(300, 300, RasterLayout::Rgb, [](int x, int y, int) { return x + y < 301 ? 60 : 200; });
  for (const int length : {90, 140, 299, 450}) {
    const Raster result = *resampled(edge, length, length, 2);
    for (int y = 0; y < length; ++y)
      for (int x = 0; x < length; ++x) {
        EXPECT_GE(sampleAt<std::uint8_t>(result, x, y, 0), 60);
        EXPECT_LE(sampleAt<std::uint8_t>(result, x, y, 0), 200);
      }
  }
}

TEST(Resampler, GivesTransparentEdgesNoFringe) {
  const Raster cut = painted<std::uint8_t>(200, 200, RasterLayout::Rgba, [](int x, int, int i) {
    return x < 97 ? std::array{255, 0, 0, 255}[static_cast<std::size_t>(i)]
                  : std::array{0, 255, 0, 0}[static_cast<std::size_t>(i)];
  });
  const Raster result = *resampled(cut, 61, 61);
  bool hasEdge = false;
  for (int x = 0; x < 61; ++x) {
    const int alpha = sampleAt<std::uint8_t>(result, x, 30, 3);
    if (alpha == 0) continue;
    hasEdge = hasEdge || alpha < 255;
    EXPECT_EQ(sampleAt<std::uint8_t>(result, x, 30, 0), 255);
    EXPECT_EQ(sampleAt<std::uint8_t>(result, x, 30, 1), 0);
  }
  EXPECT_TRUE(hasEdge);
}

TEST(Resampler, KeepsWhatIsWhere) {
  // A bright spot stays in its place whatever the scale, and threads agree with one another.
  const Raster spot = painted<std::uint8_t>(600, 400, RasterLayout::Grey, [](int x, int y, int) {
    return std::abs(x - 450) < 12 && std::abs(y - 100) < 12 ? 255 : 0;
  });
  for (const int width : {60, 173, 300, 1200}) {
    const int height = width * 2 / 3;
    const Raster one = *resampled(spot, width, height, 1);
    const Raster many = *resampled(spot, width, height, 4);
    double sum = 0;
    double sumX = 0;
    double sumY = 0;
    for (int y = 0; y < height; ++y)
      for (int x = 0; x < width; ++x) {
        const int value = sampleAt<std::uint8_t>(one, x, y, 0);
        EXPECT_EQ(value, sampleAt<std::uint8_t>(many, x, y, 0));
        sum += value;
        sumX += value * (x + 0.5);
        sumY += value * (y + 0.5);
      }
    EXPECT_NEAR(sumX / sum / width, 450.0 / 600, 0.004);
    EXPECT_NEAR(sumY / sum / height, 100.0 / 400, 0.004);
  }
  EXPECT_FALSE(resampled(spot, 0, 10));
  EXPECT_FALSE(resampled(Raster(), 10, 10));
}

}  // namespace
}  // namespace vellora::test
