#include <gtest/gtest.h>

#include "media/pictures/ReaderSamples.h"

namespace vellora {
namespace {

using test::greatestDifference;
using test::ReaderSamples;
using test::rgbaOf;

/// A kind of file, how it is made, and what is to be known about it.
struct Kind {
  const char* file;
  const char* command;
  PictureType type;
  PictureColors colors = PictureColors::Rgb;
  int bits = 8;
  bool hasAlpha = false;
  int tolerance = 0;
};

void PrintTo(const Kind& kind, std::ostream* out) {
  *out << kind.file;
}

class ReaderKinds : public testing::TestWithParam<Kind> {};

TEST_P(ReaderKinds, AreToldApartAndComeAsAnotherDecoderSeesThem) {
  const Kind& kind = GetParam();
  const auto file = ReaderSamples::file(kind.file, kind.command);
  const auto info = inspectPicture(file);
  ASSERT_TRUE(info) << info.error().detail;
  EXPECT_EQ(info->type, kind.type);
  EXPECT_EQ(info->width, 67);
  EXPECT_EQ(info->height, 45);
  EXPECT_EQ(info->colors, kind.colors);
  EXPECT_EQ(info->bitsPerSample, kind.bits);
  EXPECT_EQ(info->hasAlpha, kind.hasAlpha);
  EXPECT_EQ(info->frames, 1);
  EXPECT_FALSE(info->isAnimated);
  const auto picture = decodePicture(file, {.keepsDepth = true});
  ASSERT_TRUE(picture) << picture.error().detail;
  const int depth = kind.bits > 8 ? 16 : 8;
  EXPECT_EQ(picture->raster.bitsPerSample(), depth);
  EXPECT_EQ(hasAlpha(picture->raster.layout()), kind.hasAlpha);
  EXPECT_EQ(picture->palette > 0, kind.colors == PictureColors::Palette);
  EXPECT_LE(picture->raster.bytes(), decodedBytesOf(*info, {.keepsDepth = true}));
  const auto samples = rgbaOf(picture->raster);
  EXPECT_LE(greatestDifference(samples, ReaderSamples::reference(kind.file, depth), depth), kind.tolerance);
  if (depth == 8) return;
  const auto shallow = decodePicture(file);
  ASSERT_TRUE(shallow) << shallow.error().detail;
  const auto reduced = rgbaOf(shallow->raster);
  ASSERT_EQ(reduced.size() * 2, samples.size());
  for (std::size_t i = 0; i < reduced.size(); ++i) {
    const int sample = samples[2 * i] | samples[2 * i + 1] << 8;
    ASSERT_EQ(reduced[i], (sample + 128) / 257);
  }
}

using enum PictureColors;
using enum PictureType;

INSTANTIATE_TEST_SUITE_P(
    Png, ReaderKinds,
    testing::Values(
        Kind{"base.png", "true", Png}, Kind{"alpha.png", "true", Png, Rgb, 8, true},
        Kind{"deep.png", "true", Png, Rgb, 16},
        Kind{"deepalpha.png",
             "convert deep.png -alpha set -channel A -evaluate set 40% +channel -depth 16 -define png:bit-depth=16 "
             "-define png:color-type=6 deepalpha.png",
             Png, Rgb, 16, true},
        Kind{"grey.png", "convert base.png -colorspace Gray -define png:color-type=0 -depth 8 grey.png", Png, Grey},
        Kind{"grey16.png",
             "convert deep.png -colorspace Gray -define png:color-type=0 -define png:bit-depth=16 grey16.png", Png,
             Grey, 16},
        Kind{"grey2.png",
             "convert base.png -colorspace Gray -depth 2 -define png:color-type=0 -define png:bit-depth=2 grey2.png",
             Png, Grey, 2},
        Kind{"grey1.png", "convert base.png -monochrome -define png:color-type=0 -define png:bit-depth=1 grey1.png",
             Png, Grey, 1},
        Kind{"greyalpha.png", "convert alpha.png -colorspace Gray -define png:color-type=4 -depth 8 greyalpha.png", Png,
             Grey, 8, true},
        Kind{"palette.png", "convert base.png -colors 200 png8:palette.png", Png, Palette},
        Kind{"palette4.png",
             "convert base.png -colors 13 -define png:bit-depth=4 -define png:color-type=3 palette4.png", Png, Palette,
             4},
        Kind{"palettealpha.png",
             "convert alpha.png -channel A -threshold 20% +channel -colors 60 png8:palettealpha.png", Png, Palette, 8,
             true},
        Kind{"interlaced.png", "convert base.png -interlace PNG interlaced.png", Png},
        Kind{"interlacedalpha.png", "convert alpha.png -interlace PNG -define png:color-type=6 interlacedalpha.png",
             Png, Rgb, 8, true},
        Kind{"interlaced1.png",
             "convert base.png -monochrome -interlace PNG -define png:color-type=0 -define png:bit-depth=1 "
             "interlaced1.png",
             Png, Grey, 1}));

INSTANTIATE_TEST_SUITE_P(
    Jpeg, ReaderKinds,
    testing::Values(
        Kind{"420.jpg", "convert base.png -quality 80 -sampling-factor 4:2:0 420.jpg", Jpeg},
        Kind{"444.jpg", "convert base.png -quality 95 -sampling-factor 4:4:4 444.jpg", Jpeg},
        Kind{"progressive.jpg", "convert base.png -interlace JPEG progressive.jpg", Jpeg},
        Kind{"restart.jpg", "convert base.png -define jpeg:restart-interval=2 restart.jpg", Jpeg},
        Kind{"grey.jpg", "convert base.png -colorspace Gray grey.jpg", Jpeg, Grey},
        // Without a profile everyone has other inks in mind; the other decoder multiplies them like this one.
        Kind{"cmyk.jpg", "convert base.png -colorspace CMYK -quality 95 cmyk.jpg", Jpeg, Cmyk, 8, false, 2}));

INSTANTIATE_TEST_SUITE_P(
    WebP, ReaderKinds,
    testing::Values(Kind{"lossy.webp", "cwebp -quiet -q 80 base.png -o lossy.webp", WebP},
                    Kind{"lossless.webp", "cwebp -quiet -lossless base.png -o lossless.webp", WebP},
                    Kind{"alpha.webp", "cwebp -quiet -q 70 alpha.png -o alpha.webp", WebP, Rgb, 8, true},
                    Kind{"losslessalpha.webp", "cwebp -quiet -lossless -exact alpha.png -o losslessalpha.webp", WebP,
                         Rgb, 8, true}));

INSTANTIATE_TEST_SUITE_P(
    Tiff, ReaderKinds,
    testing::Values(
        Kind{"plain.tiff", "convert base.png -compress None plain.tiff", Tiff},
        Kind{"lzw.tiff", "convert base.png -compress LZW -endian MSB lzw.tiff", Tiff},
        Kind{"zip.tiff", "convert base.png -compress Zip -define tiff:rows-per-strip=7 zip.tiff", Tiff},
        Kind{"packbits.tiff", "convert base.png -compress RLE packbits.tiff", Tiff},
        Kind{"jpeg.tiff", "convert base.png -compress JPEG jpeg.tiff", Tiff, Rgb, 8, false, 3},
        Kind{"tiled.tiff",
             "vips tiffsave base.png tiled.tiff --tile --tile-width 32 --tile-height 16 --compression lzw", Tiff},
        Kind{"planar.tiff", "convert base.png -interlace Plane -compress LZW planar.tiff", Tiff},
        Kind{"straight.tiff", "convert alpha.png -define tiff:alpha=unassociated straight.tiff", Tiff, Rgb, 8, true},
        Kind{"premultiplied.tiff", "convert alpha.png -define tiff:alpha=associated premultiplied.tiff", Tiff, Rgb, 8,
             true, 1},
        Kind{"deep.tiff", "convert deep.png -endian MSB deep.tiff", Tiff, Rgb, 16},
        Kind{"grey.tiff", "convert base.png -colorspace Gray -depth 8 grey.tiff", Tiff, Grey},
        Kind{"white0.tiff",
             "convert base.png -colorspace Gray -depth 8 -define quantum:polarity=min-is-white white0.tiff", Tiff,
             Grey},
        Kind{"fax.tiff", "convert base.png -monochrome -compress Group4 fax.tiff", Tiff, Grey, 1},
        Kind{"palette.tiff", "convert base.png -colors 100 -type Palette palette.tiff", Tiff, Palette, 8, false, 1},
        Kind{"cmyk.tiff", "convert base.png -colorspace CMYK cmyk.tiff", Tiff, Cmyk, 8, false, 1}));

INSTANTIATE_TEST_SUITE_P(
    BmpAndGif, ReaderKinds,
    testing::Values(
        Kind{"24.bmp", "convert base.png bmp3:24.bmp", Bmp}, Kind{"core.bmp", "convert base.png bmp2:core.bmp", Bmp},
        Kind{"alpha.bmp", "convert alpha.png bmp:alpha.bmp", Bmp, Rgb, 8, true},
        Kind{"8.bmp", "convert base.png -colors 200 -type Palette -compress None bmp3:8.bmp", Bmp, Palette, 8},
        Kind{"rle8.bmp", "convert base.png -colors 20 -type Palette -compress RLE bmp3:rle8.bmp", Bmp, Palette, 8},
        Kind{"4.bmp", "convert base.png -colors 14 -type Palette -compress None bmp3:4.bmp", Bmp, Palette, 4},
        Kind{"1.bmp", "convert base.png -monochrome bmp3:1.bmp", Bmp, Palette, 1},
        Kind{"565.bmp", "ffmpeg -v error -i base.png -pix_fmt rgb565le 565.bmp", Bmp, Rgb, 8, false, 1},
        Kind{"555.bmp", "ffmpeg -v error -i base.png -pix_fmt rgb555le 555.bmp", Bmp, Rgb, 8, false, 1},
        Kind{"plain.gif", "convert base.png -colors 256 plain.gif", Gif, Palette},
        Kind{"interlaced.gif", "convert base.png -colors 90 -interlace GIF interlaced.gif", Gif, Palette},
        Kind{"clear.gif", "convert alpha.png -channel A -threshold 20% +channel clear.gif", Gif, Palette, 8, true}));

TEST(ReaderKinds, FramesAndPagesAreCountedAndTheFirstIsDecoded) {
  struct Animation {
    const char* file;
    const char* command;
    bool isAnimated;
  };
  for (const auto& [name, command, isAnimated] :
       {Animation{"three.gif", "convert -delay 10 base.png -negate base.png -flip base.png +dither three.gif", true},
        Animation{"three.webp",
                  "convert -delay 10 base.png '(' base.png -negate ')' '(' base.png -flip ')' "
                  "-define webp:lossless=true three.webp",
                  true},
        Animation{"three.png", "ffmpeg -v error -r 5 -i three.gif -f apng -plays 0 three.png", true},
        Animation{"three.tiff", "convert base.png base.png base.png three.tiff", false}}) {
    SCOPED_TRACE(name);
    const auto file = ReaderSamples::file(name, command);
    const auto info = inspectPicture(file);
    ASSERT_TRUE(info) << info.error().detail;
    EXPECT_EQ(info->frames, 3);
    EXPECT_EQ(info->isAnimated, isAnimated);
    const auto picture = decodePicture(file);
    ASSERT_TRUE(picture) << picture.error().detail;
    EXPECT_EQ(greatestDifference(rgbaOf(picture->raster), ReaderSamples::reference(name)), 0);
  }
}

TEST(ReaderKinds, ASmallFirstFrameStandsInItsPlaceOnAClearCanvas) {
  const auto file = ReaderSamples::file("offset.gif",
                                        "convert base.png -crop 20x10+0+0 +repage -page 67x45+31+22 "
                                        "offset.gif");
  const auto picture = decodePicture(file);
  ASSERT_TRUE(picture) << picture.error().detail;
  EXPECT_EQ(picture->raster.width(), 67);
  EXPECT_EQ(picture->raster.height(), 45);
  EXPECT_EQ(greatestDifference(rgbaOf(picture->raster),
                               ReaderSamples::reference(
                                   "offset.gif", 8, "+repage -alpha set -background none -splice 31x22 -extent 67x45")),
            0);
}

TEST(ReaderKinds, JpegComesSmallerOnlyAsFarAsItsNeededEdgeAllows) {
  const auto file = ReaderSamples::file("large.jpg", "convert -size 1000x600 plasma: large.jpg");
  const auto info = inspectPicture(file);
  ASSERT_TRUE(info);
  for (const auto& [needed, width] : {std::pair{0, 1000}, {501, 1000}, {500, 500}, {250, 250}, {100, 125}, {1, 125}}) {
    const DecodeOptions options{.neededEdge = needed};
    const auto picture = decodePicture(file, options);
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture->raster.width(), width);
    EXPECT_LE(picture->raster.bytes(), decodedBytesOf(*info, options));
  }
}

}  // namespace
}  // namespace vellora
