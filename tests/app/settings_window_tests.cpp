#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>
#include <QTranslator>

#include "app/settings/SettingsSnapshot.h"
#include "app/settings/SettingsWindow.h"
#include "app/settings/ShortcutRecorder.h"
#include "app/settings/ShortcutsPage.h"
#include "kit/Button.h"
#include "kit/MenuButton.h"
#include "kit/SettingsRow.h"
#include "kit/Switch.h"
#include "kit/Toast.h"
#include "kit/WidgetEvents.h"
#include "preferences/PreferenceKeys.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

using test::FakeFileNames;
using test::FakePreferences;

/// Answers every key with itself between brackets, with room for two arguments where messages need them.
class BracketTranslator final : public QTranslator {
 public:
  QString translate(const char*, const char* source, const char*, int) const override {
    const QString key = QString::fromLatin1(source);
    return key.contains(QLatin1String("conflict")) ? QStringLiteral("[%1 %2]") : QStringLiteral("[%1]").arg(key);
  }
  bool isEmpty() const override { return false; }
};

class SettingsWindowTest : public testing::Test {
 protected:
  SettingsWindowTest() {
    window_ = std::make_unique<SettingsWindow>(
        SettingsContext{settings_, localization_, hotKeys_, notices_, fileNames_,
                        HotKeyAccess{{}, [this](bool suspend) { suspended_ = suspend; }, {}},
                        AboutInfo{QStringLiteral("1.2.3"), {}, QStringLiteral("https://example.org/"), {}, {}},
                        [this](const QString& target) { opened_ = target; },
                        [this](QWidget*, const QString&, const QString&, std::function<void(const QString&)> chosen) {
                          chosen(home_.path());
                        }});
    window_->present();
    QApplication::processEvents();
  }
  ~SettingsWindowTest() override { Toast::dismiss(); }

  ShortcutRecorder& recorder(HotKeyAction action) {
    window_->showPage(SettingsPageId::Shortcuts);
    auto* const recorder = shortcuts().recorder(action);
    recorder->setFocus(Qt::TabFocusReason);
    return *recorder;
  }
  ShortcutsPage& shortcuts() { return *static_cast<ShortcutsPage*>(window_->page(SettingsPageId::Shortcuts)); }

  /// Presses a key as an X server reports it. True when the widget took it.
  bool pressKey(QWidget& widget, int key, Qt::KeyboardModifiers modifiers, unsigned evdevCode) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers, evdevCode + 8, 0, 0);
    event.setAccepted(false);
    QApplication::sendEvent(&widget, &event);
    return event.isAccepted();
  }

  QList<Switch*> switches() { return window_->page(SettingsPageId::General)->findChildren<Switch*>(); }

  test::ThemeForTest theme_;
  QTemporaryDir home_;
  FakePreferences preferences_;
  FakeFileNames fileNames_{home_.path()};
  NotificationCenter notices_;
  Settings settings_{preferences_, fileNames_};
  Localization localization_{preferences_, notices_, {QStringLiteral("en")}};
  HotKeySettings hotKeys_{preferences_, notices_};
  bool suspended_ = false;
  QString opened_;
  std::unique_ptr<SettingsWindow> window_;
};

constexpr unsigned evdev1 = 2;
constexpr unsigned evdevEscape = 1;
constexpr unsigned evdevTab = 15;
constexpr unsigned evdevW = 17;
constexpr unsigned evdevLeftAlt = 56;

TEST_F(SettingsWindowTest, RefusingToTurnOffTheLastActionLeavesTheSwitchesAndSaysWhy) {
  ASSERT_EQ(switches().size(), 4);
  test::click(*switches()[0]);
  EXPECT_TRUE(switches()[0]->isChecked());
  ASSERT_NE(Toast::current(), nullptr);
  EXPECT_EQ(Toast::current()->text(), QStringLiteral("settings.general.keepOneAction"));
  Toast::dismiss();
  test::click(*switches()[3]);
  EXPECT_TRUE(switches()[3]->isChecked());
  EXPECT_FALSE(switches()[0]->isChecked()) << "pin takes the editor's place";
  EXPECT_EQ(Toast::current(), nullptr);
  EXPECT_EQ(AfterCaptureActions::load(preferences_).raw(), 8);
}

TEST_F(SettingsWindowTest, TheFolderIsChosenAndReset) {
  const auto buttons = window_->page(SettingsPageId::General)->findChildren<Button*>();
  ASSERT_EQ(buttons.size(), 2);
  Button* const reset = buttons[0];
  Button* const choose = buttons[1];
  EXPECT_FALSE(reset->isVisible());
  choose->click();
  EXPECT_EQ(settings_.saveDirectory(), home_.path());
  EXPECT_TRUE(reset->isVisible());
  reset->click();
  EXPECT_FALSE(preferences_.contains(preferenceKey::saveDirectory));
  EXPECT_FALSE(reset->isVisible());
}

TEST_F(SettingsWindowTest, ValuesChangedByAnotherProgramAreShownOnRefresh) {
  preferences_.setValue(preferenceKey::afterCaptureActions, 6);
  preferences_.setValue(preferenceKey::clipboardMode, QStringLiteral("imageOnly"));
  window_->refresh();
  EXPECT_FALSE(switches()[0]->isChecked());
  EXPECT_TRUE(switches()[2]->isChecked());
  EXPECT_EQ(window_->page(SettingsPageId::General)->findChildren<MenuButton*>()[0]->current().toInt(),
            static_cast<int>(ClipboardMode::ImageOnly));
}

TEST_F(SettingsWindowTest, TheRecorderTakesPlacesOnTheKeyboardNotWhatTheyType) {
  ShortcutRecorder& field = recorder(HotKeyAction::Element);
  EXPECT_EQ(field.text(), QStringLiteral("shortcut.none"));
  test::click(field);
  EXPECT_TRUE(suspended_);
  EXPECT_EQ(field.text(), QStringLiteral("shortcut.recording"));
  EXPECT_TRUE(pressKey(field, Qt::Key_Alt, Qt::NoModifier, evdevLeftAlt)) << "a modifier alone waits for more";
  EXPECT_TRUE(field.isRecording());
  // The key left of the digit row's 2 on a French keyboard.
  pressKey(field, Qt::Key_Ampersand, Qt::AltModifier | Qt::ControlModifier, evdev1);
  EXPECT_FALSE(field.isRecording());
  EXPECT_FALSE(suspended_);
  EXPECT_EQ(field.text(), QStringLiteral("⌃⌥&"));
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Element)->keyCode, 18U);
  shortcuts().findChildren<IconButton*>()[static_cast<int>(HotKeyAction::Element)]->click();
  EXPECT_EQ(field.text(), QStringLiteral("shortcut.none"));
}

TEST_F(SettingsWindowTest, AConflictStandsUnderTheRowUntilRecordingEnds) {
  BracketTranslator translator;
  QCoreApplication::installTranslator(&translator);
  ShortcutRecorder& field = recorder(HotKeyAction::Window);
  SettingsRow& row = *shortcuts().row(HotKeyAction::Window);
  test::click(field);
  pressKey(field, Qt::Key_1, Qt::AltModifier, evdev1);
  EXPECT_EQ(row.notice(), QStringLiteral("[Alt+1 [menu.captureArea]]"));
  EXPECT_EQ(field.accessibleDescription(), row.notice());
  EXPECT_TRUE(field.isRecording());
  EXPECT_FALSE(preferences_.contains(hotKeyPreferenceKey(HotKeyAction::Window)));
  pressKey(field, Qt::Key_Escape, Qt::NoModifier, evdevEscape);
  EXPECT_TRUE(row.notice().isEmpty());
  EXPECT_TRUE(window_->isVisible()) << "Escape stopped the recording, not the window";
  QCoreApplication::removeTranslator(&translator);
}

TEST_F(SettingsWindowTest, WhileRecordingTheWindowsOwnKeysAreTheRecorders) {
  ShortcutRecorder& field = recorder(HotKeyAction::Text);
  test::click(field);
  QKeyEvent shortcut(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier);
  shortcut.setAccepted(false);
  QApplication::sendEvent(&field, &shortcut);
  EXPECT_TRUE(shortcut.isAccepted());
  pressKey(field, Qt::Key_Tab, Qt::ControlModifier, evdevTab);
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Text)->keyLabel, QStringLiteral("⇥"));
  test::click(field);
  pressKey(field, Qt::Key_W, Qt::ControlModifier, evdevW);
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Text)->keyLabel, QStringLiteral("W"));
}

TEST_F(SettingsWindowTest, RecordingEndsWhenTheFieldIsLeftInAnyWay) {
  ShortcutRecorder& field = recorder(HotKeyAction::Area);
  const auto start = [&] {
    window_->showPage(SettingsPageId::Shortcuts);
    field.setFocus();
    test::click(field);
    ASSERT_TRUE(suspended_);
  };
  start();
  test::click(field);
  EXPECT_FALSE(suspended_) << "a second click";
  start();
  recorder(HotKeyAction::Window);
  EXPECT_FALSE(suspended_) << "the focus went";
  start();
  window_->showPage(SettingsPageId::About);
  EXPECT_FALSE(suspended_) << "another page";
  start();
  window_->close();
  EXPECT_FALSE(suspended_) << "the window was closed";
  window_->present();
  start();
  window_.reset();
  EXPECT_FALSE(suspended_) << "the window was destroyed";
  EXPECT_TRUE(preferences_.values.empty());
}

TEST_F(SettingsWindowTest, ALanguageChangeReachesEveryPageThatWasMade) {
  window_->showPage(SettingsPageId::Shortcuts);
  BracketTranslator translator;
  QCoreApplication::installTranslator(&translator);
  notices_.post(notice::languageChanged);
  EXPECT_EQ(window_->windowTitle(), QStringLiteral("[settings.title]"));
  EXPECT_EQ(window_->page(SettingsPageId::General)->title(), QStringLiteral("[settings.general.title]"));
  EXPECT_EQ(switches()[1]->accessibleName(), QStringLiteral("[settings.general.copy]"));
  EXPECT_EQ(shortcuts().recorder(HotKeyAction::Area)->accessibleName(), QStringLiteral("[menu.captureArea]"));
  QCoreApplication::removeTranslator(&translator);
}

TEST_F(SettingsWindowTest, TheKeyboardGoesThroughThePagesAndCloses) {
  bool closed = false;
  QObject::connect(window_.get(), &SettingsWindow::closed, [&] { closed = true; });
  for (QWidget* const child : window_->findChildren<QWidget*>()) {
    if (child->isVisible() && child->focusPolicy() != Qt::NoFocus) {
      EXPECT_FALSE(child->accessibleName().isEmpty() && child->property("text").toString().isEmpty())
          << child->metaObject()->className() << " has no name";
    }
  }
  auto* const first = window_->findChild<QPushButton*>();
  first->setFocus(Qt::TabFocusReason);
  test::type(*window_, Qt::Key_Down);
  EXPECT_EQ(window_->currentPage(), SettingsPageId::Shortcuts);
  test::type(*window_, Qt::Key_Down);
  EXPECT_EQ(window_->currentPage(), SettingsPageId::About);
  test::type(*window_, Qt::Key_Escape);
  EXPECT_TRUE(closed);
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(SettingsWindowTest, SnapshotsShowEveryPageInBothThemes) {
  window_->close();
  const QDir folder(home_.filePath(QStringLiteral("a/b")));
  ASSERT_TRUE(writeSettingsSnapshots(folder.path(), *window_));
  EXPECT_EQ(folder.entryList(QDir::Files).size(), 6);
  for (const char* page : {"general", "shortcuts", "about"}) {
    const QImage light(folder.filePath(QStringLiteral("settings-%1-light.png").arg(QLatin1String(page))));
    const QImage dark(folder.filePath(QStringLiteral("settings-%1-dark.png").arg(QLatin1String(page))));
    EXPECT_EQ(light.size(), window_->size() * 2);
    EXPECT_GT(qGray(light.pixel(light.width() - 40, 10)), 200);
    EXPECT_LT(qGray(dark.pixel(dark.width() - 40, 10)), 60);
  }
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(Theme::shared().appearance(), Appearance::Light);
  EXPECT_FALSE(writeSettingsSnapshots(QStringLiteral("/dev/null/nowhere"), *window_));
}

}  // namespace
}  // namespace vellora
