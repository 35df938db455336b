#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include <QDir>
#include <QTemporaryDir>

#include "editor/compressor/CompressSettings.h"
#include "editor/compressor/QualityUse.h"
#include "support/FakePreferences.h"

namespace vellora::test {
namespace {

TEST(CompressSettings, AreReadBackAsTheyWereSet) {
  const QTemporaryDir folder;
  FakePreferences preferences;
  CompressSettings settings(preferences);
  EXPECT_EQ(settings.options(), (CompressOptions{.quality = 75}));
  EXPECT_EQ(settings.destination(QStringLiteral("/pasted")),
            (CompressDestination{CompressOutputMode::sourceFolder, {}, "/pasted"}));

  settings.setFormat(CompressFormat::webp);
  settings.setQuality(42);
  settings.setResize(ResizeLimit::custom);
  settings.setCustomEdge(1234);
  settings.setOutputFolder(folder.path());
  settings.setOutputMode(CompressOutputMode::customFolder);
  settings.setKeepsMetadata(true);
  settings.setKeepsDates(true);
  const CompressSettings again(preferences);
  EXPECT_EQ(again.options(), (CompressOptions{CompressFormat::webp, 42, 1234, true, true}));
  EXPECT_EQ(again.destination({}).folder, folder.path().toStdString());
  EXPECT_EQ(preferences.values["compress.quality"], QVariant(42));
  EXPECT_EQ(preferences.values["compress.resize"], QVariant("custom"));
  EXPECT_EQ(preferences.values["compress.resizeCustomEdge"], QVariant(1234));
  EXPECT_EQ(preferences.values["compress.outputMode"], QVariant("customFolder"));
  EXPECT_EQ(preferences.values["compress.outputFolder"], QVariant(folder.path()));
  for (const ResizeLimit limit : {ResizeLimit::off, ResizeLimit::k4, ResizeLimit::k2, ResizeLimit::k1}) {
    settings.setResize(limit);
    EXPECT_EQ(settings.resize(), limit);
    EXPECT_EQ(settings.options().maxEdge, maxEdgeOf(limit, 1234));
  }
  preferences.values.erase("compress.resizeCustomEdge");
  settings.setResize(ResizeLimit::custom);
  EXPECT_EQ(settings.options().maxEdge, 1000);
}

TEST(CompressSettings, WhateverIsStoredGivesUsableOptions) {
  const QTemporaryDir folder;
  const QString file = folder.filePath(QStringLiteral("file"));
  QFile(file).open(QIODevice::WriteOnly);
  const std::vector<QVariant> hostile{{},
                                      -1,
                                      0,
                                      101,
                                      std::numeric_limits<qlonglong>::max(),
                                      std::numeric_limits<qlonglong>::min(),
                                      1e300,
                                      "",
                                      "x",
                                      "k2\n",
                                      QByteArray("\xFF\xFE\0", 3),
                                      QVariantList{1, 2},
                                      "relative",
                                      "/",
                                      file,
                                      "/nowhere",
                                      QString(100000, u'a'),
                                      QVariantMap{{"a", 1}},
                                      "../..",
                                      true,
                                      std::numeric_limits<double>::quiet_NaN()};
  for (const QVariant& value : hostile) {
    SCOPED_TRACE(value.typeName() ? value.typeName() : "nothing");
    FakePreferences preferences;
    for (const char* key : {"format", "quality", "resize", "resizeCustomEdge", "outputMode", "outputFolder",
                            "keepMetadata", "keepDates"}) {
      preferences.values[QStringLiteral("compress.") + key] = value;
    }
    preferences.values["compress.outputMode"] = "customFolder";
    const CompressSettings settings(preferences);
    const CompressOptions options = settings.options();
    EXPECT_TRUE(options.quality >= 1 && options.quality <= 100) << options.quality;
    EXPECT_EQ(options.format, CompressFormat::original);
    EXPECT_TRUE(CompressSettings::isEdge(settings.customEdge()));
    const CompressDestination destination = settings.destination({});
    if (destination.mode == CompressOutputMode::customFolder) {
      EXPECT_TRUE(destination.folder.is_absolute() && std::filesystem::is_directory(destination.folder));
    }
  }
  // A chosen folder that went away leads back beside the sources, and is used again when it is back.
  FakePreferences preferences;
  CompressSettings settings(preferences);
  const QString gone = folder.filePath(QStringLiteral("gone"));
  settings.setOutputFolder(gone);
  settings.setOutputMode(CompressOutputMode::customFolder);
  EXPECT_EQ(settings.destination({}).mode, CompressOutputMode::sourceFolder);
  QDir().mkdir(gone);
  EXPECT_EQ(settings.destination({}).folder, gone.toStdString());
}

TEST(UsesQuality, WhereAnyPictureHasAnEncoderWithLoss) {
  const auto file = [](const char* path, std::optional<PictureType> type = {}) {
    CompressionItem item;
    item.sourceURL = path;
    item.sourceUTType = type;
    return item;
  };
  using enum CompressFormat;
  const std::vector<CompressionItem> none, pasted{CompressionItem{}};
  EXPECT_TRUE(usesQuality(none, original) && usesQuality(none, webp) && usesQuality(none, jpeg));
  EXPECT_FALSE(usesQuality(none, png));
  EXPECT_FALSE(usesQuality(pasted, original));  // becomes PNG
  EXPECT_TRUE(usesQuality(pasted, webp));
  const std::vector<CompressionItem> lossless{file("a.png"), file("b.TIF"), file("c.jpg", PictureType::Png)};
  EXPECT_FALSE(usesQuality(lossless, original));
  EXPECT_TRUE(usesQuality(lossless, jpeg));
  auto mixed = lossless;
  mixed.push_back(file("d.png", PictureType::WebP));
  EXPECT_TRUE(usesQuality(mixed, original));
  EXPECT_FALSE(usesQuality(mixed, png));
  EXPECT_TRUE(usesQuality({file("unknown")}, original));
}

}  // namespace
}  // namespace vellora::test
