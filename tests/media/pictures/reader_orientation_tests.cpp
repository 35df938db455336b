#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>

#include "media/pictures/ExifBlock.h"
#include "media/pictures/ReaderSamples.h"
#include "support/ChildProcess.h"

namespace vellora {
namespace {

using test::greatestDifference;
using test::ReaderSamples;
using test::rgbaOf;

/// A type of file that can say how it is to be turned: its ending, how one is made, and the kind of its pixels.
struct Turned {
  const char* ending;
  const char* make;
};

class ReaderOrientation : public testing::TestWithParam<Turned> {};

TEST_P(ReaderOrientation, IsAppliedToThePixelsAndGoneFromTheMetadata) {
  const auto& [ending, make] = GetParam();
  constexpr std::string_view artist = "Somebody";
  for (int orientation = 1; orientation <= 8; ++orientation) {
    SCOPED_TRACE(orientation);
    const std::string name = "turned" + std::to_string(orientation) + ending;
    const auto file =
        ReaderSamples::file(name, make + (" " + name) + " && exiftool -q -q -overwrite_original -Orientation#=" +
                                      std::to_string(orientation) + " -Artist=Somebody " + name);
    const auto info = inspectPicture(file);
    ASSERT_TRUE(info) << info.error().detail;
    EXPECT_EQ(info->orientation, orientation);
    EXPECT_EQ(std::pair(info->width, info->height), orientation < 5 ? std::pair(67, 45) : std::pair(45, 67));
    EXPECT_TRUE(info->hasMetadata);
    const auto picture = decodePicture(file, {.keepsMetadata = true});
    ASSERT_TRUE(picture) << picture.error().detail;
    EXPECT_EQ(picture->raster.width(), info->width);
    EXPECT_LE(picture->raster.bytes(), decodedBytesOf(*info));
    // The other decoder does not heed what PNG and WebP say, so it is told how to turn.
    static constexpr std::array turns{"",           "",           "-flop",       "-rotate 180", "-flip",
                                      "-transpose", "-rotate 90", "-transverse", "-rotate 270"};
    const auto reference = ReaderSamples::reference(
        name, 8, std::string("-orient undefined ") + turns[static_cast<std::size_t>(orientation)]);
    EXPECT_EQ(greatestDifference(rgbaOf(picture->raster), reference), 0);
    EXPECT_EQ(exifFacts(picture->metadata.exif).orientation, 1);
    EXPECT_NE(std::search(picture->metadata.exif.begin(), picture->metadata.exif.end(), artist.begin(), artist.end()),
              picture->metadata.exif.end());
    const auto bare = decodePicture(file);
    ASSERT_TRUE(bare);
    EXPECT_TRUE(bare->metadata.exif.empty() && bare->metadata.xmp.empty() && bare->metadata.profile.empty());
  }
}

INSTANTIATE_TEST_SUITE_P(Types, ReaderOrientation,
                         testing::Values(Turned{".jpg", "convert base.png -quality 90"},
                                         Turned{"grey.jpg", "convert base.png -colorspace Gray"},
                                         Turned{".png", "convert alpha.png"}, Turned{".tiff", "convert base.png"},
                                         Turned{".webp", "convert base.png -define webp:lossless=true"}),
                         [](const auto& param) {
                           std::string name = param.param.ending;
                           std::erase(name, '.');
                           return name;
                         });

TEST(ReaderOrientation, DeepSamplesAreTurnedWhole) {
  const auto file = ReaderSamples::file("deepturned.tiff", "convert deep.png -orient RightTop deepturned.tiff");
  const auto picture = decodePicture(file, {.keepsDepth = true});
  ASSERT_TRUE(picture) << picture.error().detail;
  EXPECT_EQ(greatestDifference(rgbaOf(picture->raster), ReaderSamples::reference("deepturned.tiff", 16), 16), 0);
}

TEST(ReaderOrientation, ATiffGivesItsExifAndPlaceAsABlockThatAnotherProgramReads) {
  const auto file = ReaderSamples::file(
      "placed.tiff",
      "convert base.png -endian MSB placed.tiff && exiftool -q -overwrite_original -Make=Maker -ISO=320 "
      "-GPSLatitude=48.5 -GPSLatitudeRef=N -LensModel='A long enough name of a lens' placed.tiff");
  const auto picture = decodePicture(file, {.keepsMetadata = true});
  ASSERT_TRUE(picture) << picture.error().detail;
  const auto& exif = picture->metadata.exif;
  std::ofstream(ReaderSamples::path("block.exif"), std::ios::binary)
      .write(reinterpret_cast<const char*>(exif.data()), static_cast<std::streamsize>(exif.size()));
  const auto read = test::runProgram({"exiftool", "-s3", "-n", "-Make", "-ISO", "-GPSLatitude", "-LensModel",
                                      "-ImageWidth", ReaderSamples::path("block.exif")},
                                     {});
  EXPECT_EQ(read.output, "Maker\n320\n48.5\nA long enough name of a lens\n");
}

TEST(ReaderOrientation, ExifThatIsNotUnderstoodIsLeftAlone) {
  using Block = std::vector<std::uint8_t>;
  for (const Block& block : {Block{}, Block{'I', 'I'}, Block(64, 0xFF), Block{'I', 'I', '*', 0, 0xFF, 0xFF, 0xFF, 0xFF},
                             Block{'M', 'M', 0, '*', 0, 0, 0, 8, 0xFF, 0xFF, 1, 0x12, 0, 3, 0, 0, 0, 1, 0}}) {
    EXPECT_EQ(exifFacts(block).orientation, 1);
    Block upright = block;
    setUpright(upright);
    EXPECT_EQ(upright, block);
  }
  // In big-endian order, and with a value beyond the eight.
  Block block{'M', 'M', 0, '*', 0, 0, 0, 8, 0, 1, 1, 0x12, 0, 3, 0, 0, 0, 1, 0, 6, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(exifFacts(block).orientation, 6);
  setUpright(block);
  EXPECT_EQ(exifFacts(block).orientation, 1);
  block[19] = 9;
  EXPECT_EQ(exifFacts(block).orientation, 1);
}

}  // namespace
}  // namespace vellora
