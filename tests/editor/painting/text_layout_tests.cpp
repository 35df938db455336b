#include <gtest/gtest.h>

#include <set>

#include <QFontDatabase>
#include <QStringList>

#include "editor/painting/TextFont.h"
#include "editor/painting/TextLayout.h"

namespace vellora {
namespace {

class TextLayoutTest : public testing::Test {
 protected:
  static Annotation text(const QString& words, double lineWidth = 3) {
    Annotation annotation;
    annotation.kind = Annotation::Kind::Text;
    annotation.text = words;
    annotation.lineWidth = lineWidth;
    return annotation;
  }

  std::unique_ptr<TextMeasurer> measurer = makeTextMeasurer();
};

TEST_F(TextLayoutTest, FontsAreThoseOfDocuments) {
  const QFont written = textFont(20, false, QFont::Medium);
  EXPECT_EQ(written.hintingPreference(), QFont::PreferNoHinting);
  if (QFontDatabase::hasFamily(QStringLiteral("Inter"))) {
    EXPECT_EQ(written.families(), QStringList(QStringLiteral("Inter")));
  }
  EXPECT_DOUBLE_EQ(written.pointSizeF(), 20);
  QFontDatabase::addApplicationFont(QStringLiteral(VELLORA_SOURCE_DIR "/assets/fonts/ShantellSans_600SemiBold.ttf"));
  if (QFontDatabase::hasFamily(QStringLiteral("Shantell Sans"))) {
    EXPECT_DOUBLE_EQ(textFont(20, true, QFont::Medium).pointSizeF(), 21.6);
  }
}

TEST_F(TextLayoutTest, AFilledBoxHasPaddingAndAnEmptyOneALine) {
  Annotation annotation = text(QString());
  const Size bare = measurer->boxSize(annotation);
  EXPECT_DOUBLE_EQ(bare.width, 2);
  EXPECT_DOUBLE_EQ(bare.height, std::ceil(bare.height));
  annotation.textBackground = true;  // letters of 24 points: padding 11 and 7
  EXPECT_EQ(measurer->boxSize(annotation), (Size{2 + 22, bare.height + 14}));
  EXPECT_EQ(measurer->cursorRect(annotation, 0), (Rect{{11, 7}, {0, bare.height}}));
}

TEST_F(TextLayoutTest, BreaksLinesWhereAskedAndWhereTheyEnd) {
  const double line = measurer->boxSize(text(QStringLiteral("x"))).height;
  EXPECT_DOUBLE_EQ(measurer->boxSize(text(QStringLiteral("a\nb\r\nc\u2028\n"))).height, 5 * line);
  Annotation annotation = text(QStringLiteral("some words that need several lines"));
  const double wide = measurer->boxSize(annotation).width;
  annotation.textBoxWidth = wide / 2.5;
  EXPECT_DOUBLE_EQ(measurer->boxSize(annotation).width, annotation.textBoxWidth);
  EXPECT_GE(measurer->boxSize(annotation).height, 3 * line);
  annotation.text = QStringLiteral("Donaudampfschifffahrtsgesellschaft");
  annotation.textBoxWidth = 60;
  EXPECT_GE(measurer->boxSize(annotation).height, 4 * line);  // within a word where it must
}

TEST_F(TextLayoutTest, LinesAreAsHighWhateverFontTheyNeed) {
  const double line = measurer->boxSize(text(QStringLiteral("x"))).height;
  EXPECT_DOUBLE_EQ(measurer->boxSize(text(QStringLiteral("日本語\nمرحبا\n👍🏽"))).height, 3 * line);
}

TEST_F(TextLayoutTest, OffsetsKeepBetweenWhatIsSeenAsOneCharacter) {
  const QString words = QStringLiteral("ae\u0301👍🏽z");
  const Annotation annotation = text(words);
  const Size size = measurer->boxSize(annotation);
  std::set<int> offsets;
  for (double x = -10; x < size.width + 10; x += 0.5) offsets.insert(measurer->offsetAt(annotation, {x, 5}));
  EXPECT_EQ(offsets, (std::set<int>{0, 1, 3, 7, 8}));
  EXPECT_EQ(measurer->offsetAt(annotation, {1e9, 1e9}), 8);
  EXPECT_EQ(measurer->offsetAt(annotation, {-1e9, -1e9}), 0);
}

TEST_F(TextLayoutTest, TheCursorMovesThroughWrappedLines) {
  Annotation annotation = text(QStringLiteral("aaaa bbbb\ncc"));
  annotation.textBoxWidth = measurer->boxSize(text(QStringLiteral("aaaa b"))).width;
  const double line = measurer->boxSize(text(QStringLiteral("x"))).height;
  EXPECT_EQ(measurer->lineAt(annotation, 2), (std::pair{0, 4}));
  EXPECT_EQ(measurer->lineAt(annotation, 5), (std::pair{5, 9}));
  EXPECT_EQ(measurer->lineAt(annotation, 12), (std::pair{10, 12}));
  EXPECT_DOUBLE_EQ(measurer->cursorRect(annotation, 5).minY(), line);
  EXPECT_DOUBLE_EQ(measurer->cursorRect(annotation, 5).minX(), 0);
  EXPECT_EQ(measurer->offsetInNextLine(annotation, 2, 1, measurer->cursorRect(annotation, 2).minX()), 7);
  EXPECT_EQ(measurer->offsetInNextLine(annotation, 2, -1, 20), 0);
  EXPECT_EQ(measurer->offsetInNextLine(annotation, 9, 1, 1e6), 12);
  EXPECT_EQ(measurer->offsetInNextLine(annotation, 11, 1, 0), 12);

  const std::vector<Rect> rects = measurer->selectionRects(annotation, 2, 11);
  ASSERT_EQ(rects.size(), 3u);
  EXPECT_DOUBLE_EQ(rects[0].minX(), measurer->cursorRect(annotation, 2).minX());
  EXPECT_DOUBLE_EQ(rects[2].maxX(), measurer->cursorRect(annotation, 11).minX());
  EXPECT_TRUE(measurer->selectionRects(annotation, 5, 5).empty());
}

TEST_F(TextLayoutTest, WhatReadsFromTheRightStandsAtTheRight) {
  Annotation annotation = text(QStringLiteral("שלום\nlonger than that"));
  const double width = measurer->boxSize(annotation).width;
  EXPECT_NEAR(measurer->cursorRect(annotation, 0).minX(), width, 0.1);
  EXPECT_LT(measurer->cursorRect(annotation, 4).minX(), width - 20);
  EXPECT_EQ(measurer->offsetAt(annotation, {width + 50, 5}), 0);
  const std::vector<Rect> rects = measurer->selectionRects(annotation, 0, 2);
  ASSERT_EQ(rects.size(), 1u);
  EXPECT_NEAR(rects[0].maxX(), width, 0.1);

  // Of two directions: the selected end of one word and start of the next need not touch.
  annotation.text = QStringLiteral("ab שלום cd");
  EXPECT_GE(measurer->selectionRects(annotation, 1, 5).size(), 2u);
}

TEST_F(TextLayoutTest, TheSameLayoutAtEverySize) {
  const QString words = QStringLiteral("AVATAR fifty-five, Tokyo");
  const double unit = measurer->boxSize(text(words, 3)).width / textFontSize(3);
  for (const double lineWidth : {1.0, 7.0, 20.0, 200.0}) {
    EXPECT_NEAR(measurer->boxSize(text(words, lineWidth)).width / textFontSize(lineWidth), unit, 0.02 * unit);
  }
}

TEST_F(TextLayoutTest, EnormousTextsAreLaidOutToALimit) {
  Annotation annotation = text(QString(1'000'000, QLatin1Char('x')));
  annotation.textBoxWidth = 300;
  const Size size = measurer->boxSize(annotation);
  EXPECT_LT(size.height, 40'000);
  EXPECT_EQ(measurer->offsetAt(annotation, {1e9, 1e9}), 10'000);
  EXPECT_LE(measurer->cursorRect(annotation, 999'999).maxY(), size.height);
  annotation.text = QString(1'000'000, QLatin1Char('\n'));
  EXPECT_LT(measurer->boxSize(annotation).height, 40'000);
  annotation.text = QString(5'000, QChar(0xD800)) + QString(3'000, QChar(0xFFFC)) + QChar(0) + QChar(0x202E);
  annotation.lineWidth = 1e9;
  EXPECT_GT(measurer->boxSize(annotation).height, 0);
}

}  // namespace
}  // namespace vellora
