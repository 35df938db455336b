#include <gtest/gtest.h>

#include <QAccessible>
#include <QMenu>
#include <QPointer>
#include <QVBoxLayout>

#include "kit/AlertDialog.h"
#include "kit/Button.h"
#include "kit/LinkRow.h"
#include "kit/MenuButton.h"
#include "kit/SettingsGroup.h"
#include "kit/SettingsPage.h"
#include "kit/SettingsRow.h"
#include "kit/Switch.h"
#include "kit/Tokens.h"
#include "kit/WidgetEvents.h"

namespace vellora {
namespace {

class ControlsTest : public testing::Test {
 protected:
  void show(QWidget* widget) {
    layout_->addWidget(widget);
    window_.resize(500, 300);
    window_.show();
    window_.activateWindow();
    QApplication::processEvents();
    widget->setFocus(Qt::TabFocusReason);
  }

  test::ThemeForTest theme_;
  QWidget window_;
  QVBoxLayout* layout_ = new QVBoxLayout(&window_);
};

TEST_F(ControlsTest, ASwitchAsksAndLeavesTheAnswerToItsOwner) {
  auto* const toggle = new Switch;
  show(toggle);
  QList<bool> asked;
  QObject::connect(toggle, &Switch::toggleRequested, [&](bool on) { asked << on; });
  test::type(window_, Qt::Key_Space);
  test::type(window_, Qt::Key_Return);
  test::click(*toggle);
  EXPECT_EQ(asked, (QList<bool>{true, true, true}));
  EXPECT_FALSE(toggle->isChecked());
  toggle->setChecked(true);
  test::click(*toggle);
  EXPECT_EQ(asked.last(), false);
  toggle->setEnabled(false);
  test::click(*toggle);
  EXPECT_EQ(asked.size(), 4);
}

TEST_F(ControlsTest, TheWholeRowBelongsToItsSwitchAndNamesIt) {
  auto* const toggle = new Switch;
  auto* const row = new SettingsRow(toggle);
  row->setTitle(QStringLiteral("Copy"));
  row->setHelp(QStringLiteral("Ready to paste"));
  show(row);
  int asked = 0;
  QObject::connect(toggle, &Switch::toggleRequested, [&] { ++asked; });
  test::click(*row, QPoint(20, 20));
  EXPECT_EQ(asked, 1);
  row->setNotice(QStringLiteral("Taken"));
  QAccessibleInterface* const spoken = QAccessible::queryAccessibleInterface(toggle);
  EXPECT_EQ(spoken->role(), QAccessible::CheckBox);
  EXPECT_EQ(spoken->text(QAccessible::Name), QStringLiteral("Copy"));
  EXPECT_EQ(spoken->text(QAccessible::Description), QStringLiteral("Ready to paste Taken"));
  const int withNotice = row->sizeHint().height();
  row->setNotice(QString());
  EXPECT_LT(row->sizeHint().height(), withNotice);
}

TEST_F(ControlsTest, ReturnAndSpacePressAButton) {
  auto* const button = new SecondaryButton(QStringLiteral("Choose"));
  show(button);
  int clicks = 0;
  QObject::connect(button, &QPushButton::clicked, [&] { ++clicks; });
  test::type(window_, Qt::Key_Space);
  EXPECT_EQ(clicks, 1);
  test::type(window_, Qt::Key_Return);
  EXPECT_TRUE(test::runUntil([&] { return clicks == 2; }));
}

TEST_F(ControlsTest, AMenuButtonOffersItsChoicesToTheKeyboard) {
  auto* const button = new MenuButton;
  button->setChoices({{1, QStringLiteral("One")}, {2, QStringLiteral("Two")}, {3, QStringLiteral("Three")}});
  button->setCurrent(2);
  show(button);
  QList<int> chosen;
  QObject::connect(button, &MenuButton::chosen, [&](const QVariant& value) { chosen << value.toInt(); });
  const auto menu = [&] { return button->findChild<QMenu*>(); };
  test::type(window_, Qt::Key_Down);
  ASSERT_NE(menu(), nullptr);
  EXPECT_EQ(menu()->activeAction()->text(), QStringLiteral("Two"));
  test::type(*menu(), Qt::Key_Down);
  test::type(*menu(), Qt::Key_Return);
  EXPECT_EQ(chosen, QList<int>{3});
  EXPECT_EQ(button->current(), 2) << "the owner sets it";
  EXPECT_TRUE(test::runUntil([&] { return menu() == nullptr; }));
  test::type(window_, Qt::Key_Space);
  test::type(*menu(), Qt::Key_Return);
  EXPECT_EQ(chosen.size(), 1) << "choosing the current one changes nothing";
  EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), QStringLiteral("Two"));
}

TEST_F(ControlsTest, EverythingThatIsPressedIsLargeEnoughAndReachableByTab) {
  QList<QWidget*> controls{new Switch, new PrimaryButton(QStringLiteral("X")), new MenuButton,
                           new IconButton(QStringLiteral("copy"), QStringLiteral("Copy"), QStringLiteral("Ctrl+C")),
                           new LinkRow(QStringLiteral("globe"), QStringLiteral("Web"))};
  for (QWidget* const control : controls) show(control);
  controls.first()->setFocus();
  for (QWidget* const control : controls) {
    EXPECT_GE(control->width(), tokens::minimumHit) << control->metaObject()->className();
    EXPECT_GE(control->height(), tokens::minimumHit) << control->metaObject()->className();
    EXPECT_EQ(window_.focusWidget(), control);
    control->clearFocus();
    const QImage withoutRing = control->grab().toImage();
    control->setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(control->grab().toImage(), withoutRing)
        << "a click shows no ring: " << control->metaObject()->className();
    control->clearFocus();
    control->setFocus(Qt::TabFocusReason);
    EXPECT_NE(control->grab().toImage(), withoutRing) << "no focus ring: " << control->metaObject()->className();
    test::type(window_, Qt::Key_Tab);
  }
  EXPECT_EQ(controls[3]->toolTip(), QStringLiteral("Copy (Ctrl+C)"));
}

class AlertTest : public testing::Test {
 protected:
  AlertDialog* ask(bool destructive = false) {
    return AlertDialog::show({QStringLiteral("Clear?"),
                              QStringLiteral("All is lost."),
                              {QStringLiteral("Clear"), QStringLiteral("Keep"), QStringLiteral("Help")},
                              destructive},
                             [this](int button) { answers_ << button; });
  }

  test::ThemeForTest theme_;
  QList<int> answers_;
};

TEST_F(AlertTest, ReturnTakesTheFirstButtonAndEscapeNone) {
  QPointer<AlertDialog> alert = ask();
  EXPECT_TRUE(alert->isModal());
  test::type(*alert, Qt::Key_Return);
  EXPECT_TRUE(test::runUntil([&] { return alert.isNull(); }));
  EXPECT_EQ(answers_, QList<int>{0});
  alert = ask();
  test::type(*alert, Qt::Key_Escape);
  EXPECT_TRUE(test::runUntil([&] { return alert.isNull(); }));
  EXPECT_EQ(answers_.last(), AlertDialog::cancelled);
  alert = ask();
  alert->close();
  EXPECT_TRUE(test::runUntil([&] { return alert.isNull(); }));
  EXPECT_EQ(answers_.size(), 3);
  EXPECT_EQ(answers_.last(), AlertDialog::cancelled);
}

TEST_F(AlertTest, TabGoesToTheOtherButtonsAndReturnPressesTheOneWithTheFocus) {
  QPointer<AlertDialog> alert = ask();
  test::type(*alert, Qt::Key_Tab);
  EXPECT_EQ(alert->focusWidget(), alert->buttons()[1]);
  EXPECT_LT(alert->buttons()[1]->x(), alert->buttons()[0]->x()) << "the default stands last";
  test::type(*alert, Qt::Key_Return);
  EXPECT_TRUE(test::runUntil([&] { return alert.isNull(); }));
  EXPECT_EQ(answers_, QList<int>{1});
}

TEST_F(AlertTest, ReturnNeverAnswersThatSomethingIsToBeLost) {
  const QPointer<AlertDialog> alert = ask(true);
  test::type(*alert, Qt::Key_Return);
  EXPECT_TRUE(test::runUntil([&] { return alert.isNull(); }));
  EXPECT_EQ(answers_, QList<int>{1});
}

TEST_F(AlertTest, RunWaitsForTheAnswer) {
  QMetaObject::invokeMethod(
      qApp, [] { test::click(*qobject_cast<AlertDialog*>(QApplication::activeModalWidget())->buttons()[2]); },
      Qt::QueuedConnection);
  EXPECT_EQ(
      AlertDialog::run({QStringLiteral("T"), {}, {QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("C")}}), 2);
}

TEST_F(AlertTest, DestroyedUnansweredItCallsNobody) {
  delete ask();
  EXPECT_TRUE(answers_.isEmpty());
}

}  // namespace
}  // namespace vellora
