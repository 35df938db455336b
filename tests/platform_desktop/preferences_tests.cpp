#include <gtest/gtest.h>

#include <limits>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "platform/linux/desktop/PreferenceFormat.h"
#include "platform/linux/desktop/QSettingsPreferences.h"
#include "platform_desktop/DesktopSession.h"

namespace vellora::test {
namespace {

QByteArray contentOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
  return file.readAll();
}

void writeFile(const QString& path, const QByteArray& content) {
  QDir().mkpath(QFileInfo(path).absolutePath());
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write(content);
}

class PreferencesTest : public ::testing::Test {
 protected:
  QTemporaryDir folder_;
  QString path_ = folder_.filePath("sub/suite.conf");
  std::unique_ptr<QSettingsPreferences> open() { return std::make_unique<QSettingsPreferences>(path_); }
};

TEST_F(PreferencesTest, TypesAndStrangeKeysComeBackFromTheFile) {
  const QVariantMap values{
      {"yes", true},
      {"number", qlonglong{-9007199254740993}},
      {"three", 3.0},
      {"text", QString("a=b \"é\"\nsecond line")},
      {"numeral", QString("1")},
      {"bytes", QByteArray("\0\xff\n", 3)},
      {"list", QVariantList{QString("zh-Hans"), qlonglong{2}, QByteArray("x")}},
      {"table", QVariantMap{{"inner", QVariantList{false}}}},
      {"hotkey.area", QByteArray("{}")},
      {QString("kéy = [odd] #%\\t"), QString("x")},
      {"", QVariant()},
  };
  {
    const auto store = open();
    for (auto it = values.begin(); it != values.end(); ++it) {
      if (!it.key().isEmpty()) store->setValue(it.key(), it.value());
    }
  }
  const auto store = open();
  EXPECT_EQ(store->keys().size(), values.size() - 1);
  for (auto it = values.begin(); it != values.end(); ++it) {
    if (it.key().isEmpty()) continue;
    EXPECT_EQ(store->value(it.key()).typeId(), it.value().typeId()) << it.key().toStdString();
    EXPECT_EQ(store->value(it.key()), it.value()) << it.key().toStdString();
  }
  EXPECT_EQ(store->integer("numeral"), std::nullopt);
  EXPECT_EQ(store->string("number"), std::nullopt);
}

TEST_F(PreferencesTest, WhatCannotBeStoredLeavesTheOldValue) {
  const auto store = open();
  store->setValue("scale", 2.0);
  store->setValue("scale", std::numeric_limits<double>::infinity());
  store->setValue("#1", QByteArray("injected=1"));
  EXPECT_EQ(store->value("scale"), 2.0);
  EXPECT_EQ(store->keys(), QStringList{"scale"});
}

TEST_F(PreferencesTest, ADamagedLineCostsOnlyItsKeyAndIsKept) {
  writeFile(path_, "good=1\nbroken={\"data\":\n\xff\xfe garbage\nlate=true\r\n=5\nhuge=18446744073709551615\n");
  {
    const auto store = open();
    EXPECT_EQ(store->keys(), (QStringList{"good", "late"}));
    EXPECT_FALSE(store->contains("broken"));
    store->setValue("good", 2);
  }
  const QByteArray text = contentOf(path_);
  EXPECT_TRUE(text.contains("good=2\n"));
  EXPECT_TRUE(text.contains("broken={\"data\":\n"));
  EXPECT_TRUE(text.contains("\xff\xfe garbage\n"));
  EXPECT_TRUE(text.contains("huge=18446744073709551615\n"));
}

TEST_F(PreferencesTest, AnAbsurdFileIsMovedAsideNotOverwritten) {
  writeFile(path_, {});
  ASSERT_TRUE(QFile::resize(path_, preferenceFormat::maximumFileBytes + 1));
  {
    const auto store = open();
    EXPECT_TRUE(store->keys().isEmpty());
    store->setValue("key", 1);
  }
  EXPECT_EQ(contentOf(path_), "key=1\n");
  EXPECT_EQ(QFileInfo(path_ + ".refused").size(), preferenceFormat::maximumFileBytes + 1);
}

// Another program changes the file: written anew in place of the old one, as this program's other processes do it.
void changeFromOutside(const QString& path, const std::string& script) {
  desktopSession().check({"sh", "-c", script, "sh", path.toStdString()});
}

TEST_F(PreferencesTest, AnotherProcessIsNoticedAndItsKeysAreNotLost) {
  const auto store = open();
  store->setValue("mine", 1);
  store->setValue("shared", 1);
  ASSERT_TRUE(store->flush());
  QStringList told;
  store->setChangeHandler([&](const QStringList& keys) { told += keys; });

  store->setValue("mine", 2);
  changeFromOutside(path_,
                    R"(sed 's/shared=1/shared=7/' "$1" > "$1.new"; echo 'theirs="x"' >> "$1.new"; mv "$1.new" "$1")");
  ASSERT_TRUE(processUntil([&] { return told.size() >= 2; }));
  told.sort();
  EXPECT_EQ(told, (QStringList{"shared", "theirs"}));
  EXPECT_EQ(store->integer("shared"), 7);
  ASSERT_TRUE(store->flush());
  const QByteArray text = contentOf(path_);
  EXPECT_TRUE(text.contains("mine=2\n") && text.contains("shared=7\n") && text.contains("theirs=\"x\"\n"))
      << text.data();

  told.clear();
  changeFromOutside(path_, R"(sed -i '/theirs/d' "$1")");
  EXPECT_TRUE(processUntil([&] { return told == QStringList{"theirs"}; }));
  told.clear();
  changeFromOutside(path_, R"(echo 'edited=true' >> "$1")");
  EXPECT_TRUE(processUntil([&] { return told == QStringList{"edited"}; }));
}

TEST(PreferenceSuitesTest, FindsTablesByNameAndNothingElse) {
  const QString config = qEnvironmentVariable("XDG_CONFIG_HOME");
  writeFile(config + "/dev.orlo.brisk.conf", "saveDirectory=\"/srv\"\n");
  writeFile(config + "/dev.orlo.tarnwick/dev.orlo.tarnwick.conf", "n=4\n");
  QSettingsSuites suites;
  ASSERT_TRUE(suites.open("dev.orlo.brisk"));
  EXPECT_EQ(suites.open("dev.orlo.brisk")->string("saveDirectory"), QString("/srv"));
  ASSERT_TRUE(suites.open("dev.orlo.tarnwick"));
  EXPECT_EQ(suites.open("dev.orlo.tarnwick")->integer("n"), 4);
  for (const char* name : {"dev.orlo.pelmet", "", "..", "../dev.orlo.brisk", "dev.orlo.brisk\n"}) {
    EXPECT_FALSE(suites.open(name)) << name;
  }
  {
    const auto own = QSettingsPreferences::openOwn();
    own->setValue("k", true);
  }
  EXPECT_EQ(contentOf(config + "/vellora/dev.orlo.vellora.conf"), "k=true\n");
}

}  // namespace
}  // namespace vellora::test
