#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "preferences/AfterCaptureActions.h"
#include "preferences/AppLanguage.h"
#include "preferences/LegacyMigration.h"
#include "preferences/PreferenceKeys.h"
#include "preferences/Settings.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

using test::FakeFileNames;
using test::FakePreferences;
using test::FakeSuites;

TEST(AfterCaptureActions, ReadsWhateverIsStoredAsAValidSet) {
  const std::pair<QVariant, qint64> cases[] = {{{}, 1},
                                               {0, 1},
                                               {1, 1},
                                               {9, 1},
                                               {12, 12},
                                               {15, 7},
                                               {16, 1},
                                               {qint64(-1), 7},
                                               {6, 6},
                                               {8, 8},
                                               {1LL << 40, 1},
                                               {QStringLiteral("6"), 1},
                                               {QVariantList{4}, 1}};
  for (const auto& [stored, expected] : cases) {
    FakePreferences preferences;
    if (stored.isValid()) preferences.setValue(QStringLiteral("afterCaptureActions"), stored);
    const auto before = preferences.values;
    EXPECT_EQ(AfterCaptureActions::load(preferences).raw(), expected) << stored.toString().toStdString();
    EXPECT_EQ(preferences.values, before) << "reading must not rewrite";
  }
}

TEST(AfterCaptureActions, KeepsOneActionAndNeverEditorWithPin) {
  using enum AfterCaptureAction;
  const AfterCaptureActions editor;
  EXPECT_FALSE(editor.toggled(ShowEditor, false).has_value());
  EXPECT_EQ(editor.toggled(Pin, true)->raw(), 8);
  EXPECT_EQ(AfterCaptureActions::fromRaw(12).toggled(ShowEditor, true)->raw(), 5);
  EXPECT_EQ(AfterCaptureActions::fromRaw(6).toggled(Copy, false)->raw(), 4);
}

TEST(Settings, FallBackWhenTheStoredValueIsNoUse) {
  QTemporaryDir root;
  const FakeFileNames names(root.path());
  FakePreferences preferences;
  Settings settings(preferences, names);

  EXPECT_EQ(settings.clipboardMode(), ClipboardMode::FileAndImage);
  preferences.setValue(QStringLiteral("clipboardMode"), QStringLiteral("IMAGEONLY"));
  EXPECT_EQ(settings.clipboardMode(), ClipboardMode::FileAndImage);
  settings.setClipboardMode(ClipboardMode::FileOnly);
  EXPECT_EQ(settings.clipboardMode(), ClipboardMode::FileOnly);

  EXPECT_EQ(settings.saveDirectory(), names.desktop());
  settings.setSaveDirectory(root.path());
  EXPECT_EQ(settings.saveDirectory(), root.path());
  settings.setSaveDirectory(root.filePath(QStringLiteral("gone")));
  EXPECT_EQ(settings.saveDirectory(), names.desktop());
  EXPECT_TRUE(preferences.contains(QStringLiteral("saveDirectory"))) << "a missing folder may come back";
  settings.resetSaveDirectory();
  EXPECT_FALSE(preferences.contains(QStringLiteral("saveDirectory")));
}

TEST(Localization, FollowsTheChoiceThenTheDesktopThenEnglish) {
  FakePreferences preferences;
  NotificationCenter notices;
  int changes = 0;
  const auto observing = notices.observe(notice::languageChanged, [&] { ++changes; });
  Localization localization(preferences, notices,
                            {QStringLiteral("nl-NL"), QStringLiteral("zh-TW"), QStringLiteral("de")});
  EXPECT_EQ(localization.effectiveCode(), QStringLiteral("zh-Hant"));

  localization.apply(AppLanguage::German);
  localization.apply(AppLanguage::German);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(localization.effectiveCode(), QStringLiteral("de"));
  EXPECT_EQ(preferences.value(QStringLiteral("AppleLanguages")), QVariant(QStringList{QStringLiteral("de")}));

  localization.apply(AppLanguage::System);
  EXPECT_EQ(changes, 2);
  EXPECT_TRUE(preferences.values.empty());

  preferences.setValue(QStringLiteral("appLanguage"), QStringLiteral("tlh"));
  EXPECT_EQ(localization.selection(), AppLanguage::System);
  EXPECT_EQ(Localization(preferences, notices, {QStringLiteral("pt-BR")}).effectiveCode(), QStringLiteral("en"));
  EXPECT_EQ(Localization(preferences, notices, {QStringLiteral("zh-CN")}).effectiveCode(), QStringLiteral("zh-Hans"));
}

TEST(LegacyMigration, TakesEachKeyFromTheFirstDomainThatHasItOnce) {
  const auto save = QStringLiteral("saveDirectory");
  const auto styles = QStringLiteral("toolStyles");
  FakeSuites suites;
  suites.suites.emplace(QStringLiteral("dev.orlo.tarnwick"),
                        FakePreferences{{save, QStringLiteral("/tarnwick")}, {styles, QByteArray("t")}});
  suites.suites.emplace(
      QStringLiteral("dev.orlo.pelmet"),
      FakePreferences{{save, QStringLiteral("/pelmet")}, {QStringLiteral("customColors"), QVariantList{1}}});
  FakePreferences preferences{{styles, QByteArray("mine")}};

  migrateLegacyPreferences(preferences, suites);
  EXPECT_EQ(preferences.value(save), QVariant(QStringLiteral("/tarnwick")));
  EXPECT_EQ(preferences.value(styles), QVariant(QByteArray("mine")));
  EXPECT_EQ(preferences.value(QStringLiteral("customColors")), QVariant(QVariantList{1}));

  preferences.remove(save);
  migrateLegacyPreferences(preferences, suites);
  EXPECT_FALSE(preferences.contains(save)) << "it ran twice";
}

TEST(DescribedPreferences, RefuseWhatTheReadersWouldNotUnderstand) {
  for (const PreferenceDescription& description : describedPreferences()) {
    PreferenceTextError error;
    EXPECT_FALSE(valueFromText(description, QStringLiteral("no such value"), &error)) << description.key.toStdString();
    EXPECT_FALSE(error.message.isEmpty());
  }
  const PreferenceDescription& actions = describedPreferences().first();
  EXPECT_EQ(valueFromText(actions, QStringLiteral("copy, save"), nullptr), QVariant(qint64(6)));
  EXPECT_FALSE(valueFromText(actions, QStringLiteral("editor,pin"), nullptr));
  EXPECT_EQ(textFromValue(actions, qint64(6)), QStringLiteral("copy,save"));
}

}  // namespace
}  // namespace vellora
