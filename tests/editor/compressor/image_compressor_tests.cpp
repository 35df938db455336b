#include <gtest/gtest.h>

#include "editor/compressor/ImageCompressor.h"
#include "media/pictures/PictureWriter.h"

namespace vellora::test {
namespace {

using WebP = ImageCompressor::WebPCodec;
using Platform = ImageCompressor::PlatformCodec;
using Codec = ImageCompressor::Codec;

Codec codec(std::optional<PictureType> source, CompressFormat format, int quality) {
  return ImageCompressor::codecFor(source, {.format = format, .quality = quality});
}

Raster noise(int width, int height) {
  Raster raster = *Raster::create(width, height, RasterLayout::Rgb);
  std::uint32_t state = 1;
  for (int y = 0; y < height; ++y)
    for (std::size_t i = 0; i < raster.stride(); ++i)
      raster.row(y)[i] = static_cast<std::uint8_t>((state = state * 1664525 + 1013904223) >> 24);
  return raster;
}

TEST(ImageCompressor, PicksTheEncoder) {
  using enum CompressFormat;
  EXPECT_EQ(codec(PictureType::Png, webp, 100), Codec(WebP{99}));
  EXPECT_EQ(codec(PictureType::WebP, original, -5), Codec(WebP{0}));
  EXPECT_EQ(codec(PictureType::Jpeg, png, 40), Codec(Platform{PictureType::Png}));
  EXPECT_EQ(codec(std::nullopt, jpeg, 40), Codec(Platform{PictureType::Jpeg, 0.4}));
  EXPECT_EQ(codec(PictureType::Jpeg, original, 40), Codec(Platform{PictureType::Jpeg, 0.4}));
  EXPECT_EQ(codec(PictureType::Tiff, original, 40), Codec(Platform{PictureType::Tiff}));
  EXPECT_EQ(codec(PictureType::Png, original, 40), Codec(Platform{PictureType::Png}));
  EXPECT_EQ(codec(std::nullopt, original, 40), Codec(Platform{PictureType::Png}));
  const Codec heic = canWrite(PictureType::Heic) ? Codec(Platform{PictureType::Heic, 0.4}) : Codec(Platform{});
  EXPECT_EQ(codec(PictureType::Heic, original, 40), heic);
}

TEST(ImageCompressor, KeepsTheLongerEdgeWithinItsLimit) {
  using Size = ImageCompressor::Size;
  EXPECT_EQ(ImageCompressor::resizedSize(4000, 3000, 2560), (Size{2560, 1920}));
  EXPECT_EQ(ImageCompressor::resizedSize(1001, 3000, 1000), (Size{334, 1000}));
  EXPECT_EQ(ImageCompressor::resizedSize(2560, 10, 2560), (Size{2560, 10}));
  EXPECT_EQ(ImageCompressor::resizedSize(60000, 1, 1000), (Size{1000, 1}));
  EXPECT_EQ(ImageCompressor::resizedSize(800, 600, std::nullopt), (Size{800, 600}));
  EXPECT_EQ(maxEdgeOf(resizeLimitFrom("k2"), 7), 2560);
  EXPECT_EQ(maxEdgeOf(resizeLimitFrom("custom"), 7), 7);
  EXPECT_EQ(maxEdgeOf(resizeLimitFrom("k9"), 7), std::nullopt);
}

TEST(ImageCompressor, NeverGivesMoreThanItGot) {
  const auto small = writePicture(noise(64, 64), {}, PictureType::Jpeg, {.quality = 0.3});
  ASSERT_TRUE(small);
  const auto kept = ImageCompressor::compress(*small, {.quality = 95});
  ASSERT_TRUE(kept);
  EXPECT_TRUE(kept->isOriginal);
  EXPECT_EQ(kept->data, *small);
  // Another type or size was asked for and is what comes, whatever its length.
  const auto converted = ImageCompressor::compress(*small, {.format = CompressFormat::png});
  ASSERT_TRUE(converted);
  EXPECT_FALSE(converted->isOriginal);
  EXPECT_EQ(converted->type, PictureType::Png);
  const auto reduced = ImageCompressor::compress(*small, {.quality = 100, .maxEdge = 63});
  ASSERT_TRUE(reduced);
  EXPECT_EQ(reduced->width, 63);
  EXPECT_FALSE(reduced->isOriginal);
}

TEST(ImageCompressor, StopsWhenItIsToldTo) {
  const auto file = writePicture(noise(64, 64), {}, PictureType::Png);
  ASSERT_TRUE(file);
  const auto cancelled = ImageCompressor::compress(*file, {}, {.isCancelled = [] { return true; }});
  ASSERT_FALSE(cancelled);
  EXPECT_EQ(cancelled.error().error, PictureError::Cancelled);
  EXPECT_FALSE(ImageCompressor::compress(Raster(), {}));
  EXPECT_FALSE(ImageCompressor::compress(std::span(*file).first(40), {}));
}

}  // namespace
}  // namespace vellora::test
