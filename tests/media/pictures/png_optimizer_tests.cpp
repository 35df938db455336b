#include <gtest/gtest.h>
#include <spng.h>

#include <cstring>
#include <functional>
#include <memory>
#include <random>

#include "media/pictures/PngOptimizer.h"

namespace vellora::test {
namespace {

/// Reads a file with a library that shares no code with the optimizer; 16-bit RGBA, so that nothing is lost.
std::vector<std::uint16_t> decoded(const std::vector<std::byte>& file, spng_ihdr& header) {
  const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(0), spng_ctx_free);
  spng_set_crc_action(context.get(), SPNG_CRC_ERROR, SPNG_CRC_ERROR);
  spng_set_png_buffer(context.get(), file.data(), file.size());
  std::size_t bytes = 0;
  EXPECT_EQ(spng_get_ihdr(context.get(), &header), 0);
  EXPECT_EQ(spng_decoded_image_size(context.get(), SPNG_FMT_RGBA16, &bytes), 0);
  std::vector<std::uint16_t> pixels(bytes / 2);
  EXPECT_EQ(spng_decode_image(context.get(), pixels.data(), bytes, SPNG_FMT_RGBA16, SPNG_DECODE_TRNS), 0);
  return pixels;
}

/// The same of a raster.
std::vector<std::uint16_t> expected(const Raster& raster) {
  std::vector<std::uint16_t> pixels;
  const int channels = samplesOf(raster.layout());
  for (int y = 0; y < raster.height(); ++y)
    for (int x = 0; x < raster.width(); ++x) {
      std::uint16_t samples[4] = {};
      for (int i = 0; i < channels; ++i) {
        const auto place = static_cast<std::size_t>(x * channels + i);
        samples[i] = raster.bitsPerSample() == 16 ? reinterpret_cast<const std::uint16_t*>(raster.row(y))[place]
                                                  : static_cast<std::uint16_t>(raster.row(y)[place] * 257);
      }
      const std::uint16_t alpha = hasAlpha(raster.layout()) ? samples[channels - 1] : 0xFFFF;
      if (channels <= 2) samples[1] = samples[2] = samples[0];
      pixels.insert(pixels.end(), {samples[0], samples[1], samples[2], alpha});
    }
  return pixels;
}

Raster painted(int width, int height, RasterLayout layout, int bits, const std::function<int(int, int, int)>& paint) {
  Raster raster = *Raster::create(width, height, layout, bits);
  for (int y = 0; y < height; ++y)
    for (int x = 0; x < width; ++x)
      for (int i = 0; i < samplesOf(layout); ++i) {
        const auto place = static_cast<std::size_t>(x * samplesOf(layout) + i);
        if (bits == 16)
          reinterpret_cast<std::uint16_t*>(raster.row(y))[place] = static_cast<std::uint16_t>(paint(x, y, i));
        else
          raster.row(y)[place] = static_cast<std::uint8_t>(paint(x, y, i));
      }
  return raster;
}

struct Kind {
  const char* name;
  RasterLayout layout;
  int bits;
  std::function<int(int x, int y, int sample)> paint;
  int depth;  ///< expected in the file
  int color;
};

TEST(PngOptimizer, ComesBackExactlyInTheCheapestKindOfPixels) {
  std::mt19937 random(7);
  const auto any = [&](int, int, int) { return static_cast<int>(random() & 0xFFFF); };
  const std::vector<Kind> kinds{
      {"black and white", RasterLayout::Rgb, 8, [](int x, int y, int) { return (x / 3 + y / 5) % 2 * 255; }, 1, -1},
      {"four greys", RasterLayout::Grey, 8, [](int x, int y, int) { return (x ^ y) % 4 * 85; }, 2, -1},
      {"sixteen greys", RasterLayout::Rgba, 8, [](int x, int y, int i) { return i == 3 ? 255 : x * y % 16 * 17; }, 4,
       -1},
      {"any grey", RasterLayout::Grey, 8, any, 8, 0},
      {"grey with alpha", RasterLayout::GreyAlpha, 8, any, 8, 4},
      {"two hundred colors, some transparent", RasterLayout::Rgba, 8,
       [](int x, int y, int i) { return (x * 7 + y) % 200 * (i + 1) % 256; }, 8, 3},
      {"three colors", RasterLayout::Rgb, 8, [](int x, int y, int i) { return (x + y) % 3 * 40 + i; }, 2, 3},
      {"noise", RasterLayout::Rgb, 8, any, 8, 2},
      {"opaque noise with alpha", RasterLayout::Rgba, 8,
       [&](int x, int y, int i) { return i == 3 ? 255 : any(x, y, i); }, 8, 2},
      {"color under full transparency", RasterLayout::Rgba, 8,
       [&](int x, int y, int i) { return i == 3 ? 0 : any(x, y, i); }, 8, 6},
      {"16 bits", RasterLayout::Rgba, 16, any, 16, 6},
      {"16 bits that are 8", RasterLayout::Rgb, 16, [&](int x, int y, int i) { return (any(x, y, i) & 0xFF) * 257; }, 8,
       2},
      {"16-bit grey", RasterLayout::Rgb, 16, [](int x, int y, int) { return x * 601 + y * 13; }, 16, 0},
  };
  for (const Kind& kind : kinds)
    for (const int width : {1, 5, 61}) {
      SCOPED_TRACE(std::string(kind.name) + ", width " + std::to_string(width));
      const Raster raster = painted(width, 47, kind.layout, kind.bits, kind.paint);
      for (const int threads : {1, 3}) {
        const auto file = optimizedPng(raster, {.threads = threads});
        ASSERT_TRUE(file);
        spng_ihdr header{};
        EXPECT_EQ(decoded(*file, header), expected(raster));
        if (width < 61) continue;
        EXPECT_EQ(header.bit_depth, kind.depth);
        if (kind.color >= 0) {
          EXPECT_EQ(header.color_type, kind.color);
        }
      }
    }
}

TEST(PngOptimizer, KeepsToItsOrders) {
  const Raster grey = painted(40, 40, RasterLayout::Rgb, 8, [](int x, int y, int) { return x * y; });
  spng_ihdr header{};
  const auto colored = optimizedPng(grey, {.allowsGrey = false});
  ASSERT_TRUE(colored);
  EXPECT_EQ(decoded(*colored, header), expected(grey));
  EXPECT_NE(header.color_type, 0);
  const auto cancelled = optimizedPng(grey, {.isCancelled = [] { return true; }});
  ASSERT_FALSE(cancelled);
  EXPECT_EQ(cancelled.error().error, PictureError::Cancelled);
  EXPECT_FALSE(optimizedPng(Raster()));
}

}  // namespace
}  // namespace vellora::test
