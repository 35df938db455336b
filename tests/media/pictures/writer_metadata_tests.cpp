#include <gtest/gtest.h>

#include <string>

#include "media/pictures/WriterSamples.h"

namespace vellora {
namespace {

using test::greatestDifference;
using test::outputOf;
using test::paintedRaster;
using test::pixelsElsewhere;
using test::ReaderSamples;
using test::rgbaOf;

/// What a camera and an editor leave in a file, taken from one that other programs made.
PictureMetadata realMetadata(const std::string& byteOrder) {
  const std::string name = "tagged" + byteOrder + ".jpg";
  const auto file = ReaderSamples::file(
      name, "convert -size 40x30 gradient:red-blue -quality 90 bare.jpg && exiftool -q -q -o " + name +
                " -ExifByteOrder=" + byteOrder +
                " -Make=Maker -Model='A Model' -Artist='An Artist with a long name' -ExposureTime=1/125 -ISO=400 "
                "-LensModel='Lens 50mm' -GPSLatitude=52.5 -GPSLatitudeRef=N -GPSLongitude=13.4 -GPSLongitudeRef=E "
                "-XMP:Title='A Title' -XMP:Rating=4 bare.jpg");
  const auto picture = decodePicture(file, {.keepsMetadata = true});
  EXPECT_TRUE(picture);
  PictureMetadata metadata = picture ? picture->metadata : PictureMetadata();
  metadata.dotsPerInch = 144;
  const auto profiled = ReaderSamples::file("p3.jpg", "vips icc_export base.png p3.jpg --output-profile p3");
  const auto wide = decodePicture(profiled, {.keepsProfile = true, .keepsMetadata = true});
  EXPECT_TRUE(wide);
  if (wide) metadata.profile = wide->metadata.profile;
  EXPECT_FALSE(metadata.exif.empty() || metadata.xmp.empty() || metadata.profile.empty());
  return metadata;
}

TEST(WriterMetadata, GoesAlongInEveryTypeThatHoldsIt) {
  for (const std::string byteOrder : {"MM", "II"}) {
    const PictureMetadata metadata = realMetadata(byteOrder);
    for (const PictureType type : {PictureType::Jpeg, PictureType::Png, PictureType::WebP, PictureType::Tiff}) {
      SCOPED_TRACE(testing::Message() << nameOf(type) << " " << byteOrder);
      const Raster raster = paintedRaster(60, 40, RasterLayout::Rgb, type == PictureType::Tiff ? 16 : 8);
      const auto file = writePicture(raster, metadata, type, {.quality = 0.9});
      ASSERT_TRUE(file) << file.error().detail;
      const std::string name = "tagged_out." + std::string(fileExtension(type));
      const auto pixels = pixelsElsewhere(*file, name, raster.bitsPerSample());
      if (type == PictureType::Tiff) {
        EXPECT_EQ(greatestDifference(pixels, rgbaOf(raster), 16), 0);
      }
      EXPECT_EQ(outputOf("exiftool -s3 -p '$Make|$Model|$Artist|$ExposureTime|$ISO|$LensModel|$XMP:Title|$XMP:Rating|"
                         "$GPSPosition|$ProfileDescription' -c '%.2f' " +
                         name),
                "Maker|A Model|An Artist with a long name|1/125|400|Lens 50mm|A Title|4|52.50 N, 13.40 E|" +
                    outputOf("exiftool -s3 -ProfileDescription p3.jpg"));
      EXPECT_EQ(outputOf("exiftool -warning -error -s3 " + name), "");
      const auto read = decodePicture(*file, {.keepsProfile = true, .keepsMetadata = true});
      ASSERT_TRUE(read);
      EXPECT_EQ(read->metadata.profile, metadata.profile);
      if (type != PictureType::WebP) {
        EXPECT_NEAR(read->metadata.dotsPerInch, 144, 0.02);
      }
      if (type != PictureType::Tiff) {
        EXPECT_EQ(read->metadata.exif, metadata.exif);
      }
      EXPECT_EQ(read->metadata.xmp, metadata.xmp);
    }
  }
}

TEST(WriterMetadata, ProfilesOnlyGoWithColors) {
  const PictureMetadata metadata{.profile = realMetadata("MM").profile};
  for (const RasterLayout layout : {RasterLayout::Grey, RasterLayout::GreyAlpha}) {
    const auto file = writePicture(paintedRaster(30, 20, layout), metadata, PictureType::Png);
    ASSERT_TRUE(file);
    EXPECT_FALSE(inspectPicture(*file)->hasProfile);
  }
  // Pixels that are grey by chance are still in the profile's colors.
  const Raster grey = paintedRaster(30, 20, RasterLayout::Grey);
  auto colored = Raster::create(30, 20, RasterLayout::Rgb);
  for (int i = 0; i < 30 * 20 * 3; ++i) colored->row(0)[i] = grey.row(0)[i / 3];
  const auto file = writePicture(*colored, metadata, PictureType::Png);
  ASSERT_TRUE(file);
  EXPECT_TRUE(inspectPicture(*file)->hasProfile);
  pixelsElsewhere(*file, "chance.png");
  EXPECT_NE(outputOf("exiftool -s3 -ColorType chance.png").substr(0, 4), "Gray");
  // BMP has a place for one too.
  const auto bitmap = writePicture(*colored, metadata, PictureType::Bmp);
  ASSERT_TRUE(bitmap);
  EXPECT_EQ(decodePicture(*bitmap, {.keepsProfile = true})->metadata.profile, metadata.profile);
  EXPECT_EQ(greatestDifference(pixelsElsewhere(*bitmap, "profiled.bmp"), rgbaOf(*colored)), 0);
}

TEST(WriterMetadata, BlocksThatDoNotFitAreLeftOut) {
  PictureMetadata metadata = realMetadata("MM");
  metadata.exif.resize(70000);
  metadata.xmp.resize(70000, ' ');
  const auto file = writePicture(paintedRaster(30, 20, RasterLayout::Rgb), metadata, PictureType::Jpeg);
  ASSERT_TRUE(file);
  const auto read = decodePicture(*file, {.keepsMetadata = true});
  ASSERT_TRUE(read);
  EXPECT_TRUE(read->metadata.exif.empty() && read->metadata.xmp.empty());
}

}  // namespace
}  // namespace vellora
