#include <gtest/gtest.h>

#include <cmath>

#include <QAccessible>
#include <QWheelEvent>

#include "editor/ui/compressor/ComparisonView.h"
#include "kit/Paint.h"
#include "kit/WidgetEvents.h"

namespace vellora {

/// A pixel of a coded picture: which one it is and of which picture.
struct Coded {
  QPoint place;
  bool after = false;
  bool operator==(const Coded&) const = default;
};

void PrintTo(const Coded& coded, std::ostream* out) {
  *out << (coded.after ? "after " : "before ") << coded.place.x() << "," << coded.place.y();
}

namespace {

enum class Kind { Before, After };

/// A picture of up to 2048 × 2048 whose every pixel tells its own place.
QImage codedPicture(QSize size, Kind kind) {
  QImage picture(size, QImage::Format_RGB32);
  for (int y = 0; y < size.height(); ++y) {
    auto* row = reinterpret_cast<QRgb*>(picture.scanLine(y));
    for (int x = 0; x < size.width(); ++x) {
      const int rest = (x >> 8) | (y >> 8) << 3 | (kind == Kind::After ? 1 << 7 : 0);
      // The unused byte holds whatever the one who made the picture left there.
      row[x] = qRgba(x & 0xFF, y & 0xFF, rest, x & 0xFF);
    }
  }
  return picture;
}

Coded decoded(QRgb pixel) {
  const int rest = qBlue(pixel);
  return {{qRed(pixel) | (rest & 7) << 8, qGreen(pixel) | (rest >> 3 & 7) << 8}, (rest & 1 << 7) != 0};
}

class Bench {
 public:
  explicit Bench(QSize size = {400, 300}) {
    view.resize(size);
    view.show();
    view.activateWindow();
    view.setFocus();
    settle();
  }

  void settle() {
    QApplication::processEvents();
    ASSERT_TRUE(test::runUntil([&] { return view.isSettled(); }));
  }
  void showCoded(QSize before, QSize after) {
    view.setPictures(codedPicture(before, Kind::Before), codedPicture(after, Kind::After));
    settle();
  }

  QImage shown() {
    settle();
    return view.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }
  Coded at(QPoint pixel) { return decoded(shown().pixel(pixel)); }
  double ratio() const { return view.devicePixelRatioF(); }
  QSize pixels() const { return (QSizeF(view.size()) * ratio()).toSize(); }
  QPoint lastPixel() const { return {pixels().width() - 1, pixels().height() - 1}; }

  /// How many pixels of a row that nothing lies on show the picture before.
  int pixelsBefore() {
    const QImage image = shown();
    const int row = image.height() / 4;
    int count = 0;
    while (count < image.width() && !decoded(image.pixel(count, row)).after) ++count;
    // The divider's left half lies on the picture before and is white, which reads as after.
    const bool covered = count < image.width() && count > 0;
    return covered ? count + static_cast<int>(std::lround(dividerReach * ratio())) : count;
  }

  void key(int key, Qt::KeyboardModifiers modifiers = {}) { test::type(view, key, modifiers); }
  void key(QEvent::Type type, int key) {
    QKeyEvent event(type, key, {});
    QApplication::sendEvent(&view, &event);
  }

  void mouse(QEvent::Type type, QPointF position, Qt::MouseButton button = Qt::LeftButton) {
    const bool held = type == QEvent::MouseButtonPress || type == QEvent::MouseMove;
    QMouseEvent event(type, position, view.mapToGlobal(position), type == QEvent::MouseMove ? Qt::NoButton : button,
                      held ? Qt::MouseButtons(button) : Qt::NoButton, {});
    QApplication::sendEvent(&view, &event);
  }
  void drag(QPointF from, QPointF to, Qt::MouseButton button = Qt::LeftButton) {
    mouse(QEvent::MouseButtonPress, from, button);
    for (int i = 1; i <= 4; ++i) mouse(QEvent::MouseMove, from + (to - from) * i / 4, button);
    mouse(QEvent::MouseButtonRelease, to, button);
  }
  void wheel(QPoint pixel, int angle) {
    const QPointF position = (QPointF(pixel) + QPointF(0.5, 0.5)) / ratio();
    QWheelEvent event(position, view.mapToGlobal(position), {}, {0, angle}, Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&view, &event);
  }

  test::ThemeForTest theme;
  ComparisonView view;

 private:
  static constexpr double dividerReach = 1;  // points left of its place
};

constexpr int notch = QWheelEvent::DefaultDeltasPerStep;
constexpr int slack = 1;  // pixels

TEST(ComparisonView, ShowsPixelForPixelWithBeforeOnTheLeft) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const QImage image = bench.shown();
  const QPoint corner = decoded(image.pixel(0, 0)).place;
  EXPECT_NEAR(corner.x(), (1600 - image.width()) / 2, 1) << "the picture's middle is in the view's";
  EXPECT_NEAR(corner.y(), (1200 - image.height()) / 2, 1);
  const int row = image.height() / 4;
  for (int x = 0; x < image.width(); ++x) {
    if (std::abs(x - image.width() / 2) <= 2 * bench.ratio() + slack) continue;
    const Coded expected{corner + QPoint(x, row), x > image.width() / 2};
    ASSERT_EQ(decoded(image.pixel(x, row)), expected) << x;
  }
}

TEST(ComparisonView, MovesTheDividerByKeys) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const int width = bench.pixels().width();
  const int start = bench.pixelsBefore();
  EXPECT_NEAR(start, width / 2, slack);
  for (int i = 0; i < 5; ++i) bench.key(Qt::Key_Right);
  EXPECT_NEAR(bench.pixelsBefore() - start, width * 0.05, slack);
  bench.key(Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_NEAR(bench.pixelsBefore() - start, width * -0.05, slack);
  bench.key(Qt::Key_End);
  EXPECT_EQ(bench.at({bench.lastPixel().x() - 8, bench.pixels().height() / 4}).after, false);
  bench.key(Qt::Key_Right);
  bench.key(Qt::Key_Home);
  EXPECT_EQ(bench.at({8, bench.pixels().height() / 4}).after, true);
}

TEST(ComparisonView, MovesTheDividerByDragAndKeepsItsHandleInReach) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const Coded corner = bench.at({0, 0});
  const int start = bench.pixelsBefore();
  // Taken a little beside its line it does not jump.
  bench.drag({210, 40}, {130, 90});
  EXPECT_NEAR(bench.pixelsBefore() - start, -80 * bench.ratio(), slack);
  EXPECT_EQ(bench.at({0, 0}), corner) << "the picture stays";
  bench.drag({120, 40}, {-500, 40});
  EXPECT_EQ(bench.view.divider(), 0);
  bench.drag({25, 150}, {225, 150});
  EXPECT_NEAR(bench.pixelsBefore(), 200 * bench.ratio(), slack) << "by its handle, which stays within the view";
}

TEST(ComparisonView, PansUpToThePicturesEdges) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const Coded corner = bench.at({0, 0});
  bench.drag({60, 60}, {40, 50});
  const QPoint distance = (QPointF(20, 10) * bench.ratio()).toPoint();
  EXPECT_EQ(bench.at({0, 0}).place, corner.place + distance);
  bench.drag({60, 60}, {5000, 6000}, Qt::MiddleButton);
  EXPECT_EQ(bench.at({0, 0}), (Coded{{0, 0}, false}));
  bench.drag({60, 60}, {-5000, -6000});
  bench.view.setDivider(0);
  EXPECT_EQ(bench.at(bench.lastPixel()), (Coded{{1599, 1199}, true}));

  // What is smaller stays in the middle, with the ground around it.
  bench.view.clear();
  bench.showCoded({100, 80}, {100, 80});
  bench.drag({60, 60}, {90, 10});
  const QImage image = bench.shown();
  const QPoint left((image.width() - 100) / 2, image.height() / 2 - 30);
  EXPECT_EQ(decoded(image.pixel(left)).place.x(), 0);
  EXPECT_EQ(image.pixelColor(left - QPoint(1, 0)), Theme::shared().palette().sunken);
}

TEST(ComparisonView, KeepsThePixelBelowThePointerWhenZooming) {
  for (const QPointF part : {QPointF(0.1, 0.3), QPointF(0.83, 0.61), QPointF(0.31, 0.9)}) {
    Bench bench;
    bench.showCoded({1600, 1200}, {1600, 1200});
    const QPoint pixel(static_cast<int>(part.x() * bench.pixels().width()),
                       static_cast<int>(part.y() * bench.pixels().height()));
    const Coded start = bench.at(pixel);
    for (int i = 0; i < 5; ++i) {
      bench.wheel(pixel, notch);
      EXPECT_EQ(bench.at(pixel), start) << "step " << i + 1;
    }
    // 800 %, and no further: eight pixels of the screen for one.
    bench.wheel(pixel, notch);
    const QImage image = bench.shown();
    int same = 0;
    for (int x = pixel.x() - 10; x <= pixel.x() + 10; ++x) same += decoded(image.pixel(x, pixel.y())) == start ? 1 : 0;
    EXPECT_EQ(same, 8);
    for (int i = 0; i < 5; ++i) bench.wheel(pixel, -notch / 2), bench.wheel(pixel, -notch / 2);
    EXPECT_EQ(bench.at(pixel), start) << "at 100 % again";
  }
}

TEST(ComparisonView, LaysAnAfterOfAnotherSizeOntoBefore) {
  for (const QSize size : {QSize(300, 200), QSize(251, 167), QSize(1200, 800)}) {
    Bench bench;
    bench.showCoded({600, 400}, size);
    for (int zoom = 0; zoom < 3; ++zoom) bench.key(Qt::Key_Plus);  // 400 %
    const double scale = 4;
    bench.view.setDivider(1);
    const QImage before = bench.shown();
    bench.view.setDivider(0);
    const QImage after = bench.shown();
    const QPointF ratio(size.width() / 600.0, size.height() / 400.0);
    for (int y = 60; y < 240; y += 7) {
      for (int x = 60; x < 320; x += 3) {
        const Coded under = decoded(before.pixel(x, y));
        const Coded over = decoded(after.pixel(x, y));
        ASSERT_TRUE(over.after && !under.after);
        // The pixel before is shown by four; the one after is among those it overlaps.
        EXPECT_GE(over.place.x() + 1 + 1 / scale, under.place.x() * ratio.x()) << x << "," << y;
        EXPECT_LE(over.place.x() - 1 / scale, (under.place.x() + 1) * ratio.x()) << x << "," << y;
        EXPECT_GE(over.place.y() + 1 + 1 / scale, under.place.y() * ratio.y()) << x << "," << y;
        EXPECT_LE(over.place.y() - 1 / scale, (under.place.y() + 1) * ratio.y()) << x << "," << y;
        if (size.width() == 300) {
          EXPECT_EQ(over.place, QPoint(under.place.x() / 2, under.place.y() / 2));
        }
      }
    }
  }
}

TEST(ComparisonView, KeepsZoomPlaceAndDividerUntilAnotherPictureComes) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const QImage fresh = bench.shown();
  bench.key(Qt::Key_Plus);
  bench.drag({60, 60}, {20, 30});
  bench.view.setDivider(0.7);
  const QImage placed = bench.shown();
  bench.showCoded({1600, 1200}, {1600, 1200});
  EXPECT_EQ(bench.shown(), placed);
  bench.view.setBefore(codedPicture({1600, 1200}, Kind::Before));
  bench.showCoded({1600, 1200}, {1600, 1200});
  EXPECT_EQ(bench.shown(), placed) << "through a while without a picture after";
  bench.view.clear();
  bench.showCoded({1600, 1200}, {1600, 1200});
  EXPECT_EQ(bench.shown(), fresh);
  bench.key(Qt::Key_Plus);
  bench.showCoded({1500, 1200}, {1500, 1200});
  EXPECT_EQ(bench.at({9, 9}).place - bench.at({0, 0}).place, QPoint(9, 9)) << "another size is another picture";
}

TEST(ComparisonView, ShowsThePicturesHandedInLast) {
  Bench bench;
  const QSize large(1900, 1500);
  bench.view.setPictures(codedPicture({1700, 1500}, Kind::Before), codedPicture({1700, 1500}, Kind::After));
  bench.view.setPictures(codedPicture(large, Kind::After), codedPicture(large, Kind::Before));
  EXPECT_TRUE(bench.at({4, 4}).after);
  bench.view.setPictures(codedPicture({1700, 1500}, Kind::Before), codedPicture({1700, 1500}, Kind::After));
  bench.view.clear();
  EXPECT_EQ(bench.shown().pixelColor(4, 4), Theme::shared().palette().sunken) << "what was on its way is not wanted";
}

TEST(ComparisonView, AveragesLightWhenItShowsLess) {
  Bench bench;
  // Black and white by turns: half the light, which is no moiré and not half the value. Odd sizes leave no seam.
  for (const QSize size : {QSize(1601, 1203), QSize(3203, 2401)}) {
    QImage fine(size, QImage::Format_RGB32);
    for (int y = 0; y < fine.height(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(fine.scanLine(y));
      for (int x = 0; x < fine.width(); ++x) row[x] = (x + y) % 2 == 0 ? 0x00000000 : 0x00FFFFFF;
    }
    bench.view.clear();
    bench.view.setPictures(fine, fine);
    bench.settle();
    bench.key(Qt::Key_0);
    bench.view.setDivider(1);
    const QImage image = bench.shown();
    // From its upper left corner, which nothing covers, to its right edge.
    const int row = image.height() / 3;
    int inside = 0;
    for (int x = 0; x < image.width() * 9 / 10; ++x) {
      const QColor color = image.pixelColor(x, row);
      if (color == Theme::shared().palette().sunken) continue;
      ++inside;
      ASSERT_NEAR(color.red(), 188, 2) << x << " of " << image.width();
    }
    EXPECT_GT(inside, image.width() / 2);
  }
}

TEST(ComparisonView, ShowsTransparencyAsACheckerboard) {
  Bench bench;
  QImage clear({1000, 1000}, QImage::Format_RGBA8888);
  clear.fill(Qt::transparent);
  bench.view.setPictures(clear, codedPicture({1000, 1000}, Kind::After));
  QSet<QRgb> tones;
  const QImage image = bench.shown();
  for (int x = 0; x < image.width() / 3; ++x) tones.insert(image.pixel(x, 5));
  EXPECT_EQ(tones.size(), 2);
  EXPECT_FALSE(tones.contains(Theme::shared().palette().sunken.rgb()));
}

TEST(ComparisonView, ShowsOnlyBeforeWhileBIsHeld) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const QPoint right(bench.pixels().width() * 3 / 4, bench.pixels().height() / 2);
  bench.key(QEvent::KeyPress, Qt::Key_B);
  EXPECT_FALSE(bench.at(right).after);
  bench.key(QEvent::KeyRelease, Qt::Key_B);
  EXPECT_TRUE(bench.at(right).after);
  bench.key(QEvent::KeyPress, Qt::Key_B);
  bench.view.clearFocus();
  EXPECT_TRUE(bench.at(right).after) << "the key is let go elsewhere";
}

TEST(ComparisonView, FitsAndKeepsTheMiddleWhileItsSizeChanges) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const auto middle = [&] { return bench.at({bench.pixels().width() / 4, bench.pixels().height() / 2}).place.y(); };
  const int start = middle();
  for (int height = 300; height <= 340; ++height) bench.view.resize(400, height), bench.settle();
  EXPECT_NEAR(middle(), start, 1);

  bench.mouse(QEvent::MouseButtonDblClick, {40, 40});
  for (const QSize size : {QSize(400, 300), QSize(600, 310)}) {
    bench.view.resize(size);
    const QImage image = bench.shown();
    const int y = image.height() / 3;
    EXPECT_NEAR(decoded(image.pixel(image.width() / 3, 1)).place.y(), 0, 20) << "the whole height is in the view";
    EXPECT_EQ(image.pixelColor(1, y) == Theme::shared().palette().sunken, size.width() == 600);
  }
  bench.mouse(QEvent::MouseButtonDblClick, {200, 40});
  bench.view.setDivider(1);
  EXPECT_EQ(bench.at({40, 40}).place - bench.at({30, 30}).place, QPoint(10, 10)) << "100 % again";
}

TEST(ComparisonView, TellsThatItIsBusyAfterAMoment) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  const QImage calm = bench.shown();
  bench.view.setBusy(true);
  EXPECT_EQ(bench.shown(), calm);
  EXPECT_TRUE(test::runUntil([&] { return bench.shown() != calm; }));
  bench.view.setBusy(false);
  EXPECT_EQ(bench.shown(), calm);
}

TEST(ComparisonView, ShowsAMessageInPlaceOfPictures) {
  Bench bench;
  const QImage empty = bench.shown();
  bench.showCoded({1600, 1200}, {1600, 1200});
  const QImage pictures = bench.shown();
  bench.view.setMessage(QStringLiteral("It ends too early."));
  EXPECT_NE(bench.shown(), empty);
  EXPECT_EQ(bench.shown().pixel(4, 4), empty.pixel(4, 4));
  bench.showCoded({1600, 1200}, {1600, 1200});
  EXPECT_EQ(bench.shown(), pictures);
}

TEST(ComparisonView, LetsScreenReadersReadAndMoveTheDivider) {
  Bench bench;
  bench.showCoded({1600, 1200}, {1600, 1200});
  QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(&bench.view);
  ASSERT_NE(accessible, nullptr);
  EXPECT_EQ(accessible->role(), QAccessible::Slider);
  ASSERT_NE(accessible->valueInterface(), nullptr);
  EXPECT_EQ(accessible->valueInterface()->currentValue().toInt(), 50);
  accessible->valueInterface()->setCurrentValue(25);
  EXPECT_NEAR(bench.pixelsBefore(), bench.pixels().width() / 4, slack);
}

}  // namespace
}  // namespace vellora
