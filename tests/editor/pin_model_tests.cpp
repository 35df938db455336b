#include "editor/PinModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/FakePreferences.h"
#include "support/PrintGeometry.h"

namespace vellora {
namespace {

const PinScreen left{QStringLiteral("left"), {{0, 0}, {1920, 1080}}, {{0, 30}, {1920, 1050}}};
const PinScreen right{QStringLiteral("right"), {{1920, 0}, {1280, 1024}}, {{1920, 0}, {1280, 1000}}};

PinModel placed(Size image, std::optional<Point> center = Point{600, 500}, const QString& screen = left.name) {
  PinModel model(image, {});
  model.place({left, right}, screen, 1, center);
  return model;
}

TEST(PinModelTest, ANewPinIsWholeAndInsideTheVisibleFrame) {
  EXPECT_EQ(placed({400, 300}).frame(), (Rect{{400, 350}, {400, 300}}));
  EXPECT_EQ(placed({400, 300}, Point{10, 10}).frame(), (Rect{{0, 30}, {400, 300}}));
  EXPECT_EQ(placed({400, 300}, std::nullopt, right.name).frame(), (Rect{{2360, 350}, {400, 300}}));
  const PinModel full = placed({1920, 1080}, Point{960, 540});
  EXPECT_NEAR(full.scale(), 1050.0 / 1080, 1e-12);
  EXPECT_EQ(full.frame().size, (Size{1867, 1050}));
  EXPECT_EQ(placed({400, 300}, Point{500, 500}, QStringLiteral("gone")).screen()->name, left.name);
}

TEST(PinModelTest, ZoomingKeepsTheCentreAndComesBack) {
  PinModel model = placed({401, 301});
  const Rect before = model.frame();
  for (int i = 0; i < 7; ++i) model.zoomBy(1.1);
  EXPECT_GT(model.scale(), 1.9);
  EXPECT_EQ(PinGeometry::center(model.frame()), PinGeometry::center(before));
  for (int i = 0; i < 7; ++i) model.zoomBy(1 / 1.1);
  EXPECT_EQ(model.scale(), 1);
  EXPECT_EQ(model.frame(), before);
}

TEST(PinModelTest, SmallStepsPassTheScalesThatSnap) {
  PinModel model = placed({400, 300});
  model.zoomBy(1.02);
  EXPECT_EQ(model.scale(), 1) << "too near to leave it";
  model.zoomBy(1.01);
  model.zoomBy(1.02);
  EXPECT_NEAR(model.scale(), 1.02 * 1.01 * 1.02, 1e-12);
}

TEST(PinModelTest, APinIsNeverLargerThanItsScreen) {
  PinModel model = placed({1000, 600});
  for (int i = 0; i < 50; ++i) model.zoomBy(1.3);
  EXPECT_NEAR(model.scale(), 1.8, 1e-12);
  model.setScale(5);
  EXPECT_NEAR(model.scale(), 1.8, 1e-12);
  for (const Size hostile : {Size{65535, 1}, Size{1, 65535}, Size{65535, 65535}, Size{1e300, 1}}) {
    PinModel strange = placed(hostile);
    const double factors[] = {1e9, 1e-9, 0, -1, std::numeric_limits<double>::quiet_NaN()};
    for (const double factor : factors) {
      strange.zoomBy(factor);
      strange.setScale(factor);
      EXPECT_LE(strange.frame().size.width, 1920);
      EXPECT_LE(strange.frame().size.height, 1080);
      EXPECT_GE(strange.frame().size.width, 1);
      EXPECT_GE(strange.frame().size.height, 1);
    }
  }
}

TEST(PinModelTest, ActualSizeIsAToggle) {
  PinModel model = placed({400, 300});
  model.setScale(0.7);
  model.toggleActualSize();
  EXPECT_EQ(model.scale(), 1);
  model.toggleActualSize();
  EXPECT_EQ(model.scale(), 0.7);
}

TEST(PinModelTest, APinchFollowsTheFingersAndSnapsAtItsEnd) {
  PinModel model = placed({400, 300}, Point{210, 190});
  model.pinch(0.5);
  EXPECT_EQ(model.scale(), 1) << "none has begun";
  model.beginPinch();
  model.pinch(0.5);
  EXPECT_EQ(model.scale(), 1.5);
  model.pinch(0.3);
  EXPECT_DOUBLE_EQ(model.scale(), 1.95) << "no snapping under the fingers";
  EXPECT_EQ(PinGeometry::center(model.frame()), (Point{210, 190})) << "around where it began, beyond the screen's edge";
  model.endPinch();
  EXPECT_EQ(model.scale(), 2);
  EXPECT_EQ(model.frame(), (Rect{{0, 30}, {800, 600}}));
  model.beginPinch();
  for (int i = 0; i < 100; ++i) model.pinch(0.5);
  EXPECT_DOUBLE_EQ(model.scale(), 3.6) << "the whole picture on the screen";
  for (int i = 0; i < 100; ++i) model.pinch(-0.9);
  EXPECT_DOUBLE_EQ(model.scale(), 0.2);

  PinModel small = placed({100, 100});
  small.beginPinch();
  small.pinch(9);
  small.endPinch();
  EXPECT_EQ(small.scale(), 10);
  small.zoomBy(0.9);
  EXPECT_EQ(small.scale(), 9) << "no jump back to what other ways of zooming reach";
}

TEST(PinModelTest, PullingAnEdgeHoldsTheOppositeOne) {
  PinModel model = placed({400, 300});
  const Rect before = model.frame();
  model.beginResize({.left = true, .top = true});
  for (int x = 1; x <= 100; ++x) model.resize({-double(x), 0});
  EXPECT_EQ(model.scale(), 1.25);
  EXPECT_EQ(model.frame().size, (Size{500, 375}));
  EXPECT_EQ((Point{model.frame().maxX(), model.frame().maxY()}), (Point{before.maxX(), before.maxY()}));
  model.resize({-100, -30});
  EXPECT_EQ(model.scale(), 1.25) << "the axis that moved more since the beginning";
  model.resize({-4, 0});
  EXPECT_EQ(model.scale(), 1);
  EXPECT_EQ(model.frame(), before);
  model.endResize();
  model.resize({-300, 0});
  EXPECT_EQ(model.frame(), before);
  model.beginResize({.right = true});
  model.resize({-1000, 0});
  EXPECT_EQ(model.frame().size, (Size{80, 60}));
  EXPECT_EQ(model.frame().origin, before.origin);
}

TEST(PinModelTest, ANudgedPinStaysInReach) {
  PinModel model = placed({400, 300});
  model.nudge({-10, 1});
  EXPECT_EQ(model.frame().origin, (Point{390, 351}));
  model.nudge({-9000, -9000});
  EXPECT_EQ(model.frame().origin, (Point{24 - 400, 30 + 24 - 300}));
}

TEST(PinModelTest, WaitsElsewhereWhileItsScreenIsGone) {
  PinModel model = placed({400, 300}, Point{2800, 900}, right.name);
  const Rect home = model.frame();
  model.screensChanged({left});
  EXPECT_EQ(model.screen()->name, left.name);
  EXPECT_EQ(model.frame(), (Rect{{680, 730}, {400, 300}})) << "at the same place of the other screen, here its edge";
  model.screensChanged({left, right});
  EXPECT_EQ(model.frame(), home);
  EXPECT_EQ(model.screen()->name, right.name);

  // What was zoomed or moved meanwhile stays; what the window manager moved is no such thing.
  model.screensChanged({left});
  model.movedElsewhere({100, 100}, true);
  model.screensChanged({left, right});
  EXPECT_EQ(model.frame(), home);
  model.screensChanged({left});
  model.movedElsewhere({100, 100}, false);
  model.screensChanged({left, right});
  EXPECT_EQ(model.frame(), (Rect{{100, 100}, {400, 300}}));
}

TEST(PinModelTest, AScreenThatComesBackElsewhereTakesItsPinsAlong) {
  PinModel model = placed({400, 300}, Point{2800, 500}, right.name);
  const Rect home = model.frame();
  model.screensChanged({left});
  PinScreen moved = right;
  moved.frame.origin = moved.visibleFrame.origin = {-1280, 0};
  model.screensChanged({left, moved});
  EXPECT_EQ(model.frame().origin, (Point{home.minX() - 3200, home.minY()}));
}

TEST(PinModelTest, FollowsItsScreensSize) {
  PinModel model = placed({800, 600}, Point{1700, 900});
  PinScreen smaller = left;
  smaller.frame.size = {1280, 720};
  smaller.visibleFrame = {{0, 30}, {1280, 690}};
  model.screensChanged({smaller, right});
  EXPECT_EQ(model.frame(), (Rect{{480, 120}, {800, 600}}));
  smaller.frame.size = {640, 480};
  smaller.visibleFrame = smaller.frame;
  model.screensChanged({smaller, right});
  EXPECT_EQ(model.frame(), (Rect{{0, 0}, {640, 480}}));
  model.screensChanged({});
  EXPECT_EQ(model.frame(), (Rect{{0, 0}, {640, 480}})) << "no screen at all: nothing to go by";
}

TEST(PinModelTest, OpacityKeepsThePinVisible) {
  PinModel model = placed({400, 300});
  model.setOpacity(0);
  EXPECT_EQ(model.opacity(), 0.2);
  model.setOpacity(7);
  EXPECT_EQ(model.opacity(), 1);
  model.setOpacity(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(model.opacity(), 1);
}

TEST(PinStyleTest, TheLastStyleIsTheNextOnes) {
  test::FakePreferences preferences;
  EXPECT_EQ(PinStyle::load(preferences), (PinStyle{.shadow = true, .roundedCorners = false}));
  PinStyle{.shadow = false, .roundedCorners = true}.store(preferences);
  EXPECT_EQ(preferences.values[QStringLiteral("vellora.pinShadow")], false);
  EXPECT_EQ(PinStyle::load(preferences), (PinStyle{.shadow = false, .roundedCorners = true}));
  preferences.values[QStringLiteral("vellora.pinShadow")] = QStringLiteral("damaged");
  EXPECT_TRUE(PinStyle::load(preferences).shadow);
}

}  // namespace
}  // namespace vellora
