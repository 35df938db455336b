#include "kit/Slider.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <QAccessible>

#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

class SliderTest : public testing::Test {
 protected:
  SliderTest() {
    slider_.setScale(-30, 30, 0.5);
    slider_.setDefaultNumber(0);
    slider_.resize(200, 28);
    slider_.show();
    QObject::connect(&slider_, &Slider::numberChanged, [this](double number) { changes_ << number; });
    QObject::connect(&slider_, &Slider::editingFinished, [this] { ++finished_; });
  }

  void mouse(QEvent::Type kind, double x) {
    const QPointF place(x, 14);
    QMouseEvent event(kind, place, slider_.mapToGlobal(place), Qt::LeftButton,
                      kind == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, {});
    QApplication::sendEvent(&slider_, &event);
  }

  test::ThemeForTest theme_;
  Slider slider_;
  QList<double> changes_;
  int finished_ = 0;
};

TEST_F(SliderTest, SettingANumberTellsNobodyAndKeepsItExact) {
  slider_.setNumber(7.3);
  EXPECT_EQ(slider_.number(), 7.3);
  slider_.setNumber(99);
  EXPECT_EQ(slider_.number(), 30);
  slider_.setNumber(std::numeric_limits<double>::quiet_NaN());
  EXPECT_EQ(slider_.number(), -30);
  EXPECT_TRUE(changes_.isEmpty());
}

TEST_F(SliderTest, ADragIsManyChangesAndOneEnd) {
  mouse(QEvent::MouseButtonPress, 100);  // the middle, where the knob is not: it stands at 0 = the middle
  mouse(QEvent::MouseMove, 130);
  mouse(QEvent::MouseMove, 400);
  EXPECT_EQ(finished_, 0);
  mouse(QEvent::MouseButtonRelease, 400);
  EXPECT_EQ(slider_.number(), 30);
  EXPECT_GE(changes_.size(), 2);
  EXPECT_EQ(finished_, 1);
  for (const double change : changes_) EXPECT_EQ(std::fmod(change, 0.5), 0) << change;
}

TEST_F(SliderTest, TakingTheKnobAsideDoesNotMoveIt) {
  mouse(QEvent::MouseButtonPress, 104);
  mouse(QEvent::MouseButtonRelease, 104);
  EXPECT_TRUE(changes_.isEmpty());
  EXPECT_EQ(finished_, 0);
}

TEST_F(SliderTest, KeysStepAndTheReleaseEndsTheRun) {
  slider_.setFocus();
  slider_.setNumber(7.3);
  test::type(slider_, Qt::Key_Right);
  EXPECT_EQ(slider_.number(), 8);  // 7.3 shows as 7.5
  test::type(slider_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(slider_.number(), 3);
  test::type(slider_, Qt::Key_Home);
  EXPECT_EQ(slider_.number(), -30);
  test::type(slider_, Qt::Key_Left);
  EXPECT_EQ(slider_.number(), -30);
  EXPECT_EQ(changes_.size(), 3);
  EXPECT_EQ(finished_, 3);
}

TEST_F(SliderTest, RightToLeftTurnsItRound) {
  slider_.setLayoutDirection(Qt::RightToLeft);
  slider_.setFocus();
  test::type(slider_, Qt::Key_Left);
  EXPECT_EQ(slider_.number(), 0.5);
  mouse(QEvent::MouseButtonPress, 199);
  EXPECT_EQ(slider_.number(), -30);
}

TEST_F(SliderTest, ADoubleClickGoesBackToTheDefault) {
  slider_.setNumber(12);
  mouse(QEvent::MouseButtonDblClick, 150);
  EXPECT_EQ(changes_, QList<double>{0});
  EXPECT_EQ(finished_, 1);
}

TEST_F(SliderTest, ScreenReadersSeeAndMoveIt) {
  slider_.setAccessibleName(QStringLiteral("Tilt"));
  slider_.setNumber(10);
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(&slider_);
  ASSERT_NE(spoken->valueInterface(), nullptr);
  EXPECT_EQ(spoken->role(), QAccessible::Slider);
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Tilt"));
  EXPECT_EQ(spoken->valueInterface()->currentValue().toInt(), 20) << "in steps of one half";
  spoken->valueInterface()->setCurrentValue(-4);
  EXPECT_EQ(changes_, QList<double>{-2});
}

}  // namespace
}  // namespace vellora
