#include "editor/SessionStore.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "editor/SessionFolder.h"
#include "support/TestBitmaps.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using test::solidBitmap;

class SessionStoreTest : public testing::Test {
 protected:
  std::unique_ptr<SessionStore> makeStore() {
    return std::make_unique<SessionStore>(root.path(), runLoop, [](const QString& path) -> std::optional<Bitmap> {
      if (!QFile::exists(path)) return std::nullopt;
      return solidBitmap({2, 2}, 0xFF00FF00);
    });
  }

  void push(SessionStore& store, PixelSize size = {40, 20}, double scale = 2) {
    runLoop.advance(1);
    store.push({makePiece(solidBitmap(size, 0xFF336699), scale)}, Json::array(), defaultBackdropRecord(),
               runLoop.now());
    store.waitForPendingWrites();
    runLoop.runPosted();
  }

  QStringList folders() const {
    return QDir(root.path()).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
  }

  void writeFile(const QString& folder, const QString& name, const QByteArray& text) const {
    QDir(root.path()).mkpath(folder);
    QFile file(root.filePath(folder + u'/' + name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }

  static QByteArray documentText(const QByteArray& file, double savedAt = 5) {
    SessionDocument document;
    document.savedAt = {savedAt};
    document.pixelWidth = 4;
    document.pixelHeight = 4;
    document.backdrop = defaultBackdropRecord();
    document.pieces.push_back({QString::fromUtf8(file), 1, {0, 0}, {4, 4}, {}});
    return encode(document);
  }

  QTemporaryDir root;
  test::VirtualRunLoop runLoop;
};

TEST_F(SessionStoreTest, KeepsTheTenNewestAcrossStarts) {
  auto store = makeStore();
  for (int i = 0; i < 12; ++i) push(*store);
  store->waitForPendingWrites();
  EXPECT_EQ(store->items().size(), 10u);
  EXPECT_EQ(folders().size(), 10);

  std::vector<QString> before;
  for (const auto& item : store->items()) before.push_back(item.id());
  store = makeStore();
  std::vector<QString> after;
  for (const auto& item : store->items()) {
    after.push_back(item.id());
    EXPECT_TRUE(item.hasThumbnail);
    EXPECT_EQ(item.pixelWidth, 40);
    EXPECT_EQ(item.pixelHeight, 20);
  }
  EXPECT_EQ(after, before) << "newest first, as before";
}

TEST_F(SessionStoreTest, WritesTheDocumentInItsStoredForm) {
  runLoop.setNow({700000000.5});
  auto store = makeStore();
  store->push({makePiece(solidBitmap({40, 20}, 0xFF336699), 2)}, Json::array(), Json{{"enabled", false}},
              {699999999.25});
  store->waitForPendingWrites();
  QFile file(QDir(store->items()[0].directory).filePath(QStringLiteral("session.json")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll(),
            R"({"version":1,"capturedAt":699999999.25,"savedAt":700000000.5,"pixelWidth":40,"pixelHeight":20,)"
            R"("backdrop":{"enabled":false},"pieces":[{"file":"piece-0.png","scale":2.0,"origin":[0.0,0.0],)"
            R"("pointSize":[20.0,10.0]}],"annotations":[]})");
  EXPECT_TRUE(QFile::exists(root.filePath(QStringLiteral("CACHEDIR.TAG"))));
}

TEST_F(SessionStoreTest, DeletesFoldersThatHoldNoSession) {
  writeFile(
      QStringLiteral("no-pieces"), QStringLiteral("session.json"),
      R"({"version":1,"capturedAt":1,"savedAt":1,"pixelWidth":1,"pixelHeight":1,"backdrop":{},"pieces":[],"annotations":[]})");
  writeFile(QStringLiteral("garbage"), QStringLiteral("session.json"), QByteArray(1000, '['));
  writeFile(QStringLiteral("no-document"), QStringLiteral("piece-0.png"), "x");
  writeFile(QStringLiteral("good"), QStringLiteral("session.json"), documentText("piece-0.png"));
  writeFile(QStringLiteral(".writing-by-another-process"), QStringLiteral("piece-0.png"), "x");
  const QString dead = QStringLiteral(".writing-999999999-by-a-dead-process");
  writeFile(dead, QStringLiteral("piece-0.png"), "x");
  const std::array<timespec, 2> twoMinutesAgo{timespec{time(nullptr) - 120, 0}, timespec{time(nullptr) - 120, 0}};
  utimensat(AT_FDCWD, QFile::encodeName(root.filePath(dead)).constData(), twoMinutesAgo.data(), 0);
  auto store = makeStore();
  store->waitForPendingWrites();
  EXPECT_EQ(folders(), (QStringList{QStringLiteral(".writing-by-another-process"), QStringLiteral("good")}));
  EXPECT_EQ(store->items().size(), 1u);
}

TEST_F(SessionStoreTest, TakesAnEntryOutOfTheHistory) {
  auto store = makeStore();
  push(*store);
  push(*store);
  int calls = 0;
  store->take(5, [&](const auto& entry) { calls += entry ? 100 : 1; });
  EXPECT_EQ(calls, 1);
  EXPECT_EQ(store->items().size(), 2u);

  store->take(1, [&](const auto& entry) { calls += entry && entry->pieces.size() == 1 ? 10 : 1000; });
  EXPECT_EQ(store->items().size(), 1u) << "gone from the list at once";
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_EQ(calls, 11);
  EXPECT_EQ(folders().size(), 1);
}

TEST_F(SessionStoreTest, NeverReadsAPictureOutsideTheSessionsFolder) {
  writeFile(QStringLiteral("a"), QStringLiteral("session.json"), documentText("../../etc/piece-7.png"));
  writeFile(QStringLiteral("a"), QStringLiteral("piece-7.png"), "x");
  const QString folder = root.filePath(QStringLiteral("a"));
  const auto path = [&folder](const char* file) {
    return sessionFolder::piecePath(folder, {QString::fromLatin1(file), 1, {}, {}, {}});
  };
  EXPECT_EQ(path("../../etc/piece-7.png"), folder + QStringLiteral("/piece-7.png"));
  EXPECT_FALSE(path(""));
  EXPECT_FALSE(path(".."));
  EXPECT_FALSE(path("/etc/"));
  ASSERT_TRUE(QFile::link(QStringLiteral("/etc/passwd"), folder + QStringLiteral("/link.png")));
  EXPECT_FALSE(path("link.png"));
}

TEST_F(SessionStoreTest, DropsAnEntryThatCannotBeWritten) {
  auto store = makeStore();
  CapturePiece broken = makePiece(Bitmap(), 1);
  broken.pointSize = {10, 10};
  store->push({makePiece(solidBitmap({4, 4}, 0), 1), broken}, Json::array(), Json::object(), runLoop.now());
  EXPECT_EQ(store->items().size(), 1u) << "listed while it is being written";
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_TRUE(store->items().empty());
  EXPECT_TRUE(folders().isEmpty());

  store->push({}, Json::array(), Json::object(), runLoop.now());
  EXPECT_TRUE(store->items().empty());
}

TEST_F(SessionStoreTest, SharesTheHistoryWithOtherProcesses) {
  auto ours = makeStore();
  auto theirs = makeStore();
  push(*ours);
  push(*theirs);
  ours->loadIndex();
  ASSERT_EQ(ours->items().size(), 2u);
  EXPECT_EQ(ours->items()[0].id(), theirs->items()[0].id());
  theirs->loadIndex();
  theirs->clear();
  theirs->waitForPendingWrites();
  ours->loadIndex();
  EXPECT_TRUE(ours->items().empty());
}

TEST_F(SessionStoreTest, AKillLeavesNoHalfWrittenSession) {
  const auto killAfter = [this](useconds_t wait) {
    const pid_t child = fork();
    if (child == 0) {
      auto store = makeStore();
      for (int i = 0; i < 200; ++i) push(*store, {300, 200}, 1);
      _exit(0);
    }
    usleep(wait);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
  };
  for (const useconds_t wait : {3000u, 9000u, 15000u, 23000u}) {
    killAfter(wait);
    for (const QString& folder : folders()) {
      if (folder.startsWith(u".writing-")) continue;
      const auto document = sessionFolder::readDocument(root.filePath(folder));
      ASSERT_TRUE(document) << folder.toStdString();
      EXPECT_TRUE(sessionFolder::piecePath(root.filePath(folder), document->pieces[0]));
    }
  }
}

TEST(SessionItem, LabelsTodayByTimeAndOtherDaysByDay) {
  const QDateTime noon(QDate(2026, 3, 14), QTime(12, 5, 9));
  SessionStore::Item item{QStringLiteral("/x"), 1280, 720, Date::fromDateTime(noon), false};
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  EXPECT_EQ(item.label(english, Date::fromDateTime(noon.addSecs(60))), QStringLiteral("1280 × 720 — 12:05:09"));
  EXPECT_EQ(item.label(english, Date::fromDateTime(noon.addDays(1))),
            QStringLiteral("1280 × 720 — history.yesterday, 12:05 PM"));
  EXPECT_EQ(item.label(english, Date::fromDateTime(noon.addDays(5))), QStringLiteral("1280 × 720 — 3/14/26, 12:05 PM"));
}

TEST(SessionDocument, RefusesWhatItCouldNotDrawAgain) {
  const QByteArray good =
      R"({"version":1,"capturedAt":1,"savedAt":2,"pixelWidth":4,"pixelHeight":4,"backdrop":{},)"
      R"("pieces":[{"file":"piece-0.png","scale":1,"origin":[0,0],"pointSize":[4,4]}],"annotations":[{"kind":8}]})";
  ASSERT_TRUE(decodeSessionDocument(good));
  const std::pair<const char*, const char*> breaks[] = {
      {"\"savedAt\":2", "\"savedAt\":\"2\""},
      {"\"savedAt\":2,", ""},
      {"\"pixelWidth\":4", "\"pixelWidth\":1e300"},
      {"\"pixelWidth\":4", "\"pixelWidth\":-4"},
      {"\"scale\":1", "\"scale\":0"},
      {"\"scale\":1", "\"scale\":1e999"},
      {"[0,0]", "[0,0,0]"},
      {"\"kind\":8", "\"kind\":9"},
      {"{\"kind\":8}", "7"},
      {"\"backdrop\":{}", "\"backdrop\":[]"},
      {"\"pointSize\":[4,4]", "\"pointSize\":[4,4],\"visibleRect\":[0,0,1,1]"}};
  for (const auto& [from, to] : breaks) {
    QByteArray text = good;
    ASSERT_TRUE(text.contains(from)) << from;
    text.replace(from, to);
    EXPECT_FALSE(decodeSessionDocument(text)) << text.constData();
  }
  EXPECT_FALSE(decodeSessionDocument(good.left(good.size() - 1)));
}

}  // namespace
}  // namespace vellora
