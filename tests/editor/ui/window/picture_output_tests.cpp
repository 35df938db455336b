#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include "base/QtRunLoop.h"
#include "editor/ui/DocumentOutput.h"
#include "kit/WidgetEvents.h"
#include "media/SharedPng.h"
#include "media/codecs/ImageConversion.h"
#include "media/codecs/PictureFormat.h"
#include "support/TestBitmaps.h"

namespace vellora {
namespace {

/// Colours with a see-through corner.
Bitmap picture() {
  QImage image(64, 48, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x)
      image.setPixelColor(x, y, QColor(x * 4, y * 5, 128, x < 8 && y < 8 ? 0 : 255));
  }
  return toBitmap(image);
}

QByteArray fileOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(PictureFormat, IsToldByTheNameOfAFile) {
  EXPECT_EQ(pictureFormatOf(QStringLiteral("/a.b/c.JPEG")), PictureFormat::Jpeg);
  EXPECT_EQ(pictureFormatOf(QStringLiteral("c.tif")), PictureFormat::Tiff);
  EXPECT_EQ(pictureFormatOf(QStringLiteral("c.v2")), std::nullopt);
  EXPECT_EQ(pictureFormatOf(QStringLiteral("png")), std::nullopt);
  for (const PictureFormat format : allPictureFormats) {
    EXPECT_EQ(pictureFormatOf(QStringLiteral("x.") + fileExtension(format)), format);
  }
}

TEST(EncodePicture, KeepsThePixelsAndAddsNothing) {
  for (const PictureFormat format :
       {PictureFormat::Png, PictureFormat::Jpeg, PictureFormat::WebP, PictureFormat::Tiff}) {
    const auto bytes = encodePicture(picture(), 2, format);
    const std::string name = fileExtension(format).toStdString();
    ASSERT_TRUE(bytes) << name;
    QImage read = QImage::fromData(*bytes);
    ASSERT_EQ(read.size(), QSize(64, 48)) << name;
    EXPECT_TRUE(read.textKeys().isEmpty()) << name;
    const QColor expected(40 * 4, 30 * 5, 128);
    const QColor pixel = read.pixelColor(40, 30);
    const int tolerance = format == PictureFormat::Jpeg ? 12 : 0;
    EXPECT_NEAR(pixel.red(), expected.red(), tolerance) << name;
    EXPECT_NEAR(pixel.green(), expected.green(), tolerance) << name;
    // See-through stays so, or becomes white.
    const QColor corner = read.pixelColor(1, 1);
    if (format == PictureFormat::Jpeg) {
      EXPECT_GT(corner.lightness(), 240);
    } else {
      EXPECT_EQ(corner.alpha(), 0) << name;
    }
    for (const char* trace : {"Exif", "xmp", "tEXt", "iTXt", "Creator", "Software"}) {
      EXPECT_FALSE(bytes->contains(trace)) << name << " " << trace;
    }
    EXPECT_NEAR(read.dotsPerMeterX(), 5669, format == PictureFormat::WebP ? 1e9 : 40) << name;
  }
}

TEST(EncodePicture, MakesAPageOfThePictureAndNothingElse) {
  const auto pdf = encodePicture(picture(), 2, PictureFormat::Pdf);
  ASSERT_TRUE(pdf);
  EXPECT_TRUE(pdf->startsWith("%PDF-1.4"));
  EXPECT_TRUE(pdf->contains("/MediaBox [0 0 32.00 24.00]"));
  EXPECT_FALSE(pdf->contains("/Info"));
  EXPECT_FALSE(pdf->contains("Date"));
  // The table of objects points at them, and the pixels come back from the stream.
  const qsizetype table = pdf->lastIndexOf("startxref\n") + 10;
  const qsizetype at = pdf->mid(table, pdf->indexOf('\n', table) - table).toLongLong();
  EXPECT_EQ(pdf->mid(at, 4), "xref");
  const qsizetype object = pdf->indexOf("5 0 obj");
  const qsizetype begin = pdf->indexOf("stream\n", object) + 7;
  QByteArray stream = pdf->mid(begin, pdf->indexOf("\nendstream", begin) - begin);
  const int raw = (64 * 3 + 1) * 48;
  stream.prepend(QByteArray::fromHex(QByteArray::number(raw, 16).rightJustified(8, '0')));
  const QByteArray rows = qUncompress(stream);
  ASSERT_EQ(rows.size(), raw);
  int red = 0;
  for (int y = 0; y <= 30; ++y) red += static_cast<uchar>(rows[y * (64 * 3 + 1) + 1 + 40 * 3]);
  EXPECT_EQ(red & 255, 40 * 4);
}

TEST(DocumentOutput, SavesWholeFilesOrSaysWhyNot) {
  QtRunLoop loop;
  DocumentOutput output(loop);
  QTemporaryDir folder;
  ImageDocument document;
  document.pieces = {makePiece(picture(), 1)};
  std::optional<DocumentOutput::Outcome<QString>> outcome;
  const auto save = [&](const QString& path, const ImageDocument& what) {
    outcome.reset();
    auto job = output.save(what, path, PictureFormat::Png, [&](auto result) { outcome = std::move(result); });
    return job;
  };
  const QString path = folder.filePath(QStringLiteral("one.png"));
  save(path, document);
  ASSERT_TRUE(test::runUntil([&] { return outcome.has_value(); }));
  ASSERT_TRUE(outcome->has_value());
  EXPECT_EQ(QImage(path).size(), QSize(64, 48));

  const QByteArray before = fileOf(path);
  save(path, document)->cancel();
  ASSERT_TRUE(test::runUntil([&] { return outcome.has_value(); }));
  if (!outcome->has_value()) {
    EXPECT_EQ(outcome->error(), DocumentOutputError::Cancelled);
  }
  EXPECT_EQ(fileOf(path), before);

  save(folder.filePath(QStringLiteral("missing/two.png")), document);
  ASSERT_TRUE(test::runUntil([&] { return outcome.has_value(); }));
  EXPECT_EQ(outcome->error(), DocumentOutputError::NotWritten);

  save(folder.filePath(QStringLiteral("three.png")), ImageDocument());
  ASSERT_TRUE(test::runUntil([&] { return outcome.has_value(); }));
  EXPECT_EQ(outcome->error(), DocumentOutputError::NotRendered);
}

}  // namespace
}  // namespace vellora
