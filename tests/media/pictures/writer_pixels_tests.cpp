#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>

#include "media/pictures/WriterSamples.h"

namespace vellora {
namespace {

using test::decibels;
using test::greatestDifference;
using test::outputOf;
using test::paintedRaster;
using test::pixelsElsewhere;
using test::ReaderSamples;
using test::rgbaOf;

constexpr std::array allLayouts{RasterLayout::Grey, RasterLayout::GreyAlpha, RasterLayout::Rgb, RasterLayout::Rgba};

std::vector<std::byte> written(const Raster& raster, PictureType type, std::optional<double> quality = {},
                               const PictureMetadata& metadata = {}) {
  auto file = writePicture(raster, metadata, type, {.quality = quality});
  EXPECT_TRUE(file) << nameOf(type) << ": " << file.error().detail;
  return file ? std::move(*file) : std::vector<std::byte>();
}

std::string fileName(PictureType type) {
  return "written." + std::string(fileExtension(type));
}

/// What 8 bits make of a 16-bit raster, by its own arithmetic.
std::vector<std::uint8_t> narrowed(const std::vector<std::uint8_t>& deep) {
  std::vector<std::uint8_t> result;
  for (std::size_t i = 0; i < deep.size(); i += 2) {
    result.push_back(static_cast<std::uint8_t>(((deep[i] | deep[i + 1] << 8) * 255 + 32767) / 65535));
  }
  return result;
}

TEST(Writer, LosslessTypesKeepEveryPixel) {
  for (const PictureType type : {PictureType::Png, PictureType::Tiff, PictureType::Bmp, PictureType::WebP}) {
    for (const RasterLayout layout : allLayouts) {
      for (const auto& [width, height] : {std::pair{1, 1}, {61, 43}, {3, 700}, {1030, 2}}) {
        SCOPED_TRACE(testing::Message() << nameOf(type) << " layout " << static_cast<int>(layout) << " " << width);
        const Raster raster = paintedRaster(width, height, layout);
        const auto pixels = pixelsElsewhere(written(raster, type), fileName(type));
        EXPECT_EQ(greatestDifference(pixels, rgbaOf(raster)), 0);
      }
    }
  }
}

TEST(Writer, SixteenBitsStayWhereTheyCanAndAreRoundedElsewhere) {
  for (const RasterLayout layout : allLayouts) {
    const Raster raster = paintedRaster(61, 43, layout, 16);
    for (const PictureType type : {PictureType::Png, PictureType::Tiff}) {
      SCOPED_TRACE(testing::Message() << nameOf(type) << " layout " << static_cast<int>(layout));
      EXPECT_EQ(greatestDifference(pixelsElsewhere(written(raster, type), fileName(type), 16), rgbaOf(raster), 16), 0);
    }
    for (const PictureType type : {PictureType::Bmp, PictureType::WebP}) {
      SCOPED_TRACE(testing::Message() << nameOf(type) << " layout " << static_cast<int>(layout));
      const auto pixels = pixelsElsewhere(written(raster, type), fileName(type));
      EXPECT_EQ(greatestDifference(pixels, narrowed(rgbaOf(raster))), 0);
    }
  }
}

TEST(Writer, TransparentPicturesGetAWhiteGroundInJpeg) {
  for (const RasterLayout layout : {RasterLayout::GreyAlpha, RasterLayout::Rgba}) {
    const Raster raster = paintedRaster(80, 60, layout);
    auto expected = rgbaOf(raster);
    for (std::size_t i = 0; i < expected.size(); i += 4) {
      for (std::size_t part = 0; part < 3; ++part) {
        const double alpha = expected[i + 3] / 255.0;
        expected[i + part] = static_cast<std::uint8_t>(expected[i + part] * alpha + 255 * (1 - alpha) + 0.5);
      }
      expected[i + 3] = 255;
    }
    EXPECT_GT(decibels(pixelsElsewhere(written(raster, PictureType::Jpeg, 1.0), "white.jpg"), expected), 45);
  }
}

TEST(Writer, JpegColorsAreCoarserBelowQuality90AndGreyStaysGrey) {
  const Raster raster = paintedRaster(300, 200, RasterLayout::Rgb);
  const auto sampling = [&](double quality) {
    pixelsElsewhere(written(raster, PictureType::Jpeg, quality), "colors.jpg");
    return outputOf("identify -format '%[jpeg:sampling-factor]' colors.jpg");
  };
  EXPECT_EQ(sampling(0.89), "2x2,1x1,1x1");
  EXPECT_EQ(sampling(0.90), "1x1,1x1,1x1");
  const auto grey = written(paintedRaster(300, 200, RasterLayout::Grey), PictureType::Jpeg, 0.8);
  pixelsElsewhere(grey, "grey.jpg");
  EXPECT_EQ(outputOf("exiftool -s3 -ColorComponents grey.jpg"), "1");
  EXPECT_LT(written(raster, PictureType::Jpeg, 0.3).size(), written(raster, PictureType::Jpeg, 0.8).size());
}

TEST(Writer, JpegIsNotLargerThanTheBestAnotherProgramMakesWithTheSameSettings) {
  for (const auto& [width, height] : {std::pair{16, 16}, {300, 200}, {1200, 800}}) {
    const Raster raster = paintedRaster(width, height, RasterLayout::Rgb);
    pixelsElsewhere(written(raster, PictureType::Png), "source.png");
    const auto size = written(raster, PictureType::Jpeg, 0.75).size();
    for (const char* kind : {"", "-interlace JPEG"}) {
      outputOf(std::string("convert source.png -quality 75 -sampling-factor 4:2:0 ") + kind + " other.jpg");
      const std::size_t theirs = std::stoul(outputOf("stat -c %s other.jpg"));
      const std::size_t scansAndTables = 8 + theirs / 1000;
      EXPECT_LE(size, theirs + scansAndTables) << width << kind;
    }
  }
}

TEST(Writer, WebPIsByteForByteThatOfTheLibrarysOwnProgram) {
  for (const RasterLayout layout : {RasterLayout::Rgb, RasterLayout::Rgba}) {
    const Raster raster = paintedRaster(301, 199, layout);
    pixelsElsewhere(written(raster, PictureType::Png), "source.png");
    for (const int quality : {0, 75, 99}) {
      const auto theirs =
          ReaderSamples::file("theirs" + std::to_string(quality) + std::to_string(static_cast<int>(layout)) + ".webp",
                              "cwebp -quiet -q " + std::to_string(quality) + " source.png -o theirs" +
                                  std::to_string(quality) + std::to_string(static_cast<int>(layout)) + ".webp");
      EXPECT_EQ(WebPEncoder::lossy(raster, quality), theirs) << quality;
    }
  }
  // Alpha that hides nothing costs nothing, and grey is no special case.
  const Raster grey = paintedRaster(90, 70, RasterLayout::Grey);
  auto solid = Raster::create(90, 70, RasterLayout::Rgba);
  const auto pixels = rgbaOf(grey);
  std::copy(pixels.begin(), pixels.end(), solid->row(0));
  EXPECT_EQ(WebPEncoder::lossy(grey, 80), WebPEncoder::lossy(*solid, 80));
}

TEST(Writer, WebPQualityHasBoundsAndSizesLimits) {
  const Raster raster = paintedRaster(50, 40, RasterLayout::Rgb);
  EXPECT_EQ(written(raster, PictureType::WebP, 1.0), WebPEncoder::lossy(raster, 99));
  EXPECT_EQ(WebPEncoder::lossy(raster, 250), WebPEncoder::lossy(raster, 99));
  EXPECT_EQ(WebPEncoder::lossy(raster, -3), WebPEncoder::lossy(raster, 0));
  EXPECT_TRUE(WebPEncoder::lossy(paintedRaster(1, 1, RasterLayout::Rgba), 75));
  EXPECT_FALSE(WebPEncoder::lossy({}, 75));
  const auto tooWide = writePicture(*Raster::create(16384, 1, RasterLayout::Rgb), {}, PictureType::WebP, {0.75});
  ASSERT_FALSE(tooWide);
  EXPECT_EQ(tooWide.error().error, PictureError::CannotEncode);
  EXPECT_EQ(writePicture(*Raster::create(1, 65535, RasterLayout::Grey), {}, PictureType::Jpeg).error().error,
            PictureError::CannotEncode);
}

TEST(Writer, GifIsExactForFewColorsAndTransparencyIsAYesOrNo) {
  const Raster full = paintedRaster(120, 90, RasterLayout::Rgba);
  for (const int colors : {1, 2, 3, 16, 17, 255, 256}) {
    auto raster = Raster::create(120, 90, RasterLayout::Rgba);
    for (int y = 0; y < 90; ++y) {
      for (int x = 0; x < 120; ++x) {
        const auto color = static_cast<std::uint8_t>((x * 7 + y * 131) % colors);
        const bool isClear = color == 1 && colors < 256;
        const std::array<std::uint8_t, 4> pixel{color, static_cast<std::uint8_t>(255 - color), 77,
                                                isClear ? std::uint8_t{0} : std::uint8_t{255}};
        std::copy(pixel.begin(), pixel.end(), raster->row(y) + 4 * x);
      }
    }
    const auto pixels = pixelsElsewhere(written(*raster, PictureType::Gif), "few.gif");
    EXPECT_EQ(greatestDifference(pixels, rgbaOf(*raster)), 0) << colors;
  }
  const auto pixels = pixelsElsewhere(written(full, PictureType::Gif), "alpha.gif");
  const auto expected = rgbaOf(full);
  ASSERT_EQ(pixels.size(), expected.size());
  for (std::size_t i = 3; i < pixels.size(); i += 4) ASSERT_EQ(pixels[i], expected[i] >= 128 ? 255 : 0) << i;
}

TEST(Writer, GifOfManyColorsIsAtLeastAsGoodAsAnotherPrograms) {
  for (const std::string name : {"smooth", "noisy"}) {
    const std::string command = name == "smooth" ? "convert -size 400x300 gradient:'#103050-#f0e0a0' -rotate 30 "
                                                 : "convert -size 400x300 -seed 5 plasma:green-orange ";
    const auto file =
        ReaderSamples::file(name + ".png", command + "-depth 8 -define png:color-type=2 " + name + ".png");
    const auto picture = decodePicture(file);
    ASSERT_TRUE(picture);
    const auto source = rgbaOf(picture->raster);
    const auto pixels = pixelsElsewhere(written(picture->raster, PictureType::Gif), name + ".gif");
    outputOf("convert " + name + ".png " + name + "_other.gif");
    EXPECT_GE(decibels(source, pixels), decibels(source, ReaderSamples::reference(name + "_other.gif"))) << name;
  }
}

/// Text on a plain ground has to stay on a plain ground.
TEST(Writer, GifLeavesEvenAreasEven) {
  Raster raster = paintedRaster(400, 300, RasterLayout::Rgb);
  const std::array<std::uint8_t, 3> ground{37, 99, 201};
  for (int y = 150; y < 300; ++y) {
    for (int x = 0; x < 400; ++x) std::copy(ground.begin(), ground.end(), raster.row(y) + 3 * x);
  }
  const auto pixels = pixelsElsewhere(written(raster, PictureType::Gif), "even.gif");
  std::set<std::array<std::uint8_t, 3>> found;
  for (std::size_t i = std::size_t{400} * 155 * 4; i < pixels.size(); i += 4) {
    found.insert({pixels[i], pixels[i + 1], pixels[i + 2]});
  }
  EXPECT_EQ(found, std::set{ground});
}

TEST(Writer, CancellingEndsEveryTypeWithoutAFile) {
  const Raster raster = paintedRaster(700, 900, RasterLayout::Rgba);
  for (const PictureType type : {PictureType::Jpeg, PictureType::Png, PictureType::WebP, PictureType::Tiff,
                                 PictureType::Bmp, PictureType::Gif}) {
    int asked = 0;
    const WriteOptions options{.isCancelled = [&asked] { return ++asked > 1; }};
    const auto file = writePicture(raster, {}, type, options);
    ASSERT_FALSE(file) << nameOf(type);
    EXPECT_EQ(file.error().error, PictureError::Cancelled) << nameOf(type);
  }
  EXPECT_FALSE(writePicture({}, {}, PictureType::Png));
}

}  // namespace
}  // namespace vellora
