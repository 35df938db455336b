#include <gtest/gtest.h>
#include <spng.h>

#include <cstring>
#include <memory>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "media/PngDecoder.h"
#include "media/PngEncoder.h"
#include "support/PngBuilder.h"

namespace vellora {
namespace {

using test::PngBuilder;
using Data = PngBuilder::Data;

Result<Bitmap, PngDecodeError> decode(const Data& file, const PngLimits& limits = {}) {
  return decodePng(std::as_bytes(std::span(file)), limits);
}

/// What an independent reader sees: red, green, blue, alpha, not multiplied.
Data reference(const Data& file) {
  const std::unique_ptr<spng_ctx, void (*)(spng_ctx*)> context(spng_ctx_new(0), spng_ctx_free);
  EXPECT_EQ(spng_set_png_buffer(context.get(), file.data(), file.size()), 0);
  std::size_t bytes = 0;
  EXPECT_EQ(spng_decoded_image_size(context.get(), SPNG_FMT_RGBA8, &bytes), 0);
  Data pixels(bytes);
  EXPECT_EQ(spng_decode_image(context.get(), pixels.data(), bytes, SPNG_FMT_RGBA8, SPNG_DECODE_TRNS), 0);
  return pixels;
}

void expectSame(const Data& file, const std::string& what) {
  const auto bitmap = decode(file);
  ASSERT_TRUE(bitmap) << what << ": error " << static_cast<int>(bitmap.error());
  const Data pixels = reference(file);
  bool solid = true;
  for (int y = 0; y < bitmap->height(); ++y) {
    for (int x = 0; x < bitmap->width(); ++x) {
      const std::uint8_t* from = &pixels[static_cast<std::size_t>(y * bitmap->width() + x) * 4];
      solid = solid && from[3] == 255;
      const auto multiplied = [&](int channel) { return (from[channel] * from[3] * 2 + 255) / 510; };
      const int expected[] = {multiplied(2), multiplied(1), multiplied(0), from[3]};
      for (int i = 0; i < 4; ++i) {
        ASSERT_EQ(std::to_integer<int>(bitmap->pixel(x, y)[i]), expected[i])
            << what << " at " << x << ", " << y << " byte " << i;
      }
    }
  }
  EXPECT_EQ(bitmap->alpha(), solid ? PixelAlpha::Opaque : PixelAlpha::Premultiplied) << what;
}

struct Kind {
  std::uint8_t color, depth;
  std::size_t channels;
  Data transparency;
};

const std::vector<Kind> kinds{
    {0, 1, 1, {}},           {0, 2, 1, {0, 2}},
    {0, 4, 1, {0, 9}},       {0, 8, 1, {}},
    {0, 8, 1, {0, 77}},      {2, 8, 3, {}},
    {3, 1, 1, {}},           {3, 2, 1, {0}},
    {3, 4, 1, {}},           {3, 8, 1, {}},
    {3, 8, 1, {0, 128, 10}}, {4, 8, 2, {}},
    {6, 8, 4, {}},           {2, 8, 3, {0, 40, 0, 41, 0, 42}},
};

/// Random samples, among them runs of 0 and 255 as pictures have.
Data samples(std::size_t bytes, unsigned seed) {
  std::mt19937 random(seed);
  Data data(bytes);
  for (std::size_t i = 0; i < bytes; ++i) {
    const unsigned choice = random() % 8;
    data[i] = static_cast<std::uint8_t>(choice == 0 ? 0 : choice < 4 ? 255 : random());
  }
  return data;
}

Data makeFile(const Kind& kind, std::size_t width, std::size_t height, int filter, std::size_t pieces = 1) {
  const std::size_t rowBytes = (width * kind.channels * kind.depth + 7) / 8;
  Data plain = samples(rowBytes * height, static_cast<unsigned>(width * 31 + height));
  if (kind.transparency.size() == 6) plain[0] = 40, plain[1] = 41, plain[2] = 42;
  PngBuilder builder;
  builder.header(static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(height), kind.depth, kind.color);
  if (kind.color == 3) builder.chunk("PLTE", samples((std::size_t{1} << kind.depth) * 3, 5));
  if (!kind.transparency.empty()) builder.chunk("tRNS", kind.transparency);
  const auto filterOf = [&](std::size_t y) { return filter < 5 ? filter : static_cast<int>(y * 7 % 5); };
  return builder
      .pixels(PngBuilder::filtered(plain, rowBytes, std::max<std::size_t>(1, kind.channels * kind.depth / 8), filterOf),
              pieces)
      .finish();
}

TEST(PngDecoder, ReadsEveryKindWithEveryFilter) {
  for (const Kind& kind : kinds) {
    for (int filter = 0; filter <= 5; ++filter) {
      for (std::size_t width = 1; width <= 17; ++width) {
        const std::string what = "color " + std::to_string(kind.color) + " depth " + std::to_string(kind.depth) +
                                 " filter " + std::to_string(filter) + " width " + std::to_string(width);
        ASSERT_NO_FATAL_FAILURE(expectSame(makeFile(kind, width, 1 + width * 3 % 20, filter), what));
      }
    }
  }
}

TEST(PngDecoder, ReadsLongAndWidePicturesAndManyPieces) {
  for (const Kind& kind : kinds) {
    expectSame(makeFile(kind, 1, 3000, 5), "tall");
    expectSame(makeFile(kind, 3000, 1, 5), "wide");
    expectSame(makeFile(kind, 61, 47, 5, 40), "in pieces");
  }
  expectSame(makeFile(kinds[5], 1500, 1100, 5, 3), "large RGB");
  expectSame(makeFile({6, 8, 4, {}}, 1500, 1100, 5), "large RGBA");
}

TEST(PngDecoder, ReadsWhatTheEncoderWrites) {
  for (const int colors : {2, 1 << 24}) {
    auto picture = MutableBitmap::create({701, 313}, PixelAlpha::Opaque);
    for (int y = 0; y < 313; ++y) {
      for (int x = 0; x < 701; ++x) {
        const std::uint32_t word = 0xFF000000U | static_cast<std::uint32_t>((x * x + y * 257) * 77 % colors);
        std::memcpy(picture->row(y) + x * 4, &word, sizeof(word));
      }
    }
    const Bitmap bitmap = std::move(*picture).finish();
    const auto decoded = decodePng(*encodePng(bitmap, {}));
    ASSERT_TRUE(decoded);
    ASSERT_EQ(decoded->alpha(), PixelAlpha::Opaque);
    for (int y = 0; y < 313; ++y) ASSERT_EQ(std::memcmp(decoded->row(y), bitmap.row(y), 701 * 4), 0) << y;
  }
}

TEST(PngDecoder, FindsEveryTruncationAndEveryFlippedBit) {
  const Data file =
      PngBuilder().header(3, 2, 8, 2).pixels({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 1, 1, 2, 3, 4, 5, 6, 7, 8, 9}, 2).finish();
  ASSERT_TRUE(decode(file));
  for (std::size_t bytes = 0; bytes < file.size(); ++bytes) {
    const auto cut = decode(Data(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(bytes)));
    ASSERT_FALSE(cut) << bytes;
    EXPECT_EQ(cut.error(), PngDecodeError::Damaged) << bytes;
  }
  for (std::size_t i = 0; i < file.size() * 8; ++i) {
    Data flipped = file;
    flipped[i / 8] = static_cast<std::uint8_t>(flipped[i / 8] ^ 1U << i % 8);
    const auto decoded = decode(flipped);
    ASSERT_FALSE(decoded) << i;
    // A flip in the letter that tells chunks apart makes an ancillary chunk with a wrong checksum.
    EXPECT_TRUE(decoded.error() == PngDecodeError::Damaged || i % 8 == 5) << i;
  }
  Data longer = file;
  longer.push_back(1);
  EXPECT_TRUE(decode(longer)) << "bytes behind the end";
}

TEST(PngDecoder, NamesWhatItDoesNotRead) {
  const Data row{0, 1, 2, 3};
  const Data wrongFilter{5, 1, 2, 3};
  const Data gamma{0, 0, 0xB1, 0x8F};
  const auto rgb = [] { return std::move(PngBuilder().header(1, 1, 8, 2)); };
  const auto indexed = [] { return std::move(PngBuilder().header(1, 1, 8, 3)); };
  const PngDecodeError damaged = PngDecodeError::Damaged, unsupported = PngDecodeError::Unsupported;
  const PngDecodeError large = PngDecodeError::TooLarge;
  struct Case {
    const char* what;
    Data file;
    PngDecodeError error;
  };
  const std::vector<Case> cases{
      {"16 bits", PngBuilder().header(1, 1, 16, 2).pixels({0, 1, 2, 3, 4, 5, 6}).finish(), unsupported},
      {"interlaced", PngBuilder().header(1, 1, 8, 2, 1).pixels(row).finish(), unsupported},
      {"a profile", rgb().chunk("iCCP", {1}).pixels(row).finish(), unsupported},
      {"a gamma", rgb().chunk("gAMA", gamma).pixels(row).finish(), unsupported},
      {"an orientation at the end", rgb().pixels(row).chunk("eXIf", {1}).finish(), unsupported},
      {"an unknown critical chunk", rgb().chunk("ABCD", {}).pixels(row).finish(), unsupported},
      {"a palette in grey", PngBuilder().header(1, 1, 8, 0).chunk("PLTE", {1, 2, 3}).pixels(row).finish(), unsupported},
      {"transparency before the palette", indexed().chunk("tRNS", {1}).chunk("PLTE", {1, 2, 3}).finish(), unsupported},
      {"0 wide", PngBuilder().header(0, 1, 8, 2).pixels(row).finish(), damaged},
      {"0 high", PngBuilder().header(1, 0, 8, 2).pixels(row).finish(), damaged},
      {"a negative edge", PngBuilder().header(0x80000001U, 1, 8, 2).pixels(row).finish(), damaged},
      {"no such depth", PngBuilder().header(1, 1, 4, 2).pixels(row).finish(), damaged},
      {"no such color", PngBuilder().header(1, 1, 8, 5).pixels(row).finish(), damaged},
      {"60,000 high without data", PngBuilder().header(2000, 60000, 8, 2).pixels(row).finish(), damaged},
      {"above the edge", PngBuilder().header(65536, 1, 8, 2).pixels(row).finish(), large},
      {"above the area", PngBuilder().header(60000, 60000, 8, 2).pixels(row).finish(), large},
      {"a byte too few", rgb().pixels({0, 1, 2}).finish(), damaged},
      {"a byte too many", rgb().pixels({0, 1, 2, 3, 4}).finish(), damaged},
      {"no such filter", rgb().pixels(wrongFilter).finish(), damaged},
      {"no pixels", rgb().finish(), damaged},
      {"empty pixels", rgb().chunk("IDAT", {}).finish(), damaged},
      {"not zlib", rgb().chunk("IDAT", {1, 2, 3, 4, 5, 6, 7, 8}).finish(), damaged},
      {"pixels in two places", rgb().pixels(row).chunk("tEXt", {}).pixels(row).finish(), damaged},
      {"no palette", indexed().pixels({0, 1}).finish(), damaged},
      {"half a color", indexed().chunk("PLTE", {1, 2}).pixels({0, 1}).finish(), damaged},
      {"a second header", rgb().header(1, 1, 8, 2).pixels(row).finish(), damaged},
      {"no header", PngBuilder().pixels(row).finish(), damaged},
  };
  for (const Case& test : cases) {
    const auto decoded = decode(test.file);
    ASSERT_FALSE(decoded) << test.what;
    EXPECT_EQ(decoded.error(), test.error) << test.what;
  }
  const Data small = rgb().chunk("sRGB", {0}).chunk("gAMA", gamma).pixels(row).finish();
  EXPECT_TRUE(decode(small)) << "sRGB outranks a gamma";
  EXPECT_EQ(decode(small, {.bytes = 3}).error(), large);
}

TEST(PngDecoder, ShowsIndexesOutsideThePaletteAsBlack) {
  const auto bitmap = decode(PngBuilder().header(2, 1, 8, 3).chunk("PLTE", {9, 8, 7}).pixels({0, 0, 1}).finish());
  ASSERT_TRUE(bitmap);
  const std::uint8_t expected[] = {7, 8, 9, 255, 0, 0, 0, 255};
  EXPECT_EQ(std::memcmp(bitmap->row(0), expected, sizeof(expected)), 0);
}

}  // namespace
}  // namespace vellora
