#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QScreen>

#include "kit/Button.h"
#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/TimeText.h"
#include "kit/Toast.h"
#include "kit/Tokens.h"
#include "recording/ui/BarControls.h"
#include "recording/ui/CameraBubble.h"
#include "recording/ui/QtRecordingPresenter.h"
#include "recording/ui/RecordingBar.h"
#include "recording/ui/RecordingBorder.h"
#include "recording/ui/RegionPanel.h"
#include "support/FakePreferences.h"
#include "support/PrintGeometry.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using Mode = RecordingBarModel::Mode;

TEST(RecordingBarText, elapsedTime) {
  EXPECT_EQ(elapsedText(0), QStringLiteral("00:00"));
  EXPECT_EQ(elapsedText(12.99), QStringLiteral("00:12"));
  EXPECT_EQ(elapsedText(3599.5), QStringLiteral("59:59"));
  EXPECT_EQ(elapsedText(3723), QStringLiteral("1:02:03"));
  EXPECT_EQ(elapsedText(360000), QStringLiteral("100:00:00"));
  EXPECT_EQ(elapsedText(-1), QStringLiteral("00:00"));
}

TEST(RecordingBarPlace, besideAndOnTheScreen) {
  const QRect screen(0, 0, 1600, 900);
  const QSize bar(300, 44);
  const auto place = [&](const QRect& beside) { return barPlace(bar, beside, screen); };
  EXPECT_EQ(place({400, 200, 400, 300}).topLeft(), QPoint(450, 516));
  EXPECT_LT(place({400, 500, 400, 380}).bottom(), 500 - 28) << "above, clear of the badge";
  const QRect inside = place(screen);
  EXPECT_TRUE(screen.contains(inside));
  EXPECT_GT(inside.top(), 700);
  EXPECT_EQ(place({-500, 200, 40, 40}).left(), 8);
  EXPECT_EQ(place({5000, 200, 40, 40}).right(), 1591);
  EXPECT_TRUE(screen.contains(place({0, 5000, 40, 40})));
}

class Shown : public testing::Test {
 protected:
  Shown() {
    Theme::shared().setReducedMotion(true);
    setCompositingProbe([](const QScreen*) { return true; });
    model_.micDevices = {{QStringLiteral("m"), QStringLiteral("Desk & Stand")}};
    model_.cameraDevices = {{QStringLiteral("c"), QStringLiteral("Eye")}};
    model_.onStart = [this] { told_ << QStringLiteral("start"); };
    model_.onStop = [this] { told_ << QStringLiteral("stop"); };
    model_.onPauseToggle = [this] { told_ << QStringLiteral("pause"); };
    model_.onSelectMic = [this](const std::optional<QString>& id) {
      told_ << QStringLiteral("mic ") + id.value_or(QStringLiteral("off"));
    };
    model_.onSelectCamera = [this](const std::optional<QString>& id) {
      told_ << QStringLiteral("camera ") + id.value_or(QStringLiteral("off"));
    };
    model_.onSelectKeyboard = [this](bool isOn) { told_ << QStringLiteral("keys %1").arg(isOn); };
    model_.onSelectSystemSound = [this](bool isOn) { told_ << QStringLiteral("sound %1").arg(isOn); };
  }

  QStringList takeTold() { return std::exchange(told_, {}); }
  void set(Mode mode) {
    model_.mode = mode;
    model_.changed();
  }
  void showBar() { presenter_.showBar(model_, region_, display_); }
  RecordingBar& bar() { return *presenter_.bar(); }
  /// The one control of the kind that is seen and has that accessible name.
  QAbstractButton* button(const QString& name) {
    for (auto* const each : bar().findChildren<QAbstractButton*>()) {
      if (each->isVisible() && each->accessibleName() == name) return each;
    }
    return nullptr;
  }
  QStringList visibleTexts() {
    QStringList texts;
    for (const auto* const label : bar().findChildren<QLabel*>()) {
      if (label->isVisible()) texts << label->text();
    }
    return texts;
  }
  void key(int key, Qt::KeyboardModifiers modifiers = {}) {
    QWidget* const target = bar().focusWidget() != nullptr ? bar().focusWidget() : presenter_.bar();
    QKeyEvent press(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(target, &press);
  }

  const DisplayInfo display_{.id = 1, .frame = {0, 0, 800, 800}};
  const PixelRect region_{200, 200, 320, 240};
  QStringList told_;
  RecordingBarModel model_;
  test::VirtualRunLoop loop_;
  test::FakePreferences preferences_;
  QtRecordingPresenter presenter_{loop_, preferences_, nullptr, nullptr};
};

class RecordingBarTest : public Shown {};

TEST_F(RecordingBarTest, offersWhatTheModelCanChooseBeforeTheStart) {
  model_.onSelectSystemSound = nullptr;
  showBar();
  EXPECT_EQ(bar().panelRect().height(), tokens::barHeight);
  EXPECT_EQ(button(qtTrId("recording.bar.sound.off")), nullptr);
  button(qtTrId("recording.bar.keys.off"))->click();
  EXPECT_EQ(takeTold(), QStringList{QStringLiteral("keys 1")});
  EXPECT_NE(button(qtTrId("recording.bar.keys.off")), nullptr) << "it shows what the model says, not what was pressed";
  model_.keyboardEnabled = true;
  model_.changed();
  EXPECT_NE(button(qtTrId("recording.bar.keys.on")), nullptr);
  EXPECT_EQ(button(qtTrId("recording.bar.stop")), nullptr);

  auto* const mic = bar().findChild<DeviceButton*>();
  mic->openMenu();
  ASSERT_EQ(mic->menu()->actions().size(), 3);
  EXPECT_EQ(mic->menu()->actions()[0]->text(), QStringLiteral("Desk && Stand"));
  EXPECT_TRUE(mic->menu()->actions()[2]->isChecked());
  mic->menu()->actions()[0]->trigger();
  mic->menu()->actions()[2]->trigger();
  EXPECT_EQ(takeTold(), (QStringList{QStringLiteral("mic m"), QStringLiteral("mic off")}));
  mic->closeMenu();

  const int narrow = bar().width();
  model_.selectedMicID = QStringLiteral("m");
  model_.micLevel = 0.5;
  model_.changed();
  EXPECT_GT(bar().width(), narrow) << "room for the meter";
  EXPECT_TRUE(bar().findChild<LevelMeter*>()->isVisible());
  EXPECT_EQ(bar().findChild<LevelMeter*>()->level(), 0.5);
}

TEST_F(RecordingBarTest, isDrivenByTheKeyboard) {
  showBar();
  presenter_.showRegionPanel(region_, display_, [this](const PixelRect& r) { told_ << QString::number(r.x); }, {});
  key(Qt::Key_Right);
  key(Qt::Key_Left, Qt::ShiftModifier);
  key(Qt::Key_Return);
  key(Qt::Key_Space);
  key(Qt::Key_Escape);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_Space, {});
  QApplication::sendEvent(bar().focusWidget(), &release);
  EXPECT_EQ(takeTold(), (QStringList{QStringLiteral("201"), QStringLiteral("191"), QStringLiteral("start"),
                                     QStringLiteral("stop"), QStringLiteral("start")}))
      << "Space presses Start, which has the focus";
  set(Mode::arming);
  key(Qt::Key_Escape);
  EXPECT_EQ(takeTold(), QStringList{QStringLiteral("stop")});
  set(Mode::recording);
  key(Qt::Key_Escape);
  key(Qt::Key_Return);
  EXPECT_EQ(takeTold(), QStringList()) << "an Escape must not end a recording";
}

TEST_F(RecordingBarTest, tellsHowTheRecordingGoes) {
  model_.mode = Mode::arming;
  showBar();
  presenter_.showCountdown(3, region_, display_);
  EXPECT_EQ(visibleTexts(), QStringList{qtTrId("recording.bar.startingIn")});
  presenter_.hideCountdown();

  model_.keyboardEnabled = true;
  model_.elapsed = 72;
  set(Mode::recording);
  EXPECT_EQ(visibleTexts(), QStringList{QStringLiteral("01:12")});
  EXPECT_NE(button(qtTrId("recording.bar.keys.on")), nullptr);
  model_.keyboardHidden = true;
  model_.changed();
  EXPECT_NE(button(qtTrId("recording.bar.keys.hidden")), nullptr);
  button(qtTrId("recording.bar.pause"))->click();
  set(Mode::paused);
  button(qtTrId("recording.bar.resume"))->click();
  button(qtTrId("recording.bar.stop"))->click();
  EXPECT_EQ(takeTold(), (QStringList{QStringLiteral("pause"), QStringLiteral("pause"), QStringLiteral("stop")}));

  const QRect before = bar().geometry();
  model_.elapsed = 79;
  model_.changed();
  EXPECT_EQ(bar().geometry(), before) << "the clock does not wobble";
  model_.elapsed = 3600;
  model_.changed();
  EXPECT_GT(bar().width(), before.width());
  EXPECT_NEAR(bar().geometry().center().x(), before.center().x(), 1);
}

TEST_F(RecordingBarTest, leavesAModelThatIsGoneAlone) {
  showBar();
  RecordingBar* const old = presenter_.bar();
  auto* const keys = button(qtTrId("recording.bar.keys.off"));
  presenter_.hideBar();
  EXPECT_FALSE(model_.onChanged);
  keys->click();
  old->close();
  EXPECT_TRUE(told_.isEmpty());
}

TEST_F(RecordingBarTest, followsTheRegionUntilAPersonMovesIt) {
  presenter_.showRegionPanel(region_, display_, {}, {});
  showBar();
  const QPoint before = bar().pos();
  presenter_.regionPanel()->nudge(30, 0);
  EXPECT_EQ(bar().pos(), before + QPoint(30, 0));
  const QPoint grip = bar().panelRect().topLeft() + QPoint(6, 20);
  const auto mouse = [&](QEvent::Type type, QPoint global, Qt::MouseButtons held) {
    QMouseEvent event(type, global - bar().pos(), global, Qt::LeftButton, held, {});
    QApplication::sendEvent(presenter_.bar(), &event);
  };
  const QPoint from = bar().pos() + grip;
  mouse(QEvent::MouseButtonPress, from, Qt::LeftButton);
  mouse(QEvent::MouseMove, from + QPoint(-20, -50), Qt::LeftButton);
  mouse(QEvent::MouseButtonRelease, from + QPoint(-20, -50), {});
  EXPECT_EQ(bar().pos(), before + QPoint(10, -50));
  presenter_.regionPanel()->nudge(30, 0);
  EXPECT_EQ(bar().pos(), before + QPoint(10, -50));
}

class RecordingWindows : public Shown {};

TEST_F(RecordingWindows, areNamedWhileTheyAreShown) {
  EXPECT_TRUE(presenter_.ownWindows().empty());
  showBar();
  presenter_.showBorder(region_, 0, RecordingPresenter::BorderLook::armed);
  presenter_.showCountdown(3, region_, display_);
  presenter_.showCamera(display_);
  EXPECT_EQ(presenter_.ownWindows().size(), 1u + 4u + 1u + 1u);
  presenter_.hideBorder();
  presenter_.hideCountdown();
  presenter_.hideCamera();
  EXPECT_EQ(presenter_.ownWindows().size(), 1u);
  presenter_.hideBar();
  EXPECT_TRUE(presenter_.ownWindows().empty());
}

TEST_F(RecordingWindows, closingTheBubbleTurnsTheCameraOffBeforeTheStartOnly) {
  showBar();
  presenter_.showCamera(display_);
  auto* const close = presenter_.camera()->findChild<IconButton*>();
  close->click();
  EXPECT_EQ(takeTold(), QStringList{QStringLiteral("camera off")});
  set(Mode::recording);
  close->click();
  EXPECT_EQ(takeTold(), QStringList());
  EXPECT_EQ(presenter_.camera(), nullptr) << "its picture goes, the camera stays in the recording";
}

TEST_F(RecordingWindows, breathingStaysWithinItsBounds) {
  EXPECT_DOUBLE_EQ(RecordingBorder::opacityAt(0), 1);
  EXPECT_DOUBLE_EQ(RecordingBorder::opacityAt(800), 0.55);
  EXPECT_DOUBLE_EQ(RecordingBorder::opacityAt(1600), 1);
}

TEST_F(RecordingWindows, noticesAreToastsWithTheWarningSign) {
  presenter_.notify(RecordingNotice::recordingFailed);
  ASSERT_NE(Toast::current(), nullptr);
  EXPECT_EQ(Toast::current()->text(), qtTrId("toast.recordingFailed"));
  EXPECT_EQ(Toast::current()->kind(), ToastKind::Failure);
  Toast::dismiss();
}

}  // namespace
}  // namespace vellora
