// `vellora render` and `vellora annotate`, driven as a person or a script drives them: without a display.

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <QColorSpace>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QTemporaryDir>

#include "base/Json.h"
#include "editor/AnnotationRecord.h"
#include "editor/SessionFolder.h"
#include "media/PngEncoder.h"
#include "support/ChildProcess.h"
#include "support/PngBuilder.h"
#include "support/TestBitmaps.h"

namespace vellora {
namespace {

using test::Finished;
using test::solidBitmap;

constexpr std::uint32_t ground = 0xFF336699;
constexpr long greatestMemory = 1500;  // MB; three hundred are usual, sanitizers take their share
constexpr std::uint32_t secret = 0xFFFF00FF;

/// A piece of 60 × 40 with a secret of 10 × 10 at its bottom right corner.
Bitmap pictureWithSecret() {
  auto bitmap = MutableBitmap::create({60, 40}, PixelAlpha::Opaque);
  for (int y = 0; y < 40; ++y) {
    for (int x = 0; x < 60; ++x) {
      const std::uint32_t color = x >= 50 && y >= 30 ? secret : ground;
      std::memcpy(bitmap->row(y) + x * 4, &color, 4);
    }
  }
  return std::move(*bitmap).finish();
}

/// Red from (10, 15) to (30, 25).
Annotation thickLine() {
  Annotation line;
  line.kind = Annotation::Kind::Line;
  line.p1 = {10, 20};
  line.p2 = {30, 20};
  line.color = {1, 0, 0, 1};
  line.lineWidth = 10;
  return line;
}

QByteArray finished(test::PngBuilder& png) {
  const auto data = png.finish();
  return {reinterpret_cast<const char*>(data.data()), static_cast<qsizetype>(data.size())};
}

/// A black grey PNG that claims a size and holds `rows` rows of it.
QByteArray pngClaiming(std::uint32_t width, std::uint32_t height, std::uint8_t depth, std::size_t rows) {
  test::PngBuilder png;
  png.header(width, height, depth, 0).pixels(test::PngBuilder::Data(rows * (1 + std::size_t{width} * depth / 8)));
  return finished(png);
}

/// Of the greediest program run so far, in MB.
long mostMemory() {
  rusage usage{};
  getrusage(RUSAGE_CHILDREN, &usage);
  return usage.ru_maxrss / 1024;
}

class RenderTest : public testing::Test {
 protected:
  void SetUp() override {
    QDir(root.path()).mkpath(QStringLiteral("home"));
    document.pieces.push_back(makePiece(pictureWithSecret(), 1));
  }

  QString path(const QString& name) const { return root.filePath(name); }

  /// Runs the program with no display, no bus and a home of its own.
  Finished vellora(std::vector<std::string> arguments) const {
    std::vector<std::string> command{"env", "-i", "HOME=" + path(QStringLiteral("home")).toStdString(), program};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return test::runProgram(command, {});
  }
  Finished render(const QString& session, const QString& output, std::vector<std::string> more = {}) const {
    std::vector<std::string> arguments{"render", session.toStdString(), "--output", output.toStdString()};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return vellora(arguments);
  }
  Finished annotate(const QByteArray& layers) {
    write(QStringLiteral("layers.json"), layers);
    if (!QFile::exists(path(QStringLiteral("in.png")))) write(QStringLiteral("in.png"), pictureFile());
    return vellora({"annotate", path(QStringLiteral("in.png")).toStdString(), "--document",
                    path(QStringLiteral("layers.json")).toStdString(), "--output",
                    path(QStringLiteral("out.png")).toStdString()});
  }

  static QByteArray pictureFile() {
    const auto png = encodePng(pictureWithSecret(), {});
    return {reinterpret_cast<const char*>(png->data()), static_cast<qsizetype>(png->size())};
  }

  void write(const QString& name, const QByteArray& data) const {
    QDir().mkpath(QFileInfo(path(name)).path());
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(data);
  }

  QByteArray contentOf(const QString& name) const {
    QFile file(path(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return file.readAll();
  }

  /// A picture without what else its file says of it.
  QImage pixelsOf(const QString& name) const {
    QImage picture = QImage(path(name)).convertToFormat(QImage::Format_RGB32);
    picture.setColorSpace({});
    return picture;
  }

  /// Writes the document as a session and gives its folder.
  QString writeSession() const {
    const QString folder = path(QStringLiteral("session"));
    QDir(folder).removeRecursively();
    EXPECT_TRUE(sessionFolder::write(folder, document, {1}, {2}, {}, {}));
    return folder;
  }

  static void expectCleanFailure(const Finished& run, int exitCode, const std::string& what) {
    EXPECT_EQ(run.exitCode, exitCode) << what << ": " << run.errors;
    // Libraries may have had their say before.
    const std::size_t message = run.errors.rfind("vellora: ");
    ASSERT_NE(message, std::string::npos) << what << ": " << run.errors;
    EXPECT_EQ(run.errors.find('\n', message), run.errors.size() - 1) << what << ": " << run.errors;
    EXPECT_EQ(run.output, "") << what;
  }

  const std::string program = VELLORA_BIN_DIR "/vellora";
  QTemporaryDir root;
  ImageDocument document;
};

TEST_F(RenderTest, DrawsASessionInEveryFormat) {
  document.annotations = {makeAnnotation(thickLine())};
  const QString session = writeSession();
  for (const char* ending : {"png", "jpg", "JPEG", "webp", "tiff", "tif"}) {
    const QString output = path(QStringLiteral("out.") + QLatin1StringView(ending));
    const Finished run = render(session, output);
    ASSERT_EQ(run.exitCode, 0) << ending << run.errors;
    EXPECT_EQ(run.output, output.toStdString() + "\n");
    EXPECT_EQ(run.errors, "");
    const QImage picture(output);
    ASSERT_EQ(picture.size(), QSize(60, 40)) << ending;
    EXPECT_TRUE(picture.textKeys().isEmpty()) << ending;
    const QColor inside = picture.pixelColor(20, 20);
    EXPECT_NEAR(inside.red(), 255, 8) << ending;
    EXPECT_NEAR(inside.green(), 0, 8) << ending;
    EXPECT_NEAR(picture.pixelColor(5, 35).blue(), 0x99, 8) << ending;
  }
  const QString pdf = path(QStringLiteral("out.pdf"));
  ASSERT_EQ(render(session + QStringLiteral("/session.json"), pdf).exitCode, 0);
  EXPECT_NE(test::runProgram({"pdfinfo", pdf.toStdString()}, {}).output.find("60 x 40 pts"), std::string::npos);
  ASSERT_EQ(test::runProgram({"pdfimages", "-png", pdf.toStdString(), path(QStringLiteral("page")).toStdString()}, {})
                .exitCode,
            0);
  EXPECT_EQ(pixelsOf(QStringLiteral("page-000.png")), pixelsOf(QStringLiteral("out.png")));

  const Finished twice = render(session, path(QStringLiteral("twice.png")), {"--scale", "2", "--json"});
  const auto facts = json::parse(QByteArray::fromStdString(twice.output));
  ASSERT_TRUE(facts) << twice.output;
  EXPECT_EQ((*facts)["width"], 120);
  EXPECT_EQ((*facts)["height"], 80);
  EXPECT_EQ((*facts)["scale"], 2.0);
  EXPECT_EQ(QImage(path(QStringLiteral("twice.png"))).size(), QSize(120, 80));
}

TEST_F(RenderTest, LeavesOutWhatACropOrARedactionHides) {
  const auto showsSecret = [this] {
    const QImage picture(path(QStringLiteral("out.png")));
    EXPECT_FALSE(picture.isNull());
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixel(x, y) == secret) return true;
      }
    }
    return false;
  };
  ASSERT_EQ(render(writeSession(), path(QStringLiteral("out.png"))).exitCode, 0);
  EXPECT_TRUE(showsSecret());

  for (const BlurStyle style : {BlurStyle::Erase, BlurStyle::Mosaic}) {
    Annotation hide;
    hide.kind = Annotation::Kind::Blur;
    hide.blurStyle = style;
    hide.p1 = {48, 28};
    hide.p2 = {60, 40};
    document.annotations = {makeAnnotation(hide)};
    ASSERT_EQ(render(writeSession(), path(QStringLiteral("out.png"))).exitCode, 0);
    EXPECT_FALSE(showsSecret());
  }

  document.annotations.clear();
  document.pieces[0].visibleRect = {{0, 0}, {50, 30}};
  document.pieces[0].pointSize = {50, 30};
  ASSERT_EQ(render(writeSession(), path(QStringLiteral("out.png"))).exitCode, 0);
  EXPECT_EQ(QImage(path(QStringLiteral("out.png"))).size(), QSize(50, 30));
  EXPECT_FALSE(showsSecret());
}

TEST_F(RenderTest, DrawsOntoAPictureAsOntoASession) {
  document.annotations = {makeAnnotation(thickLine())};
  document.backdrop.enabled = true;
  const QString session = writeSession();
  ASSERT_EQ(render(session, path(QStringLiteral("rendered.png"))).exitCode, 0);
  const QByteArray rendered = contentOf(QStringLiteral("rendered.png"));
  EXPECT_GT(QImage::fromData(rendered).width(), 60) << "the backdrop's margin";
  ASSERT_EQ(render(session + QStringLiteral("/session.json"), path(QStringLiteral("rendered.png"))).exitCode, 0);
  EXPECT_EQ(contentOf(QStringLiteral("rendered.png")), rendered);
  const QByteArray text = contentOf(QStringLiteral("session/session.json"));
  ASSERT_EQ(annotate(text).exitCode, 0);
  EXPECT_EQ(contentOf(QStringLiteral("out.png")), rendered);

  // Only the layers, without a backdrop.
  const auto parsed = json::parse(text);
  ASSERT_TRUE(parsed);
  ASSERT_EQ(annotate(json::serialize(Json{{"annotations", (*parsed)["annotations"]}})).exitCode, 0);
  const QImage plain(path(QStringLiteral("out.png")));
  EXPECT_EQ(plain.size(), QSize(60, 40));
  EXPECT_EQ(plain.pixelColor(20, 20), QColor(Qt::red));
}

TEST_F(RenderTest, PassesNothingOnThatThePictureSaysOfItsMaker) {
  const std::string comment = "Comment" + std::string(1, '\0') + "whispered";
  const std::string exif = "II*" + std::string(1, '\0') + "whispered";
  test::PngBuilder png;
  png.header(4, 4, 8, 0).chunk("tEXt", {comment.begin(), comment.end()}).chunk("eXIf", {exif.begin(), exif.end()});
  write(QStringLiteral("in.png"), finished(png.pixels(test::PngBuilder::Data(4 * 5))));
  write(QStringLiteral("layers.json"), "{\"annotations\":[]}");
  for (const char* name : {"out.png", "out.jpg", "out.webp", "out.tiff", "out.pdf"}) {
    const QString output = path(QLatin1StringView(name));
    const Finished run = vellora({"annotate", path(QStringLiteral("in.png")).toStdString(), "--document",
                                  path(QStringLiteral("layers.json")).toStdString(), "--output", output.toStdString()});
    ASSERT_EQ(run.exitCode, 0) << name << run.errors;
    EXPECT_FALSE(contentOf(QLatin1StringView(name)).contains("whispered")) << name;
  }
}

TEST_F(RenderTest, SaysWhatIsWrongWithACommand) {
  const QString session = writeSession();
  const QString output = path(QStringLiteral("x.png"));
  expectCleanFailure(render(session, path(QStringLiteral("x.txt"))), 2, "ending");
  expectCleanFailure(render(session, output, {"--scale", "0"}), 2, "scale");
  expectCleanFailure(render(session, output, {"--scale", "nan"}), 2, "scale");
  EXPECT_EQ(vellora({"render", session.toStdString()}).exitCode, 2);
  EXPECT_EQ(vellora({"annotate", output.toStdString(), "--output", output.toStdString()}).exitCode, 2);
  expectCleanFailure(render(path(QStringLiteral("nowhere")), output), 1, "missing");
  expectCleanFailure(render(root.path(), output), 1, "no session");
  expectCleanFailure(render(session, path(QStringLiteral("nowhere/x.png"))), 1, "no folder");
  QDir(root.path()).mkpath(QStringLiteral("folder.png"));
  expectCleanFailure(render(session, path(QStringLiteral("folder.png"))), 1, "a folder");
  EXPECT_FALSE(QFile::exists(output));

  // Larger than any picture may be.
  document.pieces.push_back(document.pieces[0]);
  document.pieces[1].origin = {9e6, 9e6};
  expectCleanFailure(render(writeSession(), output), 1, "enormous canvas");
}

TEST_F(RenderTest, RefusesDamagedDocuments) {
  const QByteArray good = json::serialize(Json::array({encodeAnnotation(thickLine())}));
  ASSERT_EQ(annotate("{\"annotations\":" + good + "}").exitCode, 0);
  const QByteArray before = contentOf(QStringLiteral("out.png"));
  Json stroke = encodeAnnotation(thickLine());
  stroke["kind"] = 8;
  stroke["penPoints"] = Json::array();
  for (int i = 0; i < 1'000'000; ++i) stroke["penPoints"].push_back({i % 60, i % 40});
  const auto with = [&good](const char* from, const char* to) {
    QByteArray text = "{\"annotations\":" + good + "}";
    EXPECT_TRUE(text.contains(from)) << from;
    return text.replace(from, to);
  };
  const std::map<std::string, QByteArray> damaged{
      {"empty", ""},
      {"no object", "[]"},
      {"no annotations", "{\"pieces\":[]}"},
      {"cut short", with("}]}", "}")},
      {"not a number", with("\"lineWidth\":10.0", "\"lineWidth\":NaN")},
      {"beyond numbers", with("\"lineWidth\":10.0", "\"lineWidth\":1e999")},
      {"negative", with("\"lineWidth\":10.0", "\"lineWidth\":-1")},
      {"missing", with("\"lineWidth\":10.0,", "")},
      {"of a later version", with("\"kind\":3", "\"kind\":9")},
      {"of wrong type", with("\"p1\":[10.0,20.0]", "\"p1\":\"here\"")},
      {"nested", "{\"annotations\":" + QByteArray(1'000'000, '[')},
      {"a million points", json::serialize(Json{{"annotations", Json::array({stroke})}})},
      {"too large", QByteArray(sessionLimits::documentBytes + 1, ' ')},
      {"wide", "{\"annotations\":[" + QByteArray("[],").repeated(7'000'000) + "0]}"}};
  for (const auto& [what, text] : damaged) expectCleanFailure(annotate(text), 1, what);
  EXPECT_EQ(contentOf(QStringLiteral("out.png")), before) << "what was there stays";
  EXPECT_EQ(QDir(root.path()).entryList(QDir::Files | QDir::Hidden),
            (QStringList{QStringLiteral("in.png"), QStringLiteral("layers.json"), QStringLiteral("out.png")}));
  EXPECT_LT(mostMemory(), greatestMemory);
}

TEST_F(RenderTest, RefusesDamagedSessionsAndReadsNothingElsewhere) {
  const QString session = writeSession();
  const QString piece = session + QStringLiteral("/piece-0.png");
  const QString output = path(QStringLiteral("out.png"));
  const QByteArray text = contentOf(QStringLiteral("session/session.json"));
  write(QStringLiteral("outside.png"), pictureFile());
  ASSERT_TRUE(QFile::link(path(QStringLiteral("outside.png")), session + QStringLiteral("/link.png")));
  const auto withFile = [&](const QString& name) {
    QByteArray changed = text;
    changed.replace("\"file\":\"piece-0.png\"", "\"file\":" + json::serialize(Json(name.toStdString())));
    write(QStringLiteral("session/session.json"), changed);
    return render(session, output);
  };
  EXPECT_EQ(withFile(QStringLiteral("../../piece-0.png")).exitCode, 0) << "only the last component counts";
  for (const QString& name : {QString(), QStringLiteral("."), QStringLiteral(".."), QStringLiteral("../outside.png"),
                              path(QStringLiteral("outside.png")), QStringLiteral("link.png"), QStringLiteral("/dev/"),
                              QStringLiteral("a\0b")}) {
    expectCleanFailure(withFile(name), 1, name.toStdString());
  }
  for (qsizetype length = 0; length < text.size(); length += 37) {
    write(QStringLiteral("session/session.json"), text.first(length));
    expectCleanFailure(render(session, output), 1, std::to_string(length) + " bytes");
  }
  write(QStringLiteral("session/session.json"), text);

  const QByteArray whole = pictureFile();
  const std::map<std::string, QByteArray> damaged{{"empty", ""},
                                                  {"cut short", whole.left(whole.size() / 2)},
                                                  {"no picture", "hello"},
                                                  {"without pixels", pngClaiming(0, 0, 8, 0)},
                                                  {"a bomb", pngClaiming(60'000, 60'000, 8, 2)},
                                                  {"too high", pngClaiming(1, 70'000, 8, 70'000)},
                                                  {"rows missing", pngClaiming(4, 30'000, 8, 10)}};
  for (const auto& [what, data] : damaged) {
    write(QStringLiteral("session/piece-0.png"), data);
    expectCleanFailure(render(session, output), 1, what);
  }
  write(QStringLiteral("session/piece-0.png"), pngClaiming(3, 60'000, 16, 60'000));
  const Finished tall = render(session, output);
  ASSERT_EQ(tall.exitCode, 0) << tall.errors;
  EXPECT_EQ(QImage(output).size(), QSize(3, 60'000)) << "high and of 16 bits is no damage";
  EXPECT_LT(mostMemory(), greatestMemory);
}

}  // namespace
}  // namespace vellora
