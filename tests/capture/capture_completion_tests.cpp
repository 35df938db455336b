#include "capture/CaptureCompletion.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "support/FakePasteboard.h"
#include "support/FakePreferences.h"
#include "support/TestBitmaps.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

class CaptureCompletionTest : public testing::Test {
 protected:
  CaptureCompletionTest() { QDir().mkpath(fileNames.desktop()); }

  /// Completes a capture with these stored actions and returns what was reported.
  std::optional<CaptureOutcome> complete(qint64 actions, std::optional<CaptureCompletion::Override> override = {}) {
    preferences.setValue(QStringLiteral("afterCaptureActions"), actions);
    reported.reset();
    bool done = false;
    completion.completeCapture({test::solidBitmap({8, 6}, 0xFF102030), 2}, CaptureOrigin{}, override,
                               [&](const CaptureOutcome&) { done = true; });
    EXPECT_TRUE(runLoop.runUntil([&] { return done; }));
    store.waitForPendingWrites();
    runLoop.runPosted();
    return reported;
  }

  QStringList files(const QString& folder) const { return QDir(folder).entryList(QDir::Files, QDir::Name); }
  QStringList messages() const {
    QStringList keys;
    for (const auto& message : outcomeMessages(*reported)) keys << QString::fromLatin1(message.key);
    return keys;
  }

  QTemporaryDir root;
  test::FakeFileNames fileNames{root.path()};
  test::FakePreferences preferences;
  Settings settings{preferences, fileNames};
  test::VirtualRunLoop runLoop;
  test::FakePasteboard pasteboard;
  ClipboardFiles clipboardFiles{fileNames.applicationSupport()};
  CaptureOutput output{runLoop, pasteboard, clipboardFiles};
  SessionStore store{SessionStore::defaultDirectory(fileNames.applicationSupport()), runLoop,
                     [](const QString&) { return std::nullopt; }};
  QStringList events;
  std::optional<CaptureOutcome> reported;
  CaptureCompletion completion{settings,
                               store,
                               output,
                               runLoop,
                               {[this](const CaptureDocument&) { events << QStringLiteral("editor"); },
                                [this](const CaptureDocument&) { events << QStringLiteral("pin"); }},
                               [this] { events << QStringLiteral("cancel"); },
                               [this](const CaptureOutcome& outcome) { reported = outcome; }};
};

TEST_F(CaptureCompletionTest, OpensWindowsOrRemembersTheCapture) {
  EXPECT_FALSE(complete(1));
  EXPECT_EQ(events, (QStringList{QStringLiteral("cancel"), QStringLiteral("editor")}));
  EXPECT_TRUE(store.items().empty());

  events.clear();
  complete(8 | 2);
  EXPECT_EQ(events, (QStringList{QStringLiteral("cancel"), QStringLiteral("pin")}));
  EXPECT_TRUE(store.items().empty());

  complete(4);
  ASSERT_EQ(store.items().size(), 1u);
  EXPECT_EQ(store.items()[0].pixelWidth, 8);
}

TEST_F(CaptureCompletionTest, SavesAndCopiesWithOneMessage) {
  runLoop.setNow(Date::fromDateTime(QDateTime(QDate(2026, 11, 22), QTime(21, 26, 23, 42))));
  complete(2 | 4);
  EXPECT_EQ(files(fileNames.desktop()), QStringList{QStringLiteral("Vellora 2026-11-22 at 21.26.23.042.png")});
  EXPECT_EQ(messages(), QStringList{QStringLiteral("toast.copiedAndSavedTo")});
  ASSERT_EQ(pasteboard.copies.size(), 1u);
  EXPECT_TRUE(pasteboard.copies[0].png.startsWith("\x89PNG"));
  EXPECT_TRUE(QFile::exists(pasteboard.copies[0].filePath));

  complete(4);
  EXPECT_EQ(files(fileNames.desktop()).size(), 2) << "a capture at the same moment gets a name of its own";
  EXPECT_EQ(messages(), QStringList{QStringLiteral("toast.savedTo")});
}

TEST_F(CaptureCompletionTest, CopiesInTheChosenForm) {
  preferences.setValue(QStringLiteral("clipboardMode"), QStringLiteral("imageOnly"));
  complete(3);
  EXPECT_TRUE(pasteboard.copies[0].filePath.isEmpty());
  EXPECT_EQ(messages(), QStringList{QStringLiteral("toast.copied")});

  preferences.setValue(QStringLiteral("clipboardMode"), QStringLiteral("fileOnly"));
  complete(3);
  EXPECT_TRUE(pasteboard.copies[1].png.isEmpty());
  EXPECT_FALSE(pasteboard.copies[1].filePath.isEmpty());

  // The folder of clipboard files cannot be made: the picture itself is better than nothing.
  QDir(clipboardFiles.directory()).removeRecursively();
  QFile blocker(clipboardFiles.directory());
  ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
  complete(3);
  EXPECT_FALSE(pasteboard.copies[2].png.isEmpty());
}

TEST_F(CaptureCompletionTest, ReportsFailuresAndKeepsTheCapture) {
  // The folder vanishes between reading the setting and writing the file.
  QFile blocker(root.filePath(QStringLiteral("file")));
  ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
  preferences.setValue(QStringLiteral("saveDirectory"), blocker.fileName());
  complete(4);
  EXPECT_EQ(messages(), QStringList{QStringLiteral("toast.captureOutputFailed")});
  EXPECT_STREQ(outcomeIcon(*reported), "exclamationmark.triangle.fill");
  EXPECT_EQ(store.items().size(), 1u);

  complete(2 | 4);
  EXPECT_EQ(messages(), (QStringList{QStringLiteral("toast.copied"), QStringLiteral("toast.captureOutputFailed")}));
  pasteboard.accepts = false;
  complete(2);
  EXPECT_EQ(messages(), QStringList{QStringLiteral("toast.captureOutputFailed")});
}

TEST_F(CaptureCompletionTest, WritesOnlyTheOutputFileWhenNoActionIsNamed) {
  const QString path = root.filePath(QStringLiteral("out.png"));
  EXPECT_FALSE(complete(4, CaptureCompletion::Override{std::nullopt, path})) << "no toast";
  EXPECT_TRUE(QFile::exists(path));
  EXPECT_TRUE(store.items().empty());
  EXPECT_TRUE(files(fileNames.desktop()).isEmpty());
}

TEST(ClipboardFilesTest, KeepsTheTwentyNewestAndTheOneJustWritten) {
  QTemporaryDir root;
  ClipboardFiles clipboardFiles(root.path());
  QDir().mkpath(clipboardFiles.directory());
  const QDateTime base = QDateTime::currentDateTime();
  for (int i = 0; i < 25; ++i) {
    QFile file(clipboardFiles.directory() + QStringLiteral("/old %1.png").arg(i, 2, 10, QChar(u'0')));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.setFileTime(base.addSecs(60 + i), QFileDevice::FileModificationTime);  // newer than what is written now
  }
  const auto path = clipboardFiles.write("png", Date::fromDateTime(base));
  ASSERT_TRUE(path);
  clipboardFiles.waitForPendingWork();
  const QStringList left = QDir(clipboardFiles.directory()).entryList(QDir::Files, QDir::Name);
  EXPECT_EQ(left.size(), 20);
  EXPECT_TRUE(QFile::exists(*path));
  EXPECT_TRUE(left.contains(QStringLiteral("old 24.png")));
  EXPECT_FALSE(left.contains(QStringLiteral("old 05.png")));
}

}  // namespace
}  // namespace vellora
