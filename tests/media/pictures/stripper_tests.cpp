#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <random>
#include <string>

#include "media/pictures/MetadataStripper.h"
#include "media/pictures/WriterSamples.h"

namespace vellora {
namespace {

using test::outputOf;
using test::ReaderSamples;

using Bytes = std::vector<std::byte>;

/// Everything a camera, a phone and an editor like to write, with words to look for.
constexpr char tags[] =
    " -overwrite_original -m -Make=PrivateMaker -Model=PrivateModel -Artist=PrivateArtist -Copyright=PrivateRights "
    "-ImageDescription=PrivateText -UserComment=PrivateComment -DateTimeOriginal='2021:03:04 05:06:07' "
    "-SerialNumber=PrivateSerial -GPSLatitude=52.5 -GPSLatitudeRef=N -GPSLongitude=13.4 -GPSLongitudeRef=E "
    "-XMP:Title=PrivateTitle -XMP-dc:Creator=PrivateCreator -XResolution=144 -YResolution=144 -ResolutionUnit=inches ";

/// Sizes, checksums of pixels, and timing of all frames. A tail behind a file makes the program complain.
constexpr char seenElsewhere[] = " -auto-orient -format '%w %h %# %T %D\n' info: 2>/dev/null || true";

struct Sample {
  const char* name;
  std::string command;
  PictureType type;
  int mutations = 10000;
};

std::string tagged(const std::string& name, const std::string& more = "") {
  return " && exiftool -q -q" + std::string(tags) + more + " " + name;
}

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all = [] {
    const std::string small = "convert -size 24x18 -seed 7 plasma:red-blue -depth 8 ";
    const std::string thumbnail = "convert -size 16x12 gradient: thumb.jpg && ";
    const std::string camera =
        " -Orientation#=6 -IPTC:City=PrivateCity -Comment=PrivateComment '-ThumbnailImage<=thumb.jpg'";
    return std::vector<Sample>{
        {"camera.jpg",
         thumbnail + small + "-quality 85 camera.jpg" + tagged("camera.jpg", camera) +
             " && printf PrivateTail >> camera.jpg",
         PictureType::Jpeg},
        {"progressive.jpg",
         small + "-interlace JPEG -quality 90 progressive.jpg" + tagged("progressive.jpg", " -ExifByteOrder=II"),
         PictureType::Jpeg},
        {"text.png",
         small + "-set comment PrivateComment text.png" +
             tagged("text.png", " -Orientation#=3 -PNG:Author=PrivateAuthor"),
         PictureType::Png},
        {"palette.png", small + "-colors 9 -type palette palette.png" + tagged("palette.png"), PictureType::Png},
        {"lossy.webp",
         small + "lossy.png && cwebp -quiet lossy.png -o lossy.webp" + tagged("lossy.webp", " -Orientation#=8"),
         PictureType::WebP},
        {"alpha.webp",
         small +
             "-alpha set -channel A -evaluate set 40% +channel alphas.png && cwebp -quiet -lossless alphas.png -o "
             "alpha.webp" +
             tagged("alpha.webp"),
         PictureType::WebP},
        {"animated.webp",
         small +
             "frame1.png && convert frame1.png -negate frame2.png && img2webp -loop 3 -d 90 frame1.png frame2.png -o "
             "animated.webp >/dev/null" +
             tagged("animated.webp"),
         PictureType::WebP},
        {"animated.gif",
         small + "-set comment PrivateComment \\( +clone -negate \\) -set delay 20 -loop 0 animated.gif" +
             tagged("animated.gif"),
         PictureType::Gif},
        {"pages.tiff",
         small + "\\( +clone -negate \\) -compress zip pages.tiff" +
             tagged("pages.tiff", " -Orientation#=6 -IPTC:City=PrivateCity -IFD1:Artist=PrivateArtist"),
         PictureType::Tiff},
        {"big.tiff",
         small + "-endian MSB -compress lzw -set comment PrivateText -set tiff:artist PrivateArtist TIFF64:big.tiff",
         PictureType::Tiff},
        {"plain.tiff", small + "-endian MSB -compress none plain.tiff" + tagged("plain.tiff"), PictureType::Tiff},
        {"tiles.tiff",
         "vips tiffsave base.png tiles.tiff --tile --tile-width 16 --tile-height 16 --compression jpeg" +
             tagged("tiles.tiff"),
         PictureType::Tiff, 3000},
        {"drawn.bmp", small + "BMP3:drawn.bmp && printf PrivateTail >> drawn.bmp", PictureType::Bmp},
        {"phone.heic", "convert -size 64x64 gradient:red-blue -quality 60 phone.heic" + tagged("phone.heic"),
         PictureType::Heic, 400},
        {"phone.avif", "convert -size 64x64 gradient:red-blue -quality 60 phone.avif" + tagged("phone.avif"),
         PictureType::Avif, 400},
        {"boxes.jxl", "vips jxlsave base.png boxes.jxl --lossless" + tagged("boxes.jxl"), PictureType::JpegXL, 2000},
    };
  }();
  return all;
}

Bytes bytesOf(const Sample& sample) {
  ReaderSamples::file("base.png", "true");
  return ReaderSamples::file(sample.name, sample.command);
}

bool holds(const Bytes& file, std::string_view text) {
  const auto* begin = reinterpret_cast<const char*>(file.data());
  return std::search(begin, begin + file.size(), text.begin(), text.end()) != begin + file.size();
}

/// The pixels as they are to be seen, with their resolution and profile.
struct Seen {
  std::vector<std::uint8_t> pixels;
  std::vector<std::uint8_t> profile;
  int width = 0;
  double dotsPerInch = 0;
  bool operator==(const Seen&) const = default;
};

std::optional<Seen> seen(std::span<const std::byte> file) {
  const auto picture = decodePicture(file, {.keepsDepth = true, .keepsProfile = true, .keepsMetadata = true});
  if (!picture) return std::nullopt;
  const Raster& raster = picture->raster;
  return Seen{{raster.row(0), raster.row(0) + raster.bytes()},
              picture->metadata.profile,
              raster.width(),
              std::round(picture->metadata.dotsPerInch)};
}

TEST(MetadataStripper, LeavesNothingPersonalAndEveryPixel) {
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes file = bytesOf(sample);
    ASSERT_TRUE(holds(file, "Private"));
    const auto stripped = withoutMetadata(file, sample.type);
    ASSERT_TRUE(stripped);
    EXPECT_LE(stripped->size(), file.size());
    EXPECT_FALSE(holds(*stripped, "Private"));
    const std::string name = std::string("bare_") + sample.name;
    std::ofstream(ReaderSamples::path(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(stripped->data()), static_cast<std::streamsize>(stripped->size()));
    EXPECT_EQ(outputOf("exiftool -s -GPS:all -XMP:all -IPTC:all -MakerNotes:all -Comment -Artist -DateTimeOriginal "
                       "-ThumbnailImage -Trailer:all " +
                       name),
              "");
    EXPECT_EQ(outputOf("exiftool -s3 -Error -Warning " + name), "");
    const auto before = seen(file), after = seen(*stripped);
    ASSERT_TRUE(before);
    EXPECT_TRUE(after && *after == *before);
    const auto info = inspectPicture(file), bareInfo = inspectPicture(*stripped);
    EXPECT_EQ(bareInfo->orientation, info->orientation);
    EXPECT_EQ(bareInfo->frames, info->frames);
    if (sample.type != PictureType::Heic && sample.type != PictureType::Avif && sample.type != PictureType::JpegXL) {
      EXPECT_EQ(outputOf(std::string("convert ") + sample.name + seenElsewhere),
                outputOf("convert " + name + seenElsewhere));
    } else if (sample.type != PictureType::JpegXL) {
      EXPECT_EQ(outputOf(std::string("vips rawsave ") + sample.name + " a.raw && md5sum < a.raw"),
                outputOf("vips rawsave " + name + " a.raw && md5sum < a.raw"));
    }
    // What is bare stays as it is.
    EXPECT_EQ(withoutMetadata(*stripped, sample.type), stripped);
  }
}

TEST(MetadataStripper, RefusesCutFilesAndOtherTypes) {
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes file = bytesOf(sample);
    const auto whole = seen(file);
    for (std::size_t size = 0; size < file.size(); ++size) {
      const std::span<const std::byte> cut(file.data(), size);
      const auto stripped = withoutMetadata(cut, sample.type);
      if (!stripped || size % 16 != 0) continue;
      const auto pixels = seen(cut);
      if (pixels) {
        ASSERT_EQ(seen(*stripped), pixels) << size;
      }
    }
    const auto other = sample.type == PictureType::Jpeg ? PictureType::Png : PictureType::Jpeg;
    EXPECT_FALSE(withoutMetadata(file, other));
    EXPECT_TRUE(whole);
  }
}

TEST(MetadataStripper, DamagedFilesNeverComeOutAsOtherPictures) {
  std::mt19937 random(11);
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes file = bytesOf(sample);
    for (int i = 0; i < sample.mutations; ++i) {
      Bytes changed = file;
      const int changes = 1 + static_cast<int>(random() % 3);
      for (int j = 0; j < changes; ++j) {
        // Structures stand near the beginning.
        const std::size_t range = random() % 2 == 0 ? std::min<std::size_t>(changed.size(), 400) : changed.size();
        const std::size_t at = random() % range;
        changed[at] = random() % 2 == 0 ? static_cast<std::byte>(random()) : changed[at] ^ std::byte{1};
      }
      const auto stripped = withoutMetadata(changed, sample.type);
      if (!stripped) continue;
      const auto before = seen(changed);
      if (!before) continue;
      const auto after = seen(*stripped);
      ASSERT_TRUE(after) << i;
      // A video decoder may leave gaps of damaged data as its memory was: then it never sees the same twice.
      if (after->pixels != before->pixels && seen(changed)->pixels != before->pixels) continue;
      ASSERT_TRUE(after->pixels == before->pixels) << i;
    }
  }
}

}  // namespace
}  // namespace vellora
