#include <gtest/gtest.h>

#include <limits>

#include <QElapsedTimer>
#include <QPainter>

#include "Documents.h"
#include "editor/rendering/ContentPainter.h"

namespace vellora {
namespace {

using namespace test;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

QImage painted(DocumentRenderer& renderer, const ImageDocument& document, const QTransform& map, QSize size) {
  QImage target(size, QImage::Format_RGB32);
  target.fill(QColor(90, 100, 110));
  renderer.paint(target, target.rect(), document, map);
  return target;
}

/// The place of the first difference and its size, for messages.
std::string difference(const QImage& a, const QImage& b) {
  int count = 0;
  QPoint first;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      if (a.pixel(x, y) == b.pixel(x, y)) continue;
      if (count++ == 0) first = {x, y};
    }
  }
  return std::to_string(count) + " pixels differ, the first at " + std::to_string(first.x()) + ", " +
         std::to_string(first.y());
}

std::vector<QTransform> views() {
  return {QTransform::fromTranslate(7, 9), QTransform(2, 0, 0, 2, -120, -60), QTransform(0.4, 0, 0, 0.4, 20, 10.5),
          QTransform(1.37, 0, 0, 1.37, -31.3, 12.8)};
}

TEST(Pieces, areCopiedAtTheirOwnSizeAndEnlargedInWholePixels) {
  QImage image = busyPicture({120, 80}, 3);
  ImageDocument document;
  document.pieces.push_back(pieceOf(image, 2));
  EXPECT_EQ(toImage(*renderDocument(document)), image);
  EXPECT_EQ(renderDocument(document)->alpha(), PixelAlpha::Opaque);
  EXPECT_EQ(toImage(*renderDocument(document, 6)), image.scaled(360, 240));

  document.pieces.front().visibleRect = {{10, 5}, {30, 20}};
  document.pieces.front().pointSize = {30, 20};
  EXPECT_EQ(toImage(*renderDocument(document)), image.copy(20, 10, 60, 40));
}

TEST(Pieces, shrinkByAveraging) {
  QImage checks(256, 256, QImage::Format_RGB32);
  for (int y = 0; y < 256; ++y) {
    for (int x = 0; x < 256; ++x) checks.setPixel(x, y, (x + y) % 2 == 0 ? 0xFFFFFFFFU : 0xFF000000U);
  }
  ImageDocument document;
  document.pieces.push_back(pieceOf(checks, 1));
  for (const double scale : {0.5, 0.25, 0.125}) {
    const QImage small = toImage(*renderDocument(document, scale));
    for (int y = 0; y < small.height(); ++y) {
      for (int x = 0; x < small.width(); ++x) ASSERT_NEAR(qRed(small.pixel(x, y)), 128, 1) << scale;
    }
  }
}

TEST(Pieces, keepTheirTransparencyAndGapsStayClear) {
  QImage glass(20, 20, QImage::Format_ARGB32_Premultiplied);
  glass.fill(QColor(255, 0, 0, 128));
  ImageDocument document;
  document.pieces.push_back(pieceOf(glass, 1));
  CapturePiece second = pieceOf(busyPicture({20, 20}, 1), 1);
  second.origin = addedPieceOrigin(document);
  document.pieces.push_back(second);
  const auto rendered = renderDocument(document);
  ASSERT_TRUE(rendered);
  EXPECT_EQ(rendered->alpha(), PixelAlpha::Premultiplied);
  EXPECT_EQ(rendered->size(), renderedSize(document, 1));
  const QImage image = toImage(*rendered);
  EXPECT_EQ(image.pixelColor(10, 10), QColor(255, 0, 0, 128));
  EXPECT_EQ(qAlpha(image.pixel(25, 10)), 0);
  EXPECT_EQ(qAlpha(image.pixel(40, 10)), 255);
}

TEST(Painting, partByPartGivesTheSamePixels) {
  std::mt19937 random(5);
  for (int round = 0; round < 12; ++round) {
    ImageDocument document = randomDocument(random, 18);
    document.backdrop.enabled = round % 3 == 1;
    document.backdrop.innerRadius = 12;
    document.backdrop.tiltX = round % 6 == 4 ? 15 : 0;
    document.backdrop.contentScale = round % 6 == 1 ? 0.8 : 1;
    for (const QTransform& view : views()) {
      const QSize size(420, 330);
      DocumentRenderer renderer;
      const QImage whole = painted(renderer, document, view, size);
      DocumentRenderer other;
      QImage parts(size, QImage::Format_RGB32);
      parts.fill(QColor(90, 100, 110));
      for (int y = 0; y < size.height(); y += 83) {
        for (int x = 0; x < size.width(); x += 101) other.paint(parts, {x, y, 101, 83}, document, view);
      }
      ASSERT_TRUE(looksTheSame(whole, parts)) << "round " << round << ": " << difference(whole, parts);
    }
  }
}

ImageDocument edited(const ImageDocument& document, std::mt19937& random) {
  ImageDocument next = document;
  const std::size_t index = random() % next.annotations.size();
  switch (random() % 6) {
    case 0:
      next.annotations.erase(next.annotations.begin() + static_cast<std::ptrdiff_t>(index));
      break;
    case 1:
      add(next, randomAnnotation(random, next.contentRect()));
      break;
    case 2:
      std::swap(next.annotations[index], next.annotations[random() % next.annotations.size()]);
      break;
    case 3:
      next.pieces[1].origin.y += 7;
      break;
    default: {
      Annotation moved = *next.annotations[index];
      for (Point* point : {&moved.p1, &moved.p2}) *point = {point->x + 9, point->y - 4};
      next.annotations[index] = makeAnnotation(moved);
    }
  }
  return next;
}

TEST(ChangedRects, holdsEverythingThatLooksDifferent) {
  std::mt19937 random(11);
  const QSize size(520, 420);
  for (int round = 0; round < 40; ++round) {
    ImageDocument document = randomDocument(random, 14);
    document.backdrop.enabled = round % 4 == 3;
    document.backdrop.rotation = round % 8 == 7 ? 6 : 0;
    const QTransform view = views()[static_cast<std::size_t>(round) % views().size()];
    DocumentRenderer renderer;
    QImage target = painted(renderer, document, view, size);
    for (int step = 0; step < 5; ++step) {
      const ImageDocument next = edited(document, random);
      for (const QRect& rect : repaintRegion(renderer.changedRects(document, next), view) & target.rect()) {
        QPainter(&target).fillRect(rect, QColor(90, 100, 110));
        renderer.paint(target, rect, next, view);
      }
      DocumentRenderer fresh;
      const QImage expected = painted(fresh, next, view, size);
      ASSERT_TRUE(looksTheSame(target, expected))
          << "round " << round << "." << step << ": " << difference(target, expected);
      document = next;
    }
  }
}

TEST(ChangedRects, isSmallForASmallChangeAndEmptyForNone) {
  ImageDocument document;
  document.pieces.push_back(pieceOf(busyPicture({800, 600}, 1), 1));
  add(document, annotationIn({{700, 500}, {20, 20}}, Annotation::Kind::Box));
  add(document, lensIn({{10, 10}, {100, 100}}, 2, Point{400, 300}));
  DocumentRenderer renderer;
  EXPECT_TRUE(renderer.changedRects(document, document).empty());
  ImageDocument next = document;
  next.annotations[0] = makeAnnotation(annotationIn({{704, 500}, {20, 20}}, Annotation::Kind::Box));
  const std::vector<Rect> aside = renderer.changedRects(document, next);
  ASSERT_EQ(aside.size(), 1U);
  EXPECT_LT(aside[0].size.width, 60);
  EXPECT_LT(aside[0].size.height, 60);
  next.annotations[0] = makeAnnotation(annotationIn({{380, 290}, {20, 20}}, Annotation::Kind::Box));
  const std::vector<Rect> shown = renderer.changedRects(document, next);
  EXPECT_EQ(shown.size(), 3U) << "where it was, where it is, and the lens that shows it";
  EXPECT_TRUE(std::ranges::any_of(shown, [](const Rect& rect) { return rect.minX() < 11; }));
}

TEST(Pictures, ofBlursAndLensesAreMadeOnlyWhenWhatTheyShowChanges) {
  ImageDocument document;
  document.pieces.push_back(pieceOf(busyPicture({400, 300}, 1), 1));
  add(document, annotationIn({{20, 20}, {60, 60}}, Annotation::Kind::Box));
  add(document, blurIn({{10, 10}, {100, 100}}, BlurStyle::Gaussian));
  add(document, lensIn({{200, 10}, {100, 100}}, 2, Point{60, 60}));
  add(document, blurIn({{250, 200}, {100, 80}}, BlurStyle::Gaussian));
  ContentPainter painter;
  SceneMemory memory;
  QImage target(400, 300, QImage::Format_RGB32);
  const auto paint = [&](double scale) {
    painter.paint(target, target.rect(), *makeScene(document, {}, memory), QTransform::fromScale(scale, scale));
  };
  paint(1);
  EXPECT_EQ(painter.picturesMade(), 3U);
  add(document, annotationIn({{5, 5}, {300, 200}}, Annotation::Kind::Arrow));
  paint(2);
  EXPECT_EQ(painter.picturesMade(), 3U) << "neither another zoom nor what lies above counts";
  Annotation moved = *document.annotations[0];
  moved.p2.x += 5;
  document.annotations[0] = makeAnnotation(moved);
  paint(1);
  EXPECT_EQ(painter.picturesMade(), 5U) << "the blur over it and the lens on that blur, not the other blur";
}

TEST(HostileDocuments, renderInBoundedTimeOrAreRefused) {
  const QImage image = busyPicture({300, 200}, 1);
  ImageDocument document;
  document.pieces.push_back(pieceOf(image, 1));
  for (const double number : {nan, std::numeric_limits<double>::infinity(), -1e300, 1e300, 1e9, -1e5, 0.0}) {
    for (int kind = 0; kind < Annotation::kindCount; ++kind) {
      for (int part = 0; part < 5; ++part) {
        Annotation annotation = annotationIn({{30, 30}, {90, 70}}, static_cast<Annotation::Kind>(kind));
        annotation.text = QStringLiteral("text");
        annotation.penPoints = std::vector<Point>{{30, 30}, {40, part == 4 ? number : 40}, {90, 80}};
        annotation.blurStyle = static_cast<BlurStyle>(part % 3);
        if (part == 0) annotation.p1.x = number;
        if (part == 1) annotation.p2 = {number, number};
        if (part == 2) annotation.control = Point{number, 40};
        if (part == 3) annotation.lineWidth = annotation.blurStrength = annotation.magnification = number;
        if (part == 4) annotation.textBoxWidth = annotation.tailAngle = annotation.color.red = number;
        add(document, annotation);
      }
    }
  }
  EXPECT_TRUE(renderDocument(document));

  for (const double number : {nan, -5.0, 0.0, 1e300}) {
    ImageDocument odd;
    odd.pieces.push_back(pieceOf(image, 1));
    odd.pieces.push_back(pieceOf(image, 1));
    odd.pieces[1].scale = number;
    EXPECT_EQ(renderDocument(odd)->width(), 300);
    odd.pieces[1] = pieceOf(image, 1);
    odd.pieces[1].pointSize.width = number;
    EXPECT_EQ(renderDocument(odd)->width(), 300);
    EXPECT_FALSE(renderDocument(odd, number));
  }
  EXPECT_FALSE(renderDocument({}));
  EXPECT_FALSE(renderDocument(document, 1000));
}

TEST(HostileDocuments, aThousandOverlappingBlursAndLensesEnd) {
  ImageDocument document;
  document.pieces.push_back(pieceOf(busyPicture({1600, 1000}, 1), 1));
  for (int i = 0; i < 1000; ++i) {
    const Rect rect{{i * 0.3, i * 0.2}, {900, 700}};
    switch (i % 4) {
      case 0:
        add(document, blurIn(rect, BlurStyle::Gaussian, 1));
        break;
      case 1:
        add(document, lensIn(rect, 2, Point{600, 500}));
        break;
      case 2:
        add(document, blurIn(rect, BlurStyle::Mosaic));
        break;
      default:
        add(document, blurIn(rect, BlurStyle::Erase));
        break;
    }
  }
  QElapsedTimer timer;
  timer.start();
  EXPECT_TRUE(renderDocument(document, 0.5));
  EXPECT_LT(timer.elapsed(), 60000);
}

TEST(HostileDocuments, aVeryTallPieceRendersSmallAndInPart) {
  auto tall = MutableBitmap::create({400, 60000}, PixelAlpha::Opaque);
  ASSERT_TRUE(tall);
  for (int y = 0; y < 60000; ++y) std::memset(tall->row(y), y % 251, 1600);
  ImageDocument document;
  document.pieces.push_back(makePiece(std::move(*tall).finish(), 1));
  add(document, blurIn({{0, 0}, {400, 60000}}, BlurStyle::Gaussian, 1));
  add(document, blurIn({{50, 1000}, {300, 50000}}, BlurStyle::Mosaic, 0));
  EXPECT_EQ(renderDocument(document, 0.01)->size(), (PixelSize{4, 600}));
  DocumentRenderer renderer;
  QImage view(400, 300, QImage::Format_RGB32);
  renderer.paint(view, view.rect(), document, QTransform(8, 0, 0, 8, -1000, -400000));
}

}  // namespace
}  // namespace vellora
