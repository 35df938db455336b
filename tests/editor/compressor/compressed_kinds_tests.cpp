#include <gtest/gtest.h>

#include <fstream>
#include <string>

#include "editor/compressor/ImageCompressor.h"
#include "media/pictures/WriterSamples.h"

namespace vellora::test {
namespace {

using enum CompressFormat;

constexpr double exact = 1e9;

/// A file that another program made, and what becomes of it.
struct Kind {
  const char* name;
  const char* command;
  CompressFormat format;
  PictureType type;
  double decibels;  ///< at least, compared with what another program sees in both files
  int depth = 8;
  const char* look = "";  ///< what "identify" has to say of the result
};

const std::vector<Kind>& kinds() {
  using enum PictureType;
  static constexpr char grey[] = "convert base.png -colorspace Gray grey.jpg";
  static constexpr char cmyk[] = "convert base.png -colorspace CMYK -quality 95 cmyk.jpg";
  static constexpr char palette[] = "convert base.png -colors 13 png8:palette.png";
  static constexpr char deepTiff[] = "convert deep.png -compress zip deep.tiff";
  static const std::vector<Kind> all{
      {"grey.jpg", grey, original, Jpeg, 30, 8, "gray"},
      {"grey.jpg", grey, png, Png, exact, 8, "gray"},
      {"cmyk.jpg", cmyk, original, Jpeg, 24, 8, "srgb"},
      {"cmyk.jpg", cmyk, webp, WebP, 24, 8, "srgb"},
      {"palette.png", palette, original, Png, exact, 8, "srgb"},
      {"palette.png", palette, jpeg, Jpeg, 25},
      {"deep.png", "true", original, Png, exact, 16},
      {"deep.tiff", deepTiff, original, Tiff, exact, 16},
      {"deep.tiff", deepTiff, png, Png, exact, 16},
      {"deep.png", "true", webp, WebP, 35},
      {"alpha.png", "true", original, Png, exact, 8, "srgba"},
      {"alpha.png", "true", webp, WebP, 28, 8, "srgba"},
      {"alpha.webp", "cwebp -quiet -lossless -exact alpha.png -o alpha.webp", original, WebP, 28, 8, "srgba"},
      {"alpha.webp", "cwebp -quiet -lossless -exact alpha.png -o alpha.webp", png, Png, exact, 8, "srgba"},
      {"plain.bmp", "convert base.png bmp3:plain.bmp", original, Bmp, exact},
      {"plain.gif", "convert base.png -colors 50 plain.gif", original, Gif, exact},
      {"plain.gif", "convert base.png -colors 50 plain.gif", png, Png, exact},
      {"phone.heic", "convert base.png -quality 95 phone.heic", original, Heic, 30},
      {"phone.heic", "convert base.png -quality 95 phone.heic", jpeg, Jpeg, 30},
      {"phone.avif", "convert base.png -quality 95 phone.avif", original, Avif, 30},
      {"lossy.jxl", "vips jxlsave base.png lossy.jxl --Q 95", original, JpegXL, 30},
      {"lossy.jxl", "vips jxlsave base.png lossy.jxl --Q 95", png, Png, 45},
  };
  return all;
}

/// The samples' name of a file that the judge can read: it has never heard of some types.
std::string readable(const std::string& name) {
  if (!name.ends_with(".jxl")) return name;
  outputOf("vips copy " + name + " " + name + ".png");
  return name + ".png";
}

void save(std::span<const std::byte> file, const std::string& name) {
  std::ofstream(ReaderSamples::path(name), std::ios::binary)
      .write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
}

Result<ImageCompressor::Output, PictureFailure> compressed(const Bytes& file, const CompressOptions& options) {
  return ImageCompressor::compress(file, options, {.threads = 2});
}

TEST(CompressedKinds, ComeOutAsTheyLooked) {
  for (const Kind& kind : kinds()) {
    SCOPED_TRACE(std::string(kind.name) + " as " + std::string(textOf(kind.format)));
    const Bytes file = ReaderSamples::file(kind.name, kind.command);
    const auto output = compressed(file, {.format = kind.format, .quality = 90});
    ASSERT_TRUE(output) << output.error().detail;
    const PictureType expected = canWrite(kind.type) ? kind.type : PictureType::Png;
    EXPECT_EQ(output->type, expected);
    EXPECT_EQ(pictureTypeOf(output->data), expected);
    EXPECT_EQ(output->width, 67);
    EXPECT_EQ(output->height, 45);
    EXPECT_EQ(output->frames, 1);
    if (kind.format == original) {
      EXPECT_LE(output->data.size(), file.size());
    }

    const std::string result = "result." + std::string(fileExtension(expected));
    save(output->data, result);
    const bool isCmyk = std::string_view(kind.name) == "cmyk.jpg";
    const auto before =
        ReaderSamples::reference(readable(kind.name), kind.depth, isCmyk ? "-colorspace sRGB" : "-auto-orient");
    const auto after = ReaderSamples::reference(readable(result), kind.depth, "");
    if (kind.decibels == exact) {
      EXPECT_EQ(greatestDifference(before, after, kind.depth), 0);
    } else {
      EXPECT_GE(decibels(before, after), kind.decibels);
    }
    if (*kind.look != 0) {
      EXPECT_EQ(outputOf("identify -format '%[channels]' " + result), kind.look);
    }
  }
}

TEST(CompressedKinds, TransparencyIsLostOnlyToTypesWithoutItAndNeverInSilence) {
  const Bytes alpha = ReaderSamples::file("alpha.png", "true");
  const auto flattened = compressed(alpha, {.format = jpeg, .quality = 95});
  ASSERT_TRUE(flattened);
  EXPECT_TRUE(flattened->isFlattened);
  const auto white = ReaderSamples::reference("alpha.png", 8, "-background white -alpha remove");
  EXPECT_GE(decibels(white, pixelsElsewhere(flattened->data, "white.jpg")), 25);
  // An alpha channel without a transparent pixel is nothing to be lost.
  const Bytes opaque = ReaderSamples::file("opaque.png", "convert base.png -alpha set png32:opaque.png");
  const auto converted = compressed(opaque, {.format = jpeg});
  ASSERT_TRUE(converted);
  EXPECT_FALSE(converted->isFlattened);
}

/// Files of several pictures.
struct Several {
  const char* name;
  const char* command;
  int frames;
  bool isAnimated;
};

TEST(CompressedKinds, SeveralFramesOrPagesPassWholeOrNotAtAll) {
  for (const Several& several :
       {Several{"moving.gif", "convert base.png \\( +clone -negate \\) -set delay 20 -loop 0 moving.gif", 2, true},
        Several{"moving.webp",
                "convert base.png -negate second.png && img2webp -loop 0 -d 90 base.png second.png base.png -o "
                "moving.webp >/dev/null",
                3, true},
        Several{"moving.png", "ffmpeg -v error -f lavfi -i testsrc=size=64x48:rate=5 -frames:v 4 -f apng moving.png", 4,
                true},
        Several{"moving.avif",
                "ffmpeg -v error -f lavfi -i testsrc=size=64x48:rate=5 -frames:v 3 -cpu-used 8 moving.avif", 3, true},
        Several{"pages.tiff", "convert base.png \\( +clone -negate \\) -compress lzw pages.tiff", 2, false}}) {
    SCOPED_TRACE(several.name);
    const Bytes file = ReaderSamples::file(several.name, several.command);
    ASSERT_FALSE(file.empty());
    const auto kept = compressed(file, {});
    ASSERT_TRUE(kept) << kept.error().detail;
    EXPECT_TRUE(kept->isOriginal);
    EXPECT_EQ(kept->frames, several.frames);
    EXPECT_LE(kept->data.size(), file.size());
    EXPECT_EQ(inspectPicture(kept->data)->frames, several.frames);
    EXPECT_EQ(compressed(file, {.keepsMetadata = true})->data, file);
    for (const CompressOptions& other : {CompressOptions{.format = jpeg}, CompressOptions{.maxEdge = 20},
                                         CompressOptions{.format = webp, .maxEdge = 9}}) {
      const auto refused = compressed(file, other);
      ASSERT_FALSE(refused);
      EXPECT_EQ(refused.error().error, PictureError::Animated);
      EXPECT_NE(refused.error().detail.find(std::to_string(several.frames)), std::string::npos);
      EXPECT_EQ(refused.error().detail.find("pages") == std::string::npos, several.isAnimated);
    }
  }
}

TEST(CompressedKinds, ASecondRoundGainsNothing) {
  // What came out is already as small as it gets; lossy files are not worn down by a second round at the same quality
  // unless that makes them smaller.
  for (const char* name : {"base.png", "alpha.png", "deep.png", "palette.png", "grey.jpg", "plain.gif", "deep.tiff"}) {
    SCOPED_TRACE(name);
    const auto first = compressed(ReaderSamples::file(name, "true"), {.quality = 80});
    ASSERT_TRUE(first);
    const auto second = compressed(first->data, {.quality = 80});
    ASSERT_TRUE(second);
    EXPECT_LE(second->data.size(), first->data.size());
    if (!isLossy(first->type)) {
      EXPECT_EQ(second->data.size(), first->data.size());
    }
  }
}

}  // namespace
}  // namespace vellora::test
