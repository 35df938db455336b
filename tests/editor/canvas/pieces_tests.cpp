#include "CanvasFixture.h"

namespace vellora {
namespace {

using namespace test;
using Kind = Annotation::Kind;
using Role = Handle::Role;

TEST(Cropping, MovesEdgesAndLeavesThePictureInPlace) {
  // Two pixels a point, away from the origin.
  Canvas canvas(documentOf({annotationOf(Kind::Blur, {120, 120}, {160, 160})}, {pieceOf({100, 100}, {400, 200}, 2)}));
  const Annotation blur = canvas.annotation(0);
  canvas.model.beginCrop();
  ASSERT_TRUE(canvas.model.isCropping());
  EXPECT_EQ(canvas.model.handles().size(), 8U);
  canvas.drag({100, 100}, {130.3, 110});
  EXPECT_EQ(canvas.piece().origin, (Point{130.5, 110})) << "on whole pixels";
  EXPECT_EQ(canvas.piece().visibleRect, (Rect{{30.5, 10}, {169.5, 90}}));
  EXPECT_EQ(canvas.piece().pointSize, (Size{169.5, 90}));
  EXPECT_EQ(canvas.annotation(0), blur) << "annotations stay where they are";
  canvas.drag(canvas.handle(Role::Right), {-500, 0});
  EXPECT_EQ(canvas.piece().visibleRect, (Rect{{30.5, 10}, {8, 90}})) << "eight points stay";
  canvas.drag(canvas.handle(Role::BottomRight), {900, 900});
  EXPECT_EQ(canvas.piece().visibleRect, (Rect{{30.5, 10}, {169.5, 90}})) << "not beyond the source";
  // From the inside another part is shown.
  canvas.drag(canvas.handle(Role::Right), {250, 150});
  canvas.drag({200, 150}, {190, 140});
  EXPECT_EQ(canvas.piece().visibleRect.origin, (Point{20.5, 0}));
  canvas.model.resetCrop();
  EXPECT_EQ(canvas.piece().frame(), (Rect{{100, 100}, {200, 100}}));
  EXPECT_FALSE(canvas.piece().isCropped());
  EXPECT_TRUE(canvas.key(KeyInput::Key::Return));
  EXPECT_FALSE(canvas.model.isCropping());
  EXPECT_EQ(canvas.annotation(0), blur);
}

TEST(Cropping, EndsByWhateverComesNext) {
  Canvas canvas(documentOf({annotationOf(Kind::Blur, {10, 10}, {60, 60})}));
  const std::pair<const char*, std::function<void()>> ends[] = {
      {"escape", [&] { canvas.model.escape(); }},
      {"a press outside", [&] { canvas.click(500, 500); }},
      {"a double click", [&] { canvas.model.doubleClick(Canvas::at(200, 200)); }},
      {"another tool", [&] { canvas.model.setTool(Tool::Box); }},
      {"a selection", [&] { canvas.model.selectAll(); }},
      {"a copy", [&] { canvas.model.select({canvas.id(0)}), canvas.model.duplicateSelection(); }},
  };
  for (const auto& [name, end] : ends) {
    canvas.model.beginCrop();
    EXPECT_TRUE(canvas.model.isCropping()) << name;
    EXPECT_EQ(canvas.model.tool(), Tool::Select);
    end();
    EXPECT_FALSE(canvas.model.isCropping()) << name;
  }
  // Dragging an edge of the selected picture begins it.
  canvas.model.selectPiece(canvas.piece().id);
  canvas.drag({400, 150}, {350, 150});
  EXPECT_TRUE(canvas.model.isCropping());
  EXPECT_EQ(canvas.piece().pointSize.width, 350);
}

TEST(Pieces, AreAddedBesideOrWhereTheyAreDropped) {
  Canvas canvas(documentOf({}, {pieceOf({0, 0}, {400, 300}), pieceOf({500, -20}, {100, 50})}));
  canvas.model.setTool(Tool::Box, true);
  canvas.model.addPiece(pieceOf({7, 7}, {30, 30}));
  EXPECT_EQ(canvas.piece(2).origin, (Point{612, -20}));
  EXPECT_EQ(canvas.model.selectedPiece(), canvas.piece(2).id);
  EXPECT_EQ(canvas.model.tool(), Tool::Select);
  canvas.model.addPiece(pieceOf({7, 7}, {31, 31}), {100, 100});
  EXPECT_EQ(canvas.piece(3).origin, (Point{85, 85})) << "on whole pixels";
}

TEST(Pieces, MoveWithWhatIsDrawnOnThem) {
  const auto document = [] {
    return documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60}), annotationOf(Kind::Blur, {420, 20}, {460, 60}),
                       annotationOf(Kind::Blur, {380, 100}, {440, 140})},
                      {pieceOf({0, 0}), pieceOf({412, 0})});
  };
  Canvas canvas(document());
  canvas.drag({500, 200}, {530.4, 260.7}, control);
  EXPECT_EQ(canvas.piece(1).origin, (Point{442, 61}));
  EXPECT_EQ(canvas.annotation(0).p1, (Point{20, 20}));
  EXPECT_EQ(canvas.annotation(1).p1, (Point{450, 81})) << "a redaction never stays behind";
  EXPECT_EQ(canvas.annotation(2).p1, (Point{380, 100})) << "its middle is between the pieces";
  EXPECT_EQ(canvas.model.selectedPiece(), canvas.piece(1).id);
  canvas.key(KeyInput::Key::Right);
  EXPECT_EQ(canvas.piece(1).origin, (Point{443, 61}));
  EXPECT_EQ(canvas.annotation(1).p1, (Point{451, 81}));
  canvas.drag({600, 300}, {610, 310}, {.alt = true, .control = true});
  EXPECT_EQ(canvas.annotation(1).p1, (Point{451, 81})) << "Alt moves the piece alone";
  canvas.drag({600, 300}, {560, 305}, shift);
  EXPECT_TRUE(canvas.model.selectedPiece() == std::nullopt) << "Shift draws a marquee on pieces too";

  Canvas snapping(document());
  snapping.drag({500, 200}, {491, 204});
  EXPECT_EQ(snapping.piece(1).origin, (Point{400, 0})) << "edge to edge";
}

TEST(Pieces, GoWithWhatIsDrawnOnThemButNeverTheLast) {
  Canvas canvas(
      documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60}), annotationOf(Kind::Blur, {420, 20}, {460, 60})},
                 {pieceOf({0, 0}), pieceOf({412, 0})}));
  const AnnotationId kept = canvas.id(0);
  canvas.click(500, 200);
  EXPECT_TRUE(canvas.key(KeyInput::Key::Delete));
  ASSERT_EQ(canvas.model.document().pieces.size(), 1U);
  EXPECT_EQ(canvas.count(), 1U);
  EXPECT_EQ(canvas.id(0), kept);
  canvas.model.selectPiece(canvas.piece().id);
  EXPECT_FALSE(canvas.key(KeyInput::Key::Delete));
  canvas.model.deleteSelection();
  EXPECT_EQ(canvas.model.document().pieces.size(), 1U);
}

TEST(Clipboard, CarriesAnnotationsBetweenEditors) {
  Annotation text = annotationOf(Kind::Text, {20, 20}, {20, 20});
  text.text = QString::fromUtf8("naïve 🙂");
  Annotation counter = annotationOf(Kind::Counter, {100, 100}, {100, 100});
  counter.number = 3;
  Canvas from(documentOf({text, counter}));
  EXPECT_FALSE(from.model.copySelection().has_value());
  from.model.selectAll();
  const auto clip = from.model.copySelection();
  ASSERT_TRUE(clip.has_value());

  Canvas to(documentOf({}));
  EXPECT_TRUE(to.model.paste(*clip, std::nullopt));
  ASSERT_EQ(to.count(), 2U);
  EXPECT_EQ(to.annotation(0).text, text.text);
  EXPECT_EQ(to.annotation(0).p1, text.p1) << "where it was";
  EXPECT_EQ(to.annotation(1).number, 3);
  EXPECT_NE(to.id(0), from.id(0));
  EXPECT_EQ(to.model.selection(), (std::set{to.id(0), to.id(1)}));
  // Again a little further, and with numbers of their own.
  to.model.paste(*clip, std::nullopt);
  EXPECT_EQ(to.annotation(3).number, 4);
  EXPECT_GT(to.annotation(2).p1.x, to.annotation(0).p1.x);
  to.model.paste(*clip, std::nullopt);
  EXPECT_GT(to.annotation(4).p1.x, to.annotation(2).p1.x);

  // In the same editor never exactly on the originals; at a place, around it; what lies outside comes to the middle.
  from.model.paste(*clip, std::nullopt);
  EXPECT_NE(from.annotation(2).p1, text.p1);
  Canvas placed(documentOf({}));
  placed.model.paste(*clip, Point{300, 200});
  EXPECT_NEAR(placed.annotation(0).p1.x, 300 - 95.5 / 2, 50);
  Canvas elsewhere(documentOf({}, {pieceOf({5000, 5000})}));
  elsewhere.model.paste(*clip, std::nullopt);
  EXPECT_GT(elsewhere.annotation(0).p1.x, 5000);
}

TEST(Clipboard, RefusesHostileBytes) {
  Canvas canvas(documentOf({annotationOf(Kind::Box, {0, 0}, {9, 9})}));
  canvas.model.selectAll();
  const QByteArray good = canvas.model.copySelection()->annotations;
  ASSERT_TRUE(good.contains("\"kind\":1"));
  const auto revision = canvas.model.revision();
  const auto replaced = [&](const char* from, const char* to) { return QByteArray(good).replace(from, to); };
  std::vector<QByteArray> hostile{"",
                                  "nonsense",
                                  "{}",
                                  "[]",
                                  R"({"version":1,"annotations":[]})",
                                  R"({"version":1,"annotations":{"kind":1}})",
                                  R"({"version":1,"annotations":[7]})",
                                  QByteArray(100'000, '['),
                                  QByteArray(40 << 20, ' '),
                                  replaced("\"version\":1", "\"version\":2"),
                                  replaced("\"kind\":1", "\"kind\":9"),
                                  replaced("\"lineWidth\":3.0", "\"lineWidth\":1e999"),
                                  replaced("[9.0,9.0]", "[9.0,null]"),
                                  replaced("[9.0,9.0]", "[9.0,1e300]")};
  QByteArray many = R"({"version":1,"annotations":[)";
  const QByteArray record = good.mid(good.indexOf('[') + 1, good.lastIndexOf(']') - good.indexOf('[') - 1);
  for (int i = 0; i < 3000; ++i) many += record + ',';
  many.chop(1);
  hostile.push_back(many + "]}");
  for (int length = 0; length < good.size(); ++length) hostile.push_back(good.left(length));
  for (const QByteArray& bytes : hostile) {
    EXPECT_FALSE(canvas.model.paste({bytes}, std::nullopt)) << bytes.left(120).toStdString();
  }
  EXPECT_EQ(canvas.model.revision(), revision);
  EXPECT_TRUE(canvas.model.paste({good}, std::nullopt));
}

}  // namespace
}  // namespace vellora
