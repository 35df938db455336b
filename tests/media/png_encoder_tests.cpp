#include <gtest/gtest.h>
#include <spng.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <memory>
#include <numeric>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "media/HuffmanCode.h"
#include "media/PngEncoder.h"

namespace vellora {
namespace {

using Painter = std::function<std::uint32_t(int x, int y)>;  // alpha, red, green, blue from the highest byte on

Bitmap paint(PixelSize size, PixelAlpha alpha, const Painter& painter) {
  auto bitmap = MutableBitmap::create(size, alpha);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      const std::uint32_t word = painter(x, y);
      std::memcpy(bitmap->row(y) + x * 4, &word, sizeof(word));
    }
  }
  return std::move(*bitmap).finish();
}

/// A pixel as a reader has to see it: red, green, blue, alpha from the lowest byte on.
std::uint32_t expected(const Bitmap& bitmap, int x, int y) {
  std::uint32_t word;
  std::memcpy(&word, bitmap.pixel(x, y), sizeof(word));
  const std::uint32_t alpha = bitmap.alpha() == PixelAlpha::Opaque ? 255 : word >> 24;
  if (alpha == 0) return 0;
  const auto divided = [&](std::uint32_t part) { return std::min(255U, (part * 510 + alpha) / (2 * alpha)); };
  const std::uint32_t red = divided(word >> 16 & 0xFF), green = divided(word >> 8 & 0xFF), blue = divided(word & 0xFF);
  return red | green << 8 | blue << 16 | alpha << 24;
}

struct Decoded {
  spng_ihdr header{};
  spng_phys resolution{};
  bool hasSrgb = false;
  std::vector<std::uint32_t> pixels;
};

/// Reads with checksums enforced; fails the test on any complaint.
Decoded decode(std::span<const std::byte> file) {
  Decoded result;
  const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(0), spng_ctx_free);
  EXPECT_EQ(spng_set_png_buffer(context.get(), file.data(), file.size()), 0);
  EXPECT_EQ(spng_get_ihdr(context.get(), &result.header), 0);
  std::size_t bytes = 0;
  EXPECT_EQ(spng_decoded_image_size(context.get(), SPNG_FMT_RGBA8, &bytes), 0);
  result.pixels.resize(bytes / 4);
  const int status = spng_decode_image(context.get(), result.pixels.data(), bytes, SPNG_FMT_RGBA8, 0);
  EXPECT_EQ(status, 0) << spng_strerror(status);
  EXPECT_EQ(spng_decode_chunks(context.get()), 0);
  EXPECT_EQ(spng_get_phys(context.get(), &result.resolution), 0);
  std::uint8_t intent = 9;
  result.hasSrgb = spng_get_srgb(context.get(), &intent) == 0 && intent == 0;
  return result;
}

void expectLossless(const Bitmap& bitmap, const std::string& what) {
  const auto file = encodePng(bitmap, {});
  ASSERT_TRUE(file) << what;
  const Decoded decoded = decode(*file);
  ASSERT_EQ(decoded.header.width, static_cast<std::uint32_t>(bitmap.width())) << what;
  ASSERT_EQ(decoded.header.height, static_cast<std::uint32_t>(bitmap.height())) << what;
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width(); ++x) {
      const std::size_t index =
          static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width()) + static_cast<std::size_t>(x);
      ASSERT_EQ(decoded.pixels[index], expected(bitmap, x, y)) << what << " at " << x << ", " << y;
    }
  }
}

std::uint32_t mixed(std::uint32_t a, std::uint32_t b) {
  std::uint32_t value = a * 0x9E3779B1U ^ (b + 0x7F4A7C15U) * 0x85EBCA77U;
  value ^= value >> 15;
  value *= 0xC2B2AE3DU;
  return value ^ value >> 13;
}

std::uint32_t noise(int x, int y) {
  return mixed(static_cast<std::uint32_t>(x), static_cast<std::uint32_t>(y));
}
std::uint32_t flat(int, int) {
  return 0x00336699;
}
/// Few colours, short repeated shapes, blank lines between.
std::uint32_t text(int x, int y) {
  if (y % 20 > 13) return 0xFFFFFFFF;
  const std::uint32_t glyph = mixed(static_cast<std::uint32_t>(x / 9), static_cast<std::uint32_t>(y / 20)) % 40;
  const std::uint32_t shade = mixed(glyph, static_cast<std::uint32_t>(x % 9 * 20 + y % 20));
  return shade % 3 == 0 ? 0xFF000000U | (shade >> 8 & 0xC0) * 0x010101U : 0xFFFFFFFF;
}
/// Slow gradients with a little noise: what filters are for.
std::uint32_t photo(int x, int y) {
  const std::uint32_t grain = noise(x, y);
  const auto wave = [](double v) { return static_cast<std::uint32_t>(100 + 90 * std::sin(v)); };
  return (wave(x * 0.011 + y * 0.003) + grain % 5) | (wave(y * 0.013) + (grain >> 8) % 5) << 8 |
         (wave((x + y) * 0.007) + (grain >> 16) % 5) << 16;
}
std::uint32_t repeatedRows(int x, int y) {
  return noise(x, y / 7);
}

/// Makes a valid premultiplied pixel of any word.
Painter translucent(Painter painter) {
  return [painter = std::move(painter)](int x, int y) {
    const std::uint32_t word = painter(x, y), alpha = noise(x / 5, y) % 4 == 0 ? 0 : noise(y / 3, x / 4) >> 24;
    const auto part = [&](int shift) { return (word >> shift & 0xFF) * alpha / 255 << shift; };
    return part(0) | part(8) | part(16) | alpha << 24;
  };
}

const std::vector<std::pair<std::string, Painter>> painters{
    {"noise", noise}, {"flat", flat}, {"text", text}, {"photo", photo}, {"repeated rows", repeatedRows}};

TEST(PngEncoder, IsLosslessForEveryShapeAndContent) {
  // Single pixels, odd widths, rows longer than the window of deflate, rows so short that a repeated one is no match.
  const PixelSize sizes[] = {{1, 1}, {1, 700}, {2, 9}, {3, 4}, {37, 41}, {301, 77}, {20000, 3}, {65535, 2}, {5, 9000}};
  for (const PixelSize size : sizes) {
    for (const auto& [name, painter] : painters) {
      const std::string what = name + " " + std::to_string(size.width) + "x" + std::to_string(size.height);
      expectLossless(paint(size, PixelAlpha::Opaque, painter), what);
      expectLossless(paint(size, PixelAlpha::Premultiplied, translucent(painter)), what + " with alpha");
    }
  }
}

TEST(PngEncoder, JoinsStripsOfSeveralThreads) {
  const Bitmap screen = paint({1500, 2200}, PixelAlpha::Opaque, [](int x, int y) {
    return x > 700 && y > 500 && y < 1900 ? photo(x, y) : y % 300 < 40 ? flat(x, y) : text(x, y);
  });
  expectLossless(screen, "screen");
  const auto one = encodePng(screen, {.threads = 1}), four = encodePng(screen, {.threads = 4});
  ASSERT_TRUE(one && four);
  EXPECT_EQ(*one, *four) << "the file depends on the number of threads";
  EXPECT_LT(one->size(), std::size_t{1500} * 2200 * 3 / 3);
}

TEST(PngEncoder, ReadsCroppedRowsOnly) {
  const Bitmap whole = paint({400, 300}, PixelAlpha::Opaque, noise);
  expectLossless(whole.cropped({13, 7, 101, 53}), "cropped");
  expectLossless(whole.cropped({399, 299, 1, 1}), "last pixel");
}

TEST(PngEncoder, IgnoresTheFourthByteOfOpaquePixels) {
  const Bitmap clean = paint({64, 64}, PixelAlpha::Opaque, [](int x, int y) { return text(x, y) & 0x00FFFFFF; });
  const Bitmap dirty =
      paint({64, 64}, PixelAlpha::Opaque, [](int x, int y) { return (text(x, y) & 0x00FFFFFF) | noise(x, y) << 24; });
  EXPECT_EQ(*encodePng(clean, {}), *encodePng(dirty, {}));
}

TEST(PngEncoder, UndoesPremultiplicationExactly) {
  // Every alpha with every colour it allows.
  expectLossless(paint({256, 256}, PixelAlpha::Premultiplied,
                       [](int part, int alpha) {
                         const auto value = static_cast<std::uint32_t>(std::min(part, alpha));
                         return value * 0x010101U | static_cast<std::uint32_t>(alpha) << 24;
                       }),
                 "all values");
}

TEST(PngEncoder, PicksTheSmallestPixelForm) {
  const auto colorType = [](const Bitmap& bitmap) { return int{decode(*encodePng(bitmap, {})).header.color_type}; };
  const auto colors = [](int count) {
    return [count](int x, int y) { return static_cast<std::uint32_t>((y * 40 + x) % count) * 0x000301U; };
  };
  EXPECT_EQ(colorType(paint({40, 40}, PixelAlpha::Opaque, colors(256))), SPNG_COLOR_TYPE_INDEXED);
  EXPECT_EQ(colorType(paint({40, 40}, PixelAlpha::Opaque, colors(257))), SPNG_COLOR_TYPE_TRUECOLOR);
  EXPECT_EQ(colorType(paint({40, 40}, PixelAlpha::Premultiplied, [](int, int) { return 0xFF123456; })),
            SPNG_COLOR_TYPE_INDEXED);
  EXPECT_EQ(colorType(paint({40, 40}, PixelAlpha::Premultiplied, [](int x, int) { return x == 39 ? 0 : 0xFF123456; })),
            SPNG_COLOR_TYPE_TRUECOLOR_ALPHA);
  expectLossless(paint({40, 40}, PixelAlpha::Opaque, colors(256)), "256 colours");
  expectLossless(paint({40, 40}, PixelAlpha::Opaque, colors(257)), "257 colours");
}

TEST(PngEncoder, StatesResolutionAndColorSpace) {
  const Bitmap bitmap = paint({4, 4}, PixelAlpha::Opaque, noise);
  const auto density = [&](double scale) {
    const Decoded decoded = decode(*encodePng(bitmap, {.scale = scale}));
    EXPECT_TRUE(decoded.hasSrgb);
    EXPECT_EQ(decoded.resolution.unit_specifier, 1);
    EXPECT_EQ(decoded.resolution.ppu_x, decoded.resolution.ppu_y);
    return decoded.resolution.ppu_x;
  };
  EXPECT_EQ(density(1), 2835U);
  EXPECT_EQ(density(2), 5669U);
  EXPECT_EQ(density(1.5), 4252U);
}

TEST(PngEncoder, RefusesWhatIsNoPicture) {
  EXPECT_EQ(encodePng({}, {}).error(), PngError::Empty);
  const std::byte pixel[4]{};
  const auto claimed = [&](int width, int height) {
    return encodePng(Bitmap(pixel, {width, height}, 4, PixelAlpha::Opaque, nullptr), {});
  };
  EXPECT_EQ(claimed(0, 5).error(), PngError::Empty);
  EXPECT_EQ(claimed(65536, 1).error(), PngError::TooLarge);
  EXPECT_EQ(claimed(40000, 40000).error(), PngError::TooLarge);
}

TEST(PngEncoder, IsLosslessForRandomPatchworks) {
  std::mt19937 random(20261122);
  const auto upTo = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)) + 1; };
  for (int round = 0; round < 150; ++round) {
    const PixelSize size{upTo(300), upTo(120)};
    const int tile = upTo(40);
    const auto seed = static_cast<std::uint32_t>(random());
    const Painter patchwork = [=](int x, int y) {
      const std::uint32_t kind = mixed(seed, noise(x / tile, y / tile));
      return painters[kind % painters.size()].second(x % (tile + 3), y);
    };
    const bool alpha = round % 2 == 0;
    expectLossless(
        paint(size, alpha ? PixelAlpha::Premultiplied : PixelAlpha::Opaque, alpha ? translucent(patchwork) : patchwork),
        "round " + std::to_string(round));
  }
}

TEST(HuffmanCode, KeepsToTheLimitAndStaysComplete) {
  // Frequencies that double want codes as long as there are symbols.
  for (const std::size_t symbols : {2U, 3U, 19U, 30U, 31U}) {
    std::vector<std::uint32_t> frequencies(symbols);
    for (std::size_t i = 0; i < symbols; ++i) frequencies[i] = 1U << i;
    for (const int limit : {5, 7, 14, 15}) {
      std::vector<std::uint8_t> lengths(symbols);
      findCodeLengths(frequencies, lengths, limit);
      double used = 0;
      for (const std::uint8_t length : lengths) {
        EXPECT_GE(length, 1);
        EXPECT_LE(length, limit);
        used += std::ldexp(1.0, -length);
      }
      EXPECT_EQ(used, 1.0) << symbols << " symbols, limit " << limit;
      EXPECT_TRUE(std::is_sorted(lengths.rbegin(), lengths.rend())) << "a rarer symbol has a shorter code";
    }
  }
}

}  // namespace
}  // namespace vellora
