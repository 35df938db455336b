#include <gtest/gtest.h>

#include <limits>

#include "editor/CustomColors.h"
#include "editor/EditorSettings.h"
#include "editor/Palette.h"
#include "editor/ToolStylePreferences.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

using test::FakePreferences;

const QString toolStyles = QStringLiteral("toolStyles");
const QString customColors = QStringLiteral("customColors");

TEST(Tool, StoresAndDrawsByItsPlace) {
  EXPECT_EQ(toolFromRaw(0), Tool::Select);
  EXPECT_EQ(toolFromRaw(9), Tool::Pen);
  EXPECT_FALSE(toolFromRaw(10).has_value());
  EXPECT_FALSE(toolFromRaw(-1).has_value());
  EXPECT_FALSE(drawnKind(Tool::Select).has_value());
  for (const Tool tool : allTools) {
    const auto kind = drawnKind(tool);
    EXPECT_EQ(kind ? toolOf(*kind) : Tool::Select, tool);
  }
  EXPECT_EQ(drawnKind(Tool::Counter), Annotation::Kind::Counter);
  EXPECT_EQ(storageKey(Tool::Blur), QStringLiteral("blur"));
  EXPECT_STREQ(localizationKey(Tool::Blur), "tool.pixelate");
  EXPECT_STREQ(localizationKey(Tool::Box), "tool.rectangle");
}

TEST(ToolStylePreferences, StartRedAndHandDrawnForShapesOnly) {
  FakePreferences preferences;
  ToolStylePreferences styles(preferences);
  for (const Tool tool : allTools) {
    const ToolStyle style = styles.resolvedStyle(tool);
    EXPECT_EQ(style.color, Palette::red);
    EXPECT_EQ(style.lineWidth, 3);
    EXPECT_EQ(style.sketch, tool == Tool::Arrow || tool == Tool::Box || tool == Tool::Ellipse);
  }
  EXPECT_TRUE(preferences.values.empty()) << "reading must not write";
}

TEST(ToolStylePreferences, RemembersEachToolForItself) {
  FakePreferences preferences;
  const ToolStyle style{{0.1, 0.2, 0.3, 0.4}, 7.5, true, false, true, true};
  ToolStylePreferences(preferences).set(style, Tool::Arrow);
  ToolStylePreferences again(preferences);
  EXPECT_EQ(again.resolvedStyle(Tool::Arrow), style);
  EXPECT_EQ(again.resolvedStyle(Tool::Box), ToolStylePreferences::defaultStyle(Tool::Box));
  again.set({}, Tool::Pen);
  EXPECT_EQ(ToolStylePreferences(preferences).resolvedStyle(Tool::Arrow), style) << "another tool's change keeps it";
  EXPECT_EQ(preferences.value(toolStyles).typeId(), QMetaType::QByteArray);
}

TEST(ToolStylePreferences, ReadWhatIsUsableOfWhatIsStored) {
  const QByteArray hopeless[] = {"", "{", "[]", "7", R"({"arrow": 5})", R"({"arrow": [1]})", R"({"unknown": {}})"};
  for (const QByteArray& stored : hopeless) {
    FakePreferences preferences{{toolStyles, stored}};
    EXPECT_EQ(ToolStylePreferences(preferences).resolvedStyle(Tool::Arrow),
              ToolStylePreferences::defaultStyle(Tool::Arrow))
        << stored.toStdString();
  }
  FakePreferences preferences{{toolStyles, QByteArray(R"({"arrow": {"red": 2, "green": 0, "blue": 0, "alpha": 1,
      "lineWidth": 900, "arrowSketch": false, "shapeFill": "yes"}, "line": {"lineWidth": -4}})")}};
  ToolStylePreferences styles(preferences);
  EXPECT_EQ(styles.resolvedStyle(Tool::Arrow).color, Palette::red);
  EXPECT_EQ(styles.resolvedStyle(Tool::Arrow).lineWidth, maximumLineWidth);
  EXPECT_FALSE(styles.resolvedStyle(Tool::Arrow).sketch);
  EXPECT_FALSE(styles.resolvedStyle(Tool::Arrow).shapeFill);
  EXPECT_EQ(styles.resolvedStyle(Tool::Line).lineWidth, minimumLineWidth);
}

TEST(CustomColors, KeepsFourInOrder) {
  FakePreferences preferences;
  CustomColors colors(preferences);
  for (std::size_t i = 0; i < CustomColors::limit; ++i) {
    EXPECT_EQ(colors.add({0.1 * static_cast<double>(i), 0, 0, 1}), i);
  }
  const auto before = preferences.values;
  EXPECT_FALSE(colors.add({1, 1, 1, 1}).has_value());
  EXPECT_EQ(preferences.values, before);
  colors.update({0, 1, 0, 0.5}, 1);
  colors.update({0, 0, 1, 1}, 9);
  colors.remove(0);
  colors.remove(9);
  const std::vector<ColorComponents> expected{{0, 1, 0, 0.5}, {0.2, 0, 0, 1}, {0.30000000000000004, 0, 0, 1}};
  EXPECT_EQ(CustomColors(preferences).colors(), expected);
}

TEST(CustomColors, SkipsWhatIsNoColour) {
  const QVariantList good{0.5, 0.25, 1, 1.0};
  FakePreferences preferences{
      {customColors, QVariantList{QVariant(good), QVariant(QVariantList{1, 2}), QStringLiteral("red"),
                                  QVariant(QVariantList{0, 0, std::numeric_limits<double>::quiet_NaN(), 1}),
                                  QVariant(QVariantList{2, 0, 0, 1}), QVariant(good), QVariant(good), QVariant(good),
                                  QVariant(good)}}};
  EXPECT_EQ(CustomColors(preferences).colors(), std::vector(4, ColorComponents{0.5, 0.25, 1, 1}));
  FakePreferences text{{customColors, QStringLiteral("red")}};
  EXPECT_TRUE(CustomColors(text).colors().empty());
}

TEST(EditorSettings, ReadsAndWritesWithDefaultsAndLimits) {
  FakePreferences preferences;
  EditorSettings settings(preferences);
  EXPECT_FALSE(settings.eraseFillColor().has_value());
  EXPECT_EQ(settings.blurStrength(), 0.5);
  EXPECT_EQ(settings.blurStyle(), BlurStyle::Mosaic);
  EXPECT_EQ(settings.magnification(), 2);
  EXPECT_EQ(settings.magnifierShape(), MagnifierShape::Circle);

  settings.setEraseFillColor(ColorComponents{0, 0.5, 1, 1});
  settings.setBlurStrength(0.75);
  settings.setBlurStyle(BlurStyle::Gaussian);
  settings.setMagnification(4);
  settings.setMagnifierShape(MagnifierShape::RoundedRect);
  EXPECT_EQ(settings.eraseFillColor(), (ColorComponents{0, 0.5, 1, 1}));
  EXPECT_EQ(settings.blurStrength(), 0.75);
  EXPECT_EQ(settings.blurStyle(), BlurStyle::Gaussian);
  EXPECT_EQ(settings.magnification(), 4);
  EXPECT_EQ(settings.magnifierShape(), MagnifierShape::RoundedRect);
  settings.setEraseFillColor(std::nullopt);
  EXPECT_FALSE(preferences.contains(QStringLiteral("vellora.eraseFillColor")));

  // The older switch decides only where the style itself is not stored.
  FakePreferences older{{QStringLiteral("vellora.blurEraseDefault"), true}};
  EXPECT_EQ(EditorSettings(older).blurStyle(), BlurStyle::Erase);
  older.setValue(QStringLiteral("vellora.blurStyleDefault"), qlonglong{2});
  EXPECT_EQ(EditorSettings(older).blurStyle(), BlurStyle::Gaussian);

  FakePreferences odd{{QStringLiteral("vellora.blurStrength"), 7.0},
                      {QStringLiteral("vellora.blurStyleDefault"), qlonglong{9}},
                      {QStringLiteral("vellora.magnifierMagnification"), std::numeric_limits<double>::infinity()},
                      {QStringLiteral("vellora.magnifierShape"), QStringLiteral("square")},
                      {QStringLiteral("vellora.eraseFillColor"), QVariantList{1, 1}}};
  const EditorSettings read(odd);
  EXPECT_EQ(read.blurStrength(), 1);
  EXPECT_EQ(read.blurStyle(), BlurStyle::Mosaic);
  EXPECT_EQ(read.magnification(), 2);
  EXPECT_EQ(read.magnifierShape(), MagnifierShape::Circle);
  EXPECT_FALSE(read.eraseFillColor().has_value());
}

}  // namespace
}  // namespace vellora
