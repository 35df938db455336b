#include <gtest/gtest.h>
#include <unistd.h>

#include <QBuffer>
#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QTemporaryDir>
#include <QtEndian>
#include <random>

#include "media/PngEncoder.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/ImageLoader.h"
#include "support/PngBuilder.h"

namespace vellora {
namespace {

const QString dataFolder = QStringLiteral(VELLORA_SOURCE_DIR "/tests/media/codecs/data/");

/// 40 × 30, the left half red and the right half blue.
QImage halves(QImage::Format format = QImage::Format_RGB32) {
  QImage image(40, 30, QImage::Format_RGB32);
  for (int y = 0; y < 30; ++y) {
    for (int x = 0; x < 40; ++x) image.setPixel(x, y, x < 20 ? 0xFFFF0000 : 0xFF0000FF);
  }
  return image.convertToFormat(format);
}

QByteArray encoded(const QImage& image, const char* format, int quality = 95) {
  QByteArray data;
  QBuffer buffer(&data);
  buffer.open(QIODevice::WriteOnly);
  QImageWriter writer(&buffer, format);
  writer.setQuality(quality);
  EXPECT_TRUE(writer.write(image)) << format;
  return data;
}

QByteArray fileData(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

QColor colorAt(const Bitmap& bitmap, int x, int y) {
  return toImage(bitmap).pixelColor(x, y);
}

bool isNear(const QColor& a, const QColor& b, int tolerance) {
  return std::abs(a.red() - b.red()) <= tolerance && std::abs(a.green() - b.green()) <= tolerance &&
         std::abs(a.blue() - b.blue()) <= tolerance;
}

void expectHalves(const Result<LoadedImage, ImageLoadError>& loaded, const std::string& what, int tolerance = 40) {
  ASSERT_TRUE(loaded) << what << ": " << localizationKey(loaded.error()).toStdString();
  ASSERT_EQ(loaded->bitmap.size(), (PixelSize{40, 30})) << what;
  EXPECT_TRUE(isNear(colorAt(loaded->bitmap, 5, 15), Qt::red, tolerance)) << what;
  EXPECT_TRUE(isNear(colorAt(loaded->bitmap, 35, 15), Qt::blue, tolerance)) << what;
}

TEST(ImageLoader, ReadsEveryFormatAndPixelForm) {
  for (const char* format : {"png", "jpeg", "webp", "tiff", "bmp"}) {
    expectHalves(ImageLoader::fromData(encoded(halves(), format)), format);
  }
  for (const auto format :
       {QImage::Format_Indexed8, QImage::Format_RGBA64, QImage::Format_RGB888, QImage::Format_ARGB32}) {
    expectHalves(ImageLoader::fromData(encoded(halves(format), "png")), "png form " + std::to_string(format), 1);
  }
  for (const char* name : {"half.heic", "half.avif", "two.gif"}) {
    expectHalves(ImageLoader::fromFile(dataFolder + QLatin1String(name)), name);
  }
  expectHalves(ImageLoader::fromFile(dataFolder + QStringLiteral("cmyk.jpg")), "CMYK", 60);
  const auto grey = ImageLoader::fromData(encoded(halves(QImage::Format_Grayscale8), "jpeg"));
  ASSERT_TRUE(grey);
  EXPECT_EQ(colorAt(grey->bitmap, 5, 5).red(), colorAt(grey->bitmap, 5, 5).blue());
}

TEST(ImageLoader, TellsTheFormatFromTheContent) {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("picture.jpg"));
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(encoded(halves(), "png"));
  file.close();
  expectHalves(ImageLoader::fromFile(path), "a PNG named jpg", 0);
}

TEST(ImageLoader, KeepsTransparencyPremultiplied) {
  QImage image(4, 4, QImage::Format_ARGB32);
  image.fill(QColor(200, 100, 50, 128));
  for (const char* format : {"png", "tiff", "webp"}) {
    const auto loaded = ImageLoader::fromData(encoded(image, format, 100));
    ASSERT_TRUE(loaded) << format;
    ASSERT_EQ(loaded->bitmap.alpha(), PixelAlpha::Premultiplied) << format;
    EXPECT_EQ(std::to_integer<int>(loaded->bitmap.pixel(1, 1)[3]), 128) << format;
    EXPECT_NEAR(std::to_integer<int>(loaded->bitmap.pixel(1, 1)[2]), 100, 1) << format;
  }
}

TEST(ImageLoader, TurnsPicturesUpright) {
  // An Exif segment with nothing but the orientation 6: the camera was held upright, turn a quarter clockwise.
  const QByteArray jpeg = encoded(halves(), "jpeg");
  const QByteArray exif = QByteArray::fromHex(
      "ffe1002245786966000049492a00080000000100120103000100000006000000"
      "00000000");
  const auto loaded = ImageLoader::fromData(jpeg.left(2) + exif + jpeg.mid(2));
  ASSERT_TRUE(loaded);
  ASSERT_EQ(loaded->bitmap.size(), (PixelSize{30, 40}));
  EXPECT_TRUE(isNear(colorAt(loaded->bitmap, 15, 5), Qt::red, 40));
  EXPECT_TRUE(isNear(colorAt(loaded->bitmap, 15, 35), Qt::blue, 40));
}

TEST(ImageLoader, ConvertsColorProfiles) {
  for (const auto format : {QImage::Format_RGB32, QImage::Format_RGBA64}) {
    QImage image(4, 4, format);
    image.fill(QColor(200, 100, 50));
    const QImage plain = image;
    image.setColorSpace(QColorSpace(QColorSpace::DisplayP3));
    const auto loaded = ImageLoader::fromData(encoded(image, "png"));
    ASSERT_TRUE(loaded);
    // The same numbers mean a stronger colour in the wider space.
    const QColor color = colorAt(loaded->bitmap, 1, 1);
    EXPECT_GT(color.red(), 208);
    EXPECT_LT(color.blue(), 45);
    EXPECT_EQ(colorAt(ImageLoader::fromData(encoded(plain, "png"))->bitmap, 1, 1), QColor(200, 100, 50));
  }
}

/// The same file through Qt.
QImage readByQt(const QByteArray& file) {
  QImage image = QImage::fromData(file, "png");
  image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  return image;
}

void expectAsQtReads(const QByteArray& file, int tolerance, const std::string& what) {
  const auto loaded = ImageLoader::fromData(file);
  ASSERT_TRUE(loaded) << what;
  const QImage reference = readByQt(file);
  const Bitmap& bitmap = loaded->bitmap;
  ASSERT_EQ(QSize(bitmap.width(), bitmap.height()), reference.size()) << what;
  for (int y = 0; y < bitmap.height(); ++y) {
    for (int x = 0; x < bitmap.width() * 4; ++x) {
      ASSERT_NEAR(std::to_integer<int>(bitmap.row(y)[x]), reference.constScanLine(y)[x], tolerance)
          << what << " at " << x / 4 << ", " << y;
    }
  }
}

TEST(ImageLoader, ReadsPngAsQtDoes) {
  std::mt19937 random(3);
  for (int width = 1; width <= 17; ++width) {
    QImage opaque(width, 19, QImage::Format_RGB32), clear(width, 19, QImage::Format_ARGB32);
    for (int y = 0; y < 19; ++y) {
      for (int x = 0; x < width; ++x) {
        opaque.setPixel(x, y, static_cast<QRgb>(random() % 4 == 0 ? random() : 0xFF204060U * static_cast<QRgb>(y)));
        clear.setPixel(x, y, static_cast<QRgb>(random()));
      }
    }
    for (const auto format : {QImage::Format_RGB32, QImage::Format_Grayscale8, QImage::Format_Indexed8,
                              QImage::Format_Mono, QImage::Format_RGBX64}) {
      const QByteArray file = encoded(opaque.convertToFormat(format), "png");
      expectAsQtReads(file, 0, "opaque format " + std::to_string(format) + " width " + std::to_string(width));
    }
    for (const auto format : {QImage::Format_ARGB32, QImage::Format_Indexed8, QImage::Format_RGBA64}) {
      const QByteArray file = encoded(clear.convertToFormat(format), "png");
      expectAsQtReads(file, 1, "format " + std::to_string(format) + " width " + std::to_string(width));
    }
  }
}

TEST(ImageLoader, LeavesUnusualPngToQt) {
  using test::PngBuilder;
  const auto bytes = [](const PngBuilder::Data& file) {
    return QByteArray(reinterpret_cast<const char*>(file.data()), static_cast<qsizetype>(file.size()));
  };
  const PngBuilder::Data row{0, 10, 200, 90};
  // A single pixel is the whole first of Adam7's passes.
  expectAsQtReads(bytes(PngBuilder().header(1, 1, 8, 2, 1).pixels(row).finish()), 0, "interlaced");
  const auto dark = ImageLoader::fromData(
      bytes(PngBuilder().header(1, 1, 8, 2).chunk("gAMA", {0, 1, 0x86, 0xA0}).pixels(row).finish()));
  ASSERT_TRUE(dark);
  EXPECT_GT(colorAt(dark->bitmap, 0, 0).blue(), 140) << "linear light is brighter in sRGB";
}

TEST(ImageLoader, ReadsTheScaleBack) {
  const auto scaleOf = [](double scale) {
    const auto png = encodePng(toBitmap(halves()), {.scale = scale});
    return ImageLoader::fromData(
               QByteArray(reinterpret_cast<const char*>(png->data()), static_cast<qsizetype>(png->size())))
        ->scale;
  };
  EXPECT_EQ(scaleOf(1), 1);
  EXPECT_EQ(scaleOf(1.25), 1.25);
  EXPECT_EQ(scaleOf(2), 2);
  QImage scanned = halves();
  scanned.setDotsPerMeterX(11811);  // 300 dots per inch
  scanned.setDotsPerMeterY(11811);
  EXPECT_EQ(ImageLoader::fromData(encoded(scanned, "png"))->scale, 1);
  EXPECT_EQ(ImageLoader::fromData(encoded(halves(), "bmp"))->scale, 1);
}

TEST(ImageLoader, NamesWhatIsWrongWithAFile) {
  QTemporaryDir folder;
  const auto errorOf = [](const QString& path) {
    const auto loaded = ImageLoader::fromFile(path);
    EXPECT_FALSE(loaded) << path.toStdString();
    return loaded ? ImageLoadError::OutOfMemory : loaded.error();
  };
  EXPECT_EQ(errorOf(folder.filePath(QStringLiteral("none.png"))), ImageLoadError::NotFound);
  EXPECT_EQ(errorOf(folder.path()), ImageLoadError::NotAFile);
  EXPECT_EQ(errorOf(QStringLiteral("/dev/zero")), ImageLoadError::NotAFile);

  QFile secret(folder.filePath(QStringLiteral("secret.png")));
  ASSERT_TRUE(secret.open(QIODevice::WriteOnly));
  secret.write(encoded(halves(), "png"));
  secret.close();
  ASSERT_TRUE(secret.setPermissions({}));
  const uid_t user = geteuid();
  constexpr uid_t nobody = 65534;
  if (user == 0) {
    ASSERT_EQ(seteuid(nobody), 0);
  }
  const auto forbidden = errorOf(secret.fileName());
  if (user == 0) {
    ASSERT_EQ(seteuid(user), 0);
  }
  EXPECT_EQ(forbidden, ImageLoadError::NotPermitted);

  for (const QByteArray& data : {QByteArray(), QByteArray("B"), QByteArray("hello world"), QByteArray(5000, '\0'),
                                 QByteArray("<svg xmlns='http://www.w3.org/2000/svg'/>")}) {
    const auto loaded = ImageLoader::fromData(data);
    ASSERT_FALSE(loaded);
    EXPECT_EQ(loaded.error(), ImageLoadError::NotAnImage);
  }
  EXPECT_EQ(localizationKey(ImageLoadError::NotAnImage), QStringLiteral("load.error.notAnImage"));
}

std::vector<std::pair<std::string, QByteArray>> samples() {
  std::vector<std::pair<std::string, QByteArray>> result;
  QImage detailed(64, 48, QImage::Format_RGB32);
  std::mt19937 random(1);
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 64; ++x) detailed.setPixel(x, y, static_cast<QRgb>(random()));
  }
  for (const char* format : {"png", "jpeg", "webp", "tiff", "bmp"})
    result.emplace_back(format, encoded(detailed, format));
  for (const char* name : {"half.heic", "half.avif", "two.gif"}) {
    result.emplace_back(name, fileData(dataFolder + QLatin1String(name)));
  }
  return result;
}

TEST(ImageLoader, RefusesTruncatedPictures) {
  for (const auto& [name, data] : samples()) {
    if (name == "two.gif") continue;  // half of it is still its whole first frame
    for (const int percent : {40, 60, 90}) {
      const auto loaded = ImageLoader::fromData(data.left(data.size() * percent / 100));
      ASSERT_FALSE(loaded) << name << " cut at " << percent << " %";
      EXPECT_EQ(loaded.error(), ImageLoadError::Damaged) << name << " cut at " << percent << " %";
    }
  }
}

TEST(ImageLoader, SurvivesDamagedPictures) {
  std::mt19937 random(7);
  for (const auto& [name, data] : samples()) {
    for (int round = 0; round < 60; ++round) {
      QByteArray damaged = data;
      for (int i = 0; i < 4; ++i) {
        const auto at = static_cast<qsizetype>(
            random() % static_cast<unsigned>(std::min<qsizetype>(damaged.size(), round < 30 ? 120 : 100000)));
        damaged[at] = static_cast<char>(random());
      }
      const auto loaded = ImageLoader::fromData(damaged);
      EXPECT_TRUE(!loaded || !loaded->bitmap.isNull()) << name;
    }
  }
}

TEST(ImageLoader, RefusesBombsBeforeDecoding) {
  const auto claiming = [](std::uint32_t width, std::uint32_t height) {
    QByteArray png = encoded(halves(), "png");
    qToBigEndian(width, png.data() + 16);
    qToBigEndian(height, png.data() + 20);
    // The header's own checksum has to be right, or the reader stops for that.
    std::uint32_t crc = ~0U;
    for (qsizetype i = 12; i < 29; ++i) {
      crc ^= static_cast<std::uint8_t>(png[i]);
      for (int bit = 0; bit < 8; ++bit) crc = crc >> 1 ^ (crc & 1 ? 0xEDB88320U : 0);
    }
    qToBigEndian(~crc, png.data() + 29);
    return ImageLoader::fromData(png);
  };
  EXPECT_EQ(claiming(60000, 60000).error(), ImageLoadError::TooLarge);
  EXPECT_EQ(claiming(70000, 1).error(), ImageLoadError::TooLarge);
  EXPECT_EQ(claiming(12000, 12000).error(), ImageLoadError::TooLarge);
}

TEST(ImageConversion, SharesPixelsBothWays) {
  const Bitmap bitmap = toBitmap(halves());
  const std::byte* pixels = bitmap.row(0);
  QImage image = toImage(bitmap);
  EXPECT_EQ(static_cast<const void*>(image.constBits()), pixels);
  image = toImage(bitmap.cropped({10, 5, 20, 10}));
  EXPECT_EQ(image.pixelColor(0, 0), QColor(Qt::red));
  EXPECT_EQ(image.pixelColor(19, 9), QColor(Qt::blue));
  EXPECT_EQ(toBitmap(image).row(0), bitmap.pixel(10, 5));
  image.setPixelColor(0, 0, Qt::green);
  EXPECT_EQ(toImage(bitmap).pixelColor(10, 5), QColor(Qt::red)) << "painting on the image changed the capture";
}

TEST(ImageConversion, ImagesOutliveTheirBitmap) {
  QImage image;
  {
    auto pixels = MutableBitmap::create({8, 8}, PixelAlpha::Premultiplied);
    for (int y = 0; y < 8; ++y) std::memset(pixels->row(y), 0x40, 32);
    image = toImage(std::move(*pixels).finish());
  }
  EXPECT_EQ(reinterpret_cast<const QRgb*>(image.constScanLine(7))[7], 0x40404040U);
}

TEST(ImageConversion, FillsTheAlphaByteWhenAsked) {
  auto pixels = MutableBitmap::create({8, 8}, PixelAlpha::Opaque);
  for (int y = 0; y < 8; ++y) std::memset(pixels->row(y), 0, 32);
  const Bitmap bitmap = std::move(*pixels).finish();
  const QImage filled = toImage(bitmap, AlphaByte::Filled);
  EXPECT_EQ(reinterpret_cast<const QRgb*>(filled.constScanLine(7))[7], 0xFF000000U);
  EXPECT_EQ(std::to_integer<int>(bitmap.pixel(7, 7)[3]), 0);
}

}  // namespace
}  // namespace vellora
