#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <string_view>

#include <sys/resource.h>

#include "editor/compressor/ImageCompressor.h"
#include "editor/compressor/RunFixture.h"
#include "media/pictures/WriterSamples.h"
#include "support/PngBuilder.h"

namespace vellora::test {
namespace {

using namespace std::string_view_literals;

/// Enough for the small pictures here and what the decoders hold, and far too little for what broken headers promise.
#ifdef __SANITIZE_ADDRESS__
constexpr long boundInKilobytes = 1600L << 10;  // it keeps freed memory for a while
#else
constexpr long boundInKilobytes = 400L << 10;
#endif

Bytes bytesOf(std::string_view text) {
  const auto bytes = std::as_bytes(std::span(text));
  return {bytes.begin(), bytes.end()};
}

struct Sample {
  const char* name;
  const char* command;
};

const std::vector<Sample>& samples() {
  static const std::vector<Sample> all{
      {"photo.jpg", "convert base.png -quality 85 photo.jpg"},
      {"progressive.jpg", "convert base.png -interlace JPEG progressive.jpg"},
      {"base.png", "true"},
      {"palette.png", "convert base.png -colors 60 png8:palette.png"},
      {"interlaced.png", "convert base.png -interlace PNG interlaced.png"},
      {"lossy.webp", "cwebp -quiet -q 80 alpha.png -o lossy.webp"},
      {"lossless.webp", "cwebp -quiet -lossless base.png -o lossless.webp"},
      {"moving.webp", "convert base.png -negate n.png && img2webp base.png n.png -o moving.webp >/dev/null"},
      {"zip.tiff", "convert base.png -compress zip zip.tiff"},
      {"pages.tiff", "convert base.png \\( +clone -negate \\) -compress lzw pages.tiff"},
      {"plain.bmp", "convert base.png bmp3:plain.bmp"},
      {"plain.gif", "convert base.png -colors 200 plain.gif"},
      {"moving.gif", "convert base.png \\( +clone -negate \\) -set delay 20 -loop 0 moving.gif"},
      {"phone.heic", "convert base.png -quality 60 phone.heic"},
      {"phone.avif", "convert base.png -quality 60 phone.avif"},
      {"boxes.jxl", "vips jxlsave base.png boxes.jxl --lossless"},
  };
  return all;
}

const std::vector<CompressOptions>& wishes() {
  static const std::vector<CompressOptions> all{
      {},
      {.keepsMetadata = true},
      {.format = CompressFormat::jpeg},
      {.format = CompressFormat::webp, .maxEdge = 30, .keepsMetadata = true},
      {.format = CompressFormat::png, .maxEdge = 5},
  };
  return all;
}

/// A whole picture comes out, or a reason why not. True when it is a picture.
bool comesOutWhole(std::span<const std::byte> file, const CompressOptions& options) {
  const auto output = ImageCompressor::compress(file, options);
  if (!output) {
    EXPECT_NE(output.error().error, PictureError::Cancelled);
    EXPECT_NE(output.error().error, PictureError::OutOfMemory);
    return false;
  }
  const auto decoded = decodePicture(output->data);
  EXPECT_TRUE(decoded) << "what came out is " << decoded.error().detail;
  if (!decoded) return false;
  EXPECT_EQ(decoded->raster.width(), output->width);
  EXPECT_EQ(decoded->raster.height(), output->height);
  EXPECT_EQ(decoded->info.type, output->type);
  return true;
}

long peakKilobytes() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return usage.ru_maxrss;
}

class BrokenFiles : public testing::TestWithParam<Sample> {
 protected:
  static Bytes sample() { return ReaderSamples::file(GetParam().name, GetParam().command); }
};

TEST_P(BrokenFiles, CutAnywhereTheyGiveAWholePictureOrNone) {
  const Bytes whole = sample();
  ASSERT_FALSE(whole.empty());
  for (std::size_t percent = 0; percent < 100; ++percent) {
    const std::span cut(whole.data(), whole.size() * percent / 100);
    SCOPED_TRACE(testing::Message() << percent << " %");
    // Half a picture would be a lie.
    const CompressOptions& wish = wishes()[percent % wishes().size()];
    EXPECT_FALSE(ImageCompressor::compress(cut, wish));
    // What the cut leaves out of a result must not stand in it either.
    EXPECT_FALSE(ImageCompressor::compress(cut, {}));
  }
  // A last byte may only pad the file.
  for (const CompressOptions& wish : wishes()) comesOutWhole(std::span(whole).first(whole.size() - 1), wish);
  EXPECT_LT(peakKilobytes(), boundInKilobytes);
}

TEST_P(BrokenFiles, WithWrongBytesTheyGiveAWholePictureOrNone) {
  const Bytes whole = sample();
  std::mt19937 random(5);  // NOLINT: the same wrong bytes every time
  for (std::size_t round = 0; round < 60; ++round) {
    Bytes wrong = whole;
    const std::size_t reach = round % 2 == 0 ? std::min<std::size_t>(wrong.size(), 300) : wrong.size();
    for (int i = 0; i < 3; ++i) wrong[random() % reach] = static_cast<std::byte>(random());
    SCOPED_TRACE(testing::Message() << "round " << round);
    comesOutWhole(wrong, wishes()[round % wishes().size()]);
  }
  EXPECT_LT(peakKilobytes(), boundInKilobytes);
}

INSTANTIATE_TEST_SUITE_P(Types, BrokenFiles, testing::ValuesIn(samples()), [](const auto& param) {
  std::string name = param.param.name;
  std::erase(name, '.');
  return name;
});

TEST(BrokenFiles, NamesDoNotMatterAndNoiseIsNoPicture) {
  std::mt19937 random(9);  // NOLINT: the same noise every time
  for (std::size_t length : {0U, 1U, 3U, 12U, 64U, 5000U}) {
    EXPECT_EQ(ImageCompressor::compress(Bytes(length), {}).error().error, PictureError::NotAPicture);
    Bytes noise(length);
    for (std::byte& byte : noise) byte = static_cast<std::byte>(random());
    EXPECT_FALSE(ImageCompressor::compress(noise, {}));
  }
  // The first bytes promise a picture of each type; noise follows.
  for (const Sample& sample : samples()) {
    SCOPED_TRACE(sample.name);
    const Bytes whole = ReaderSamples::file(sample.name, sample.command);
    for (const std::size_t kept : {8U, 16U, 40U, 200U}) {
      Bytes noise = whole;
      for (std::size_t i = kept; i < noise.size(); ++i) noise[i] = static_cast<std::byte>(random());
      for (const CompressOptions& wish : wishes()) comesOutWhole(noise, wish);
      std::fill(noise.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(kept, noise.size())), noise.end(),
                std::byte{0});
      for (const CompressOptions& wish : wishes()) comesOutWhole(noise, wish);
    }
  }
}

Bytes patched(Bytes file, std::size_t at, std::string_view text) {
  const Bytes bytes = bytesOf(text);
  EXPECT_LE(at + bytes.size(), file.size());
  std::copy(bytes.begin(), bytes.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  return file;
}

std::size_t placeOf(const Bytes& file, std::string_view text) {
  const Bytes wanted = bytesOf(text);
  const auto found = std::search(file.begin(), file.end(), wanted.begin(), wanted.end());
  EXPECT_NE(found, file.end());
  return static_cast<std::size_t>(found - file.begin());
}

/// 65,535 pixels square, and 8 bytes of them.
constexpr char hugeTiff[] =
    "printf 'II*\\0\\10\\0\\0\\0\\7\\0"
    "\\0\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0\\1\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0"
    "\\2\\1\\3\\0\\1\\0\\0\\0\\10\\0\\0\\0\\6\\1\\3\\0\\1\\0\\0\\0\\1\\0\\0\\0"
    "\\21\\1\\4\\0\\1\\0\\0\\0\\10\\0\\0\\0\\26\\1\\4\\0\\1\\0\\0\\0\\377\\377\\0\\0"
    "\\27\\1\\4\\0\\1\\0\\0\\0\\144\\0\\0\\0\\0\\0\\0\\0' > huge.tiff";

/// ISO/IEC 18181-1, D.3: 0xFF0A, no small size, 30 bits of the height less one, as wide as high, all else usual.
Bytes hugeJpegXL() {
  Bytes file = bytesOf("\xFF\x0A");
  const std::uint64_t bits = 3ULL << 1 | 65534ULL << 3 | 1ULL << 33 | 1ULL << 36;
  for (int shift = 0; shift < 40; shift += 8) file.push_back(static_cast<std::byte>(bits >> shift));
  file.resize(200);
  return file;
}

TEST(BrokenFiles, HeadersOf65535PixelsSquareTakeNeitherTimeNorMemory) {
  const auto file = [](const char* name) {
    const auto found = std::ranges::find(samples(), std::string_view(name), &Sample::name);
    return ReaderSamples::file(found->name, found->command);
  };
  const auto png = PngBuilder().header(65535, 65535, 8, 2).pixels(std::vector<std::uint8_t>(1000)).finish();
  const std::string_view pngBytes(reinterpret_cast<const char*>(png.data()), png.size());
  const Bytes heic = file("phone.heic"), avif = file("phone.avif"), webp = file("moving.webp");
  const Bytes jpeg = file("photo.jpg"), progressive = file("progressive.jpg");
  for (const auto& [name, huge] : {
           std::pair{"JPEG", patched(jpeg, placeOf(jpeg, "\xFF\xC0") + 5, "\xFF\xFF\xFF\xFF")},
           std::pair{"progressive", patched(progressive, placeOf(progressive, "\xFF\xC2") + 5, "\xFF\xFF\xFF\xFF")},
           std::pair{"PNG", bytesOf(pngBytes)},
           std::pair{"GIF", patched(file("plain.gif"), 6, "\xFF\xFF\xFF\xFF")},
           std::pair{"moving GIF", patched(file("moving.gif"), 6, "\xFF\xFF\xFF\xFF")},
           std::pair{"BMP", patched(file("plain.bmp"), 18, "\xFF\xFF\0\0\xFF\xFF\0\0"sv)},
           std::pair{"TIFF", ReaderSamples::file("huge.tiff", hugeTiff)},
           std::pair{"WebP", patched(webp, placeOf(webp, "VP8X") + 12, "\xFE\xFF\0\xFE\xFF\0"sv)},
           std::pair{"HEIC", patched(heic, placeOf(heic, "ispe") + 8, "\0\0\xFF\xFF\0\0\xFF\xFF"sv)},
           std::pair{"AVIF", patched(avif, placeOf(avif, "ispe") + 8, "\0\0\xFF\xFF\0\0\xFF\xFF"sv)},
           std::pair{"JPEG XL", hugeJpegXL()},
       }) {
    SCOPED_TRACE(name);
    const auto start = std::chrono::steady_clock::now();
    for (const CompressOptions& wish : wishes()) comesOutWhole(huge, wish);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
    EXPECT_LT(peakKilobytes(), boundInKilobytes);
  }
}

class BrokenFilesInARun : public RunFixture {};

TEST_F(BrokenFilesInARun, FailEachForItselfAndLeaveNothing) {
  std::size_t broken = 0;
  for (const Sample& sample : samples()) {
    const Bytes whole = ReaderSamples::file(sample.name, sample.command);
    std::filesystem::create_directories(path("in"));
    save(path("in") / sample.name, whole);
    for (const std::size_t percent : {0U, 3U, 40U, 97U}) {
      save(path("in") / (std::to_string(percent) + sample.name), std::span(whole.data(), whole.size() * percent / 100));
      ++broken;
    }
    // Named as something else it is still what it is.
    save(path("in") / (std::string(sample.name) + ".jpg"), whole);
  }
  std::filesystem::create_directory(path("out"));
  makeRun(3);
  add({path("in")});
  carryOut({.quality = 70}, folder("out"));
  EXPECT_EQ(count(CompressionState::failed), broken);
  EXPECT_EQ(count(CompressionState::done) + count(CompressionState::unchanged), 2 * samples().size());
  for (const CompressionItem& item : run_->items()) {
    EXPECT_TRUE(item.state != CompressionState::failed || item.failure) << item.displayName;
    if (!item.lastOutput) continue;
    EXPECT_TRUE(isExtensionOf(item.lastOutput->type, item.lastOutput->file.extension().string().substr(1)))
        << item.lastOutput->file;
  }
  expectOnlyWholeOutputsIn("out");
}

}  // namespace
}  // namespace vellora::test
