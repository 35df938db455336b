#include <limits>

#include "CanvasFixture.h"

namespace vellora {
namespace {

using namespace test;
using Kind = Annotation::Kind;

/// A document with one of each kind, two pieces, and things far enough apart to be reached alone.
ImageDocument fullDocument() {
  Annotation text = annotationOf(Kind::Text, {20, 200}, {20, 200});
  text.text = QStringLiteral("hello world");
  Annotation pen = annotationOf(Kind::Pen, {300, 200}, {340, 240});
  pen.penPoints = std::vector<Point>{{300, 200}, {320, 220}, {340, 240}};
  Annotation counter = annotationOf(Kind::Counter, {200, 210}, {200, 210});
  return documentOf({annotationOf(Kind::Arrow, {20, 20}, {80, 60}), annotationOf(Kind::Box, {110, 20}, {170, 60}),
                     annotationOf(Kind::Ellipse, {200, 20}, {260, 60}), annotationOf(Kind::Line, {290, 20}, {350, 60}),
                     text, annotationOf(Kind::Blur, {20, 100}, {80, 160}), counter,
                     annotationOf(Kind::Magnifier, {110, 100}, {170, 160}), pen},
                    {pieceOf({0, 0}), pieceOf({412, 0})});
}

struct Edit {
  const char* name;
  std::function<void(Canvas&)> act;
};

const std::vector<Edit>& edits() {
  static const std::vector<Edit> all{
      {"draw arrow",
       [](Canvas& c) {
         c.model.setTool(Tool::Arrow), c.drag({200, 250}, {260, 290});
       }},
      {"draw line",
       [](Canvas& c) {
         c.model.setTool(Tool::Line), c.drag({200, 250}, {260, 290});
       }},
      {"draw box",
       [](Canvas& c) {
         c.model.setTool(Tool::Box), c.drag({200, 250}, {260, 290});
       }},
      {"draw ellipse",
       [](Canvas& c) {
         c.model.setTool(Tool::Ellipse), c.drag({200, 250}, {260, 290});
       }},
      {"draw blur",
       [](Canvas& c) {
         c.model.setTool(Tool::Blur), c.drag({200, 250}, {260, 290});
       }},
      {"draw lens",
       [](Canvas& c) {
         c.model.setTool(Tool::Magnifier), c.drag({200, 250}, {260, 290});
       }},
      {"place lens", [](Canvas& c) { c.model.setTool(Tool::Magnifier), c.click(250, 250); }},
      {"draw freehand",
       [](Canvas& c) {
         c.model.setTool(Tool::Pen), c.drag({200, 250}, {260, 290});
       }},
      {"place counter", [](Canvas& c) { c.model.setTool(Tool::Counter), c.click(250, 280); }},
      {"turn new counter",
       [](Canvas& c) {
         c.model.setTool(Tool::Counter), c.drag({250, 280}, {300, 280});
       }},
      {"type text",
       [](Canvas& c) {
         c.model.setTool(Tool::Text), c.click(250, 280), c.type(QStringLiteral("a b")), c.model.escape();
       }},
      {"edit text",
       [](Canvas& c) { c.model.editText(c.id(4)), c.type(QStringLiteral(" and you")), c.model.endTextEdit(); }},
      {"empty text",
       [](Canvas& c) {
         c.model.editText(c.id(4)), c.model.selectAll(), c.model.insertText({}), c.model.endTextEdit();
       }},
      {"move",
       [](Canvas& c) {
         c.drag({110, 40}, {127, 71});
       }},
      {"move several",
       [](Canvas& c) {
         c.model.selectAll(), c.drag({110, 40}, {127, 71});
       }},
      {"copy by dragging",
       [](Canvas& c) {
         c.drag({110, 40}, {127, 71}, alt);
       }},
      {"nudge",
       [](Canvas& c) { c.model.select({c.id(1)}), c.key(KeyInput::Key::Left), c.key(KeyInput::Key::Up, shift); }},
      {"resize",
       [](Canvas& c) {
         c.model.select({c.id(1)}), c.drag({170, 60}, {190, 90});
       }},
      {"resize freehand",
       [](Canvas& c) {
         c.model.select({c.id(8)}), c.drag({346, 246}, {360, 290});
       }},
      {"move end",
       [](Canvas& c) {
         c.model.select({c.id(3)}), c.drag({350, 60}, {360, 90});
       }},
      {"bend arrow",
       [](Canvas& c) {
         c.model.select({c.id(0)}), c.drag({50, 40}, {60, 10});
       }},
      {"turn tail",
       [](Canvas& c) {
         c.model.select({c.id(6)}), c.drag(c.handle(Handle::Role::Tail), {200, 260});
       }},
      {"set text width",
       [](Canvas& c) {
         c.model.select({c.id(4)}), c.drag({130, 210}, {90, 210});
       }},
      {"scale text",
       [](Canvas& c) {
         c.model.select({c.id(4)}), c.drag({130, 220}, {180, 232});
       }},
      {"move lens source",
       [](Canvas& c) {
         c.model.select({c.id(7)}), c.drag(c.handle(Handle::Role::Source), {250, 250});
       }},
      {"colour",
       [](Canvas& c) {
         c.model.selectAll(), c.model.setColor({0, 1, 0, 1});
       }},
      {"width", [](Canvas& c) { c.model.selectAll(), c.model.setLineWidth(7); }},
      {"text ground", [](Canvas& c) { c.model.selectAll(), c.model.setTextBackground(true); }},
      {"handwriting", [](Canvas& c) { c.model.selectAll(), c.model.setTextHandwritten(true); }},
      {"sketch", [](Canvas& c) { c.model.selectAll(), c.model.setSketch(true); }},
      {"fill", [](Canvas& c) { c.model.selectAll(), c.model.setShapeFill(true); }},
      {"blur style", [](Canvas& c) { c.model.selectAll(), c.model.setBlurStyle(BlurStyle::Erase); }},
      {"blur strength", [](Canvas& c) { c.model.selectAll(), c.model.setBlurStrength(0.9); }},
      {"erase colour",
       [](Canvas& c) {
         c.model.selectAll(), c.model.setEraseFillColor(ColorComponents{1, 1, 1, 1});
       }},
      {"magnification", [](Canvas& c) { c.model.selectAll(), c.model.setMagnification(4); }},
      {"lens shape", [](Canvas& c) { c.model.selectAll(), c.model.setMagnifierShape(MagnifierShape::RoundedRect); }},
      {"style while typing",
       [](Canvas& c) {
         c.model.editText(c.id(4)), c.model.setLineWidth(9), c.type(QStringLiteral("x")), c.model.escape();
       }},
      {"backdrop",
       [](Canvas& c) {
         BackdropSettings backdrop;
         backdrop.enabled = true;
         c.model.setBackdrop(backdrop);
       }},
      {"delete",
       [](Canvas& c) {
         c.model.select({c.id(1), c.id(3)}), c.key(KeyInput::Key::Delete);
       }},
      {"duplicate", [](Canvas& c) { c.model.selectAll(), c.model.duplicateSelection(); }},
      {"align", [](Canvas& c) { c.model.selectAll(), c.model.align(Alignment::CenterY); }},
      {"distribute", [](Canvas& c) { c.model.selectAll(), c.model.distribute(Distribution::Horizontal); }},
      {"forward", [](Canvas& c) { c.model.select({c.id(1)}), c.model.bringForward(); }},
      {"backward", [](Canvas& c) { c.model.select({c.id(1)}), c.model.sendBackward(); }},
      {"front", [](Canvas& c) { c.model.select({c.id(1)}), c.model.bringToFront(); }},
      {"back", [](Canvas& c) { c.model.select({c.id(1)}), c.model.sendToBack(); }},
      {"paste",
       [](Canvas& c) {
         c.model.selectAll(), c.model.paste(*c.model.copySelection(), Point{200, 150});
       }},
      {"add piece",
       [](Canvas& c) {
         c.model.addPiece(pieceOf({0, 0}, {50, 50}));
       }},
      {"drop piece",
       [](Canvas& c) {
         c.model.addPiece(pieceOf({0, 0}, {50, 50}), {100, 100});
       }},
      {"move piece",
       [](Canvas& c) {
         c.drag({600, 200}, {620, 240});
       }},
      {"remove piece", [](Canvas& c) { c.click(600, 200), c.model.deleteSelection(); }},
      {"crop",
       [](Canvas& c) {
         c.model.beginCrop(c.piece(1).id), c.drag({812, 150}, {700, 150});
       }},
      {"crop without asking",
       [](Canvas& c) {
         c.click(600, 200), c.drag({612, 300}, {612, 250});
       }},
      {"reset crop", nullptr},
  };
  return all;
}

class EveryEdit : public testing::TestWithParam<std::size_t> {};

TEST_P(EveryEdit, IsOneStepBackAndForth) {
  const Edit& edit = edits()[GetParam()];
  ImageDocument start = fullDocument();
  std::function<void(Canvas&)> act = edit.act;
  if (!act) {
    start.pieces[0].visibleRect = {{10, 20}, {200, 100}};
    start.pieces[0].pointSize = {200, 100};
    act = [](Canvas& c) { c.model.beginCrop(), c.model.resetCrop(); };
  }
  Canvas canvas(start);
  const ImageDocument a = canvas.model.document();
  const auto revisionA = canvas.model.revision();
  act(canvas);
  const ImageDocument b = canvas.model.document();
  const auto revisionB = canvas.model.revision();
  ASSERT_FALSE(isSame(a, b)) << edit.name << " changed nothing";
  ASSERT_EQ(canvas.steps(), 1U) << edit.name;
  for (int round = 0; round < 2; ++round) {
    canvas.model.undo();
    EXPECT_TRUE(isSame(canvas.model.document(), a)) << edit.name << " was not taken back whole";
    EXPECT_EQ(canvas.model.revision(), revisionA) << edit.name;
    canvas.model.redo();
    EXPECT_TRUE(isSame(canvas.model.document(), b)) << edit.name << " was not done again whole";
    EXPECT_EQ(canvas.model.revision(), revisionB) << edit.name;
  }
  for (const AnnotationId id : canvas.model.selection()) {
    EXPECT_TRUE(canvas.model.document().indexOf(id)) << edit.name << ": selects what is not there";
  }
}

INSTANTIATE_TEST_SUITE_P(Canvas, EveryEdit, testing::Range(std::size_t{0}, edits().size()),
                         [](const testing::TestParamInfo<std::size_t>& edit) {
                           QString name = QString::fromLatin1(edits()[edit.param].name);
                           return name.replace(u' ', u'_').toStdString();
                         });

TEST(CanvasUndo, LeavesNoStepWhereNothingChanged) {
  Canvas canvas(fullDocument());
  const auto revision = canvas.model.revision();
  const ImageDocument before = canvas.model.document();
  const std::pair<const char*, std::function<void()>> idle[] = {
      {"clicks", [&] { canvas.click(110, 40), canvas.click(5, 290), canvas.click(600, 200); }},
      {"drag there and back",
       [&] {
         canvas.model.press(Canvas::at(110, 40));
         canvas.model.move(Canvas::at(140, 90));
         canvas.model.move(Canvas::at(110, 40));
         canvas.model.release(Canvas::at(110, 40));
       }},
      {"shape there and back",
       [&] {
         canvas.model.setTool(Tool::Box);
         canvas.model.press(Canvas::at(250, 250));
         canvas.model.move(Canvas::at(290, 290));
         canvas.model.release(Canvas::at(251, 250));
         canvas.model.setTool(Tool::Select);
       }},
      {"clicks with shape tools",
       [&] {
         for (const Tool tool : {Tool::Arrow, Tool::Line, Tool::Box, Tool::Ellipse, Tool::Blur}) {
           canvas.model.setTool(tool);
           canvas.click(250, 280);
         }
         canvas.model.setTool(Tool::Select);
       }},
      {"a text left empty",
       [&] {
         canvas.model.setTool(Tool::Text), canvas.click(250, 280), canvas.type(QStringLiteral("  ")),
             canvas.model.escape();
       }},
      {"typing and taking it back",
       [&] {
         canvas.model.editText(canvas.id(4));
         canvas.type(QStringLiteral("x"));
         canvas.key(KeyInput::Key::Backspace);
         canvas.model.endTextEdit();
       }},
      {"front of the front", [&] { canvas.model.select({canvas.id(8)}), canvas.model.bringToFront(); }},
      {"the same colour",
       [&] { canvas.model.select({canvas.id(1)}), canvas.model.setColor(canvas.annotation(1).color); }},
      {"nudging there and back",
       [&] { canvas.model.select({canvas.id(1)}), canvas.key(KeyInput::Key::Left), canvas.key(KeyInput::Key::Right); }},
      {"a slider there and back",
       [&] { canvas.model.setLineWidth(9, "w"), canvas.model.setLineWidth(3, "w"), canvas.model.endCoalescing(); }},
      {"cropping by nothing",
       [&] {
         canvas.model.beginCrop(), canvas.drag({0, 150}, {-40, 150}), canvas.model.resetCrop(), canvas.model.endCrop();
       }},
  };
  for (const auto& [name, act] : idle) {
    act();
    EXPECT_FALSE(canvas.model.canUndo()) << name;
    EXPECT_TRUE(isSame(canvas.model.document(), before)) << name;
    EXPECT_EQ(canvas.model.revision(), revision) << name;
  }
}

TEST(CanvasUndo, CoalescesSlidersAndNudgesUntilSomethingElseHappens) {
  Canvas canvas(fullDocument());
  canvas.model.select({canvas.id(1)});
  for (const double width : {4.0, 5.0, 6.0}) canvas.model.setLineWidth(width, "slider");
  EXPECT_EQ(canvas.steps(), 1U);
  // A second pull of the same slider is a second step.
  canvas.model.endCoalescing();
  canvas.model.setLineWidth(8, "slider");
  EXPECT_EQ(canvas.steps(), 2U);
  // The same key for another property does not join.
  canvas.model.setColor({0, 0, 1, 1}, "slider");
  EXPECT_EQ(canvas.steps(), 3U);
  for (int i = 0; i < 5; ++i) canvas.key(KeyInput::Key::Right);
  EXPECT_EQ(canvas.steps(), 4U);
  canvas.model.select({canvas.id(2)});
  canvas.key(KeyInput::Key::Right);
  EXPECT_EQ(canvas.steps(), 5U);
  // A slider that came back to its start and goes on is a step again.
  canvas.model.endCoalescing();
  const double width = canvas.annotation(2).lineWidth;
  canvas.model.setLineWidth(15, "again");
  canvas.model.setLineWidth(width, "again");
  EXPECT_EQ(canvas.steps(), 5U);
  canvas.model.setLineWidth(16, "again");
  canvas.model.setLineWidth(17, "again");
  EXPECT_EQ(canvas.steps(), 6U);
}

TEST(CanvasUndo, EscapeAndUndoDuringADragRestore) {
  for (const bool byEscape : {true, false}) {
    Canvas canvas(fullDocument());
    canvas.model.select({canvas.id(2)});
    const ImageDocument before = canvas.model.document();
    const auto revision = canvas.model.revision();
    canvas.model.setTool(Tool::Box);
    canvas.model.press(Canvas::at(250, 250));
    canvas.model.move(Canvas::at(290, 290));
    EXPECT_EQ(canvas.count(), 10U);
    EXPECT_NE(canvas.model.revision(), revision);
    byEscape ? static_cast<void>(canvas.model.escape()) : canvas.model.undo();
    canvas.model.release(Canvas::at(290, 290));
    EXPECT_TRUE(isSame(canvas.model.document(), before));
    EXPECT_EQ(canvas.model.revision(), revision);
    EXPECT_FALSE(canvas.model.canUndo());
    EXPECT_EQ(canvas.model.tool(), Tool::Box);
  }
}

TEST(CanvasUndo, SelectsWhatComesBackAndForgetsWhatGoes) {
  Canvas canvas(fullDocument());
  const AnnotationId box = canvas.id(1);
  canvas.model.select({box});
  canvas.model.deleteSelection();
  EXPECT_TRUE(canvas.model.selection().empty());
  canvas.model.undo();
  EXPECT_EQ(canvas.model.selection(), std::set{box});
  canvas.model.redo();
  EXPECT_TRUE(canvas.model.selection().empty());
}

TEST(CanvasUndo, SurvivesHostileDocuments) {
  const double bad[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e308,
                        -1e308};
  std::vector<Annotation> annotations;
  for (const double value : bad) {
    for (int kind = 0; kind < Annotation::kindCount; ++kind) {
      Annotation one = annotationOf(static_cast<Kind>(kind), {value, 10}, {50, value});
      one.control = Point{value, value};
      one.lineWidth = value;
      one.tailAngle = value;
      one.magnification = value;
      one.textBoxWidth = value;
      one.number = std::numeric_limits<int>::max();
      one.penPoints = std::vector<Point>{{value, 1}, {1, value}};
      one.id = 7;
      annotations.push_back(one);
    }
  }
  CapturePiece piece = pieceOf({bad[0], 0});
  piece.scale = bad[0];
  piece.visibleRect = {{bad[1], bad[0]}, {bad[2], bad[3]}};
  for (const bool hostilePieces : {false, true}) {
    auto pieces = hostilePieces ? std::vector{piece, piece} : std::vector{pieceOf({0, 0}), pieceOf({412, 0})};
    for (std::size_t i = 0; i < edits().size(); ++i) {
      if (!edits()[i].act) continue;
      Canvas canvas(documentOf(annotations, pieces));
      edits()[i].act(canvas);
      for (const AnnotationPtr& annotation : canvas.model.document().annotations)
        canvas.model.outlineOf(annotation->id);
      canvas.model.undo();
      canvas.model.redo();
    }
  }
  Canvas canvas(documentOf(annotations));
  std::set<AnnotationId> ids;
  for (const AnnotationPtr& annotation : canvas.model.document().annotations) ids.insert(annotation->id);
  EXPECT_EQ(ids.size(), annotations.size()) << "every annotation must have an identity of its own";
  canvas.model.press({{bad[0], 3}, 1, {}});
  canvas.model.move({{10, 3}, bad[0], {}});
  canvas.model.release({{10, 3}, 0, {}});
  EXPECT_FALSE(canvas.model.canUndo());
}

}  // namespace
}  // namespace vellora
