#include <gtest/gtest.h>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "record_editor/AgentGuideFile.h"
#include "record_editor/RecordPauseMarks.h"
#include "record_editor/RecordProjectBundle.h"
#include "record_editor/RecordedKeyCue.h"
#include "support/FakePreferences.h"

namespace vellora {
namespace {

void put(const QString& path, const QByteArray& data) {
  QFile file(path);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
  file.write(data);
}

QByteArray contents(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class ProjectBundleTest : public testing::Test {
 protected:
  QTemporaryDir home_;
  RecordingFiles files_{test::FakeFileNames(home_.path())};
  QString projects_ = home_.path() + QStringLiteral("/Videos/Vellora/Projects/");

  RecordProjectBundle make(const QString& name) {
    auto bundle = RecordProjectBundle::create(files_, name);
    EXPECT_TRUE(bundle.has_value());
    return *bundle;
  }
};

TEST_F(ProjectBundleTest, namesDirectoriesAfterProjectsWithoutTakingOthers) {
  EXPECT_EQ(make(QStringLiteral("Talk")).path(), projects_ + QStringLiteral("Talk.vellorav"));
  EXPECT_EQ(make(QStringLiteral("Talk")).path(), projects_ + QStringLiteral("Talk (2).vellorav"));
  EXPECT_EQ(make(QStringLiteral("a/b:c")).path(), projects_ + QStringLiteral("a-b-c.vellorav"));
  EXPECT_TRUE(QDir(make(QStringLiteral("..")).path()).exists());
  // A dangling link has the name too.
  QFile::link(QStringLiteral("/nowhere"), projects_ + QStringLiteral("Link.vellorav"));
  EXPECT_EQ(make(QStringLiteral("Link")).path(), projects_ + QStringLiteral("Link (2).vellorav"));
}

TEST_F(ProjectBundleTest, renamesToAFreeNameAndKeepsItsOwn) {
  const auto bundle = make(QStringLiteral("One"));
  make(QStringLiteral("Two"));
  put(bundle.file(QStringLiteral("screen.mov")), "x");
  EXPECT_EQ(bundle.renamed(QStringLiteral("One")), bundle);
  const auto renamed = bundle.renamed(QStringLiteral("Two"));
  EXPECT_EQ(renamed.directoryName(), QStringLiteral("Two (2)"));
  EXPECT_EQ(contents(renamed.videoURL()), "x");
  EXPECT_FALSE(QDir(bundle.path()).exists());
  // What is gone cannot be renamed, and stays what it was.
  EXPECT_EQ(bundle.renamed(QStringLiteral("Three")), bundle);
  EXPECT_TRUE(renamed.remove().has_value());
  EXPECT_FALSE(QDir(renamed.path()).exists());
}

TEST_F(ProjectBundleTest, findsTheFootageOfRecordingsAndImports) {
  const auto bundle = make(QStringLiteral("Movie"));
  EXPECT_EQ(RecordProjectBundle::open(bundle.path()).error(), RecordProjectBundle::OpenError::NoFootage);
  put(bundle.file(QStringLiteral("screen.webm")), "w");
  put(bundle.file(QStringLiteral("screen.mp4")), "m");
  put(bundle.file(QStringLiteral("screen.old.mp4")), "o");
  EXPECT_EQ(bundle.videoURL(), bundle.file(QStringLiteral("screen.mp4")));
  put(bundle.file(QStringLiteral("screen.mov")), "v");
  EXPECT_EQ(bundle.videoURL(), bundle.file(QStringLiteral("screen.mov")));

  EXPECT_EQ(RecordProjectBundle::open(home_.path()).error(), RecordProjectBundle::OpenError::NotABundle);
  // A link to a bundle opens; footage outside of the bundle does not.
  const QString link = home_.path() + QStringLiteral("/short.vellorav");
  QFile::link(bundle.path(), link);
  EXPECT_TRUE(RecordProjectBundle::open(link).has_value());
  EXPECT_EQ(RecordProjectBundle::open(bundle.path() + QStringLiteral("/."))->path(), bundle.path());
  const auto sly = make(QStringLiteral("Sly"));
  put(home_.path() + QStringLiteral("/secret"), "s");
  QFile::link(home_.path() + QStringLiteral("/secret"), sly.file(QStringLiteral("screen.mov")));
  EXPECT_EQ(sly.videoURL(), QString());
}

TEST_F(ProjectBundleTest, keepsADocumentItCannotReadAndOpensAFreshOne) {
  const auto bundle = make(QStringLiteral("Broken"));
  const QByteArray broken = R"({"name": "Broken", "zooms": [{)";
  put(bundle.file(QStringLiteral("project.json")), broken);
  for (int openings = 0; openings < 2; ++openings) {
    EXPECT_EQ(bundle.load().name, QStringLiteral("Broken"));
  }
  RecordProjectState state = bundle.load();
  state.keyboardEnabled = false;
  ASSERT_TRUE(bundle.save(state).has_value());
  EXPECT_EQ(bundle.load(), state);
  EXPECT_EQ(contents(bundle.file(QStringLiteral("project (unreadable).json"))), broken);
  EXPECT_EQ(QDir(bundle.path()).entryList(QDir::Files).size(), 2);
}

TEST_F(ProjectBundleTest, writesTheGuideOnceAndNamesExportsFreely) {
  const auto bundle = make(QStringLiteral("Guided"));
  const QString guide = bundle.file(QStringLiteral("AGENTS.md"));
  ASSERT_TRUE(AgentGuideFile::ensure(bundle.path()).has_value());
  EXPECT_TRUE(contents(guide).contains("cuts.txt"));
  put(guide, "mine");
  ASSERT_TRUE(AgentGuideFile::ensure(bundle.path()).has_value());
  EXPECT_EQ(contents(guide), "mine");

  const QString folder = home_.path() + QStringLiteral("/Videos/Vellora/");
  EXPECT_EQ(files_.exportURL(QStringLiteral(" \n")).value(), folder + QStringLiteral("Recording.mp4"));
  put(folder + QStringLiteral("Recording.mp4"), "x");
  EXPECT_EQ(files_.exportURL(QString()).value(), folder + QStringLiteral("Recording (2).mp4"));
  const QDateTime moment(QDate(2026, 3, 4), QTime(15, 6, 7));
  EXPECT_EQ(RecordingFiles::projectName(moment), QStringLiteral("Recording 2026-03-04 at 15.06.07"));
}

TEST_F(ProjectBundleTest, readsMarksAndCuesOfAnyQuality) {
  const QString path = make(QStringLiteral("Marks")).path();
  EXPECT_TRUE(RecordPauseMarks::load(path).empty());
  ASSERT_TRUE(RecordPauseMarks::save({4, 1.5, -1, std::nan("")}, path).has_value());
  EXPECT_EQ(RecordPauseMarks::load(path), (std::vector<double>{1.5, 4}));
  put(path + QStringLiteral("/pauses.json"), R"([1, "2", null, -3, 1e300, [4], 2])");
  EXPECT_EQ(RecordPauseMarks::load(path), (std::vector<double>{1, 2}));
  put(path + QStringLiteral("/pauses.json"), R"({"0": 1})");
  EXPECT_TRUE(RecordPauseMarks::load(path).empty());

  const std::vector<RecordedKeyCue> cues{{1, 2, {QStringLiteral("⌘"), QStringLiteral("C")}},
                                         {1.5, 3, {QStringLiteral("A")}}};
  ASSERT_TRUE(RecordedKeyCue::save(cues, path).has_value());
  EXPECT_EQ(RecordedKeyCue::load(path), cues);
  EXPECT_EQ(RecordedKeyCue::visible(cues, 1.7), &cues[1]);
  EXPECT_EQ(RecordedKeyCue::visible(cues, 1.2), &cues[0]);
  EXPECT_EQ(RecordedKeyCue::visible(cues, 3), nullptr);
  put(path + QStringLiteral("/keyboard.json"),
      R"([{"start": 2, "end": 1, "keys": ["A"]}, {"start": 0, "end": 1, "keys": []}, 7,
          {"start": 5, "end": 1.7976931348623157e308, "keys": ["B"]}, {"start": 1, "end": 2, "keys": ["A", 3]}])");
  const auto read = RecordedKeyCue::load(path);
  ASSERT_EQ(read.size(), 1U);
  EXPECT_EQ(read[0].keys, QStringList(QStringLiteral("B")));
}

}  // namespace
}  // namespace vellora
