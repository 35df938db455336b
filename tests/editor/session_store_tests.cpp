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
    return std::make_unique<SessionStore>(sessions, runLoop, [](const QString& path) -> std::optional<Bitmap> {
      if (!QFile::exists(path)) return std::nullopt;
      return solidBitmap({2, 2}, 0xFF00FF00);
    });
  }

  static ImageDocument documentOf(PixelSize size, double scale = 1) {
    ImageDocument document;
    document.pieces.push_back(makePiece(solidBitmap(size, 0xFF336699), scale));
    return document;
  }

  void push(SessionStore& store, PixelSize size = {40, 20}, double scale = 2) {
    runLoop.advance(1);
    store.push(documentOf(size, scale), runLoop.now());
    store.waitForPendingWrites();
    runLoop.runPosted();
  }

  QStringList folders() const {
    return QDir(sessions).entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDir::Name);
  }

  void writeFile(const QString& folder, const QString& name, const QByteArray& text) const {
    QDir(sessions).mkpath(folder);
    QFile file(QDir(sessions).filePath(folder + u'/' + name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
  }

  static QByteArray documentText(const QByteArray& file, double savedAt = 5) {
    SessionDocument document;
    document.savedAt = {savedAt};
    document.pixelWidth = 4;
    document.pixelHeight = 4;
    document.pieces.push_back({QString::fromUtf8(file), 1, {0, 0}, {4, 4}, {}});
    return encode(document);
  }

  QStringList leftBehind() const {
    return QDir(root.filePath(QStringLiteral("Recovery"))).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  }

  QTemporaryDir root;
  const QString sessions = root.filePath(QStringLiteral("Sessions"));
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
  store->push(documentOf({40, 20}, 2), {699999999.25});
  store->waitForPendingWrites();
  QFile file(QDir(store->items()[0].directory).filePath(QStringLiteral("session.json")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(
      file.readAll(),
      R"({"version":1,"capturedAt":699999999.25,"savedAt":700000000.5,"pixelWidth":40,"pixelHeight":20,)"
      R"("backdrop":{"enabled":false,"background":{"kind":"solid","color":{"red":0.851,"green":0.851,"blue":0.851,)"
      R"("alpha":1.0}},"aspect":0,"insetFraction":0.06,"shadow":0.32,"innerRadius":10.0,"tiltX":0.0,"tiltY":0.0,)"
      R"("rotation":0.0,"edgeBlurDirection":0,"edgeBlurStrength":0.0,"noiseIntensity":0.0,"glowIntensity":0.0,)"
      R"("glowCenter":[0.5,0.85],"contentScale":1.0,"contentOffset":[0.0,0.0]},)"
      R"("pieces":[{"file":"piece-0.png","scale":2.0,"origin":[0.0,0.0],"pointSize":[20.0,10.0]}],"annotations":[]})");
  EXPECT_TRUE(QFile::exists(QDir(sessions).filePath(QStringLiteral("CACHEDIR.TAG"))));
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
  utimensat(AT_FDCWD, QFile::encodeName(QDir(sessions).filePath(dead)).constData(), twoMinutesAgo.data(), 0);
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

  store->take(1, [&](const auto& entry) { calls += entry && entry->document.pieces.size() == 1 ? 10 : 1000; });
  EXPECT_EQ(store->items().size(), 1u) << "gone from the list at once";
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_EQ(calls, 11);
  EXPECT_EQ(folders().size(), 1);
}

TEST_F(SessionStoreTest, NeverReadsAPictureOutsideTheSessionsFolder) {
  writeFile(QStringLiteral("a"), QStringLiteral("session.json"), documentText("../../etc/piece-7.png"));
  writeFile(QStringLiteral("a"), QStringLiteral("piece-7.png"), "x");
  const QString folder = QDir(sessions).filePath(QStringLiteral("a"));
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
  ImageDocument document = documentOf({4, 4});
  document.pieces.push_back(broken);
  store->push(document, runLoop.now());
  EXPECT_EQ(store->items().size(), 1u) << "listed while it is being written";
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_TRUE(store->items().empty());
  EXPECT_TRUE(folders().isEmpty());

  store->push({}, runLoop.now());
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
      const auto document = sessionFolder::readDocument(QDir(sessions).filePath(folder));
      ASSERT_TRUE(document) << folder.toStdString();
      EXPECT_TRUE(sessionFolder::piecePath(QDir(sessions).filePath(folder), document->pieces[0]));
    }
  }
}

TEST_F(SessionStoreTest, KeepsOpenDocumentsUntilTheyAreClosed) {
  auto store = makeStore();
  ImageDocument document = documentOf({30, 20});
  auto open = store->open(document, {5});
  store->waitForPendingWrites();
  EXPECT_EQ(leftBehind().size(), 1);
  EXPECT_TRUE(store->items().empty());
  makeStore()->recoverAbandoned([](int) { FAIL() << "its owner lives"; });

  // A second piece arrives, the first one goes.
  document.pieces.push_back(makePiece(solidBitmap({8, 8}, 0xFFFFFFFF), 1));
  open->update(document);
  runLoop.advance(0.6);
  document.pieces.erase(document.pieces.begin());
  open->close(document);
  EXPECT_EQ(store->items().size(), 1u) << "listed at once";
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_TRUE(leftBehind().isEmpty());
  ASSERT_EQ(folders().size(), 1);
  const auto written = sessionFolder::readDocument(store->items()[0].directory);
  ASSERT_TRUE(written);
  EXPECT_EQ(written->pieces[0].file, QStringLiteral("piece-0.png"));
  EXPECT_EQ(written->pixelWidth, 8);
  EXPECT_TRUE(store->items()[0].hasThumbnail);

  // Reopened, it is out of the history but still on disk, and the way back writes no picture anew.
  std::optional<SessionStore::Entry> entry;
  store->take(0, [&](std::optional<SessionStore::Entry> taken) { entry = std::move(taken); });
  store->waitForPendingWrites();
  runLoop.runPosted();
  ASSERT_TRUE(entry);
  EXPECT_TRUE(folders().isEmpty());
  EXPECT_EQ(leftBehind().size(), 1);
  entry->open->close(entry->document);
  store->waitForPendingWrites();
  runLoop.runPosted();
  EXPECT_TRUE(leftBehind().isEmpty());
  EXPECT_EQ(folders().size(), 1);
}

TEST_F(SessionStoreTest, FindsDocumentsAgainThatAKillLeftOpen) {
  int recovered = 0;
  for (const useconds_t wait : {2000u, 20000u, 40000u}) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
      auto store = makeStore();
      ImageDocument document = documentOf({30, 20});
      const auto open = store->open(document, {5});
      store->waitForPendingWrites();
      char byte = 1;
      if (write(ready[1], &byte, 1) != 1) _exit(1);
      for (int number = 1;; ++number) {
        Annotation counter;
        counter.kind = Annotation::Kind::Counter;
        counter.number = number;
        document.annotations.assign(1, makeAnnotation(counter));
        if (number % 7 == 0) document.pieces.push_back(makePiece(solidBitmap({9, 9}, 0), 1));
        open->update(document);
        runLoop.advance(1);
      }
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    close(ready[0]);
    close(ready[1]);
    usleep(wait);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    auto store = makeStore();
    store->recoverAbandoned([&](int count) { recovered += count; });
    store->waitForPendingWrites();
    runLoop.runPosted();
  }
  EXPECT_EQ(recovered, 3);
  EXPECT_TRUE(leftBehind().isEmpty());
  auto store = makeStore();
  EXPECT_EQ(store->items().size(), 3u);
  for (const auto& item : store->items()) EXPECT_TRUE(item.hasThumbnail);
}

TEST_F(SessionStoreTest, BringsCropsAndAnnotationsBack) {
  auto store = makeStore();
  ImageDocument document = documentOf({2, 2}, 0.1);
  CapturePiece& piece = document.pieces[0];
  piece.visibleRect = {{5, 0}, {10, 20}};
  piece.pointSize = piece.visibleRect.size;
  piece.origin = {-3, 4};
  Annotation pen;
  pen.kind = Annotation::Kind::Pen;
  pen.penPoints = std::vector<Point>{{1, 2}, {3.5, -4}};
  pen.penPressures = std::vector<double>{0.25, 1};
  pen.sketchSeed = 0xFFFFFFFFFFFFFFFF;
  pen.text = QStringLiteral("ü🙂\n");
  Annotation blur;
  blur.kind = Annotation::Kind::Blur;
  blur.control = Point{1, 1};
  blur.shapeFill = true;
  blur.blurStyle = BlurStyle::Erase;
  blur.eraseFillColor = ColorComponents{0, 0.5, 1, 1};
  blur.magnifierShape = MagnifierShape::RoundedRect;
  document.annotations = {makeAnnotation(pen), makeAnnotation(blur)};
  document.backdrop.enabled = true;
  store->push(document, {5});
  std::optional<SessionStore::Entry> entry;
  store->take(0, [&](std::optional<SessionStore::Entry> taken) { entry = std::move(taken); });
  store->waitForPendingWrites();
  runLoop.runPosted();
  ASSERT_TRUE(entry);
  EXPECT_EQ(entry->document.pieces[0].visibleRect, piece.visibleRect);
  EXPECT_EQ(entry->document.pieces[0].frame(), piece.frame());
  EXPECT_EQ(entry->document.backdrop, document.backdrop);
  ASSERT_EQ(entry->document.annotations.size(), 2u);
  for (std::size_t i = 0; i < 2; ++i) {
    Annotation read = *entry->document.annotations[i];
    EXPECT_NE(read.id, 0u);
    read.id = 0;
    EXPECT_EQ(read, *document.annotations[i]);
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
      R"("pieces":[{"file":"piece-0.png","scale":1,"origin":[0,0],"pointSize":[4,4]}],"annotations":[]})";
  ASSERT_TRUE(decodeSessionDocument(good));
  const std::pair<const char*, const char*> breaks[] = {
      {"\"savedAt\":2", "\"savedAt\":\"2\""},
      {"\"savedAt\":2,", ""},
      {"\"pixelWidth\":4", "\"pixelWidth\":1e300"},
      {"\"pixelWidth\":4", "\"pixelWidth\":-4"},
      {"\"scale\":1", "\"scale\":0"},
      {"\"scale\":1", "\"scale\":1e999"},
      {"[0,0]", "[0,0,0]"},
      {"[]}", "[{\"kind\":9}]}"},
      {"[]}", "[7]}"},
      {"[0,0]", "[0,1e9]"},
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
