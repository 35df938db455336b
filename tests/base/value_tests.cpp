#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTimeZone>
#include <cmath>
#include <limits>

#include "base/AtomicFile.h"
#include "base/Bitmap.h"
#include "base/Date.h"
#include "base/FileName.h"
#include "base/Json.h"

namespace vellora {
namespace {

TEST(FileName, MakesAnyTextOneName) {
  const std::pair<const char*, const char*> cases[] = {
      {"plain name.png", "plain name.png"},
      {"../../etc/passwd", "..-..-etc-passwd"},
      {"12:30\n\t\x7f", "12-30---"},
      {"", "-"},
      {".", "-"},
      {"..", "-"},
      {"...", "..."},
      {"żółw 🐢", "żółw 🐢"},
  };
  for (const auto& [from, to] : cases) EXPECT_EQ(sanitizedFileName(QString::fromUtf8(from)), QString::fromUtf8(to));
  EXPECT_EQ(sanitizedFileName(QString(3, QChar(0))), QStringLiteral("---"));
}

TEST(FileName, CutsLongNamesBetweenCharacters) {
  EXPECT_EQ(sanitizedFileName(QString(500, u'a')), QString(200, u'a'));
  for (const char* unit : {"é", "漢", "🐢"}) {
    for (int shift = 0; shift < 4; ++shift) {
      const QString name = sanitizedFileName(QString(shift, u'a') + QString::fromUtf8(unit).repeated(120));
      const QByteArray bytes = name.toUtf8();
      EXPECT_LE(bytes.size(), 200);
      EXPECT_GT(bytes.size(), 196);
      EXPECT_FALSE(name.contains(QChar::ReplacementCharacter)) << bytes.constData();
      EXPECT_EQ(QString::fromUtf8(bytes), name);
    }
  }
}

TEST(FileName, CountsUpToTheFirstFreeName) {
  EXPECT_EQ(numberedFileName(QStringLiteral("a.b"), QStringLiteral("png"), 1), QStringLiteral("a.b.png"));
  EXPECT_EQ(numberedFileName(QStringLiteral("a.b"), QStringLiteral("png"), 3), QStringLiteral("a.b (3).png"));
  EXPECT_EQ(numberedFileName(QStringLiteral("a"), QString(), 2), QStringLiteral("a (2)"));
  QTemporaryDir folder;
  const auto next = [&] { return freeFileName(folder.path(), QStringLiteral("x"), QStringLiteral("y")); };
  EXPECT_EQ(next(), QStringLiteral("x.y"));
  ASSERT_TRUE(AtomicFile::write(folder.filePath(next()), QByteArray("1")));
  ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), folder.filePath(QStringLiteral("x (2).y"))));
  EXPECT_EQ(next(), QStringLiteral("x (3).y"));
}

TEST(Date, NamesTruncateMillisecondsAndKeepWholeOnes) {
  const QDateTime moment(QDate(2026, 11, 22), QTime(9, 5, 7, 0));
  const Date whole = Date::fromDateTime(moment);
  const auto nameAfter = [&](double seconds) {
    return captureFileStem({whole.secondsSinceReference + seconds}, NamePrecision::Milliseconds);
  };
  EXPECT_EQ(nameAfter(0), QStringLiteral("Vellora 2026-11-22 at 09.05.07.000"));
  EXPECT_EQ(nameAfter(0.0429), QStringLiteral("Vellora 2026-11-22 at 09.05.07.042"));
  EXPECT_EQ(nameAfter(0.9999), QStringLiteral("Vellora 2026-11-22 at 09.05.07.999"));
  EXPECT_EQ(captureFileStem({whole.secondsSinceReference + 0.9999}, NamePrecision::Seconds),
            QStringLiteral("Vellora 2026-11-22 at 09.05.07"));
  for (int milliseconds = 0; milliseconds < 1000; ++milliseconds) {
    const QDateTime exact = moment.addMSecs(milliseconds);
    ASSERT_EQ(Date::fromDateTime(exact).toDateTime(), exact) << "a stored date came back another one";
  }
}

TEST(Date, CountsFromItsReferenceAndSurvivesAnyNumber) {
  EXPECT_EQ(Date{0}.toDateTime().toUTC(), QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC));
  EXPECT_EQ(Date{-0.5}.toDateTime().toUTC(), QDateTime(QDate(2000, 12, 31), QTime(23, 59, 59, 500), Qt::UTC));
  for (const double seconds : {1e300, -1e300, std::nan(""), std::numeric_limits<double>::infinity()}) {
    EXPECT_TRUE(captureFileStem({seconds}, NamePrecision::Seconds).startsWith(QStringLiteral("Vellora ")));
  }
}

Json parsed(const char* text) {
  auto value = json::parse(QByteArray(text));
  EXPECT_TRUE(value) << text;
  return value.value_or(Json());
}

TEST(Json, RefusesWhatIsMalformedTooDeepOrTooWide) {
  for (const char* text : {"", "{", "nul", "[1,]", "{\"a\":1e999}", "\"\xff\"", "[1] x", "{\"a\" 1}"}) {
    ASSERT_FALSE(json::parse(QByteArray(text))) << text;
    EXPECT_EQ(json::parse(QByteArray(text)).error(), json::Error::Malformed) << text;
  }
  const auto nested = [](int depth) { return QByteArray(depth, '[') + QByteArray(depth, ']'); };
  EXPECT_TRUE(json::parse(nested(json::maximumDepth)));
  EXPECT_EQ(json::parse(nested(json::maximumDepth + 1)).error(), json::Error::TooDeep);
  EXPECT_EQ(json::parse(QByteArray(5'000'000, '[')).error(), json::Error::TooDeep);
  EXPECT_TRUE(json::parse("[\"" + QByteArray(200, '[') + "\\\"[[\"]")) << "brackets in a text are no nesting";

  const auto wide = [](int members) {
    QByteArray text("{");
    for (int i = 0; i < members; ++i) text += (i ? ",\"" : "\"") + QByteArray::number(i) + "\":0";
    return text + '}';
  };
  EXPECT_TRUE(json::parse(wide(json::maximumMembers)));
  EXPECT_EQ(json::parse(wide(json::maximumMembers + 1)).error(), json::Error::TooWide);
  EXPECT_EQ(json::parse("[" + QByteArray("0,").repeated(json::maximumValues) + "0]").error(), json::Error::TooWide);
  // Many small objects are no wide one.
  QByteArray many("[{\"a\":1}");
  for (int i = 0; i < 10000; ++i) many += ",{\"a\":\"::\"}";
  EXPECT_TRUE(json::parse(many + ']'));
}

TEST(Json, ReadersTakeOnlyTheirType) {
  const Json hostile = parsed(R"({"text":"7","true":true,"null":null,"list":[1,2,3],"pair":[1,"2"],"object":{},
                                 "real":2.5,"huge":1e300,"unsigned":18446744073709551615,"least":-9223372036854775808})");
  for (const char* key : {"text", "true", "null", "list", "object"}) {
    EXPECT_FALSE(json::number(hostile[key])) << key;
    EXPECT_FALSE(json::integer(hostile[key])) << key;
    EXPECT_FALSE(json::point(hostile[key])) << key;
    EXPECT_FALSE(json::date(hostile[key])) << key;
    EXPECT_FALSE(json::rect(hostile[key])) << key;
    EXPECT_FALSE(json::color(hostile[key])) << key;
  }
  EXPECT_FALSE(json::point(hostile["pair"]));
  EXPECT_FALSE(json::boolean(hostile["text"]));
  EXPECT_FALSE(json::string(hostile["true"]));
  for (const char* key : {"real", "huge", "unsigned"}) EXPECT_FALSE(json::integer(hostile[key])) << key;
  EXPECT_EQ(json::integer(hostile["least"]), std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(json::integer(parsed("3.0")), 3);
  EXPECT_EQ(json::number(parsed("3")), 3.0);
  EXPECT_FALSE(json::number(Json(std::nan(""))));
  EXPECT_EQ(json::member(hostile, "null"), nullptr) << "null reads like a missing key";
  EXPECT_EQ(json::member(hostile, "absent"), nullptr);
  EXPECT_EQ(json::member(Json::array({1}), "text"), nullptr);
}

TEST(Json, ValuesComeBackAsTheyWereAndInTheirOrder) {
  const Rect rect{{-1.5, 2}, {3, 4.25}};
  const ColorComponents color{0.1, 0.2, 0.3, 1};
  EXPECT_EQ(json::serialize(json::fromRect(rect)), QByteArray("[[-1.5,2.0],[3.0,4.25]]"));
  EXPECT_EQ(json::serialize(json::fromColor(color)), QByteArray(R"({"red":0.1,"green":0.2,"blue":0.3,"alpha":1.0})"));
  EXPECT_EQ(json::rect(json::fromRect(rect)), rect);
  const QString odd = QStringLiteral("\uFEFF\uFEFFa") + QChar(0) + QStringLiteral("\U0001F642");
  EXPECT_EQ(json::string(json::fromString(odd)), odd);
  EXPECT_EQ(json::color(json::fromColor(color)), color);
  EXPECT_FALSE(json::color(parsed(R"({"red":1.01,"green":0,"blue":0,"alpha":1})")));
  const Date date{785689123.456};
  EXPECT_EQ(json::date(parsed(json::serialize(json::fromDate(date)))), date);
  const QString text = QStringLiteral("„ę\"\\\n🐢");
  EXPECT_EQ(json::string(parsed(json::serialize(json::fromString(text)))), text);
  EXPECT_EQ(json::serialize(Json(std::string("\xff\xfe"))), QByteArray("\"\uFFFD\uFFFD\""))
      << "not UTF-8: must not throw";
}

TEST(Bitmap, CropsToWhatIsThere) {
  auto pixels = MutableBitmap::create({10, 8}, PixelAlpha::Opaque);
  const Bitmap bitmap = std::move(*pixels).finish();
  const Bitmap part = bitmap.cropped({6, 5, 100, 100});
  EXPECT_EQ(part.size(), (PixelSize{4, 3}));
  EXPECT_EQ(part.row(0), bitmap.pixel(6, 5));
  EXPECT_EQ(part.stride(), bitmap.stride());
  constexpr int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
  EXPECT_EQ(bitmap.cropped({5, 5, most, most}).size(), (PixelSize{5, 3}));
  for (const PixelRect outside : {PixelRect{10, 0, 5, 5}, PixelRect{-5, 0, 5, 5}, PixelRect{0, 0, 0, 5},
                                  PixelRect{most, most, most, most}, PixelRect{least, 0, most, 5}}) {
    EXPECT_TRUE(bitmap.cropped(outside).isNull());
  }
  EXPECT_FALSE(MutableBitmap::create({0, 5}, PixelAlpha::Opaque));
  EXPECT_FALSE(MutableBitmap::create({65536, 1}, PixelAlpha::Opaque));
  EXPECT_FALSE(MutableBitmap::create({50000, 50000}, PixelAlpha::Opaque));
}

}  // namespace
}  // namespace vellora
