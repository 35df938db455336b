#include "editor/SessionStore.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "SessionStoreTest.h"
#include "editor/SessionFolder.h"

namespace vellora {
namespace {

using test::solidBitmap;

class SessionStoreTest : public test::SessionStoreTest {
 protected:
  void writeSession(const QString& id, const QString& name, const QByteArray& text) const {
    writeFile(QDir(sessions).filePath(id), name, text);
  }

  static QByteArray documentText(const QByteArray& file, double savedAt = 5) {
    SessionDocument document;
    document.savedAt = {savedAt};
    document.pixelWidth = 4;
    document.pixelHeight = 4;
    document.pieces.push_back({QString::fromUtf8(file), 1, {0, 0}, {4, 4}, {}});
    return encode(document);
  }
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
  writeSession(
      QStringLiteral("no-pieces"), QStringLiteral("session.json"),
      R"({"version":1,"capturedAt":1,"savedAt":1,"pixelWidth":1,"pixelHeight":1,"backdrop":{},"pieces":[],"annotations":[]})");
  writeSession(QStringLiteral("garbage"), QStringLiteral("session.json"), QByteArray(1000, '['));
  writeSession(QStringLiteral("no-document"), QStringLiteral("piece-0.png"), "x");
  writeSession(QStringLiteral("good"), QStringLiteral("session.json"), documentText("piece-0.png"));
  writeSession(QStringLiteral(".writing-by-another-process"), QStringLiteral("piece-0.png"), "x");
  const QString dead = QStringLiteral(".writing-999999999-by-a-dead-process");
  writeSession(dead, QStringLiteral("piece-0.png"), "x");
  writeSession(QStringLiteral("cut-short"), QStringLiteral("session.json"), documentText("piece-0.png").chopped(1));
  writeSession(QStringLiteral("too-large"), QStringLiteral("session.json"), documentText("piece-0.png"));
  QFile::resize(QDir(sessions).filePath(QStringLiteral("too-large/session.json")), sessionLimits::documentBytes + 1);
  ASSERT_TRUE(QDir(sessions).mkpath(QStringLiteral("elsewhere")));
  ASSERT_TRUE(QFile::link(QDir(sessions).filePath(QStringLiteral("good/session.json")),
                          QDir(sessions).filePath(QStringLiteral("elsewhere/session.json"))));
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
  settle(*store);
  EXPECT_EQ(calls, 11);
  EXPECT_EQ(folders().size(), 1);

  // Its picture has gone: there is nothing to reopen, and nothing is kept of it.
  QFile::remove(store->items()[0].directory + QStringLiteral("/piece-0.png"));
  EXPECT_FALSE(take(*store, 0));
  EXPECT_TRUE(folders().isEmpty());
}

TEST_F(SessionStoreTest, RefusesPicturesThatTogetherTakeTooMuchMemory) {
  const std::byte pixel{};
  const Bitmap huge(&pixel, {60'000, 8'000}, 240'000, PixelAlpha::Opaque, nullptr);
  SessionDocument document;
  document.pieces.assign(2, {QStringLiteral("piece-0.png"), 1, {0, 0}, {4, 4}, {}});
  writeSession(QStringLiteral("a"), QStringLiteral("session.json"), encode(document));
  writeSession(QStringLiteral("a"), QStringLiteral("piece-0.png"), "x");
  std::atomic<int> read = 0;
  const auto reader = [&](const QString&) -> std::optional<Bitmap> {
    ++read;
    return huge;
  };
  EXPECT_FALSE(sessionFolder::load(QDir(sessions).filePath(QStringLiteral("a")), reader));
  EXPECT_EQ(read, 2);
}

TEST_F(SessionStoreTest, ShowsInAThumbnailOnlyWhatTheFinishedPictureShows) {
  ImageDocument document = documentOf({40, 20});
  Annotation erase;
  erase.kind = Annotation::Kind::Blur;
  erase.blurStyle = BlurStyle::Erase;
  erase.p2 = {10, 10};
  document.annotations = {makeAnnotation(erase)};
  const QString folder = QDir(sessions).filePath(QStringLiteral("a"));
  QDir().mkpath(sessions);
  const auto writtenWith = [&](const sessionFolder::DocumentRenderer& renderer) {
    QDir(folder).removeRecursively();
    return sessionFolder::write(folder, document, {1}, {1}, {}, renderer);
  };
  EXPECT_FALSE(writtenWith({})->hasThumbnail);
  EXPECT_FALSE(writtenWith([](const auto&, double) { return std::nullopt; })->hasThumbnail);
  double scale = 0;
  EXPECT_TRUE(writtenWith([&](const ImageDocument&, double wanted) {
                scale = wanted;
                return solidBitmap({40, 20}, 0xFFFF0000);
              })->hasThumbnail);
  EXPECT_EQ(scale, 1) << "never larger than the picture";
  document.annotations.clear();
  EXPECT_TRUE(writtenWith({})->hasThumbnail);
}

TEST_F(SessionStoreTest, NeverReadsAPictureOutsideTheSessionsFolder) {
  writeSession(QStringLiteral("a"), QStringLiteral("session.json"), documentText("../../etc/piece-7.png"));
  writeSession(QStringLiteral("a"), QStringLiteral("piece-7.png"), "x");
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
  settle(*store);
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
      if (!QFile::exists(QDir(sessions).filePath(folder + QStringLiteral("/session.json")))) continue;  // being deleted
      const auto document = sessionFolder::readDocument(QDir(sessions).filePath(folder));
      ASSERT_TRUE(document) << folder.toStdString();
      EXPECT_TRUE(sessionFolder::piecePath(QDir(sessions).filePath(folder), document->pieces[0]));
    }
  }
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
  const auto entry = take(*store, 0);
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

TEST(SessionDocument, WritesNothingItWouldNotRead) {
  ImageDocument document;
  for (const double place : {-1e300, 1e300}) {
    CapturePiece piece = makePiece(solidBitmap({4, 4}, 0), 1000);
    piece.origin = {place, 0};
    document.pieces.push_back(piece);
  }
  document.annotations.assign(sessionLimits::annotations + 1, makeAnnotation({}));
  const std::vector<QString> files(2, QStringLiteral("piece-0.png"));
  const auto read = decodeSessionDocument(encode(makeSessionDocument(document, files, {1}, {2})));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->pieces[1].origin.x, sessionLimits::coordinate);
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
