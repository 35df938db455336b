#include <gtest/gtest.h>

#include "media/pictures/ForeignCodec.h"
#include "media/pictures/ReaderSamples.h"

namespace vellora {
namespace {

using test::greatestDifference;
using test::ReaderSamples;
using test::rgbaOf;

Raster rasterOf(const char* name, bool keepsDepth = false) {
  const auto picture = decodePicture(ReaderSamples::file(name, "true"), {.keepsDepth = keepsDepth});
  EXPECT_TRUE(picture);
  return picture ? picture->raster : Raster();
}

TEST(ReaderForeign, HeicAndAvifComeAsAnotherProgramSeesThem) {
  for (const auto& [name, type] : {std::pair{"picture.heic", PictureType::Heic}, {"picture.avif", PictureType::Avif}}) {
    const std::string file = name;
    const auto bytes = ReaderSamples::file(
        file, "convert base.png -quality 80 " + file + " && vips copy " + file + " " + file + ".png 2>/dev/null");
    const auto info = inspectPicture(bytes);
    ASSERT_TRUE(info) << info.error().detail;
    EXPECT_EQ(info->type, type);
    EXPECT_EQ(std::pair(info->width, info->height), std::pair(67, 45));
    EXPECT_FALSE(info->hasAlpha || info->isAnimated || info->frames != 1);
    const auto picture = decodePicture(bytes);
    ASSERT_TRUE(picture) << picture.error().detail;
    EXPECT_LE(greatestDifference(rgbaOf(picture->raster), ReaderSamples::reference(file + ".png")), 1);
  }
}

TEST(ReaderForeign, LosslessJpegXlIsThePictureItWasMadeOf) {
  for (const std::string name : {"base", "alpha", "deep"}) {
    const auto file = ReaderSamples::file(name + ".jxl", "vips jxlsave " + name + ".png " + name + ".jxl --lossless");
    const auto info = inspectPicture(file);
    ASSERT_TRUE(info) << info.error().detail;
    EXPECT_EQ(info->type, PictureType::JpegXL);
    EXPECT_EQ(info->hasAlpha, name == "alpha");
    const auto picture = decodePicture(file, {.keepsDepth = true});
    ASSERT_TRUE(picture) << picture.error().detail;
    const int depth = name == "deep" ? 16 : 8;
    EXPECT_EQ(picture->raster.bitsPerSample(), depth);
    EXPECT_EQ(greatestDifference(rgbaOf(picture->raster), ReaderSamples::reference(name + ".png", depth), depth), 0);
  }
}

TEST(ReaderForeign, WhatTheModulesWriteTheyReadAgain) {
  struct Case {
    PictureType type;
    const char* picture;
    std::optional<double> quality;
    int tolerance;
  };
  const PictureMetadata metadata{.exif = {'I', 'I', '*', 0, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0}, .xmp = {'<', 'x', '/', '>'}};
  for (const auto& [type, name, quality, tolerance] :
       {Case{PictureType::Avif, "base.png", {}, 0}, Case{PictureType::Avif, "alpha.png", {}, 0},
        Case{PictureType::Avif, "base.png", 0.9, 60}, Case{PictureType::Heic, "base.png", 0.9, 60},
        Case{PictureType::Heic, "alpha.png", 0.9, 60}, Case{PictureType::JpegXL, "base.png", {}, 0},
        Case{PictureType::JpegXL, "alpha.png", {}, 0}, Case{PictureType::JpegXL, "grey.png", {}, 0},
        Case{PictureType::JpegXL, "base.png", 0.9, 60}}) {
    SCOPED_TRACE(testing::Message() << nameOf(type) << " " << name << " " << quality.value_or(-1));
    if (!canWrite(type)) continue;
    ReaderSamples::file("grey.png", "convert base.png -colorspace Gray -define png:color-type=0 -depth 8 grey.png");
    const Raster raster = rasterOf(name);
    const auto file = foreignCodecFor(type)->encode(raster, metadata, type, {.quality = quality, .threads = 2});
    ASSERT_TRUE(file) << file.error().detail;
    EXPECT_EQ(pictureTypeOf(*file), type);
    const auto picture = decodePicture(*file, {.keepsMetadata = true});
    ASSERT_TRUE(picture) << picture.error().detail;
    EXPECT_EQ(hasAlpha(picture->raster.layout()), hasAlpha(raster.layout()));
    EXPECT_LE(greatestDifference(rgbaOf(picture->raster), rgbaOf(raster)), tolerance);
    EXPECT_EQ(picture->metadata.exif, metadata.exif);
    EXPECT_EQ(picture->metadata.xmp, metadata.xmp);
  }
}

TEST(ReaderForeign, ATinyPictureAndADeepOneAreWritten) {
  const auto tiny = Raster::create(1, 1, RasterLayout::Rgba);
  for (const PictureType type : {PictureType::Heic, PictureType::Avif, PictureType::JpegXL}) {
    SCOPED_TRACE(nameOf(type));
    if (!canWrite(type)) continue;
    const ForeignCodec& codec = *foreignCodecFor(type);
    const auto small = codec.encode(*tiny, {}, type, {.quality = 0.5});
    ASSERT_TRUE(small) << small.error().detail;
    const auto decoded = decodePicture(*small);
    ASSERT_TRUE(decoded) << decoded.error().detail;
    EXPECT_EQ(std::pair(decoded->raster.width(), decoded->raster.height()), std::pair(1, 1));
    const Raster deep = rasterOf("deep.png", true);
    const auto large = codec.encode(deep, {}, type, {.quality = 0.95});
    ASSERT_TRUE(large) << large.error().detail;
    const auto again = decodePicture(*large, {.keepsDepth = true});
    ASSERT_TRUE(again) << again.error().detail;
    EXPECT_EQ(again->raster.bitsPerSample(), 16);
    EXPECT_LE(greatestDifference(rgbaOf(again->raster), rgbaOf(deep), 16), 2000);
    EXPECT_EQ(codec.encode(deep, {}, type, {.isCancelled = [] { return true; }}).error().error,
              PictureError::Cancelled);
  }
}

}  // namespace
}  // namespace vellora
