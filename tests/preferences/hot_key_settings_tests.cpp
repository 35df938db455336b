#include <gtest/gtest.h>

#include "platform/KeyCodes.h"
#include "preferences/HotKeySettings.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

using test::FakePreferences;

class HotKeySettingsTest : public testing::Test {
 protected:
  FakePreferences preferences;
  NotificationCenter notices;
  HotKeySettings settings{preferences, notices};
  int changes = 0;
  NotificationCenter::Subscription observing = notices.observe(notice::hotKeysChanged, [this] { ++changes; });
};

TEST_F(HotKeySettingsTest, StoresBindingsAndFallsBackToDefaults) {
  using enum HotKeyAction;
  EXPECT_EQ(settings.binding(Area), (HotKeyBinding{18, carbonModifier::option, QStringLiteral("1")}));
  EXPECT_FALSE(settings.binding(Text));
  EXPECT_EQ(settings.actionBound(21, carbonModifier::option), Scrolling);

  const HotKeyBinding f5{96, 0, QStringLiteral("F5")};
  settings.setBinding(f5, Area);
  EXPECT_EQ(preferences.value(QStringLiteral("hotkey.area")),
            QVariant(QByteArray(R"({"keyCode":96,"carbonModifiers":0,"keyLabel":"F5"})")));
  EXPECT_EQ(settings.binding(Area), f5);
  EXPECT_FALSE(settings.actionBound(18, carbonModifier::option)) << "the old combination is free again";

  settings.resetBinding(Area);
  EXPECT_EQ(settings.binding(Area)->keyCode, 18u);
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(HotKeySettings(preferences, notices, BuildKind::Development).binding(Area)->carbonModifiers,
            carbonModifier::option | carbonModifier::control);
}

TEST_F(HotKeySettingsTest, TreatsUnreadableBindingsAsAbsent) {
  const QVariant broken[] = {QByteArray("{"),
                             QByteArray(R"({"keyCode":-1,"carbonModifiers":0,"keyLabel":"x"})"),
                             QByteArray(R"({"keyCode":96,"carbonModifiers":4294967296,"keyLabel":"x"})"),
                             QByteArray(R"({"keyCode":96,"carbonModifiers":0})"),
                             QByteArray(100000, '['),
                             QStringLiteral("alt+1"),
                             7};
  for (const QVariant& value : broken) {
    preferences.setValue(QStringLiteral("hotkey.area"), value);
    EXPECT_EQ(settings.binding(HotKeyAction::Area), defaultBinding(HotKeyAction::Area));
  }
}

TEST(HotKeyBinding, LabelsKeysAndModifiers) {
  EXPECT_EQ(keyLabel(96, {}), QStringLiteral("F5"));
  EXPECT_EQ(keyLabel(36, QStringLiteral("\r")), QStringLiteral("↩"));
  EXPECT_EQ(keyLabel(105, {}), QStringLiteral("F13"));
  EXPECT_EQ(keyLabel(0, QStringLiteral("q")), QStringLiteral("Q")) << "the label is what the layout types";
  EXPECT_EQ(keyLabel(200, {}), QStringLiteral("Key 200"));
  EXPECT_EQ(modifierGlyphs(carbonModifier::all), QStringLiteral("⌃⌥⇧⌘"));
  EXPECT_EQ(displayText({18, carbonModifier::command | carbonModifier::control, QStringLiteral("1")}),
            QStringLiteral("⌃⌘1"));
}

TEST(HotKeyBinding, ReadsWhatItWrites) {
  for (const char* text : {"Alt+1", "F5", "Ctrl+Shift+F12", "Super+Space", "Ctrl+Alt+Shift+Super+Pageup", "Alt+Q"}) {
    const auto binding = parseWrittenShortcut(QString::fromLatin1(text));
    ASSERT_TRUE(binding) << text;
    EXPECT_EQ(writtenShortcut(*binding), QString::fromLatin1(text));
    EXPECT_EQ(decodeHotKeyBinding(encode(*binding)), binding);
  }
  for (const char* text : {"", "+", "1", "Shift+A", "Alt", "Alt+", "Hyper+1", "Alt+F21", "Alt+12"}) {
    EXPECT_FALSE(parseWrittenShortcut(QString::fromLatin1(text))) << text;
  }
}

}  // namespace
}  // namespace vellora
