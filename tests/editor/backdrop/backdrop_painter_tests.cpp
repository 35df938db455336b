#include "editor/backdrop/BackdropPainter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QTemporaryDir>

#include "support/TestBitmaps.h"

namespace vellora {
namespace {

ImageDocument documentOf(Size size = {200, 120}, PixelAlpha alpha = PixelAlpha::Premultiplied) {
  ImageDocument document;
  CapturePiece piece = makePiece(test::solidBitmap({8, 8}, 0xFF336699, alpha), 1);
  piece.pointSize = size;
  document.pieces = {piece};
  document.backdrop.enabled = true;
  document.backdrop.insetFraction = 0.2;
  return document;
}

BackdropBackground curated(const char* identifier) {
  return {BackdropBackground::BuiltInImage{QString::fromLatin1(identifier)}};
}

BackdropBackground solid(double gray, double alpha = 1) {
  return {BackdropBackground::Solid{{gray, gray, gray, alpha}}};
}

/// What lies behind the content, at `scale`; only inside `clip` (pixels) when there is one.
QImage behind(const ImageDocument& document, double scale = 1, const QRect& clip = {}) {
  const BackdropLayout layout = backdropLayout(document);
  QImage image(QSize(qRound(layout.document.size.width * scale), qRound(layout.document.size.height * scale)),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  if (!clip.isNull()) painter.setClipRect(clip);
  painter.scale(scale, scale);
  painter.translate(-layout.document.minX(), -layout.document.minY());
  BackdropPainter().paintBehind(painter, document, layout);
  painter.end();
  return image;
}

double meanGray(const QImage& image, const QRect& area) {
  double sum = 0;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) sum += qGray(image.pixel(x, y));
  }
  return sum / (area.width() * area.height());
}

/// One of each kind of ground with everything laid over it.
std::vector<ImageDocument> manyDocuments() {
  std::vector<ImageDocument> documents;
  for (const BackdropBackground& background :
       {curated("lagoon"), curated("arc"), BackdropBackground{backdropGradientPresets()[3].gradient}, solid(0.8),
        solid(0.3, 0.5)}) {
    ImageDocument document = documentOf();
    document.backdrop.background = background;
    document.backdrop.glowIntensity = 0.5;
    document.backdrop.noiseIntensity = 0.3;
    documents.push_back(document);
    document.backdrop.deviceFrame = DeviceFrame::PhoneLight;
    document.backdrop.tiltX = 15;
    documents.push_back(document);
  }
  return documents;
}

TEST(BackdropPainterTest, APartPaintedAloneIsThePartOfTheWhole) {
  for (const ImageDocument& document : manyDocuments()) {
    const QImage whole = behind(document, 1.5);
    for (const QRect& part : {QRect(0, 0, 40, 30), QRect(33, 71, 101, 90), QRect(300, 100, 60, 170)}) {
      const QRect inside = part & whole.rect();
      EXPECT_EQ(behind(document, 1.5, part).copy(inside), whole.copy(inside));
    }
  }
}

TEST(BackdropPainterTest, OpaqueGroundsLeaveNoHoleAndSheerOnesStaySheer) {
  for (const ImageDocument& document : manyDocuments()) {
    const bool sheer = document.backdrop.background == solid(0.3, 0.5);
    const QImage image = behind(document);
    int least = 255;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        const QRgb pixel = image.pixel(x, y);
        least = std::min(least, qAlpha(pixel));
      }
    }
    if (sheer) {
      EXPECT_NEAR(least, 128, 3);
    } else {
      EXPECT_EQ(least, 255);
    }
  }
}

TEST(BackdropPainterTest, NothingIsPaintedWithTheBackdropOff) {
  ImageDocument document = documentOf();
  document.backdrop.enabled = false;
  document.backdrop.deviceFrame = DeviceFrame::BrowserDark;
  const QImage image = behind(document);
  QImage empty(image.size(), image.format());
  empty.fill(Qt::transparent);
  EXPECT_EQ(image, empty);
  EXPECT_TRUE(BackdropPainter::contentShape(document, backdropLayout(document)).isEmpty());
}

TEST(BackdropPainterTest, WhatOpaqueContentCoversIsLeftOutAndNothingElse) {
  ImageDocument document = documentOf({200, 120}, PixelAlpha::Opaque);
  document.backdrop.background = curated("ember");
  const QImage spared = behind(document);
  const QImage full = behind([&] {
    ImageDocument sheer = documentOf();
    sheer.backdrop = document.backdrop;
    return sheer;
  }());
  const QPainterPath shape = BackdropPainter::contentShape(document, backdropLayout(document));
  bool left = false;
  for (int y = 0; y < full.height(); ++y) {
    for (int x = 0; x < full.width(); ++x) {
      if (spared.pixel(x, y) == full.pixel(x, y)) continue;
      left = true;
      // The content begins 40 points inside.
      ASSERT_TRUE(shape.contains(QRectF(x - 40, y - 40, 1, 1))) << x << ' ' << y;
    }
  }
  EXPECT_TRUE(left);
}

TEST(BackdropPainterTest, SoftGroundsShowNoBands) {
  QImage image(2048, 64, QImage::Format_RGB32);
  QPainter painter(&image);
  const auto gray = [](double value) { return ColorComponents{value, value, value, 1}; };
  BackdropPainter().drawBackground(painter, image.rect(),
                                   {BackdropBackground::Gradient{{{0, gray(100 / 255.0)}, {1, gray(104 / 255.0)}}, 0}});
  painter.end();
  for (int x = 0; x + 16 <= image.width(); x += 16) {
    const double ideal = 100 + 4 * (x + 8) / 2048.0;
    EXPECT_NEAR(meanGray(image, QRect(x, 0, 16, 64)), ideal, 0.12) << "at " << x;
  }
}

TEST(BackdropPainterTest, PicturesLookTheSameAtEveryScale) {
  for (const char* identifier : curatedPictures) {
    ImageDocument document = documentOf({640, 400});
    document.backdrop.background = curated(identifier);
    const QImage one = behind(document, 1);
    const QImage two = behind(document, 2).scaled(one.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double difference = 0;
    for (int y = 0; y < one.height(); ++y) {
      for (int x = 0; x < one.width(); ++x) {
        const QRgb a = one.pixel(x, y);
        const QRgb b = two.pixel(x, y);
        difference += std::abs(qRed(a) - qRed(b)) + std::abs(qGreen(a) - qGreen(b)) + std::abs(qBlue(a) - qBlue(b));
      }
    }
    EXPECT_LT(difference / (3.0 * one.width() * one.height()), 1.0) << identifier;
  }
}

TEST(BackdropPainterTest, TheShadowFallsBelowTheContentAndGrowsWithItsStrength) {
  ImageDocument document = documentOf({300, 200});
  const QRect above(150, 30, 60, 20);
  const QRect below(150, 270, 60, 20);
  const double ground = meanGray(behind([&] {
                                   ImageDocument none = document;
                                   none.backdrop.shadow = 0;
                                   return none;
                                 }()),
                                 below);
  const double soft = meanGray(behind(document), below);
  EXPECT_LT(soft, ground - 2);
  EXPECT_GT(meanGray(behind(document), above), soft);
  document.backdrop.shadow = 1;
  EXPECT_LT(meanGray(behind(document), below), soft - 10);
  EXPECT_NEAR(meanGray(behind(document, 2), QRect(300, 540, 120, 40)), meanGray(behind(document), below), 1.5);
}

TEST(BackdropPainterTest, GrainKeepsTheBrightnessAndGlowLiftsItsCentre) {
  ImageDocument document = documentOf({300, 200});
  document.backdrop.shadow = 0;
  document.backdrop.background = solid(0.5);
  const QRect corner(0, 0, 50, 50);
  document.backdrop.noiseIntensity = 1;
  const QImage grained = behind(document);
  EXPECT_NEAR(meanGray(grained, corner), 127.5, 3);
  EXPECT_NE(grained.pixel(3, 3), grained.pixel(4, 3));
  document.backdrop.noiseIntensity = 0;
  document.backdrop.glowIntensity = 1;
  document.backdrop.glowCenter = {0, 0};
  const QImage lit = behind(document);
  EXPECT_GT(meanGray(lit, corner), 200);
  EXPECT_LT(meanGray(lit, QRect(lit.width() - 50, lit.height() - 50, 50, 50)), 125);
}

TEST(BackdropPainterTest, APersonsPictureCoversTheDocumentAndAMissingOneIsGray) {
  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("ground.png"));
  QImage picture(40, 10, QImage::Format_RGB32);
  picture.fill(QColor(200, 40, 20));
  for (int y = 0; y < 10; ++y) picture.setPixel(0, y, qRgb(0, 0, 255));  // cut away: the document is less wide
  ASSERT_TRUE(picture.save(path));
  ImageDocument document = documentOf();
  document.backdrop.shadow = 0;
  document.backdrop.background = {BackdropBackground::Image{path}};
  const QImage covered = behind(document);
  for (const QPoint& place : {QPoint(0, 0), QPoint(covered.width() - 1, covered.height() - 1)}) {
    EXPECT_EQ(covered.pixel(place), qRgb(200, 40, 20));
  }
  for (const QString& missing : {QStringLiteral("/nowhere/at/all.png"), QStringLiteral("relative.png"), folder.path(),
                                 QStringLiteral("/dev/zero"), QString()}) {
    document.backdrop.background = {BackdropBackground::Image{missing}};
    EXPECT_EQ(behind(document).pixel(2, 2), qRgb(217, 217, 217)) << missing.toStdString();
  }
  document.backdrop.background = curated("nonsense");
  EXPECT_EQ(behind(document).pixel(2, 2), qRgb(217, 217, 217));
}

TEST(BackdropPainterTest, CornersAreRoundAsFarAsAPieceAllows) {
  ImageDocument document = documentOf({200, 120});
  document.backdrop.innerRadius = 30;
  QPainterPath shape = BackdropPainter::contentShape(document, backdropLayout(document));
  EXPECT_FALSE(shape.contains(QPointF(5, 5)));
  EXPECT_TRUE(shape.contains(QPointF(30, 2)));
  document.backdrop.innerRadius = 1e9;
  shape = BackdropPainter::contentShape(document, backdropLayout(document));
  EXPECT_EQ(shape.boundingRect(), QRectF(0, 0, 200, 120));
  document.pieces.push_back(document.pieces[0]);
  document.pieces[1].origin = {212, 0};
  document.backdrop.innerRadius = 10;
  shape = BackdropPainter::contentShape(document, backdropLayout(document));
  EXPECT_FALSE(shape.contains(QPointF(206, 60))) << "the gap between two pieces shows the ground";
  document.backdrop.deviceFrame = DeviceFrame::LaptopLight;
  shape = BackdropPainter::contentShape(document, backdropLayout(document));
  EXPECT_TRUE(shape.contains(QPointF(206, 60))) << "a screen is one piece";
}

TEST(BackdropPainterTest, EdgeBlurTouchesTheNamedSidesOnly) {
  QImage sharp(400, 300, QImage::Format_RGB32);
  for (int y = 0; y < 300; ++y) {
    for (int x = 0; x < 400; ++x) sharp.setPixel(x, y, (x / 4 + y / 4) % 2 ? 0xFFFFFFFF : 0xFF000000);
  }
  using Direction = BackdropSettings::EdgeBlurDirection;
  const auto contrast = [](const QImage& image, QPoint place) {
    int least = 255;
    int most = 0;
    for (int y = 0; y < 8; ++y) {
      for (int x = 0; x < 8; ++x) {
        const int gray = qGray(image.pixel(place.x() + x, place.y() + y));
        least = std::min(least, gray);
        most = std::max(most, gray);
      }
    }
    return most - least;
  };
  const QPoint left(0, 146), right(392, 146), top(196, 0), bottom(196, 292), middle(196, 146);
  for (const Direction direction :
       {Direction::None, Direction::Bottom, Direction::Left, Direction::Right, Direction::All}) {
    BackdropSettings settings;
    settings.enabled = true;
    settings.edgeBlurDirection = direction;
    settings.edgeBlurStrength = 1;
    QImage blurred = sharp;
    BackdropPainter::applyEdgeBlur(blurred, settings);
    const bool all = direction == Direction::All;
    EXPECT_EQ(contrast(blurred, left) < 60, all || direction == Direction::Left);
    EXPECT_EQ(contrast(blurred, right) < 60, all || direction == Direction::Right);
    EXPECT_EQ(contrast(blurred, bottom) < 60, all || direction == Direction::Bottom);
    EXPECT_EQ(contrast(blurred, top) < 60, all);
    EXPECT_GT(contrast(blurred, middle), 240);
    EXPECT_NEAR(meanGray(blurred, blurred.rect()), 127.5, 1);
    settings.enabled = false;
    blurred = sharp;
    BackdropPainter::applyEdgeBlur(blurred, settings);
    EXPECT_EQ(blurred, sharp);
  }
  for (const QSize& size : {QSize(1, 1), QSize(1, 900), QSize(3, 2)}) {
    QImage tiny(size, QImage::Format_ARGB32_Premultiplied);
    tiny.fill(QColor(10, 20, 30));
    const QImage before = tiny;
    BackdropSettings settings;
    settings.enabled = true;
    settings.edgeBlurDirection = Direction::All;
    settings.edgeBlurStrength = 1;
    BackdropPainter::applyEdgeBlur(tiny, settings);
    EXPECT_EQ(tiny, before) << "one colour stays itself";
  }
}

TEST(BackdropPainterTest, HostileDocumentsAreDrawnWithoutHarm) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double infinite = std::numeric_limits<double>::infinity();
  BackdropSettings wild;
  wild.enabled = true;
  wild.shadow = infinite;
  wild.innerRadius = -1e30;
  wild.tiltX = nan;
  wild.tiltY = 1e9;
  wild.rotation = -infinite;
  wild.noiseIntensity = wild.glowIntensity = wild.edgeBlurStrength = 1e300;
  wild.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::All;
  wild.glowCenter = {nan, -infinite};
  wild.contentScale = 1e300;
  wild.contentOffset = {1e300, nan};
  wild.insetFraction = infinite;
  const Size sizes[] = {{1, 1}, {1e-9, 4}, {30000, 2}, {2, 30000}, {1e12, 1e12}};
  for (const Size& size : sizes) {
    for (const BackdropBackground& background :
         {curated("sky"), BackdropBackground{BackdropBackground::Gradient{{}, nan}},
          BackdropBackground{BackdropBackground::Gradient{{{nan, {nan, nan, nan, nan}}}, infinite}}}) {
      ImageDocument document = documentOf(size);
      document.backdrop = wild;
      document.backdrop.background = background;
      document.backdrop.deviceFrame = DeviceFrame::LaptopDark;
      const BackdropLayout layout = backdropLayout(document);
      QImage image(64, 64, QImage::Format_ARGB32_Premultiplied);
      image.fill(Qt::transparent);
      QPainter painter(&image);
      painter.translate(-layout.document.minX(), -layout.document.minY());
      BackdropPainter().paintBehind(painter, document, layout);
      BackdropPainter::paintOver(painter, document, layout);
      painter.end();
      BackdropPainter::applyEdgeBlur(image, document.backdrop);
    }
  }
}

}  // namespace
}  // namespace vellora
