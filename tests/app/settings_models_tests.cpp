#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "app/settings/FunctionKeyMode.h"
#include "app/settings/GeneralSettingsModel.h"
#include "app/settings/ShortcutsModel.h"
#include "platform/KeyCodes.h"
#include "preferences/PreferenceKeys.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

using test::FakeFileNames;
using test::FakePreferences;
using Answer = ShortcutsModel::Answer;
using Fault = ShortcutsModel::Fault;

constexpr std::uint32_t option = carbonModifier::option;
constexpr std::uint32_t shift = carbonModifier::shift;
constexpr std::uint32_t control = carbonModifier::control;
constexpr std::uint32_t keyA = 0;
constexpr std::uint32_t key1 = 18;
constexpr std::uint32_t key5 = 23;
constexpr std::uint32_t keyF5 = 96;
constexpr std::uint32_t keyEscape = 53;
constexpr std::uint32_t keyDelete = 51;
constexpr std::uint32_t keyForwardDelete = 117;

class GeneralModelTest : public testing::Test {
 protected:
  QTemporaryDir home_;
  FakePreferences preferences_;
  FakeFileNames fileNames_{home_.path()};
  NotificationCenter notices_;
  Settings settings_{preferences_, fileNames_};
  Localization localization_{preferences_, notices_, {QStringLiteral("en")}};
  GeneralSettingsModel model_{settings_, localization_, fileNames_};
};

TEST_F(GeneralModelTest, TheLastActionStaysOnAndTheRefusalIsCounted) {
  int changes = 0;
  model_.setChangeHandler([&] { ++changes; });
  EXPECT_FALSE(model_.setOn(AfterCaptureAction::ShowEditor, false));
  EXPECT_TRUE(model_.isOn(AfterCaptureAction::ShowEditor));
  EXPECT_FALSE(preferences_.contains(preferenceKey::afterCaptureActions)) << "a refusal writes nothing";
  EXPECT_EQ(model_.refusals(), 1);
  EXPECT_EQ(changes, 1) << "the switch has to be put back";
  EXPECT_TRUE(model_.setOn(AfterCaptureAction::Copy, true));
  EXPECT_TRUE(model_.setOn(AfterCaptureAction::ShowEditor, false));
  EXPECT_FALSE(model_.isOn(AfterCaptureAction::ShowEditor));
  EXPECT_EQ(model_.refusals(), 1);
}

TEST_F(GeneralModelTest, PinAndEditorExcludeEachOther) {
  EXPECT_TRUE(model_.setOn(AfterCaptureAction::Pin, true));
  EXPECT_FALSE(model_.isOn(AfterCaptureAction::ShowEditor));
  EXPECT_TRUE(model_.setOn(AfterCaptureAction::ShowEditor, true));
  EXPECT_FALSE(model_.isOn(AfterCaptureAction::Pin));
}

TEST_F(GeneralModelTest, TheFolderIsShownShortAndCanBeReset) {
  const QString own = home_.filePath(QStringLiteral("Pictures"));
  ASSERT_TRUE(QDir().mkpath(own));
  EXPECT_FALSE(model_.hasChosenDirectory());
  EXPECT_EQ(model_.saveDirectoryText(), QStringLiteral("~/Desktop"));
  model_.chooseDirectory(own);
  EXPECT_TRUE(model_.hasChosenDirectory());
  EXPECT_EQ(model_.saveDirectoryText(), QStringLiteral("~/Pictures"));
  model_.chooseDirectory(QString());
  EXPECT_EQ(model_.saveDirectory(), own) << "a chooser left without an answer changes nothing";
  model_.chooseDirectory(QDir::tempPath());
  EXPECT_EQ(model_.saveDirectoryText(), QDir::tempPath());
  model_.resetDirectory();
  EXPECT_FALSE(preferences_.contains(preferenceKey::saveDirectory));
}

class ShortcutsModelTest : public testing::Test {
 protected:
  FakePreferences preferences_;
  NotificationCenter notices_;
  HotKeySettings hotKeys_{preferences_, notices_};
  QList<bool> suspensions_;
  std::optional<HotKeyAction> heldElsewhere_;
  bool needFn_ = false;
  std::unique_ptr<ShortcutsModel> model_ = std::make_unique<ShortcutsModel>(
      hotKeys_, preferences_, notices_,
      HotKeyAccess{[this](HotKeyAction action) { return action != heldElsewhere_; },
                   [this](bool suspend) { suspensions_ << suspend; }, [this] { return needFn_; }});
};

TEST_F(ShortcutsModelTest, ACombinationOfAnotherActionIsRefusedAndRecordingGoesOn) {
  model_->startRecording(HotKeyAction::Window);
  const auto reply = model_->press(key1, option, QStringLiteral("1"));
  EXPECT_EQ(reply.answer, Answer::Conflict);
  EXPECT_EQ(reply.owner, HotKeyAction::Area);
  EXPECT_EQ(displayText(*reply.binding), QStringLiteral("⌥1"));
  EXPECT_TRUE(preferences_.values.empty());
  EXPECT_EQ(model_->recording(), HotKeyAction::Window);
  EXPECT_EQ(model_->press(key5, option, QStringLiteral("5")).answer, Answer::Stored);
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Window)->keyLabel, QStringLiteral("5"));
  EXPECT_FALSE(model_->recording());
}

TEST_F(ShortcutsModelTest, AnActionMayRecordItsOwnCombinationAgain) {
  model_->startRecording(HotKeyAction::Area);
  EXPECT_EQ(model_->press(key1, option, QStringLiteral("1")).answer, Answer::Stored);
}

TEST_F(ShortcutsModelTest, OnlyFunctionKeysGoWithoutModifiers) {
  model_->startRecording(HotKeyAction::Element);
  EXPECT_EQ(model_->press(keyA, 0, QStringLiteral("a")).answer, Answer::Ignored);
  EXPECT_EQ(model_->press(keyA, shift, QStringLiteral("A")).answer, Answer::Ignored);
  EXPECT_TRUE(model_->recording());
  EXPECT_EQ(model_->press(keyF5, 0, QString()).answer, Answer::Stored);
  needFn_ = true;
  EXPECT_TRUE(model_->row(HotKeyAction::Element).needsFn);
  EXPECT_FALSE(model_->row(HotKeyAction::Area).needsFn);
}

TEST_F(ShortcutsModelTest, EscapeChangesNothingAndDeleteGoesBackToTheDefault) {
  hotKeys_.setBinding({key5, option, QStringLiteral("5")}, HotKeyAction::Area);
  model_->startRecording(HotKeyAction::Area);
  EXPECT_EQ(model_->press(keyEscape, 0, QString()).answer, Answer::Cancelled);
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Area)->keyCode, key5);
  model_->startRecording(HotKeyAction::Area);
  EXPECT_EQ(model_->press(keyDelete, control, QString()).answer, Answer::Ignored);
  EXPECT_TRUE(model_->recording());
  EXPECT_EQ(model_->press(keyForwardDelete, 0, QString()).answer, Answer::Reset);
  EXPECT_EQ(hotKeys_.binding(HotKeyAction::Area)->keyCode, key1);
  EXPECT_FALSE(model_->row(HotKeyAction::Area).customised);
  EXPECT_FALSE(model_->recording());
  EXPECT_EQ(model_->press(key5, option, QStringLiteral("5")).answer, Answer::Ignored) << "nobody records";
}

TEST_F(ShortcutsModelTest, HotKeysAreSuspendedExactlyWhileRecording) {
  model_->startRecording(HotKeyAction::Area);
  model_->startRecording(HotKeyAction::Window);
  EXPECT_EQ(model_->recording(), HotKeyAction::Window);
  EXPECT_EQ(suspensions_, QList<bool>{true}) << "moving to another row does not take them in between";
  std::vector<bool> suspendedWhenTold;
  const auto observer =
      notices_.observe(notice::hotKeysChanged, [&] { suspendedWhenTold.push_back(suspensions_.last()); });
  model_->press(key5, option, QStringLiteral("5"));
  EXPECT_EQ(suspendedWhenTold, std::vector<bool>{false}) << "the new combination is grabbed on the notice";
  model_->startRecording(HotKeyAction::Area);
  model_.reset();
  EXPECT_EQ(suspensions_, (QList<bool>{true, false, true, false})) << "the window closed meanwhile";
}

TEST_F(ShortcutsModelTest, RowsTellWhoElseHoldsTheirCombination) {
  hotKeys_.setBinding({key5, option, QStringLiteral("5")}, HotKeyAction::Area);
  hotKeys_.setBinding({key1, option, QStringLiteral("1")}, HotKeyAction::Window);
  model_->reset(HotKeyAction::Area);
  EXPECT_EQ(model_->row(HotKeyAction::Area).fault, Fault::None) << "the first in order gets it";
  EXPECT_EQ(model_->row(HotKeyAction::Window).fault, Fault::SharedWithAction);
  EXPECT_EQ(model_->row(HotKeyAction::Window).sharedWith, HotKeyAction::Area);

  heldElsewhere_ = HotKeyAction::Scrolling;
  EXPECT_EQ(model_->row(HotKeyAction::Scrolling).fault, Fault::HeldElsewhere);
  model_->startRecording(HotKeyAction::Area);
  EXPECT_EQ(model_->row(HotKeyAction::Scrolling).fault, Fault::None) << "suspended is not taken";
  heldElsewhere_ = HotKeyAction::Text;
  model_->stopRecording();
  EXPECT_EQ(model_->row(HotKeyAction::Text).fault, Fault::None) << "nothing bound, nothing missing";
}

TEST(FunctionKeyMode, ReadsTheDriversSetting) {
  QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("fnmode"));
  EXPECT_FALSE(functionKeysNeedFn(path)) << "no such driver";
  const std::pair<const char*, bool> cases[] = {
      {"0\n", false}, {"1\n", true}, {"2\n", false}, {"3\n", true}, {"", false}};
  for (const auto& [content, expected] : cases) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(content);
    file.close();
    EXPECT_EQ(functionKeysNeedFn(path), expected) << content;
  }
}

}  // namespace
}  // namespace vellora
