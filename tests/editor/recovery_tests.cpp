#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>

#include "SessionStoreTest.h"
#include "editor/SessionFolder.h"

namespace vellora {
namespace {

using test::solidBitmap;

class RecoveryTest : public test::SessionStoreTest {
 protected:
  /// A document that can be told by its number.
  static ImageDocument numbered(int number) {
    ImageDocument document = documentOf({30, 20});
    setNumber(document, number);
    return document;
  }
  static void setNumber(ImageDocument& document, int number) {
    Annotation counter;
    counter.kind = Annotation::Kind::Counter;
    counter.number = number;
    document.annotations.assign(1, makeAnnotation(counter));
  }
  static int numberOf(const SessionStore::Item& item) {
    const auto document = sessionFolder::readDocument(item.directory);
    return document && !document->annotations.empty() ? document->annotations[0]->number : -1;
  }

  int recover(SessionStore& store) {
    int recovered = 0;
    store.recoverAbandoned([&recovered](int count) { recovered = count; });
    settle(store);
    return recovered;
  }

  /// What the killed program does: edits, closes and reopens one document, telling each number that is safe.
  [[noreturn]] void editUntilKilled(int report) {
    auto store = makeStore();
    ImageDocument document = numbered(1);
    auto open = store->open(document, {5});
    for (int number = 1;; ++number) {
      setNumber(document, number);
      if (number % 7 == 0 && document.pieces.size() < 9) {
        document.pieces.push_back(makePiece(solidBitmap({9, 9}, 0), 1));
      }
      if (number % 5 == 0) {
        open->close(document);
        settle(*store);
        auto entry = take(*store, 0);
        if (!entry) _exit(1);
        document = std::move(entry->document);
        open = std::move(entry->open);
      } else {
        open->update(document);
        runLoop.advance(1);
        settle(*store);
      }
      if (write(report, &number, sizeof number) != sizeof number) _exit(1);
    }
  }
};

TEST_F(RecoveryTest, KeepsOpenDocumentsUntilTheyAreClosed) {
  auto store = makeStore();
  ImageDocument document = documentOf({30, 20});
  auto open = store->open(document, {5});
  settle(*store);
  EXPECT_EQ(leftBehind().size(), 1);
  EXPECT_TRUE(store->items().empty());
  EXPECT_EQ(recover(*makeStore()), 0) << "its owner lives";

  // A second piece arrives, the first one goes.
  document.pieces.push_back(makePiece(solidBitmap({8, 8}, 0xFFFFFFFF), 1));
  open->update(document);
  runLoop.advance(0.6);
  document.pieces.erase(document.pieces.begin());
  open->close(document);
  EXPECT_EQ(store->items().size(), 1u) << "listed at once";
  settle(*store);
  EXPECT_TRUE(leftBehind().isEmpty());
  ASSERT_EQ(folders().size(), 1);
  const auto written = sessionFolder::readDocument(store->items()[0].directory);
  ASSERT_TRUE(written);
  EXPECT_EQ(written->pieces[0].file, QStringLiteral("piece-0.png"));
  EXPECT_EQ(written->pixelWidth, 8);
  EXPECT_TRUE(store->items()[0].hasThumbnail);

  // Reopened, it is out of the history but still on disk, and the way back writes no picture anew.
  const auto inode = [](const QString& folder) {
    struct stat status {};
    return ::stat(QFile::encodeName(folder + QStringLiteral("/piece-0.png")).constData(), &status) == 0 ? status.st_ino
                                                                                                        : 0;
  };
  const auto before = inode(store->items()[0].directory);
  auto entry = take(*store, 0);
  ASSERT_TRUE(entry);
  EXPECT_TRUE(folders().isEmpty());
  EXPECT_EQ(leftBehind().size(), 1);
  entry->open->close(entry->document);
  settle(*store);
  EXPECT_TRUE(leftBehind().isEmpty());
  ASSERT_EQ(folders().size(), 1);
  EXPECT_EQ(inode(store->items()[0].directory), before);

  // A document that lost all its pieces leaves nothing.
  entry = take(*store, 0);
  ASSERT_TRUE(entry);
  entry->open->close({});
  settle(*store);
  EXPECT_TRUE(leftBehind().isEmpty());
  EXPECT_TRUE(folders().isEmpty());
}

TEST_F(RecoveryTest, WritesTheLatestStateOnceASecondHasGone) {
  auto store = makeStore();
  ImageDocument document = numbered(1);
  const auto open = store->open(document, {5});
  settle(*store);
  const auto kept = [this] {
    const auto read = sessionFolder::readDocument(recovery + u'/' + leftBehind().value(0));
    return read ? read->annotations[0]->number : -1;
  };
  for (int number = 2; number <= 40; ++number) {
    setNumber(document, number);
    open->update(document);
    runLoop.advance(0.1);
    settle(*store);
    EXPECT_GE(kept(), number - 9) << "also while changes never pause";
  }
  runLoop.advance(1);
  settle(*store);
  EXPECT_EQ(kept(), 40);
}

TEST_F(RecoveryTest, AKillAtAnyMomentLosesNothingThatWasSafe) {
  std::mt19937 random(7);
  for (int round = 0; round < 25; ++round) {
    int report[2];
    ASSERT_EQ(pipe(report), 0);
    const pid_t child = fork();
    if (child == 0) editUntilKilled(report[1]);
    close(report[1]);
    int safe = 0;
    ASSERT_EQ(read(report[0], &safe, sizeof safe), static_cast<ssize_t>(sizeof safe));
    usleep(std::uniform_int_distribution<useconds_t>(0, 30'000)(random));
    kill(child, SIGKILL);
    for (int number = 0; read(report[0], &number, sizeof number) == sizeof number;) safe = number;
    close(report[0]);
    waitpid(child, nullptr, 0);

    auto store = makeStore();
    recover(*store);
    ASSERT_FALSE(store->items().empty()) << "round " << round;
    EXPECT_GE(numberOf(store->items()[0]), safe) << "round " << round;
    EXPECT_TRUE(store->items()[0].hasThumbnail);
    for (const QString& left : leftBehind()) EXPECT_TRUE(sessionFolder::isTemporary(left)) << left.toStdString();
    store->clear();
    settle(*store);
  }
}

TEST_F(RecoveryTest, PutsWhatWasLeftBehindFirstInAFullHistory) {
  auto store = makeStore();
  store->open(numbered(77), {5});  // and the window goes without closing it
  settle(*store);
  for (int i = 0; i < 10; ++i) push(*store);
  runLoop.advance(1);
  EXPECT_EQ(recover(*store), 1);
  ASSERT_EQ(store->items().size(), 10u);
  EXPECT_EQ(numberOf(store->items()[0]), 77);
  EXPECT_TRUE(leftBehind().isEmpty());

  // What is no document goes silently.
  writeFile(recovery + QStringLiteral("/cut-short"), QStringLiteral("piece-0.png"), "x");
  writeFile(recovery + QStringLiteral("/damaged"), QStringLiteral("session.json"), "{");
  EXPECT_EQ(recover(*store), 0);
  EXPECT_TRUE(leftBehind().isEmpty());
}

TEST_F(RecoveryTest, GoesOnWhereNothingCanBeKept) {
  auto store = makeStore();
  push(*store);
  writeFile(root.path(), QStringLiteral("Recovery"), "no folder");
  {
    const auto entry = take(*store, 0);
    ASSERT_TRUE(entry);
    entry->open->update(numbered(2));
    runLoop.advance(1);
    settle(*store);
  }
  store = makeStore();
  ASSERT_EQ(store->items().size(), 1u) << "an entry that cannot be moved stays in the history";

  auto entry = take(*store, 0);
  ASSERT_TRUE(entry);
  entry->open->close(numbered(3));
  settle(*store);
  EXPECT_EQ(numberOf(store->items()[0]), 3);

  // As soon as there is room again, the state that waited is kept, without a further change.
  const auto open = store->open(numbered(4), {5});
  settle(*store);
  QFile::remove(recovery);
  runLoop.advance(31);
  settle(*store);
  EXPECT_EQ(leftBehind().size(), 1);
}

TEST_F(RecoveryTest, SurvivesAFullDisk) {
  const pid_t child = fork();
  if (child == 0) {
    // Every write fails from here on, as on a full disk.
    const rlimit nothing{0, RLIM_INFINITY};
    signal(SIGXFSZ, SIG_IGN);
    auto store = makeStore();
    setrlimit(RLIMIT_FSIZE, &nothing);
    auto open = store->open(numbered(1), {5});
    open->update(numbered(2));
    runLoop.advance(2);
    settle(*store);
    store->push(numbered(3), {5});
    open->close(numbered(4));
    settle(*store);
    _exit(store->items().empty() ? 0 : 2);
  }
  int status = -1;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  EXPECT_TRUE(folders().isEmpty());
}

}  // namespace
}  // namespace vellora
