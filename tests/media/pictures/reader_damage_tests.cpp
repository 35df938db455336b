#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <random>

#include <sys/stat.h>

#include "media/pictures/ReaderSamples.h"
#include "support/PngBuilder.h"

namespace vellora {
namespace {

using test::Bytes;
using test::ReaderSamples;
using test::rgbaOf;

Bytes bytesOf(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

PictureError errorOf(const Bytes& file) {
  const auto picture = decodePicture(file);
  EXPECT_FALSE(picture);
  return picture ? PictureError::Cancelled : picture.error().error;
}

/// A file of each way a reader can take, with something behind the pixels to be lost where the type allows.
class ReaderDamage : public testing::TestWithParam<std::pair<const char*, const char*>> {
 protected:
  static Bytes sample() { return ReaderSamples::file(GetParam().first, GetParam().second); }
};

TEST_P(ReaderDamage, ACutFileIsNeverHalfAPicture) {
  const Bytes whole = sample();
  const auto complete = decodePicture(whole);
  ASSERT_TRUE(complete);
  for (std::size_t percent = 0; percent < 100; ++percent) {
    const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(whole.size() * percent / 100));
    const auto picture = decodePicture(cut);
    EXPECT_FALSE(picture) << percent << " %";
    (void)inspectPicture(cut);
  }
  // The last byte may only pad the file.
  const auto almost = decodePicture(std::span(whole).first(whole.size() - 1));
  if (almost) {
    EXPECT_EQ(rgbaOf(almost->raster), rgbaOf(complete->raster));
  }
}

TEST_P(ReaderDamage, WrongBytesAreSurvived) {
  const Bytes whole = sample();
  std::mt19937 random(1);  // NOLINT: the same wrong bytes every time
  for (int round = 0; round < 150; ++round) {
    Bytes wrong = whole;
    // The headers are where it hurts.
    const std::size_t reach = round % 2 == 0 ? std::min<std::size_t>(wrong.size(), 200) : wrong.size();
    for (int i = 0; i < 3; ++i) wrong[random() % reach] = static_cast<std::byte>(random());
    const auto info = inspectPicture(wrong);
    const auto picture = decodePicture(wrong, {.keepsDepth = true, .keepsMetadata = true});
    if (!picture) continue;
    ASSERT_TRUE(info);
    EXPECT_FALSE(picture->raster.isNull());
    EXPECT_LE(picture->raster.bytes(), decodedBytesOf(*info, {.keepsDepth = true}));
  }
}

INSTANTIATE_TEST_SUITE_P(
    Types, ReaderDamage,
    testing::Values(std::pair("420.jpg", "convert base.png -quality 80 -sampling-factor 4:2:0 420.jpg"),
                    std::pair("progressive.jpg", "convert base.png -interlace JPEG progressive.jpg"),
                    std::pair("restart.jpg", "convert base.png -define jpeg:restart-interval=2 restart.jpg"),
                    std::pair("base.png", "true"),
                    std::pair("interlaced.png", "convert base.png -interlace PNG interlaced.png"),
                    std::pair("palette.png", "convert base.png -colors 200 png8:palette.png"),
                    std::pair("lossy.webp", "cwebp -quiet -q 80 base.png -o lossy.webp"),
                    std::pair("lossless.webp", "cwebp -quiet -lossless base.png -o lossless.webp"),
                    std::pair("alpha.webp", "cwebp -quiet -q 70 alpha.png -o alpha.webp"),
                    std::pair("plain.tiff", "convert base.png -compress None plain.tiff"),
                    std::pair("first.tiff", "vips tiffsave base.png first.tiff --compression lzw --tile"),
                    std::pair("jpeg.tiff", "convert base.png -compress JPEG jpeg.tiff"),
                    std::pair("fax.tiff", "convert base.png -monochrome -compress Group4 fax.tiff"),
                    std::pair("24.bmp", "convert base.png bmp3:24.bmp"),
                    std::pair("rle8.bmp", "convert base.png -colors 20 -type Palette -compress RLE bmp3:rle8.bmp"),
                    std::pair("plain.gif", "convert base.png -colors 256 plain.gif"),
                    std::pair("picture.heic", "convert base.png -quality 80 picture.heic"),
                    std::pair("picture.avif", "convert base.png -quality 80 picture.avif"),
                    std::pair("base.jxl", "vips jxlsave base.png base.jxl --lossless"),
                    std::pair("lossy.jxl", "vips jxlsave base.png lossy.jxl --Q 80")),
    [](const auto& param) {
      std::string name = param.param.first;
      std::erase(name, '.');
      return name;
    });

/// A file whose header names 65,535 × 65,535 pixels and which has next to none of them.
struct Huge {
  const char* name;
  Bytes file;
};

Bytes patched(Bytes file, std::size_t at, std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  return file;
}

/// The place of the frame header's size in a JPEG.
std::size_t frameSizeIn(const Bytes& jpeg) {
  for (std::size_t at = 0; at + 9 < jpeg.size(); ++at) {
    if (jpeg[at] == std::byte{0xFF} && (jpeg[at + 1] == std::byte{0xC0} || jpeg[at + 1] == std::byte{0xC2}))
      return at + 5;
  }
  return 0;
}

TEST(ReaderDamage, AbsurdSizesAreRefusedAtOnce) {
  using namespace std::string_view_literals;
  const Bytes jpeg = ReaderSamples::file("420.jpg", "convert base.png -quality 80 -sampling-factor 4:2:0 420.jpg");
  const Bytes progressive = ReaderSamples::file("progressive.jpg", "convert base.png -interlace JPEG progressive.jpg");
  const Bytes gif = ReaderSamples::file("plain.gif", "convert base.png -colors 256 plain.gif");
  const Bytes bmp = ReaderSamples::file("24.bmp", "convert base.png bmp3:24.bmp");
  const auto png = test::PngBuilder().header(65535, 65535, 8, 2).pixels(std::vector<std::uint8_t>(1000)).finish();
  const auto* pngBytes = reinterpret_cast<const std::byte*>(png.data());
  for (const auto& [name, file] :
       {Huge{"JPEG", patched(jpeg, frameSizeIn(jpeg), "\xFF\xFF\xFF\xFF")},
        Huge{"progressive JPEG", patched(progressive, frameSizeIn(progressive), "\xFF\xFF\xFF\xFF")},
        Huge{"PNG", Bytes(pngBytes, pngBytes + png.size())}, Huge{"GIF", patched(gif, 6, "\xFF\xFF\xFF\xFF")},
        Huge{"BMP", patched(bmp, 18, "\xFF\xFF\0\0\xFF\xFF\0\0"sv)},
        Huge{"TIFF", ReaderSamples::file("huge.tiff",
                                         "printf 'II*\\0\\10\\0\\0\\0\\7\\0"
                                         "\\0\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0"
                                         "\\1\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0"
                                         "\\2\\1\\3\\0\\1\\0\\0\\0\\10\\0\\0\\0"
                                         "\\6\\1\\3\\0\\1\\0\\0\\0\\1\\0\\0\\0"
                                         "\\21\\1\\4\\0\\1\\0\\0\\0\\10\\0\\0\\0"
                                         "\\26\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0"
                                         "\\27\\1\\4\\0\\1\\0\\0\\0\\144\\0\\0\\0"
                                         "\\0\\0\\0\\0' > huge.tiff")}}) {
    SCOPED_TRACE(name);
    const auto start = std::chrono::steady_clock::now();
    const auto picture = decodePicture(file);
    ASSERT_FALSE(picture);
    EXPECT_TRUE(picture.error().error == PictureError::TooLarge || picture.error().error == PictureError::Damaged)
        << picture.error().detail;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(1));
    if (const auto info = inspectPicture(file)) {
      EXPECT_GT(decodedBytesOf(*info), Raster::maximumBytes);
    }
  }
}

TEST(ReaderDamage, WhatIsNoPictureIsSaidToBeNone) {
  using namespace std::string_view_literals;
  for (const std::string_view text :
       {""sv, "B"sv, "BM"sv, "BMW is a car, not a picture\n"sv, "GIF"sv, "<svg></svg>"sv, "RIFF\0\0\0\0WAVE"sv,
        "\0\0\0\x18"
        "ftypmp42\0\0\0\0mp42isom"sv}) {
    EXPECT_EQ(errorOf(bytesOf(text)), PictureError::NotAPicture) << text;
    EXPECT_FALSE(pictureTypeOf(bytesOf(text)));
  }
}

TEST(ReaderDamage, KindsThatAreNotReadSayWhy) {
  for (const auto& [name, command, reason] :
       {std::tuple{"float.tiff", "vips cast base.png float.tiff float", "whole numbers"},
        std::tuple{"lab.tiff", "vips colourspace base.png lab.v lab && vips tiffsave lab.v lab.tiff", ""},
        std::tuple{
            "inks.bmp",
            "convert base.png bmp3:inks.bmp && printf '\\4' | dd of=inks.bmp bs=1 seek=30 conv=notrunc 2>/dev/null",
            "compression 4"}}) {
    SCOPED_TRACE(name);
    const auto picture = decodePicture(ReaderSamples::file(name, command));
    if (std::string_view(reason).empty()) continue;
    ASSERT_FALSE(picture);
    EXPECT_EQ(picture.error().error, PictureError::Unsupported);
    EXPECT_NE(picture.error().detail.find(reason), std::string::npos) << picture.error().detail;
  }
}

TEST(ReaderDamage, AJpegOfThousandsOfScansIsNotFollowed) {
  Bytes file =
      ReaderSamples::file("scans.jpg", "convert -size 2000x2000 xc:gray -colorspace Gray -interlace JPEG scans.jpg");
  // The last scan, over and over.
  std::size_t scan = 0;
  for (std::size_t at = 0; at + 1 < file.size(); ++at) {
    if (file[at] == std::byte{0xFF} && file[at + 1] == std::byte{0xDA}) scan = at;
  }
  const Bytes last(file.begin() + static_cast<std::ptrdiff_t>(scan), file.end() - 2);
  file.resize(file.size() - 2);
  for (int i = 0; i < 5000; ++i) file.insert(file.end(), last.begin(), last.end());
  file.insert(file.end(), {std::byte{0xFF}, std::byte{0xD9}});
  EXPECT_EQ(errorOf(file), PictureError::Damaged);
}

TEST(ReaderDamage, AJpegThatEndsEarlyIsDamagedWhateverFollows) {
  const Bytes whole = ReaderSamples::file("420.jpg", "convert base.png -quality 80 -sampling-factor 4:2:0 420.jpg");
  const Bytes end{std::byte{0xFF}, std::byte{0xD9}}, junk(5000, std::byte{0x5A});
  for (const std::size_t percent : {60U, 80U, 95U}) {
    Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(whole.size() * percent / 100));
    cut.insert(cut.end(), end.begin(), end.end());
    EXPECT_EQ(errorOf(cut), PictureError::Damaged) << percent << " %";
    cut.insert(cut.end(), junk.begin(), junk.end());
    EXPECT_EQ(errorOf(cut), PictureError::Damaged) << percent << " %, then something else";
    cut.insert(cut.end(), whole.begin(), whole.end());
    EXPECT_EQ(errorOf(cut), PictureError::Damaged) << percent << " %, then a whole one";
  }
  Bytes longer = whole;
  longer.insert(longer.end(), junk.begin(), junk.end());
  const auto picture = decodePicture(longer);
  ASSERT_TRUE(picture);
  EXPECT_EQ(rgbaOf(picture->raster), rgbaOf(decodePicture(whole)->raster));
}

TEST(ReaderDamage, AGifWhoseFirstFrameIsEmptyHasNoPixels) {
  using namespace std::string_view_literals;
  const Bytes gif = ReaderSamples::file("plain.gif", "convert base.png -colors 256 plain.gif");
  const auto descriptor = std::as_bytes(std::span("\x2C\0\0\0\0\x43\0\x2D\0"sv));
  const auto found = std::search(gif.begin(), gif.end(), descriptor.begin(), descriptor.end());
  ASSERT_NE(found, gif.end());
  const auto at = static_cast<std::size_t>(found - gif.begin());
  for (const std::size_t side : {at + 5, at + 7}) {
    const Bytes empty = patched(gif, side, "\0"sv);
    EXPECT_EQ(errorOf(empty), PictureError::Damaged);
    EXPECT_FALSE(inspectPicture(empty));
  }
}

/// The sample with one byte changed, at one of `count` places spread over its pixels.
Bytes withWrongByte(const Bytes& whole, std::size_t place, std::size_t count) {
  Bytes wrong = whole;
  wrong[whole.size() / 10 + whole.size() * 9 / 10 * place / count] ^= std::byte{0x55};
  return wrong;
}

TEST(ReaderDamage, HevcThatDoesNotAddUpIsRefused) {
  const Bytes whole = ReaderSamples::file("large.heic", "convert base.png -resize 400x300! -quality 80 large.heic");
  ASSERT_TRUE(decodePicture(whole));
  constexpr std::size_t places = 100;
  std::size_t taken = 0;
  for (std::size_t place = 0; place < places; ++place)
    taken += decodePicture(withWrongByte(whole, place, places)) ? 1 : 0;
  // Some damage makes another picture that is as good as any: HEVC has no checksum.
  EXPECT_LE(taken, places / 10);
}

TEST(ReaderDamage, LibrariesDoNotWriteToStandardError) {
  for (const auto& [name, command] : {std::pair("lossy.jxl", "vips jxlsave base.png lossy.jxl --Q 80"),
                                      std::pair("base.jxl", "vips jxlsave base.png base.jxl --lossless"),
                                      std::pair("loud.avif", "convert base.png -quality 80 loud.avif"),
                                      std::pair("loud.heic", "convert base.png -quality 80 loud.heic")}) {
    const Bytes whole = ReaderSamples::file(name, command);
    testing::internal::CaptureStderr();
    for (std::size_t place = 0; place < 40; ++place) (void)decodePicture(withWrongByte(whole, place, 40));
    (void)decodePicture(std::span(whole).first(whole.size() / 2));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << name;
  }
}

TEST(ReaderDamage, ACutJpegXlIsToldAsCut) {
  for (const auto& [name, command] : {std::pair("lossy.jxl", "vips jxlsave base.png lossy.jxl --Q 80"),
                                      std::pair("base.jxl", "vips jxlsave base.png base.jxl --lossless")}) {
    const Bytes whole = ReaderSamples::file(name, command);
    const auto picture = decodePicture(std::span(whole).first(whole.size() * 2 / 3));
    ASSERT_FALSE(picture);
    EXPECT_EQ(picture.error().detail, "the file is incomplete");
  }
}

TEST(ReaderFile, OnlyWholeRegularFilesAreRead) {
  ReaderSamples::file("base.png", "true");
  const auto errorOfFile = [](const std::string& path) {
    const auto bytes = readPictureFile(path);
    return bytes ? PictureError::Cancelled : bytes.error().error;
  };
  EXPECT_EQ(errorOfFile(ReaderSamples::path("missing.png")), PictureError::NotFound);
  EXPECT_EQ(errorOfFile(ReaderSamples::path("")), PictureError::NotAFile);
  EXPECT_EQ(errorOfFile("/dev/zero"), PictureError::NotAFile);
  const std::string pipe = ReaderSamples::path("pipe.png");
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  EXPECT_EQ(errorOfFile(pipe), PictureError::NotAFile);
  const std::string link = ReaderSamples::path("link.png");
  std::filesystem::create_symlink(ReaderSamples::path("base.png"), link);
  EXPECT_EQ(readPictureFile(link)->size(), std::filesystem::file_size(link));
  const std::string huge = ReaderSamples::path("huge.png");
  std::ofstream(huge).close();
  std::filesystem::resize_file(huge, pictureLimits::fileBytes + 1);  // takes no room
  EXPECT_EQ(errorOfFile(huge), PictureError::TooLarge);
}

}  // namespace
}  // namespace vellora
