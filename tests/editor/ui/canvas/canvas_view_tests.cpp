#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPointingDevice>
#include <QTabletEvent>
#include <QWheelEvent>

#include "editor/ui/canvas/CanvasHarness.h"
#include "editor/ui/canvas/CanvasScene.h"
#include "support/TestBitmaps.h"

namespace vellora {
namespace {

using test::CanvasHarness;
using test::documentOf;
using test::motleyBitmap;

constexpr ColorComponents pureRed{1, 0, 0, 1};

ImageDocument whiteDocument(PixelSize size = {400, 300}) {
  return documentOf(test::solidBitmap(size, 0xFFFFFFFF));
}

/// Where two pictures differ and by how much; nothing when they are the same but for the rounding of smoothed colours.
std::string difference(const QImage& left, const QImage& right) {
  if (left.size() != right.size()) return "other sizes";
  QRegion differing;
  int most = 0;
  constexpr int rounding = 6;
  for (int y = 0; y < left.height(); ++y) {
    for (int x = 0; x < left.width(); ++x) {
      const QColor one = left.pixelColor(x, y);
      const QColor other = right.pixelColor(x, y);
      const int by = std::max({std::abs(one.red() - other.red()), std::abs(one.green() - other.green()),
                               std::abs(one.blue() - other.blue())});
      if (by > rounding) differing += QRect(x, y, 1, 1);
      most = std::max(most, by);
    }
  }
  if (differing.isEmpty()) return {};
  const QRect box = differing.boundingRect();
  return std::to_string(differing.rectCount()) + " places by up to " + std::to_string(most) + " within " +
         std::to_string(box.x()) + "," + std::to_string(box.y()) + " " + std::to_string(box.width()) + "x" +
         std::to_string(box.height());
}

void wheel(CanvasHarness& harness, QPointF at, QPoint angle, Qt::KeyboardModifiers modifiers = {}, QPoint pixels = {}) {
  QWheelEvent event(at, harness.view.mapToGlobal(at), pixels, angle, Qt::NoButton, modifiers, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&harness.view, &event);
}

TEST(CanvasView, LeavesThePixelsOfAnArrowDrawnByMouse) {
  CanvasHarness harness(whiteDocument());
  harness.model.setTool(Tool::Arrow);
  harness.model.setSketch(false);
  harness.model.setColor(pureRed);
  harness.model.setLineWidth(8);
  harness.drag({50, 150}, {350, 150});
  harness.model.select({});
  ASSERT_EQ(harness.model.document().annotations.size(), 1U);
  EXPECT_EQ(harness.colorAt({200, 150}), QColor(Qt::red));
  EXPECT_EQ(harness.colorAt({200, 200}), QColor(Qt::white));
  harness.model.undo();
  EXPECT_EQ(harness.colorAt({200, 150}), QColor(Qt::white));
}

TEST(CanvasView, TellsAHoveredLineByItselfAndAShapeByItsBox) {
  CanvasHarness harness(whiteDocument());
  harness.model.setSketch(false);
  harness.model.setLineWidth(8);
  harness.model.setTool(Tool::Arrow);
  harness.drag({50, 50}, {350, 150});
  harness.model.setTool(Tool::Box);
  harness.drag({100, 200}, {200, 280});
  harness.model.select({});
  harness.leave();
  const QImage plain = harness.shown();
  const auto changedAt = [&](const QImage& now, Point place) {
    const QPoint at = (harness.view.viewPoint(place) * now.devicePixelRatio()).toPoint();
    return now.pixel(at) != plain.pixel(at);
  };
  harness.enter();
  harness.mouse(QEvent::MouseMove, harness.view.viewPoint({125, 75}), Qt::NoButton);
  const QImage overArrow = harness.shown();
  EXPECT_TRUE(changedAt(overArrow, {200, 100}));
  EXPECT_FALSE(changedAt(overArrow, {350, 50})) << "no box around it";
  EXPECT_FALSE(changedAt(overArrow, {100, 200}));
  harness.mouse(QEvent::MouseMove, harness.view.viewPoint({100, 240}), Qt::NoButton);
  const QImage overBox = harness.shown();
  EXPECT_FALSE(changedAt(overBox, {200, 100}));
  EXPECT_TRUE(changedAt(overBox, {100, 220}));
}

TEST(CanvasView, WheelZoomsAtThePointer) {
  CanvasHarness harness(documentOf(motleyBitmap({1600, 1200})));
  const QPointF at(500, 220);
  const Point under = harness.view.documentPoint(at);
  const double before = harness.view.zoom();
  for (int i = 0; i < 12; ++i) {
    wheel(harness, at, {0, i < 9 ? 120 : -120});
    const Point now = harness.view.documentPoint(at);
    // The document lies on whole pixels: half a pixel is as exact as it gets.
    EXPECT_NEAR(now.x, under.x, 0.51 / harness.view.zoom());
    EXPECT_NEAR(now.y, under.y, 0.51 / harness.view.zoom());
  }
  EXPECT_GT(harness.view.zoom(), before);
  for (int i = 0; i < 40; ++i) wheel(harness, at, {0, 120});
  EXPECT_EQ(harness.view.zoom(), CanvasView::mostZoom);
  for (int i = 0; i < 60; ++i) wheel(harness, at, {0, -120});
  EXPECT_EQ(harness.view.zoom(), CanvasView::leastZoom);
}

TEST(CanvasView, TouchpadsAndModifiersScroll) {
  CanvasHarness harness(documentOf(motleyBitmap({3000, 3000})));
  harness.view.actualSize();
  const QPointF place = harness.view.viewPoint({1500, 1500});
  wheel(harness, {100, 100}, {0, -37}, {}, {0, -30});
  const double pixel = 1 / harness.view.devicePixelRatioF();
  EXPECT_NEAR(harness.view.viewPoint({1500, 1500}).y(), place.y() - 30, pixel);
  wheel(harness, {100, 100}, {0, -120}, Qt::ShiftModifier);
  EXPECT_LT(harness.view.viewPoint({1500, 1500}).x(), place.x());
  EXPECT_EQ(harness.view.zoom(), 1);
  wheel(harness, {100, 100}, {0, 60}, Qt::ControlModifier, {0, 60});
  EXPECT_GT(harness.view.zoom(), 1);
}

TEST(CanvasView, FitsUntilThePersonZoomsAndFollowsTheWindow) {
  CanvasHarness harness(documentOf(motleyBitmap({1600, 1200})));
  EXPECT_TRUE(harness.view.isFitting());
  const double before = harness.view.zoom();
  harness.view.resize(1200, 900);
  harness.settle();
  EXPECT_GT(harness.view.zoom(), before);
  EXPECT_NEAR(harness.view.viewPoint({800, 600}).x(), 600, 1);
  harness.view.actualSize();
  harness.view.resize(500, 400);
  EXPECT_EQ(harness.view.zoom(), 1);
  EXPECT_FALSE(harness.view.isFitting());
}

TEST(CanvasView, ShowsThePixelsOfThePictureAtFullSize) {
  const Bitmap bitmap = motleyBitmap({300, 200});
  const double ratio = CanvasHarness(whiteDocument()).view.devicePixelRatioF();
  CanvasHarness harness(documentOf(bitmap, ratio));
  harness.view.actualSize();
  const QImage image = harness.shown();
  const QPoint corner = (harness.view.viewPoint({0, 0}) * ratio).toPoint();
  for (int y = 0; y < 200; y += 7) {
    for (int x = 0; x < 300; x += 5) {
      QRgb expected;
      std::memcpy(&expected, bitmap.pixel(x, y), 4);
      ASSERT_EQ(image.pixel(corner + QPoint(x, y)), expected) << x << ", " << y;
    }
  }
}

TEST(CanvasView, PansByMiddleButtonAndSpace) {
  CanvasHarness harness(documentOf(motleyBitmap({3000, 3000})));
  harness.view.actualSize();
  const QPointF place = harness.view.viewPoint({1500, 1500});
  harness.mouse(QEvent::MouseButtonPress, {300, 300}, Qt::MiddleButton);
  harness.mouse(QEvent::MouseMove, {340, 280}, Qt::MiddleButton);
  harness.mouse(QEvent::MouseButtonRelease, {340, 280}, Qt::MiddleButton);
  const auto moved = [&] { return harness.view.viewPoint({1500, 1500}) - place; };
  const double pixel = 1 / harness.view.devicePixelRatioF();
  EXPECT_LE((moved() - QPointF(40, -20)).manhattanLength(), pixel);

  harness.model.setTool(Tool::Box);
  QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" "));
  QApplication::sendEvent(&harness.view, &space);
  EXPECT_TRUE(harness.view.isPanning());
  harness.mouse(QEvent::MouseButtonPress, {300, 300});
  harness.mouse(QEvent::MouseMove, {310, 300});
  harness.mouse(QEvent::MouseButtonRelease, {310, 300});
  QKeyEvent released(QEvent::KeyRelease, Qt::Key_Space, {}, QStringLiteral(" "));
  QApplication::sendEvent(&harness.view, &released);
  EXPECT_FALSE(harness.view.isPanning());
  EXPECT_LE((moved() - QPointF(50, -20)).manhattanLength(), 2 * pixel);
  EXPECT_TRUE(harness.model.document().annotations.empty());
}

TEST(CanvasView, TypesTextAndComposesIt) {
  CanvasHarness harness(whiteDocument());
  harness.model.setTool(Tool::Text);
  harness.model.setColor(pureRed);
  harness.click({60, 100});
  ASSERT_TRUE(harness.view.isEditingText());
  for (const char letter : {'a', 'b'}) harness.key(Qt::Key_A + letter - 'a', QString(QLatin1Char(letter)));
  EXPECT_TRUE(harness.view.inputMethodQuery(Qt::ImEnabled).toBool());
  const QImage typed = harness.shown();

  QInputMethodEvent composing(QStringLiteral("にほん"), {});
  QApplication::sendEvent(&harness.view, &composing);
  ASSERT_TRUE(harness.model.textEdit());
  EXPECT_EQ(harness.model.textEdit()->composing, QStringLiteral("にほん"));
  EXPECT_NE(harness.shown(), typed) << "what is composed is seen";
  EXPECT_EQ(harness.view.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("ab"));

  QInputMethodEvent committing;
  committing.setCommitString(QStringLiteral("日本"));
  QApplication::sendEvent(&harness.view, &committing);
  EXPECT_EQ(harness.model.textEdit()->composing, QString());
  EXPECT_EQ(harness.view.inputMethodQuery(Qt::ImSurroundingText).toString(), QStringLiteral("ab日本"));
  EXPECT_EQ(harness.view.inputMethodQuery(Qt::ImCursorPosition).toInt(), 4);
  const QRectF cursor = harness.view.inputMethodQuery(Qt::ImCursorRectangle).toRectF();
  EXPECT_GT(cursor.left(), harness.view.viewPoint({60, 100}).x());
  EXPECT_GT(cursor.height(), 8);

  // A key of the window's, were nothing typed: here it is a letter.
  QKeyEvent asked(QEvent::ShortcutOverride, Qt::Key_V, {}, QStringLiteral("v"));
  asked.ignore();
  QApplication::sendEvent(&harness.view, &asked);
  EXPECT_TRUE(asked.isAccepted());
  harness.key(Qt::Key_Escape);
  EXPECT_FALSE(harness.view.isEditingText());
  asked.ignore();
  QApplication::sendEvent(&harness.view, &asked);
  EXPECT_FALSE(asked.isAccepted());
  ASSERT_EQ(harness.model.document().annotations.size(), 1U);
  EXPECT_EQ(harness.model.document().annotations[0]->text, QStringLiteral("ab日本"));
}

TEST(CanvasView, CropsByDraggingAnEdgeAndShowsWhatIsCutOffDimmed) {
  CanvasHarness harness(whiteDocument());
  harness.model.beginCrop();
  const QColor full = harness.colorAt({390, 20});
  EXPECT_EQ(full, QColor(Qt::white));
  harness.drag({400, 150}, {300, 150});
  EXPECT_NEAR(harness.model.document().pieces[0].pointSize.width, 300, 2);
  const QColor dim = harness.colorAt({370, 20});
  EXPECT_LT(dim.lightness(), 180);
  EXPECT_GT(dim.lightness(), 40) << "what was cut off is still seen";
  EXPECT_EQ(harness.colorAt({150, 20}), QColor(Qt::white));
  harness.model.endCrop();
  EXPECT_EQ(harness.colorAt({370, 20}), CanvasScene::ground());
}

TEST(CanvasView, EyedropperTakesTheColorOfThePictureNotOfTheHandles) {
  CanvasHarness harness(documentOf(test::solidBitmap({400, 300}, 0xFF336699)));
  harness.model.setTool(Tool::Box);
  harness.drag({100, 100}, {200, 200});
  harness.settle();
  std::vector<ColorComponents> picked;
  const auto pick = [&](const ColorComponents& color) { picked.push_back(color); };
  harness.view.startEyedropper(pick);
  EXPECT_TRUE(harness.view.isPickingColor());
  harness.key(Qt::Key_Escape);
  EXPECT_FALSE(harness.view.isPickingColor());
  harness.view.startEyedropper(pick);
  const QPointF at = harness.view.viewPoint({300, 50});
  harness.mouse(QEvent::MouseMove, at, Qt::NoButton);
  harness.mouse(QEvent::MouseButtonPress, at);
  harness.mouse(QEvent::MouseButtonRelease, at);
  EXPECT_FALSE(harness.view.isPickingColor());
  ASSERT_EQ(picked.size(), 1U);
  EXPECT_NEAR(picked[0].red, 0x33 / 255.0, 0.001);
  EXPECT_NEAR(picked[0].green, 0x66 / 255.0, 0.001);
  EXPECT_NEAR(picked[0].blue, 0x99 / 255.0, 0.001);
  EXPECT_EQ(harness.model.document().annotations.size(), 1U) << "picking draws nothing";

  harness.view.setZoom(8, {200, 200});
  harness.settle();
  for (int i = 0; i < 8; ++i) {
    harness.view.startEyedropper(pick);
    const QPointF place(200 + i, 200 + i);  // somewhere the border of two pixels
    harness.mouse(QEvent::MouseMove, place, Qt::NoButton);
    harness.mouse(QEvent::MouseButtonPress, place);
    harness.mouse(QEvent::MouseButtonRelease, place);
    EXPECT_EQ(picked.back(), picked.front());
  }
}

TEST(CanvasView, TakesThePressureOfAPen) {
  CanvasHarness harness(whiteDocument());
  harness.model.setTool(Tool::Pen);
  const QPointingDevice pen(QStringLiteral("pen"), 77, QInputDevice::DeviceType::Stylus,
                            QPointingDevice::PointerType::Pen, QInputDevice::Capability::Pressure, 1, 1);
  const auto send = [&](QEvent::Type type, Point at, double pressure) {
    const QPointF place = harness.view.viewPoint(at);
    QTabletEvent event(type, &pen, place, harness.view.mapToGlobal(place), pressure, 0, 0, 0, 0, 0, {},
                       type == QEvent::TabletMove ? Qt::NoButton : Qt::LeftButton, Qt::LeftButton);
    QApplication::sendEvent(&harness.view, &event);
  };
  send(QEvent::TabletPress, {50, 50}, 0.2);
  for (int i = 1; i <= 20; ++i) send(QEvent::TabletMove, {50.0 + 10 * i, 50.0 + i}, 0.2 + 0.03 * i);
  send(QEvent::TabletRelease, {250, 70}, 0);
  ASSERT_EQ(harness.model.document().annotations.size(), 1U);
  const Annotation& stroke = *harness.model.document().annotations[0];
  ASSERT_TRUE(stroke.penPressures && stroke.penPoints);
  EXPECT_GE(stroke.penPoints->size(), 20U) << "no sample is left out";
  EXPECT_NEAR(*std::ranges::max_element(*stroke.penPressures), 0.8, 0.01);
}

TEST(CanvasView, FindsThePlaceUnderThePointerOnATiltedDocument) {
  ImageDocument document = documentOf(motleyBitmap({600, 400}));
  document.backdrop.enabled = true;
  document.backdrop.tiltX = 18;
  document.backdrop.tiltY = -12;
  document.backdrop.rotation = 7;
  CanvasHarness harness(document);
  for (const Point point : {Point{0, 0}, {600, 400}, {300, 200}, {50, 390}}) {
    const Point back = harness.view.documentPoint(harness.view.viewPoint(point));
    EXPECT_NEAR(back.x, point.x, 0.01);
    EXPECT_NEAR(back.y, point.y, 0.01);
  }
  harness.model.setTool(Tool::Box);
  harness.drag({100, 100}, {300, 200});
  ASSERT_EQ(harness.model.document().annotations.size(), 1U);
  const Rect drawn = spannedRect(*harness.model.document().annotations[0]);
  EXPECT_NEAR(drawn.minX(), 100, 1);
  EXPECT_NEAR(drawn.maxY(), 200, 1);
}

TEST(CanvasView, TakesDroppedPicturesOnly) {
  CanvasHarness harness(whiteDocument());
  QList<QUrl> files;
  QImage image;
  QObject::connect(&harness.view, &CanvasView::filesDropped, [&](const QList<QUrl>& urls, Point) { files = urls; });
  QObject::connect(&harness.view, &CanvasView::imageDropped, [&](const QImage& dropped, Point) { image = dropped; });
  const auto drop = [&](const QMimeData& data) {
    QDragEnterEvent enter({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.ignore();
    QApplication::sendEvent(&harness.view, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent event({100, 100}, Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&harness.view, &event);
    return true;
  };
  QMimeData urls;
  urls.setUrls({QUrl(QStringLiteral("file:///tmp/a.png")), QUrl(QStringLiteral("file:///tmp/b.odt")),
                QUrl(QStringLiteral("https://example.org/c.png"))});
  EXPECT_TRUE(drop(urls));
  EXPECT_EQ(files, (QList{QUrl(QStringLiteral("file:///tmp/a.png"))}));
  QMimeData pixels;
  pixels.setImageData(QImage(3, 2, QImage::Format_RGB32));
  EXPECT_TRUE(drop(pixels));
  EXPECT_EQ(image.size(), QSize(3, 2));
  QMimeData words;
  words.setText(QStringLiteral("no picture"));
  EXPECT_FALSE(drop(words));
}

/// Whatever was done, in pieces and over each other: the picture is the one a new canvas would paint.
TEST(CanvasView, ShowsWhatAFreshPaintWouldAfterAnyWorkAndAnyWay) {
  CanvasHarness harness(documentOf(motleyBitmap({700, 500})), {420, 320});
  std::mt19937 random(11);
  const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  const auto anywhere = [&] { return Point{double(upTo(760) - 30), double(upTo(560) - 30)}; };
  const auto anyTool = [&] { return allTools[static_cast<std::size_t>(upTo(allTools.size()))]; };
  CanvasModel& model = harness.model;
  for (int step = 0; step < 150; ++step) {
    const int what = upTo(12);
    switch (what) {
      case 0:
        harness.view.setZoom(0.1 + upTo(790) / 100.0, QPointF(upTo(420), upTo(320)));
        break;
      case 1:
        harness.view.panBy(QPointF(upTo(300) - 150, upTo(300) - 150));
        break;
      case 2:
        model.undo();
        break;
      case 3:
        model.redo();
        break;
      case 4:
        model.selectAll();
        harness.key(Qt::Key_Right, {}, upTo(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
        break;
      case 5: {
        BackdropSettings backdrop = model.document().backdrop;
        backdrop.enabled = upTo(3) == 0;
        backdrop.insetFraction = upTo(20) / 100.0;
        model.setBackdrop(backdrop);
        break;
      }
      case 6:
        model.setTool(Tool::Text);
        harness.click(anywhere());
        harness.key(Qt::Key_X, QStringLiteral("x"));
        harness.key(Qt::Key_Escape);
        break;
      default:
        model.setTool(anyTool());
        harness.drag(anywhere(), anywhere());
        break;
    }
    if (step % 5 != 0) {
      QApplication::processEvents();
      continue;
    }
    while (harness.view.isEditingText() || !model.selection().empty() || model.selectedPiece()) {
      if (!model.escape()) break;
    }
    harness.leave();
    const QImage shown = harness.shown();
    CanvasScene fresh;
    const double ratio = shown.devicePixelRatio();
    const double scale = harness.view.zoom() * ratio;
    fresh.setDocument(model.document(), scale);
    QImage expected(shown.size(), QImage::Format_RGB32);
    fresh.paint(expected, expected.rect(), (harness.view.viewPoint({0, 0}) * ratio).toPoint(), scale, ratio);
    expected.setDevicePixelRatio(ratio);
    ASSERT_EQ(difference(shown, expected), std::string()) << "after step " << step << ", " << what;
  }
}

}  // namespace
}  // namespace vellora
