#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "recording/RecordingMarker.h"
#include "recording/RecordingRecovery.h"
#include "support/FakeMovies.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

class RecoveryTest : public testing::Test {
 protected:
  QTemporaryDir home_;
  RecordingFiles files_{test::FakeFileNames(home_.path())};
  test::FakeMovies movies_;

  /// A bundle as a killed program leaves it.
  QString abandoned(const QString& name, const QByteArray& screen) {
    const QString path = RecordProjectBundle::create(files_, name)->path();
    put(path + QStringLiteral("/.recording"), {});
    put(path + QStringLiteral("/screen.mov"), screen);
    return path;
  }
  static void put(const QString& path, const QByteArray& data) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(data);
  }
};

TEST_F(RecoveryTest, completesWhatAKilledProgramLeft) {
  const QString path = abandoned(QStringLiteral("Recording a"), "movie");
  put(path + QStringLiteral("/camera.mov"), "rubbish");
  const auto saved = RecordingRecovery::run(files_, movies_);
  ASSERT_EQ(saved.size(), 1U);
  EXPECT_EQ(saved[0].load().name, QStringLiteral("Recording a"));
  EXPECT_TRUE(QFile::exists(saved[0].file(QStringLiteral("AGENTS.md"))));
  EXPECT_EQ(saved[0].cameraURL(), QString());
  EXPECT_TRUE(QFile::exists(path + QStringLiteral("/camera (unreadable).mov")));
  EXPECT_TRUE(RecordingRecovery::run(files_, movies_).empty());  // once
}

TEST_F(RecoveryTest, removesOnlyWhatHoldsNothing) {
  const QString empty = abandoned(QStringLiteral("Empty"), "");
  const QString odd = abandoned(QStringLiteral("Odd"), "rubbish");
  EXPECT_TRUE(RecordingRecovery::run(files_, movies_).empty());
  EXPECT_FALSE(QDir(empty).exists());
  EXPECT_TRUE(QFile::exists(odd + QStringLiteral("/screen.mov")));
  EXPECT_TRUE(QFile::exists(odd + QStringLiteral("/.recording")));
}

TEST_F(RecoveryTest, leavesARecordingAloneThatIsStillRunning) {
  const QString path = RecordProjectBundle::create(files_, QStringLiteral("Live"))->path();
  {
    auto marker = RecordingMarker::place(path);
    ASSERT_TRUE(marker);
    put(path + QStringLiteral("/screen.mov"), "movie");
    EXPECT_TRUE(RecordingRecovery::run(files_, movies_).empty());
    EXPECT_FALSE(RecordingMarker::place(path));
  }
  EXPECT_EQ(RecordingRecovery::run(files_, movies_).size(), 1U);
}

}  // namespace
}  // namespace vellora
