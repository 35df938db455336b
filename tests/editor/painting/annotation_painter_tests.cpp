#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>

#include "editor/Palette.h"
#include "editor/painting/AnnotationPainter.h"

namespace vellora {
namespace {

using Kind = Annotation::Kind;

Annotation make(Kind kind, bool sketch = false) {
  Annotation annotation;
  annotation.kind = kind;
  annotation.p1 = {60, 70};
  annotation.p2 = {220, 150};
  annotation.color = Palette::red;
  annotation.lineWidth = 4;
  annotation.sketch = sketch;
  annotation.sketchSeed = 11;
  annotation.text = QStringLiteral("Ǻgjſ 1");
  annotation.number = 7;
  if (kind == Kind::Pen) {
    annotation.penPoints.emplace();
    for (int i = 0; i < 60; ++i) annotation.penPoints->push_back({60 + i * 2.5, 110 + 40 * std::sin(i / 6.0)});
  }
  return annotation;
}

QImage drawn(const Annotation& annotation, double scale = 1, bool hideTextGlyphs = false, QRect clip = {}) {
  QImage image(QSize(300, 240) * scale, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  if (!clip.isNull()) painter.setClipRect(clip);
  painter.scale(scale, scale);
  AnnotationPainter().draw(painter, annotation, hideTextGlyphs);
  return image;
}

QRect colored(const QImage& image) {
  QRect rect;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(image.pixel(x, y)) > 0) rect |= QRect(x, y, 1, 1);
    }
  }
  return rect;
}

bool isEmpty(const QImage& image) {
  return colored(image).isNull();
}

/// The most that the opacity of any pixel differs within `area`.
int difference(const QImage& a, const QImage& b, QRect area = {}) {
  if (area.isNull()) area = a.rect();
  int most = 0;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      most = std::max(most, std::abs(qAlpha(a.pixel(x, y)) - qAlpha(b.pixel(x, y))));
    }
  }
  return most;
}

std::vector<Annotation> everyKind() {
  std::vector<Annotation> all;
  for (const Kind kind : {Kind::Arrow, Kind::Box, Kind::Ellipse, Kind::Line, Kind::Text, Kind::Counter, Kind::Pen}) {
    for (const bool sketch : {false, true}) {
      for (const double width : {0.5, 4.0, 14.0}) {
        Annotation annotation = make(kind, sketch);
        annotation.lineWidth = width;
        annotation.shapeFill = sketch;
        annotation.textBackground = sketch;
        annotation.tailAngle = width;
        if (kind == Kind::Arrow && width == 4) annotation.control = Point{250, 40};
        if (kind == Kind::Text && width == 14) annotation.text = QStringLiteral("Ẩg");
        all.push_back(annotation);
      }
    }
  }
  return all;
}

TEST(AnnotationPainter, BoundsHoldEveryPixelAndLittleMore) {
  for (const Annotation& annotation : everyKind()) {
    for (const double scale : {1.0, 2.5}) {
      const QRect pixels = colored(drawn(annotation, scale));
      const Rect bounds = paintedBounds(annotation);
      const QRectF rect(bounds.minX() * scale, bounds.minY() * scale, bounds.size.width * scale,
                        bounds.size.height * scale);
      const QString what = QStringLiteral("kind %1 sketch %2 width %3 scale %4")
                               .arg(static_cast<int>(annotation.kind))
                               .arg(annotation.sketch)
                               .arg(annotation.lineWidth)
                               .arg(scale);
      ASSERT_FALSE(pixels.isNull()) << what.toStdString();
      EXPECT_TRUE(rect.toAlignedRect().contains(pixels)) << what.toStdString();
      if (annotation.kind == Kind::Text) continue;  // lines are higher than their letters
      const double slack = (4 + annotation.lineWidth) * scale;
      EXPECT_TRUE(QRectF(pixels).adjusted(-slack, -slack, slack, slack).contains(rect)) << what.toStdString();
    }
  }
}

TEST(AnnotationPainter, APartIsDrawnAsInTheWhole) {
  for (const Annotation& annotation : everyKind()) {
    const QImage whole = drawn(annotation, 1.5);
    const QRect clip(140, 120, 83, 61);
    const QImage part = drawn(annotation, 1.5, false, clip);
    EXPECT_TRUE(clip.contains(colored(part)) || isEmpty(part));
    EXPECT_LE(difference(whole, part, clip), 1) << static_cast<int>(annotation.kind) << annotation.sketch;
  }
}

TEST(AnnotationPainter, PartsOfATranslucentAnnotationAreBlendedOnce) {
  for (Annotation annotation : everyKind()) {
    annotation.color.alpha = 0.5;
    const QImage image = drawn(annotation);
    int most = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) most = std::max(most, qAlpha(image.pixel(x, y)));
    }
    EXPECT_LE(most, 129) << static_cast<int>(annotation.kind) << annotation.sketch;
    EXPECT_GE(most, 30) << static_cast<int>(annotation.kind) << annotation.sketch;
    if (annotation.kind == Kind::Text) continue;
    Annotation opaque = annotation;
    opaque.color.alpha = 1;
    EXPECT_EQ(colored(image), colored(drawn(opaque))) << static_cast<int>(annotation.kind);
  }
}

TEST(AnnotationPainter, AFilledShapeIsLighterInside) {
  Annotation box = make(Kind::Box);
  EXPECT_EQ(qAlpha(drawn(box).pixel(140, 110)), 0);
  box.shapeFill = true;
  EXPECT_NEAR(qAlpha(drawn(box).pixel(140, 110)), 0.3 * 255, 1);
  EXPECT_EQ(qAlpha(drawn(box).pixel(140, 70)), 255);
  box.sketch = true;
  EXPECT_NEAR(qAlpha(drawn(box).pixel(140, 110)), 0.3 * 255, 1);
}

TEST(AnnotationPainter, HiddenGlyphsLeaveTheGround) {
  Annotation text = make(Kind::Text);
  EXPECT_FALSE(isEmpty(drawn(text)));
  EXPECT_TRUE(isEmpty(drawn(text, 1, true)));
  text.textBackground = true;
  const QImage ground = drawn(text, 1, true);
  EXPECT_FALSE(isEmpty(ground));
  EXPECT_NE(ground, drawn(text));
  EXPECT_EQ(colored(ground), colored(drawn(text)));
}

TEST(AnnotationPainter, ANumberStaysInItsBadge) {
  for (const int number : {1, 99, 100, 9999, std::numeric_limits<int>::min()}) {
    Annotation counter = make(Kind::Counter);
    counter.number = number;
    counter.tailAngle = 1.6;
    const QImage image = drawn(counter, 4);
    for (const QPoint at : {QPoint(60 - 16, 70), QPoint(60 + 16, 70)}) {
      EXPECT_EQ(QColor(image.pixel(at * 4)).rgb(), QColor::fromRgbF(0.898F, 0.282F, 0.302F).rgb()) << number;
    }
  }
}

TEST(AnnotationPainter, AChangedAnnotationIsDrawnAnew) {
  for (const Kind kind : {Kind::Pen, Kind::Arrow, Kind::Text}) {
    Annotation annotation = make(kind, true);
    const QImage before = drawn(annotation);
    EXPECT_EQ(drawn(annotation), before);
    Annotation changed = annotation;
    if (kind == Kind::Pen) (*changed.penPoints)[30].y += 12;
    if (kind == Kind::Arrow) changed.sketchSeed += 1;
    if (kind == Kind::Text) changed.text = QStringLiteral("other");
    EXPECT_NE(drawn(changed), before);
    EXPECT_EQ(drawn(annotation), before);
  }
}

TEST(AnnotationPainter, AGrowingStrokeChangesAtItsEndOnly) {
  Annotation before = make(Kind::Pen);
  before.lineWidth = 2;
  before.penPoints.emplace();
  for (int i = 0; i < 300; ++i) {
    Annotation after = before;
    after.penPoints->push_back({150 + 100 * std::cos(i / 30.0), 120 + 80 * std::sin(i / 23.0)});
    const Rect changed = changedBounds(before, after);
    const QImage old = drawn(before);
    const QImage next = drawn(after);
    for (int y = 0; y < old.height(); ++y) {
      for (int x = 0; x < old.width(); ++x) {
        if (old.pixel(x, y) == next.pixel(x, y)) continue;
        ASSERT_TRUE(x >= std::floor(changed.minX()) && x < std::ceil(changed.maxX())) << i;
        ASSERT_TRUE(y >= std::floor(changed.minY()) && y < std::ceil(changed.maxY())) << i;
      }
    }
    if (i > 200) {
      const Rect all = paintedBounds(after);
      EXPECT_LT(changed.size.width * changed.size.height, 0.4 * all.size.width * all.size.height) << i;
    }
    before = after;
  }
  Annotation recolored = before;
  recolored.color = Palette::slate;
  EXPECT_EQ(changedBounds(before, recolored), paintedBounds(before));
}

TEST(AnnotationPainter, PressureTurnsSimulationOff) {
  Annotation mouse = make(Kind::Pen);
  mouse.penPressures = std::vector<double>(60, 0.5);
  EXPECT_EQ(drawn(mouse), drawn(make(Kind::Pen)));
  (*mouse.penPressures)[30] = 0.52;
  EXPECT_NE(drawn(mouse), drawn(make(Kind::Pen)));
}

TEST(AnnotationPainter, ADotAndNothing) {
  Annotation pen = make(Kind::Pen);
  pen.penPoints = std::vector<Point>{{100, 100}};
  const QRect dot = colored(drawn(pen));
  EXPECT_TRUE(dot.contains(100, 100));
  EXPECT_LE(std::max(dot.width(), dot.height()), 4 * 4 + 4);
  pen.penPoints->clear();
  EXPECT_TRUE(isEmpty(drawn(pen)));
  EXPECT_TRUE(paintedBounds(pen).isEmpty());
  pen.penPoints.reset();
  EXPECT_TRUE(isEmpty(drawn(pen)));
  Annotation line = make(Kind::Line);
  line.p2 = line.p1;
  EXPECT_FALSE(isEmpty(drawn(line)));
  EXPECT_TRUE(isEmpty(drawn(make(Kind::Blur))));
  EXPECT_TRUE(isEmpty(drawn(make(Kind::Magnifier))));
}

TEST(AnnotationPainter, AbsurdNumbersDoNoHarm) {
  constexpr double infinite = std::numeric_limits<double>::infinity();
  constexpr double none = std::numeric_limits<double>::quiet_NaN();
  const double numbers[] = {none, infinite, -infinite, 1e300, -1e300, 1e9, -1e9, 0};
  QElapsedTimer timer;
  timer.start();
  for (const Annotation& plain : everyKind()) {
    if (plain.lineWidth != 4) continue;
    for (const double number : numbers) {
      for (int field = 0; field < 8; ++field) {
        Annotation annotation = plain;
        if (field == 0) annotation.p1.x = number;
        if (field == 1) annotation.p2 = {number, -number};
        if (field == 2) annotation.control = Point{number, number};
        if (field == 3) annotation.lineWidth = number;
        if (field == 4) annotation.tailAngle = number;
        if (field == 5) annotation.textBoxWidth = number;
        if (field == 6) annotation.color = {number, number, number, number};
        if (field == 7 && annotation.penPoints) {
          (*annotation.penPoints)[5].x = number;
          annotation.penPressures = std::vector<double>(9, number);
        }
        drawn(annotation);
        const Rect bounds = paintedBounds(annotation);
        EXPECT_TRUE(std::isfinite(bounds.minX() + bounds.maxY()));
      }
    }
  }
  EXPECT_LT(timer.elapsed(), 30'000);
}

TEST(AnnotationPainter, AMillionSamplesAreThinned) {
  Annotation pen = make(Kind::Pen);
  pen.penPoints.emplace();
  for (int i = 0; i < 1'000'000; ++i) {
    pen.penPoints->push_back({150 + 120 * std::sin(i * 0.731), 120 + 100 * std::cos(i * 0.417)});
  }
  QElapsedTimer timer;
  timer.start();
  EXPECT_FALSE(isEmpty(drawn(pen)));
  EXPECT_LT(timer.elapsed(), 20'000);
}

TEST(AnnotationPainter, ThreadsDrawTheSame) {
  std::vector<QImage> expected;
  for (const Annotation& annotation : everyKind()) expected.push_back(drawn(annotation));
  std::vector<std::thread> threads;
  for (int i = 0; i < 3; ++i) {
    threads.emplace_back([&] {
      std::size_t next = 0;
      for (const Annotation& annotation : everyKind()) {
        // How large glyphs are rounded depends on what the font engine drew before.
        const int tolerance = annotation.kind == Kind::Text ? 12 : 0;
        EXPECT_LE(difference(drawn(annotation), expected[next++]), tolerance) << static_cast<int>(annotation.kind);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace vellora
