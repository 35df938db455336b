#include "CanvasFixture.h"

namespace vellora {
namespace {

using namespace test;
using Key = KeyInput::Key;
using Kind = Annotation::Kind;

class TextEditing : public testing::Test {
 protected:
  /// Begins with a text of its own at the origin.
  void start(const QString& text) {
    Annotation annotation = annotationOf(Kind::Text, {100, 100}, {100, 100});
    annotation.text = text;
    canvas = std::make_unique<Canvas>(documentOf({annotation}));
    canvas->model.editText(canvas->id(0));
  }
  QString text() const { return canvas->annotation(0).text; }
  CanvasModel::TextEdit edit() const { return *canvas->model.textEdit(); }
  int cursor() const { return edit().cursor; }
  void keys(std::initializer_list<Key> pressed, Modifiers modifiers = {}) {
    for (const Key key : pressed) EXPECT_TRUE(canvas->key(key, modifiers));
  }
  std::unique_ptr<Canvas> canvas;
};

TEST_F(TextEditing, BeginsWhereItIsClickedAndEndsAsOneStep) {
  Canvas fresh(documentOf({}));
  fresh.model.setTool(Tool::Text);
  fresh.click(200, 100);
  ASSERT_TRUE(fresh.model.textEdit().has_value());
  EXPECT_EQ(fresh.model.textEdit()->cursorRect, (Rect{{200, 90}, {0, 20}})) << "the line stands around the pointer";
  EXPECT_TRUE(fresh.model.handles().empty());
  fresh.type(QStringLiteral("Hello\nyou"));
  EXPECT_EQ(fresh.annotation(0).text, QStringLiteral("Hello\nyou")) << "the document shows what is typed";
  fresh.click(20, 280);
  EXPECT_FALSE(fresh.model.textEdit().has_value());
  EXPECT_EQ(fresh.model.tool(), Tool::Select);
  EXPECT_EQ(fresh.steps(), 1U);

  // A drag says how wide it is.
  fresh.model.setTool(Tool::Text, true);
  fresh.drag({20, 20}, {140, 60});
  fresh.type(QStringLiteral("x"));
  EXPECT_EQ(fresh.annotation(1).textBoxWidth, 120);
  // The next press of a locked tool begins the next text; one on a text edits that.
  fresh.click(300, 200);
  fresh.type(QStringLiteral("y"));
  EXPECT_EQ(fresh.count(), 3U);
  fresh.click(210, 95);
  EXPECT_EQ(fresh.model.textEdit()->id, fresh.id(0));
  EXPECT_EQ(fresh.model.textEdit()->cursor, 1);
}

TEST_F(TextEditing, MovesByCharactersWordsLinesAndTheWhole) {
  start(QStringLiteral("one two\nthree"));
  EXPECT_EQ(cursor(), 13);
  keys({Key::Home});
  EXPECT_EQ(cursor(), 8);
  keys({Key::Up});
  EXPECT_EQ(cursor(), 0);
  keys({Key::Right}, control);
  EXPECT_EQ(cursor(), 4);
  keys({Key::End});
  EXPECT_EQ(cursor(), 7);
  keys({Key::Down});
  EXPECT_EQ(cursor(), 13) << "to the end of a shorter line";
  keys({Key::Up});
  EXPECT_EQ(cursor(), 7) << "and back to where it came from";
  keys({Key::Left}, control);
  EXPECT_EQ(cursor(), 4);
  keys({Key::Home}, control);
  EXPECT_EQ(cursor(), 0);
  keys({Key::Up});
  EXPECT_EQ(cursor(), 0);
  keys({Key::End}, {.shift = true, .control = true});
  EXPECT_EQ(canvas->model.selectedText(), text());
  EXPECT_FALSE(edit().selected.empty());
  keys({Key::Left});
  EXPECT_EQ(cursor(), 0) << "an arrow ends the selection at its side";
  keys({Key::Right, Key::Right}, shift);
  EXPECT_EQ(canvas->model.selectedText(), QStringLiteral("on"));
  canvas->model.insertText({});
  EXPECT_EQ(text(), QStringLiteral("e two\nthree")) << "cutting";
  EXPECT_FALSE(canvas->model.keyPress({Key::Other, control, QStringLiteral("b"), 1})) << "a command of the window";
}

TEST_F(TextEditing, SelectsWithThePointer) {
  start(QStringLiteral("one two three"));
  canvas->model.press(Canvas::at(141, 110));
  canvas->model.move(Canvas::at(169, 110));
  canvas->model.release(Canvas::at(169, 110));
  EXPECT_EQ(canvas->model.selectedText(), QStringLiteral("two"));
  canvas->model.move(Canvas::at(100, 110));
  EXPECT_EQ(canvas->model.selectedText(), QStringLiteral("two")) << "let go is let go";
  canvas->click(230, 110, shift);
  EXPECT_EQ(canvas->model.selectedText(), QStringLiteral("two three"));
  canvas->model.doubleClick(Canvas::at(115, 110));
  EXPECT_EQ(canvas->model.selectedText(), QStringLiteral("one"));
  PointerEvent third = Canvas::at(115, 110);
  third.clicks = 3;
  canvas->model.press(third);
  canvas->model.release(third);
  EXPECT_EQ(canvas->model.selectedText(), text());
  canvas->model.endTextEdit();
  canvas->model.doubleClick(Canvas::at(141, 110));
  EXPECT_EQ(cursor(), 4) << "a double click begins where it is";
  canvas->model.selectAll();
  EXPECT_EQ(canvas->model.selectedText(), text());
}

TEST_F(TextEditing, KeepsCharactersWhole) {
  // A pair of surrogates, a letter with a combining accent, a family of joined figures.
  const QString smile = QString::fromUtf8("\xF0\x9F\x99\x82");
  const QString accent = QString::fromUtf8("e\xCC\x81");
  const QString family = QString::fromUtf8("\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7");
  start(smile + accent + family);
  keys({Key::Left});
  EXPECT_EQ(cursor(), smile.size() + accent.size());
  keys({Key::Left});
  EXPECT_EQ(cursor(), smile.size());
  keys({Key::Left});
  EXPECT_EQ(cursor(), 0);
  keys({Key::Delete});
  EXPECT_EQ(text(), accent + family);
  keys({Key::End});
  keys({Key::Backspace});
  EXPECT_EQ(text(), accent);
  keys({Key::Backspace});
  EXPECT_EQ(text(), QString());
  // A letter before a lone accent joins it; the cursor does not stay between.
  canvas->model.insertText(QString::fromUtf8("\xCC\x81"));
  keys({Key::Home});
  canvas->model.insertText(QStringLiteral("a"));
  EXPECT_EQ(cursor(), 2);
  // Halves of pairs and control characters never enter.
  canvas->model.selectAll();
  canvas->model.insertText(QStringLiteral("a\r\nb\tc") + QChar(0xD800) + QChar(0) + QChar(0x1b) + QStringLiteral("d"));
  EXPECT_EQ(text(), QStringLiteral("a\nb    c") + QChar(QChar::ReplacementCharacter) + QStringLiteral("d"));
}

TEST_F(TextEditing, GoesWithTheTextFromRightToLeft) {
  start(QString::fromUtf8("שלום"));
  keys({Key::Left});
  EXPECT_EQ(cursor(), 4) << "left is onward, and it is at the end";
  keys({Key::Right});
  EXPECT_EQ(cursor(), 3);
}

TEST_F(TextEditing, TakesBackTypingInRuns) {
  start(QStringLiteral("x"));
  canvas->type(QStringLiteral(" one two"));
  keys({Key::Backspace, Key::Backspace});
  canvas->model.insertText(QStringLiteral("pasted"));
  const QString states[] = {QStringLiteral("x one tpasted"), QStringLiteral("x one t"), QStringLiteral("x one two"),
                            QStringLiteral("x one "),        QStringLiteral("x "),      QStringLiteral("x")};
  for (const QString& state : states) {
    EXPECT_EQ(text(), state);
    canvas->model.undo();
  }
  EXPECT_FALSE(canvas->model.textEdit().has_value()) << "with nothing left the editing ends";
  EXPECT_FALSE(canvas->model.canUndo());

  canvas->model.editText(canvas->id(0));
  canvas->type(QStringLiteral("yz"));
  canvas->model.undo();
  EXPECT_EQ(text(), QStringLiteral("x"));
  EXPECT_TRUE(canvas->model.canRedo());
  canvas->model.redo();
  EXPECT_EQ(text(), QStringLiteral("xyz"));
  keys({Key::Left});
  canvas->type(QStringLiteral("-"));
  canvas->model.setTextBackground(true);
  canvas->model.undo();
  EXPECT_FALSE(canvas->annotation(0).textBackground) << "a style is a run";
  canvas->model.undo();
  EXPECT_EQ(text(), QStringLiteral("xyz")) << "moving the cursor ends a run";
  EXPECT_TRUE(canvas->key(Key::Return, control));
  EXPECT_EQ(canvas->steps(), 1U);
}

TEST_F(TextEditing, ShowsWhatIsComposedWithoutKeepingIt) {
  start(QStringLiteral("ab"));
  keys({Key::Left});
  const auto revision = canvas->model.revision();
  canvas->model.setComposing(QString::fromUtf8("にほ"));
  EXPECT_EQ(text(), QStringLiteral("ab"));
  EXPECT_EQ(canvas->model.revision(), revision);
  EXPECT_EQ(edit().composing.size(), 2);
  EXPECT_EQ(edit().cursorRect.minX(), 130) << "after what is composed";
  ASSERT_EQ(edit().composed.size(), 1U);
  EXPECT_EQ(edit().composed[0], (Rect{{110, 100}, {20, 20}}));
  EXPECT_EQ(canvas->model.outlineOf(edit().id)->size.width, 40);
  canvas->model.setComposing(QString::fromUtf8("にほん"), 1);
  EXPECT_EQ(edit().cursorRect.minX(), 120);
  canvas->model.setComposing({});
  canvas->model.insertText(QString::fromUtf8("日本"));
  EXPECT_EQ(text(), QString::fromUtf8("a日本b"));
  canvas->model.setComposing(QStringLiteral("lost"));
  canvas->model.endTextEdit();
  EXPECT_EQ(text(), QString::fromUtf8("a日本b"));
  EXPECT_EQ(canvas->steps(), 1U);
}

TEST_F(TextEditing, IsBounded) {
  start({});
  canvas->model.insertText(QString(19'999, u'a') + QString::fromUtf8("\xF0\x9F\x99\x82") + QStringLiteral("b"));
  EXPECT_EQ(text().size(), 19'999) << "no half of a character at the limit";
  canvas->model.insertText(QStringLiteral("bc"));
  EXPECT_EQ(text().size(), 20'000);
  canvas->model.insertText(QStringLiteral("d"));
  EXPECT_EQ(text().size(), 20'000);
  canvas->model.undo();
  EXPECT_EQ(text().size(), 19'999) << "what changed nothing is no run";
}

TEST_F(TextEditing, EndsBeforeOtherCommandsAct) {
  start(QStringLiteral("word"));
  canvas->type(QStringLiteral("s"));
  canvas->model.duplicateSelection();
  EXPECT_FALSE(canvas->model.textEdit().has_value());
  ASSERT_EQ(canvas->count(), 2U);
  EXPECT_EQ(canvas->annotation(1).text, QStringLiteral("words"));
  canvas->model.undo();
  EXPECT_EQ(text(), QStringLiteral("words"));
  canvas->model.undo();
  EXPECT_EQ(text(), QStringLiteral("word"));
}

}  // namespace
}  // namespace vellora
