#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>

#include "editor/compressor/ImageCompressor.h"
#include "media/pictures/WriterSamples.h"
#include "support/ChildProcess.h"

namespace vellora::test {
namespace {

/// What cameras and editors write about people and places, with a word to look for.
constexpr char tags[] =
    " -overwrite_original -m -q -q -Make=PrivateMaker -Artist=PrivateArtist -ImageDescription=PrivateText "
    "-UserComment=PrivateComment -DateTimeOriginal='2021:03:04 05:06:07' -GPSLatitude=52.5 -GPSLatitudeRef=N "
    "-GPSLongitude=13.4 -GPSLongitudeRef=E -XMP:Title=PrivateTitle -XMP-dc:Creator=PrivateCreator";

/// A picture of one type; small, and of low quality, so that a second encoding at high quality does not gain.
struct Sample {
  const char* name;
  const char* command;
  const char* more;  ///< of the tags
};

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all{
      {"told_turned.jpg", "convert base.png -quality 30 told_turned.jpg",
       "-Orientation#=6 -IPTC:City=PrivateCity -Comment=PrivateComment"},
      {"told_mirrored.jpg", "convert base.png -quality 30 -interlace JPEG told_mirrored.jpg", "-Orientation#=5"},
      {"told_wide.jpg", "vips icc_export base.png told_wide.jpg[Q=30] --output-profile p3", "-Orientation#=8"},
      {"told.png", "convert base.png -colors 5 png8:told.png", "-Orientation#=3 -PNG:Author=PrivateAuthor"},
      {"told_wide.png", "vips icc_export base.png told_wide.png --output-profile p3", "-Orientation#=7"},
      {"told.webp", "cwebp -quiet -q 5 base.png -o told.webp", "-Orientation#=6"},
      {"told.tiff", "convert base.png -compress zip told.tiff", "-Orientation#=6 -IPTC:City=PrivateCity"},
      {"told.gif", "convert base.png -colors 4 -set comment PrivateComment told.gif", "-XMP:Rating=3"},
      {"told.heic", "convert -size 400x300 -seed 3 plasma:red-blue -quality 20 told.heic", ""},
      {"told.avif", "convert -size 400x300 -seed 3 plasma:red-blue -quality 20 told.avif", ""},
      {"told.jxl", "vips jxlsave base.png told.jxl --Q 20", ""},
  };
  return all;
}

/// Makes all samples with one call of the slow program.
Bytes fileOf(const Sample& sample) {
  static const bool isMade = [] {
    std::string command, tagging = " && exiftool";
    for (const Sample& each : samples()) {
      command += std::string(command.empty() ? "" : " && ") + each.command;
      tagging += std::string(" ") + each.more + " " + each.name + " -execute";
    }
    return outputOf(command + tagging + " -common_args" + tags + " || true").empty();
  }();
  EXPECT_TRUE(isMade);
  return ReaderSamples::file(sample.name, "false");
}

bool tellsOfSomebody(std::span<const std::byte> file) {
  static constexpr std::string_view word = "Private";
  const auto* begin = reinterpret_cast<const char*>(file.data());
  return std::search(begin, begin + file.size(), word.begin(), word.end()) != begin + file.size();
}

void save(std::span<const std::byte> file, const std::string& name) {
  std::ofstream(ReaderSamples::path(name), std::ios::binary)
      .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
}

/// What another program has on the screen, turned and with its colors as the profile wants them.
std::string shown(const std::string& name) {
  return outputOf("vipsthumbnail " + name +
                  " -s '400>' --export-profile srgb -o shown.png && convert shown.png "
                  "-strip -depth 8 -format '%wx%h %#' info:");
}

class KeptContents : public testing::Test {
 protected:
  void SetUp() override {
    static const bool hasJudge = runProgram({"exiftool", "-ver"}, {}).exitCode == 0;
    if (!hasJudge) GTEST_SKIP() << "exiftool is not installed";
    ReaderSamples::file("base.png", "true");
  }
};

TEST_F(KeptContents, OriginalsLoseWhatIsPersonalAndNothingElse) {
  std::string bare;
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes file = fileOf(sample);
    ASSERT_TRUE(tellsOfSomebody(file));
    const auto info = inspectPicture(file);
    ASSERT_TRUE(info);
    const auto output = ImageCompressor::compress(file, {.quality = 100});
    ASSERT_TRUE(output) << output.error().detail;
    EXPECT_LE(output->data.size(), file.size());
    EXPECT_FALSE(tellsOfSomebody(output->data));
    EXPECT_EQ(output->width, info->width);
    EXPECT_EQ(output->height, info->height);
    EXPECT_EQ(inspectPicture(output->data)->hasProfile, info->hasProfile);
    const std::string name = std::string("bare_") + sample.name;
    save(output->data, name);
    bare += " " + name;
    // Lossy pictures were too small already, so that these are their very pixels.
    EXPECT_TRUE(output->isOriginal || !isLossy(info->type));
    EXPECT_EQ(shown(name), shown(sample.name));
  }
  EXPECT_EQ(outputOf("exiftool -q -q -s -GPS:all -XMP:all -IPTC:all -MakerNotes:all -Comment -Artist "
                     "-DateTimeOriginal -Author -Trailer:all -Error -Warning" +
                     bare + " | grep -v ^=====  || true"),
            "");
}

TEST_F(KeptContents, OriginalsAreTheSourcesOwnBytesWhenTheirMetadataIsWanted) {
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes file = fileOf(sample);
    const auto output = ImageCompressor::compress(file, {.quality = 100, .keepsMetadata = true});
    ASSERT_TRUE(output);
    if (output->isOriginal) {
      EXPECT_EQ(output->data, file);
    } else {
      EXPECT_LT(output->data.size(), file.size());
      EXPECT_FALSE(isLossy(output->type));
    }
  }
}

TEST_F(KeptContents, WantedMetadataGoesThroughEveryEncoder) {
  std::string results, expected;
  for (const Sample& sample : samples()) {
    if (std::string_view(sample.name).ends_with("gif")) continue;  // has no place for it
    const Bytes file = fileOf(sample);
    const auto info = inspectPicture(file);
    ASSERT_TRUE(info);
    for (const CompressFormat format :
         {CompressFormat::original, CompressFormat::jpeg, CompressFormat::png, CompressFormat::webp}) {
      SCOPED_TRACE(std::string(sample.name) + " as " + std::string(textOf(format)));
      const auto output =
          ImageCompressor::compress(file, {.format = format, .quality = 90, .maxEdge = 40, .keepsMetadata = true});
      ASSERT_TRUE(output);
      EXPECT_EQ(output->height > output->width, info->height > info->width);
      const std::string name =
          std::string(textOf(format)) + "_" + sample.name + "." + std::string(fileExtension(output->type));
      save(output->data, name);
      results += " " + name;
      // Turned once, and not again by whoever shows it.
      expected += name + "|PrivateArtist|2021:03:04 05:06:07|52.500 N, 13.400 E|PrivateTitle|upright|\n";
    }
  }
  expected.pop_back();
  EXPECT_EQ(outputOf("exiftool -q -q -m -f -c %.3f -p '$FileName|$Artist|$DateTimeOriginal|$GPSPosition|$XMP:Title|"
                     "${IFD0:Orientation;s/Horizontal.*/upright/}|$Warning$Error'" +
                     results + " | sed 's/|--$/|/; s/|-|$/|upright|/'"),
            expected);
}

TEST_F(KeptContents, PicturesAreTurnedTheWayTheyWereShown) {
  static constexpr char mark[] =
      "convert -size 40x24 xc:white -fill red -draw 'rectangle 0,0 12,8' -fill blue -draw 'rectangle 28,16 39,23' "
      "-quality 100 mark1.jpg && for i in 2 3 4 5 6 7 8; do cp mark1.jpg mark$i.jpg; set -- \"$@\" -Orientation=$i "
      "mark$i.jpg -execute; done && exiftool \"$@\" -common_args -q -q -overwrite_original -n";
  ReaderSamples::file("mark1.jpg", mark);
  for (int orientation = 1; orientation <= 8; ++orientation) {
    const std::string name = "mark" + std::to_string(orientation) + ".jpg";
    const Bytes file = ReaderSamples::file(name, "false");
    EXPECT_EQ(inspectPicture(file)->orientation, orientation);
    const auto before = ReaderSamples::reference(name);
    // Converted, made smaller, and handed through with and without its metadata.
    for (const CompressOptions& options :
         {CompressOptions{.format = CompressFormat::webp, .quality = 95, .keepsMetadata = true},
          CompressOptions{.quality = 90}, CompressOptions{.quality = 100},
          CompressOptions{.quality = 100, .keepsMetadata = true}}) {
      const auto output = ImageCompressor::compress(file, options);
      ASSERT_TRUE(output);
      const std::string result = "turned_mark." + std::string(fileExtension(output->type));
      save(output->data, result);
      EXPECT_GT(decibels(before, ReaderSamples::reference(result)), 22) << orientation;
    }
  }
}

}  // namespace
}  // namespace vellora::test
