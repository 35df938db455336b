#include <gtest/gtest.h>

#include <unordered_set>

#include <QPainter>

#include "Documents.h"
#include "editor/AnnotationRecord.h"
#include "editor/rendering/RedactionPlan.h"

namespace vellora {
namespace {

using namespace test;

/// Paints over all pixels that a rectangle in points touches.
QImage withOtherPixels(QImage image, const Rect& hidden, double scale, std::uint32_t seed) {
  std::mt19937 random(seed);
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const bool inside = x + 1 > hidden.minX() * scale && x < hidden.maxX() * scale && y + 1 > hidden.minY() * scale &&
                          y < hidden.maxY() * scale;
      if (inside) image.setPixel(x, y, static_cast<std::uint32_t>(random()));
    }
  }
  return image;
}

class ErasedArea : public testing::TestWithParam<double> {
 protected:
  static constexpr double scale = 2;
  const Rect hidden{{60.3, 40.7}, {50.1, 33.4}};

  /// The erased area among everything that could carry its pixels elsewhere, above and below it.
  ImageDocument documentOf(const QImage& image, std::optional<ColorComponents> fill) const {
    ImageDocument document;
    document.pieces.push_back(pieceOf(image, scale));
    add(document, blurIn({{40, 20}, {60, 40}}, BlurStyle::Gaussian, 0.3));
    add(document, lensIn({{5, 60}, {50, 50}}, 2, Point{85, 55}));
    add(document, lensIn({{120, 5}, {60, 50}}, 3, Point{62, 42}, MagnifierShape::RoundedRect));
    Annotation erase = blurIn(hidden, BlurStyle::Erase);
    erase.eraseFillColor = fill;
    add(document, erase);
    add(document, blurIn({{100, 50}, {40, 50}}, BlurStyle::Mosaic, 0));
    add(document, blurIn({{30, 60}, {60, 40}}, BlurStyle::Gaussian, 1));
    add(document, lensIn({{130, 60}, {60, 60}}, 1.5, Point{100, 60}));
    add(document, lensIn({{70, 80}, {50, 40}}, 2, Point{60, 70}, MagnifierShape::RoundedRect));
    return document;
  }
};

TEST_P(ErasedArea, outputDependsOnNothingInIt) {
  const QImage image = busyPicture({400, 260}, 1);
  for (const bool chosen : {false, true}) {
    const auto fill = chosen ? std::optional(ColorComponents{0, 0.5, 1, 0.2}) : std::nullopt;
    for (const bool turned : {false, true}) {
      std::optional<Bitmap> first;
      for (const std::uint32_t seed : {1U, 2U, 3U}) {
        ImageDocument document = documentOf(withOtherPixels(image, hidden, scale, seed), fill);
        document.backdrop.enabled = turned;
        document.backdrop.tiltX = 14;
        document.backdrop.rotation = 5;
        const auto rendered = renderDocument(document, GetParam());
        ASSERT_TRUE(rendered);
        if (!first) first = rendered;
        EXPECT_TRUE(samePixels(*first, *rendered)) << "seed " << seed << (turned ? ", turned" : "");
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(AtScale, ErasedArea, testing::Values(0.1, 0.5, 0.77, 1, 1.5, 2, 5));

TEST(Redaction, ofOneEditorHoldsWhileItMovesOntoTheSecret) {
  // The same renderer has seen the pixels bare before: nothing it keeps may bring them back.
  const QImage image = busyPicture({300, 200}, 1);
  const Rect hidden{{100, 60}, {80, 50}};
  std::optional<QImage> first;
  for (const std::uint32_t seed : {1U, 2U}) {
    ImageDocument document;
    document.pieces.push_back(pieceOf(withOtherPixels(image, hidden, 1, seed), 1));
    add(document, lensIn({{10, 100}, {80, 80}}, 2, Point{100, 70}));
    add(document, blurIn({{150, 80}, {80, 60}}, BlurStyle::Gaussian));
    Annotation erase = blurIn({{0, 0}, {80, 50}}, BlurStyle::Erase);
    DocumentRenderer renderer;
    QImage target;
    for (const Point origin : {Point{0, 0}, {70, 30}, hidden.origin}) {
      erase.p1 = origin;
      erase.p2 = {origin.x + 80, origin.y + 50};
      ImageDocument moved = document;
      add(moved, erase);
      target = QImage(150, 100, QImage::Format_RGB32);
      target.fill(Qt::white);
      renderer.paint(target, target.rect(), moved, QTransform::fromScale(0.5, 0.5));
    }
    if (!first) first = target;
    EXPECT_EQ(*first, target) << seed;
  }
}

TEST(Redaction, coversAnnotationsBelowAlsoInLensesAboveAndBelow) {
  const auto render = [](const QColor& secretColor) {
    ImageDocument document;
    document.pieces.push_back(pieceOf(busyPicture({300, 200}, 1), 1));
    Annotation secret = annotationIn({{112, 72}, {30, 20}}, Annotation::Kind::Box);
    secret.color = {secretColor.redF(), secretColor.greenF(), secretColor.blueF(), 1};
    add(document, secret);
    add(document, lensIn({{10, 10}, {80, 80}}, 2, Point{120, 80}));
    add(document, blurIn({{90, 50}, {40, 100}}, BlurStyle::Gaussian));
    add(document, blurIn({{100, 60}, {60, 50}}, BlurStyle::Mosaic));
    add(document, lensIn({{200, 90}, {80, 80}}, 2, Point{120, 80}));
    return renderDocument(document);
  };
  EXPECT_TRUE(samePixels(*render(Qt::red), *render(Qt::blue)));
}

TEST(Redaction, hidesAsFarAsADocumentMayReach) {
  constexpr double far = annotationLimits::coordinate;
  for (const BlurStyle style : {BlurStyle::Mosaic, BlurStyle::Erase}) {
    std::optional<Bitmap> first;
    for (const std::uint32_t seed : {1U, 2U}) {
      ImageDocument document;
      document.pieces.push_back(pieceOf(busyPicture({60, 40}, seed), 1));
      add(document, blurIn({{-far, -far}, {2 * far, 2 * far}}, style));
      const auto rendered = renderDocument(document, 1);
      ASSERT_TRUE(rendered);
      if (!first) first = rendered;
      EXPECT_TRUE(samePixels(*first, *rendered));
    }
  }
}

TEST(Redaction, chosenFillIsDrawnOpaqueAndTheAutomaticOneIsWhatSurroundsIt) {
  QImage page(200, 100, QImage::Format_RGB32);
  page.fill(QColor(250, 240, 230));
  {
    QPainter painter(&page);
    painter.fillRect(60, 30, 80, 40, QColor(10, 20, 30));
  }
  ImageDocument document;
  document.pieces.push_back(pieceOf(page, 1));
  add(document, blurIn({{50, 20}, {100, 60}}, BlurStyle::Erase));
  EXPECT_EQ(toImage(*renderDocument(document)).pixel(100, 50), qRgb(250, 240, 230));

  Annotation chosen = blurIn({{50, 20}, {100, 60}}, BlurStyle::Erase);
  chosen.eraseFillColor = ColorComponents{1, 0, 0, 0.01};
  document.annotations = {makeAnnotation(chosen)};
  EXPECT_EQ(toImage(*renderDocument(document)).pixel(100, 50), qRgb(255, 0, 0));
}

TEST(Crop, nothingBeyondItReachesTheOutput) {
  const QImage image = busyPicture({300, 200}, 1);
  for (const double scale : {0.3, 1.0, 1.5, 3.0}) {
    std::optional<Bitmap> first;
    for (const std::uint32_t seed : {1U, 2U}) {
      const Rect shown{{80, 50}, {101, 77}};
      QImage other = withOtherPixels(image, {{0, 0}, {300, 200}}, 1, seed);
      QPainter(&other).drawImage(QPoint(80, 50), image.copy(80, 50, 101, 77));
      ImageDocument document;
      CapturePiece piece = pieceOf(other, 1);
      piece.visibleRect = shown;
      piece.pointSize = shown.size;
      document.pieces.push_back(piece);
      add(document, blurIn({{-10, -10}, {60, 60}}, BlurStyle::Gaussian, 1));
      add(document, blurIn({{60, 50}, {60, 60}}, BlurStyle::Mosaic));
      add(document, blurIn({{70, -5}, {60, 20}}, BlurStyle::Erase));
      add(document, lensIn({{20, 20}, {50, 50}}, 2, Point{5, 5}));
      const auto rendered = renderDocument(document, scale);
      ASSERT_TRUE(rendered);
      if (!first) first = rendered;
      EXPECT_TRUE(samePixels(*first, *rendered)) << scale;
    }
  }
}

/// One way a four-digit number may stand on a screen.
struct Setting {
  const char* name;
  double scale;
  int fontSize;
  bool bold;
  std::uint32_t ink;
  std::uint32_t paper;
  bool panel = false;     ///< on a panel of another colour that is hidden with it
  bool gradient = false;  ///< on a paper that changes from left to right
};

constexpr std::array settings{
    Setting{"dark on white", 1, 16, false, 0xFF1C2024, 0xFFFFFFFF},
    Setting{"bold headline at 200 %", 2, 40, true, 0xFF000000, 0xFFF4F5F7},
    Setting{"light on dark", 1, 14, false, 0xFFEDEEF0, 0xFF1E1F22},
    Setting{"in a panel", 1, 18, false, 0xFF101010, 0xFFFFFFFF, true},
    Setting{"on a gradient", 1, 22, true, 0xFFFFFFFF, 0xFF2040A0, false, true},
    Setting{"bold in a panel, in the colour around it", 1, 18, true, 0xFF808690, 0xFFFFFFFF, true},
    Setting{"ink near the paper", 1, 16, true, 0xFF8090A0, 0xFFA0B0C0},
};

constexpr int numbers = 10000;

QString textOf(int number) {
  return QStringLiteral("%1").arg(number, 4, 10, QLatin1Char('0'));
}

QFont fontOf(const Setting& setting) {
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(setting.fontSize);
  font.setBold(setting.bold);
  return font;
}

/// The rectangle a person draws over the number: a little more than its letters, not on whole pixels.
Rect hiddenRect(const Setting& setting) {
  const QFontMetricsF metrics(fontOf(setting));
  return {{20.3, 20.6}, {metrics.horizontalAdvance(QStringLiteral("0000")) + 7, metrics.height() + 1}};
}

QImage screenWith(const Setting& setting, int number) {
  const Rect hidden = hiddenRect(setting);
  const QSize size(static_cast<int>(hidden.maxX() + 20), static_cast<int>(hidden.maxY() + 20));
  QImage image(size * setting.scale, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.scale(setting.scale, setting.scale);
  const QRectF all(0, 0, size.width(), size.height());
  QLinearGradient gradient(0, 0, size.width(), 0);
  gradient.setColorAt(0, QColor::fromRgba(setting.paper));
  gradient.setColorAt(1, QColor::fromRgba(setting.paper).lighter(180));
  painter.fillRect(all, setting.gradient ? QBrush(gradient) : QBrush(QColor::fromRgba(setting.paper)));
  if (setting.panel) {
    painter.fillRect(all, QColor(0x80, 0x86, 0x90));
    painter.fillRect(QRectF(hidden.minX() + 1, hidden.minY() + 1, hidden.size.width - 2, hidden.size.height - 2),
                     QColor::fromRgba(setting.paper));
  }
  painter.setFont(fontOf(setting));
  painter.setPen(QColor::fromRgba(setting.ink));
  painter.drawText(QPointF(hidden.minX() + 3.4, hidden.maxY() - hidden.size.height * 0.24), textOf(number));
  return image;
}

std::string bytesOf(const Bitmap& bitmap) {
  std::string bytes;
  for (int y = 0; y < bitmap.height(); ++y) {
    bytes.append(reinterpret_cast<const char*>(bitmap.row(y)), static_cast<std::size_t>(bitmap.width()) * 4);
  }
  return bytes;
}

/// What an attacker gets who knows the program, the seed, the font and the place, renders every candidate and keeps
/// those whose output is nearest to the one seen: on average he is right once in (candidates with the same output), so
/// over all hidden numbers as often as there are different outputs.
template <typename Output>
std::size_t numbersFound(int step, Output&& outputOf) {
  std::unordered_set<std::string> outputs;
  for (int number = 0; number < numbers; number += step) outputs.insert(outputOf(number));
  return outputs.size();
}

TEST(Mosaic, tryingEveryNumberFindsTheHiddenOneNoMoreOftenThanChance) {
  for (const Setting& setting : settings) {
    const bool first = &setting == settings.data();
    for (const double strength : {0.5, 0.0}) {
      Annotation mosaic = blurIn(hiddenRect(setting), BlurStyle::Mosaic, strength);
      mosaic.sketchSeed = 4711;
      const std::size_t found = numbersFound(first ? 1 : 11, [&](int number) {
        ImageDocument document;
        document.pieces.push_back(pieceOf(screenWith(setting, number), setting.scale));
        add(document, mosaic);
        return bytesOf(*renderDocument(document));
      });
      EXPECT_EQ(found, 1U) << setting.name << ", strength " << strength;
    }
  }
}

TEST(Mosaic, theAttackWouldFindNumbersBehindPlainAverages) {
  const Setting& setting = settings.front();
  const std::size_t found = numbersFound(11, [&](int number) {
    const QImage image = screenWith(setting, number);
    const QImage cells =
        image.scaled(image.width() / 12, image.height() / 12, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return bytesOf(toBitmap(cells));
  });
  EXPECT_GT(found, 800U) << "of 910";
}

TEST(Mosaic, showsTheToneOfAPictureButNotMore) {
  QImage page(400, 300, QImage::Format_RGB32);
  page.fill(Qt::white);
  QPainter(&page).fillRect(100, 50, 200, 200, QColor(20, 30, 120));
  ImageDocument document;
  document.pieces.push_back(pieceOf(page, 1));
  add(document, blurIn({{90, 40}, {220, 220}}, BlurStyle::Mosaic));
  const QImage rendered = toImage(*renderDocument(document));
  const QColor middle = rendered.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation).pixelColor(0, 0);
  EXPECT_GT(middle.blue(), middle.red() + 20);
  EXPECT_GT(middle.blue(), middle.green() + 20);
}

}  // namespace
}  // namespace vellora
