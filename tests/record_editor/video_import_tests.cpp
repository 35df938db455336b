#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "record_editor/VideoImport.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

class VideoImportTest : public testing::Test {
 protected:
  QString write(const QString& name, const QByteArray& content) const {
    const QString path = home_.filePath(name);
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
    return path;
  }
  QStringList projects() const { return QDir(files_.projectsPath()).entryList(QDir::Dirs | QDir::NoDotAndDotDot); }
  static bool isVideo(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) && file.peek(5) == "video";
  }

  QTemporaryDir home_;
  RecordingFiles files_{test::FakeFileNames(home_.path())};
};

TEST_F(VideoImportTest, MakesAProjectNamedAfterTheFile) {
  const QByteArray content = "video" + QByteArray(9'000'000, 'x');
  const QString source = write(QStringLiteral("Talk.2026.MP4"), content);
  const auto bundle = VideoImport::run(files_, source, isVideo);
  ASSERT_TRUE(bundle);
  EXPECT_EQ(bundle->load().name, QStringLiteral("Talk.2026"));
  EXPECT_EQ(bundle->videoURL(), bundle->file(QStringLiteral("screen.mp4")));
  QFile copied(bundle->videoURL());
  ASSERT_TRUE(copied.open(QIODevice::ReadOnly));
  EXPECT_TRUE(copied.readAll() == content);
  EXPECT_TRUE(QFile::exists(bundle->file(QStringLiteral("AGENTS.md"))));
  EXPECT_TRUE(QFile::exists(source));

  const auto again = VideoImport::run(files_, source, isVideo);
  ASSERT_TRUE(again);
  EXPECT_EQ(again->directoryName(), QStringLiteral("Talk.2026 (2)"));
}

TEST_F(VideoImportTest, LeavesNothingBehindWhenItFails) {
  using Error = VideoImport::Error;
  const auto error = [&](const QString& file, const VideoImport::Progress& progress = {}) {
    const auto result = VideoImport::run(files_, file, isVideo, progress);
    return result ? std::nullopt : std::optional(result.error());
  };
  EXPECT_EQ(error(write(QStringLiteral("notes.mp4"), "text")), Error::Unreadable);
  EXPECT_EQ(error(home_.path()), Error::Unreadable);
  EXPECT_EQ(error(home_.filePath(QStringLiteral("missing.mp4"))), Error::Unreadable);
  EXPECT_EQ(error(write(QStringLiteral("cancelled.mp4"), "video"), [](double) { return false; }), Error::NotCopied);
  EXPECT_EQ(projects(), QStringList());

  // A link is followed once; its name is the project's.
  const QString target = write(QStringLiteral("target.mkv"), "video");
  const QString link = home_.filePath(QStringLiteral("link.mkv"));
  ASSERT_TRUE(QFile::link(target, link));
  const auto linked = VideoImport::run(files_, link, isVideo);
  ASSERT_TRUE(linked);
  EXPECT_EQ(linked->directoryName(), QStringLiteral("link"));
  EXPECT_FALSE(QFileInfo(linked->videoURL()).isSymLink());
}

}  // namespace
}  // namespace vellora
