#include "editor/BackdropStyles.h"

#include <gtest/gtest.h>

#include "support/FakePreferences.h"

namespace vellora {
namespace {

const QString key = QStringLiteral("backdropStyles");

BackdropSettings tilted(double angle) {
  BackdropSettings settings;
  settings.enabled = true;
  settings.tiltX = angle;
  return settings;
}

TEST(BackdropStylesTest, StylesOutliveTheProcessInTheirOrder) {
  test::FakePreferences preferences;
  {
    BackdropStyles styles(preferences);
    EXPECT_EQ(styles.add(QStringLiteral("Blog"), tilted(1)), 0);
    EXPECT_EQ(styles.add(QStringLiteral("  Blog "), tilted(2)), 1) << "a taken name gets a number";
    EXPECT_EQ(styles.add(QStringLiteral("Docs"), tilted(3)), 2);
    EXPECT_TRUE(styles.rename(2, QStringLiteral("Docs")));
    EXPECT_EQ(styles.styles()[2].name, QStringLiteral("Docs")) << "its own name is not taken";
    EXPECT_TRUE(styles.rename(0, QStringLiteral("Docs")));
    styles.update(1, tilted(20));
    styles.remove(2);
    EXPECT_FALSE(styles.rename(0, QStringLiteral("   ")));
    EXPECT_FALSE(styles.rename(7, QStringLiteral("x")));
    styles.remove(7);
  }
  BackdropStyles again(preferences);
  ASSERT_EQ(again.styles().size(), 2);
  EXPECT_EQ(again.styles()[0], (BackdropStyle{QStringLiteral("Docs 2"), tilted(1)}));
  EXPECT_EQ(again.styles()[1], (BackdropStyle{QStringLiteral("Blog 2"), tilted(20)}));
}

TEST(BackdropStylesTest, NumberAndNamesAreBounded) {
  test::FakePreferences preferences;
  BackdropStyles styles(preferences);
  EXPECT_EQ(styles.add(QString(), {}), std::nullopt);
  for (std::size_t i = 0; i < BackdropStyles::limit; ++i) EXPECT_TRUE(styles.add(QString(500, u'x'), {}));
  EXPECT_EQ(styles.add(QStringLiteral("one more"), {}), std::nullopt);
  EXPECT_EQ(styles.styles().front().name.size(), BackdropStyles::nameLength);
}

TEST(BackdropStylesTest, WhatCannotBeReadCostsOnlyItself) {
  test::FakePreferences preferences;
  for (const QVariant& value : {QVariant(7), QVariant(QStringLiteral("text")), QVariant(QByteArray("{\"a\":")),
                                QVariant(QByteArray("{}")), QVariant(QByteArray(2 << 20, '['))}) {
    preferences.setValue(key, value);
    EXPECT_TRUE(BackdropStyles(preferences).styles().empty());
  }
  preferences.setValue(key, QByteArray(R"([1,{"name":"A"},{"name":5,"settings":{}},{"name":"","settings":{}},
      {"name":"B","settings":{"shadow":"x"}},{"name":"C","settings":{"shadow":0.5}}])"));
  BackdropStyles styles(preferences);
  ASSERT_EQ(styles.styles().size(), 1);
  EXPECT_EQ(styles.styles()[0].name, QStringLiteral("C"));
}

TEST(BackdropStylesTest, AnUntouchedBackdropBeginsAsTheLastOneUsed) {
  test::FakePreferences preferences;
  BackdropStyles styles(preferences);
  EXPECT_EQ(styles.lastUsed(), std::nullopt);
  BackdropSettings plain;
  plain.enabled = true;
  EXPECT_EQ(styles.turnedOn({}), plain);
  BackdropSettings last = tilted(9);
  last.background.value = BackdropBackground::BuiltInImage{QStringLiteral("sky")};
  styles.remember(last);
  EXPECT_EQ(styles.turnedOn({}), last);
  EXPECT_EQ(styles.lastBackground(), last.background);
  BackdropSettings touched = tilted(4);
  touched.enabled = false;
  EXPECT_EQ(styles.turnedOn(touched), tilted(4));
  preferences.setValue(QStringLiteral("backdropLastUsed"), QByteArray("[]"));
  EXPECT_EQ(styles.turnedOn({}), plain);
}

}  // namespace
}  // namespace vellora
