#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "media/pictures/ColorConversion.h"
#include "media/pictures/ReaderSamples.h"
#include "support/PngBuilder.h"

namespace vellora {
namespace {

using test::Bytes;
using test::PngBuilder;
using test::ReaderSamples;
using test::rgbaOf;

using Color = std::array<double, 3>;

double linear(double level) {
  return level <= 0.04045 ? level / 12.92 : std::pow((level + 0.055) / 1.055, 2.4);
}
double curved(double light) {
  const double shown = std::clamp(light, 0.0, 1.0);
  return shown <= 0.0031308 ? shown * 12.92 : 1.055 * std::pow(shown, 1 / 2.4) - 0.055;
}

/// Display P3 to sRGB by the matrix that follows from their primaries.
Color fromDisplayP3(const Color& color) {
  const Color light{linear(color[0]), linear(color[1]), linear(color[2])};
  return {curved(1.2249402 * light[0] - 0.2249402 * light[1]), curved(-0.0420569 * light[0] + 1.0420569 * light[1]),
          curved(-0.0196376 * light[0] - 0.0786361 * light[1] + 1.0982735 * light[2])};
}

Bytes bytesOf(const PngBuilder::Data& data) {
  const auto bytes = std::as_bytes(std::span(data));
  return {bytes.begin(), bytes.end()};
}

/// One pixel of RGB, 8 bits, behind a chunk that speaks of its colors.
Bytes pixelFile(const std::array<std::uint8_t, 3>& pixel, std::string_view chunk, const PngBuilder::Data& data) {
  PngBuilder builder;
  builder.header(1, 1, 8, 2);
  if (!chunk.empty()) builder.chunk(chunk, data);
  return bytesOf(builder.pixels({0, pixel[0], pixel[1], pixel[2]}).finish());
}

PngBuilder::Data embedded(const std::vector<std::uint8_t>& profile) {
  PngBuilder::Data data{'x', 0, 0};
  const auto deflated = PngBuilder::deflated(profile);
  data.insert(data.end(), deflated.begin(), deflated.end());
  return data;
}

void expectPixel(const Bytes& file, const Color& expected, double tolerance = 1.01) {
  const auto picture = decodePicture(file);
  ASSERT_TRUE(picture) << picture.error().detail;
  EXPECT_TRUE(picture->metadata.profile.empty());
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(picture->raster.row(0)[i], expected[i] * 255, tolerance) << i;
}

TEST(ReaderColors, WideColorsBecomeThoseOfSrgb) {
  const auto profile = profileOfCodePoints(12, 13);
  ASSERT_FALSE(profile.empty());
  for (const auto& pixel : {std::array<std::uint8_t, 3>{128, 96, 64},
                            {200, 120, 130},
                            {90, 160, 110},
                            {255, 0, 0},
                            {255, 255, 255},
                            {77, 77, 77}}) {
    const Color expected = fromDisplayP3({pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0});
    expectPixel(pixelFile(pixel, "iCCP", embedded(profile)), expected);
    expectPixel(pixelFile(pixel, "cICP", {12, 13, 0, 1}), expected);
  }
}

TEST(ReaderColors, SrgbUnderAnyNameIsLeftBitForBit) {
  const std::array<std::uint8_t, 3> pixel{13, 130, 201};
  const Color same{13 / 255.0, 130 / 255.0, 201 / 255.0};
  EXPECT_TRUE(profileOfCodePoints(1, 13).empty());
  expectPixel(pixelFile(pixel, "", {}), same, 0.01);
  expectPixel(pixelFile(pixel, "sRGB", {0}), same, 0.01);
  expectPixel(pixelFile(pixel, "gAMA", {0, 0, 0xB1, 0x8F}), same, 0.01);
  expectPixel(pixelFile(pixel, "iCCP", {'x', 0, 0, 1, 2, 3}), same, 0.01);                         // cannot be inflated
  expectPixel(pixelFile(pixel, "iCCP", embedded(std::vector<std::uint8_t>(500, 7))), same, 0.01);  // no profile
}

TEST(ReaderColors, LinearSamplesAreCurved) {
  expectPixel(pixelFile({128, 20, 255}, "gAMA", {0, 1, 0x86, 0xA0}), {curved(128 / 255.0), curved(20 / 255.0), 1.0});
}

TEST(ReaderColors, BrighterThanScreensIsRefused) {
  const auto picture = decodePicture(pixelFile({1, 2, 3}, "cICP", {9, 16, 0, 1}));
  ASSERT_FALSE(picture);
  EXPECT_EQ(picture.error().error, PictureError::Unsupported);
}

TEST(ReaderColors, DeepAlphaAndGreyRastersAreConvertedToo) {
  const auto profile = profileOfCodePoints(12, 13);
  auto deep = Raster::create(2, 1, RasterLayout::Rgba, 16);
  auto* samples = reinterpret_cast<std::uint16_t*>(deep->row(0));
  const std::array<std::uint16_t, 8> before{30000, 20000, 12000, 999, 65535, 65535, 65535, 65535};
  std::copy(before.begin(), before.end(), samples);
  convertToSrgb(*deep, profile);
  const Color expected = fromDisplayP3({30000 / 65535.0, 20000 / 65535.0, 12000 / 65535.0});
  for (std::size_t i = 0; i < 3; ++i) EXPECT_NEAR(samples[i], expected[i] * 65535, 130);
  EXPECT_EQ(samples[3], 999);
  EXPECT_EQ(samples[7], 65535);

  // A linear profile for three channels says something of grey as well.
  auto grey = Raster::create(1, 1, RasterLayout::GreyAlpha);
  grey->row(0)[0] = 55;
  grey->row(0)[1] = 9;
  convertToSrgb(*grey, profileOf({.gamma = 1}));
  EXPECT_NEAR(grey->row(0)[0], curved(55 / 255.0) * 255, 1.01);
  EXPECT_EQ(grey->row(0)[1], 9);
}

TEST(ReaderColors, AProfileIsKeptOnRequestAlsoInPieces) {
  auto profile = profileOfCodePoints(12, 13);
  ASSERT_GT(profile.size(), 300U);
  const Bytes jpeg = ReaderSamples::file("444.jpg", "convert base.png -quality 95 -sampling-factor 4:4:4 444.jpg");
  // Three pieces, the last one first.
  Bytes file(jpeg.begin(), jpeg.begin() + 2);
  const std::size_t cut = profile.size() / 3;
  for (const std::size_t number : {3U, 1U, 2U}) {
    const std::size_t begin = (number - 1) * cut, end = number == 3 ? profile.size() : number * cut;
    PngBuilder::Data segment{0xFF, 0xE2, static_cast<std::uint8_t>((end - begin + 16) >> 8),
                             static_cast<std::uint8_t>(end - begin + 16)};
    for (const char letter : std::string_view("ICC_PROFILE\0", 12))
      segment.push_back(static_cast<std::uint8_t>(letter));
    segment.insert(segment.end(), {static_cast<std::uint8_t>(number), 3});
    segment.insert(segment.end(), profile.begin() + static_cast<std::ptrdiff_t>(begin),
                   profile.begin() + static_cast<std::ptrdiff_t>(end));
    const Bytes bytes = bytesOf(segment);
    file.insert(file.end(), bytes.begin(), bytes.end());
  }
  file.insert(file.end(), jpeg.begin() + 2, jpeg.end());
  EXPECT_TRUE(inspectPicture(file)->hasProfile);
  const auto plain = decodePicture(jpeg), kept = decodePicture(file, {.keepsProfile = true}),
             converted = decodePicture(file);
  ASSERT_TRUE(plain && kept && converted);
  EXPECT_EQ(kept->metadata.profile, profile);
  EXPECT_EQ(rgbaOf(kept->raster), rgbaOf(plain->raster));
  EXPECT_NE(rgbaOf(converted->raster), rgbaOf(plain->raster));
}

TEST(ReaderColors, ResolutionIsKnownFromEveryTypeThatSaysIt) {
  for (const std::string name : {"dots.jpg", "dots.png", "dots.tiff", "dots.bmp"}) {
    const auto picture =
        decodePicture(ReaderSamples::file(name, "convert base.png -units PixelsPerInch -density 144 " + name));
    ASSERT_TRUE(picture) << name;
    EXPECT_NEAR(picture->metadata.dotsPerInch, 144, 0.05) << name;
  }
}

}  // namespace
}  // namespace vellora
