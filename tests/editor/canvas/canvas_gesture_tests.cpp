#include <numbers>

#include "CanvasFixture.h"

namespace vellora {
namespace {

using namespace test;
using Kind = Annotation::Kind;
using Role = Handle::Role;
using std::numbers::pi;

bool isNear(Point a, Point b) {
  return std::hypot(a.x - b.x, a.y - b.y) < 1e-6;
}

TEST(Drawing, SpansWhatIsDraggedWithTheToolsStyle) {
  Canvas canvas(documentOf({}));
  ToolStyle style = ToolStylePreferences::defaultStyle(Tool::Box);
  style.color = {0, 0, 1, 1};
  style.lineWidth = 6;
  style.shapeFill = true;
  canvas.styles.set(style, Tool::Box);
  canvas.model.setTool(Tool::Box);
  canvas.drag({100, 80}, {40, 120});
  ASSERT_EQ(canvas.count(), 1U);
  const Annotation& box = canvas.annotation(0);
  EXPECT_EQ(box.kind, Kind::Box);
  EXPECT_EQ(spannedRect(box), (Rect{{40, 80}, {60, 40}}));
  EXPECT_EQ(box.color, style.color);
  EXPECT_EQ(box.lineWidth, 6);
  EXPECT_TRUE(box.shapeFill.value_or(false));
  EXPECT_TRUE(box.sketch);
  EXPECT_EQ(canvas.model.selection(), std::set{box.id});
  EXPECT_EQ(canvas.model.tool(), Tool::Select);

  canvas.model.setTool(Tool::Box, true);
  canvas.drag({200, 80}, {240, 120});
  EXPECT_EQ(canvas.model.tool(), Tool::Box) << "a locked tool stays";
  EXPECT_NE(canvas.annotation(1).sketchSeed, box.sketchSeed);
}

TEST(Drawing, FollowsShiftAndAlt) {
  struct Case {
    Tool tool;
    Modifiers modifiers;
    Point p1;
    Point p2;
  };
  const Case cases[] = {
      {Tool::Box, shift, {100, 100}, {150, 150}},
      {Tool::Blur, shift, {100, 100}, {150, 150}},
      {Tool::Ellipse, alt, {50, 80}, {150, 120}},
      {Tool::Magnifier, {.shift = true, .alt = true}, {50, 50}, {150, 150}},
      {Tool::Line, shift, {100, 100}, {150, 100}},
      {Tool::Arrow, alt, {50, 80}, {150, 120}},
  };
  for (const Case& one : cases) {
    Canvas canvas(documentOf({}));
    canvas.model.setTool(one.tool);
    canvas.drag({100, 100}, {150, 120}, one.modifiers);
    ASSERT_EQ(canvas.count(), 1U);
    EXPECT_TRUE(isNear(canvas.annotation(0).p1, one.p1)) << static_cast<int>(one.tool);
    EXPECT_TRUE(isNear(canvas.annotation(0).p2, one.p2)) << static_cast<int>(one.tool);
  }
}

TEST(Drawing, MeasuresItsThresholdOnTheScreen) {
  Canvas canvas(documentOf({}));
  canvas.model.setTool(Tool::Box, true);
  // At 800 % half a document point is four screen points: a drag. At 25 % four document points are one: a click.
  for (const double unit : {0.125, 4.0}) {
    const double length = unit < 1 ? 0.5 : 4;
    canvas.model.press(Canvas::at(100, 100, {}, unit));
    canvas.model.move(Canvas::at(100 + length, 100 + length, {}, unit));
    canvas.model.release(Canvas::at(100 + length, 100 + length, {}, unit));
  }
  EXPECT_EQ(canvas.count(), 1U);
}

TEST(Drawing, NumbersCountersOnFromTheHighest) {
  Annotation high = annotationOf(Kind::Counter, {20, 20}, {20, 20});
  high.number = 41;
  Canvas canvas(documentOf({high}));
  canvas.model.setTool(Tool::Counter);
  canvas.click(100, 100);
  canvas.drag({200, 100}, {200, 160});
  EXPECT_EQ(canvas.annotation(1).number, 42);
  EXPECT_EQ(canvas.annotation(2).number, 43);
  EXPECT_EQ(canvas.annotation(1).tailAngle, high.tailAngle) << "like the last one";
  EXPECT_NEAR(canvas.annotation(2).tailAngle, pi / 2, 1e-9);
  EXPECT_EQ(canvas.annotation(2).p1, (Point{200, 100}));
  EXPECT_EQ(canvas.model.tool(), Tool::Counter) << "numbers seldom come alone";
  // A press on a badge moves it instead of covering it.
  canvas.drag({100, 100}, {120, 150});
  EXPECT_EQ(canvas.count(), 3U);
  EXPECT_EQ(canvas.annotation(1).p1, (Point{120, 150}));
  canvas.model.duplicateSelection();
  EXPECT_EQ(canvas.annotation(3).number, 44);
}

TEST(Drawing, GathersTheSamplesOfAStroke) {
  Canvas canvas(documentOf({}));
  canvas.model.setTool(Tool::Pen);
  canvas.model.press({{10, 10}, 1, {}, 0.3});
  for (const auto& [x, pressure] : {std::pair{12.0, 0.4}, {12.0, 0.6}, {12.1, 0.2}, {20.0, 0.7}}) {
    canvas.model.move({{x, 10}, 1, {}, pressure});
  }
  canvas.model.release({{20, 10}, 1, {}, 0});
  ASSERT_EQ(canvas.count(), 1U);
  EXPECT_EQ(canvas.annotation(0).penPoints, (std::vector<Point>{{10, 10}, {12, 10}, {20, 10}}));
  EXPECT_EQ(canvas.annotation(0).penPressures, (std::vector{0.3, 0.6, 0.7}));
  EXPECT_EQ(canvas.annotation(0).p2, (Point{20, 10}));
  EXPECT_TRUE(canvas.model.selection().empty());
  EXPECT_EQ(canvas.model.tool(), Tool::Pen);

  // A mouse has no pressure to keep; a click is a dot.
  canvas.click(50, 50);
  EXPECT_EQ(canvas.annotation(1).penPoints, (std::vector<Point>{{50, 50}}));
  EXPECT_FALSE(canvas.annotation(1).penPressures.has_value());
}

TEST(Drawing, DrawsStraightWhileShiftIsHeld) {
  Canvas canvas(documentOf({}));
  canvas.model.setTool(Tool::Pen);
  canvas.model.press(Canvas::at(10, 10));
  canvas.model.move(Canvas::at(20, 30));
  canvas.model.move(Canvas::at(60, 90, shift));
  canvas.model.move(Canvas::at(120, 32, shift));
  canvas.model.move(Canvas::at(130, 60));
  canvas.model.release(Canvas::at(130, 60));
  const auto& points = *canvas.annotation(0).penPoints;
  ASSERT_GT(points.size(), 10U) << "a straight part needs samples in between";
  EXPECT_EQ(points[1], (Point{20, 30}));
  for (std::size_t i = 2; i + 1 < points.size(); ++i) EXPECT_NEAR(points[i].y, 30, 1e-9) << "locked to the level";
  EXPECT_NEAR(points[points.size() - 2].x, 120, 1e-9);
  EXPECT_EQ(points.back(), (Point{130, 60}));
}

TEST(Selecting, TakesTogglesAndSpans) {
  Canvas canvas(
      documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60}), annotationOf(Kind::Blur, {100, 20}, {140, 60}),
                  annotationOf(Kind::Box, {10, 10}, {390, 290})}));
  const auto first = canvas.id(0);
  const auto second = canvas.id(1);
  canvas.click(40, 40);
  EXPECT_EQ(canvas.model.selection(), std::set{first});
  canvas.click(120, 40, shift);
  EXPECT_EQ(canvas.model.selection(), (std::set{first, second}));
  canvas.click(40, 40, shift);
  EXPECT_EQ(canvas.model.selection(), std::set{second});
  // The marquee takes what it meets, not the outline it lies inside of.
  canvas.drag({25, 200}, {110, 25});
  EXPECT_EQ(canvas.model.selection(), (std::set{first, second}));
  canvas.drag({200, 200}, {160, 230}, shift);
  EXPECT_EQ(canvas.model.selection(), (std::set{first, second})) << "Shift adds nothing from an empty place";
  // A click on one of several keeps it alone; on the bare picture ends the selection, and then takes the picture.
  canvas.click(40, 40);
  EXPECT_EQ(canvas.model.selection(), std::set{first});
  canvas.click(200, 200);
  EXPECT_TRUE(canvas.model.selection().empty());
  EXPECT_FALSE(canvas.model.selectedPiece().has_value());
  canvas.click(200, 200);
  EXPECT_EQ(canvas.model.selectedPiece(), canvas.piece().id);
  EXPECT_FALSE(canvas.model.canDelete()) << "the last piece stays";
}

TEST(Selecting, DragsTheSelectedButClicksTheTopmost) {
  const auto document =
      documentOf({annotationOf(Kind::Blur, {0, 0}, {50, 50}), annotationOf(Kind::Blur, {40, 40}, {90, 90})});
  Canvas canvas(document);
  canvas.model.select({canvas.id(0)});
  canvas.drag({42, 42}, {62, 42}, control);
  EXPECT_EQ(canvas.annotation(0).p1.x, 20);
  EXPECT_EQ(canvas.annotation(1).p1.x, 40);
  canvas.click(62, 42);
  EXPECT_EQ(canvas.model.selection(), std::set{canvas.id(1)});
}

TEST(Keys, DrawStretchAndCrop) {
  Canvas canvas(documentOf({}));
  EXPECT_FALSE(canvas.key(KeyInput::Key::Return));
  EXPECT_FALSE(canvas.key(KeyInput::Key::Left)) << "nothing to move: the view may scroll";
  canvas.model.setTool(Tool::Box, true);
  canvas.key(KeyInput::Key::Return);
  EXPECT_EQ(spannedRect(canvas.annotation(0)), (Rect{{140, 110}, {120, 80}}));
  canvas.key(KeyInput::Key::Return);
  EXPECT_NE(canvas.annotation(1).p1, canvas.annotation(0).p1) << "not on top of each other";
  canvas.model.undo();
  canvas.model.select({canvas.id(0)});
  canvas.key(KeyInput::Key::Right, control);
  canvas.key(KeyInput::Key::Up, {.shift = true, .control = true});
  EXPECT_EQ(spannedRect(canvas.annotation(0)), (Rect{{140, 110}, {121, 70}}));
  EXPECT_EQ(canvas.steps(), 2U) << "stretching in a row is one step";
  canvas.model.setTool(Tool::Text);
  canvas.key(KeyInput::Key::Return);
  EXPECT_TRUE(canvas.model.textEdit().has_value());
  canvas.model.escape();
  canvas.model.setTool(Tool::Counter);
  canvas.key(KeyInput::Key::Return);
  const double angle = canvas.annotation(1).tailAngle;
  canvas.key(KeyInput::Key::Right, control);
  EXPECT_NEAR(canvas.annotation(1).tailAngle - angle, pi / 36, 1e-9);

  canvas.model.beginCrop();
  canvas.key(KeyInput::Key::Right, alt);
  canvas.key(KeyInput::Key::Up, {.shift = true, .control = true});
  EXPECT_EQ(canvas.piece().visibleRect, (Rect{{1, 0}, {399, 290}}));
  canvas.key(KeyInput::Key::Down);
  EXPECT_EQ(canvas.piece().visibleRect, (Rect{{1, 1}, {399, 290}}));
}

TEST(Selecting, GoesThroughAllByTabAndLeavesAtTheEnd) {
  Canvas canvas(documentOf({annotationOf(Kind::Box, {0, 0}, {9, 9}), annotationOf(Kind::Box, {0, 0}, {9, 9})}));
  EXPECT_TRUE(canvas.key(KeyInput::Key::Tab));
  EXPECT_EQ(canvas.model.selection(), std::set{canvas.id(0)});
  EXPECT_TRUE(canvas.key(KeyInput::Key::Tab));
  EXPECT_FALSE(canvas.key(KeyInput::Key::Tab)) << "the next control is next";
  EXPECT_TRUE(canvas.model.selection().empty());
  EXPECT_TRUE(canvas.key(KeyInput::Key::Backtab));
  EXPECT_EQ(canvas.model.selection(), std::set{canvas.id(1)});
  EXPECT_FALSE(Canvas(documentOf({})).key(KeyInput::Key::Tab));
}

TEST(Selecting, EscapesInOrder) {
  Annotation text = annotationOf(Kind::Text, {20, 20}, {20, 20});
  text.text = QStringLiteral("word");
  Canvas canvas(documentOf({text}));
  canvas.model.setTool(Tool::Text, true);
  canvas.click(30, 30);
  ASSERT_TRUE(canvas.model.textEdit().has_value());
  EXPECT_TRUE(canvas.model.escape());
  EXPECT_FALSE(canvas.model.textEdit().has_value());
  EXPECT_EQ(canvas.model.selection().size(), 1U);
  EXPECT_TRUE(canvas.model.escape());
  EXPECT_TRUE(canvas.model.selection().empty());
  EXPECT_EQ(canvas.model.tool(), Tool::Text);
  EXPECT_TRUE(canvas.model.escape());
  EXPECT_EQ(canvas.model.tool(), Tool::Select);
  EXPECT_FALSE(canvas.model.escape());
}

TEST(Moving, LinesUpUnlessControlIsHeld) {
  Canvas canvas(
      documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60}), annotationOf(Kind::Blur, {100, 103}, {140, 130})}));
  canvas.model.press(Canvas::at(120, 110));
  canvas.model.move(Canvas::at(43, 111));
  EXPECT_EQ(canvas.annotation(1).p1.x, 20) << "3 points away: snaps to the left edge";
  ASSERT_EQ(canvas.model.guides().size(), 1U);
  EXPECT_EQ(canvas.model.guides()[0], (Guide{{20, 20}, {20, 131}}));
  canvas.model.move(Canvas::at(43, 111, control));
  EXPECT_EQ(canvas.annotation(1).p1.x, 23);
  EXPECT_TRUE(canvas.model.guides().empty());
  canvas.model.move(Canvas::at(150, 115, shift));
  EXPECT_EQ(canvas.annotation(1).p1.y, 103) << "Shift keeps to one axis";
  canvas.model.release(Canvas::at(150, 115, shift));
  EXPECT_TRUE(canvas.model.guides().empty());
}

TEST(Moving, LeavesTheOriginalsWhileAltIsHeld) {
  Canvas canvas(documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60})}));
  const auto original = canvas.id(0);
  canvas.model.press(Canvas::at(40, 40));
  canvas.model.move(Canvas::at(240, 140, {.alt = true, .control = true}));
  EXPECT_EQ(canvas.count(), 2U);
  canvas.model.move(Canvas::at(240, 140, control));
  EXPECT_EQ(canvas.count(), 1U) << "Alt decides at the end, not at the beginning";
  canvas.model.release(Canvas::at(240, 140, {.alt = true, .control = true}));
  ASSERT_EQ(canvas.count(), 2U);
  EXPECT_EQ(canvas.annotation(0).p1, (Point{20, 20}));
  EXPECT_EQ(canvas.annotation(1).p1, (Point{220, 120}));
  EXPECT_FALSE(canvas.model.selection().contains(original));
}

TEST(Moving, TakesAlongAllThatMakesAThing) {
  Annotation arrow = annotationOf(Kind::Arrow, {20, 20}, {60, 60});
  arrow.control = Point{60, 20};
  Annotation lens = annotationOf(Kind::Magnifier, {100, 100}, {160, 160});
  lens.control = Point{300, 200};
  Canvas canvas(documentOf({arrow, lens}));
  canvas.model.select({canvas.id(0)});
  canvas.model.nudge(5, 7);
  EXPECT_EQ(canvas.annotation(0).control, (Point{65, 27}));
  canvas.model.select({canvas.id(1)});
  canvas.model.nudge(5, 7);
  EXPECT_EQ(canvas.annotation(1).control, (Point{300, 200})) << "a lens alone goes on showing the same";
  canvas.model.selectAll();
  canvas.model.nudge(5, 7);
  EXPECT_EQ(canvas.annotation(1).control, (Point{305, 207}));
}

TEST(Resizing, MovesTheEdgesOfItsHandle) {
  struct Case {
    Role role;
    Point to;
    Modifiers modifiers;
    Rect expected;
  };
  const Case cases[] = {
      {Role::BottomRight, {220, 150}, {}, {{100, 100}, {120, 50}}},
      {Role::Left, {80, 500}, {}, {{80, 100}, {100, 40}}},
      {Role::Top, {0, 150}, {}, {{100, 140}, {80, 10}}},                // past the other edge: turned over
      {Role::BottomRight, {260, 110}, shift, {{100, 100}, {160, 80}}},  // the greater way counts
      {Role::Right, {220, 0}, shift, {{100, 90}, {120, 60}}},           // the other way grows about the middle
      {Role::TopLeft, {90, 95}, alt, {{90, 95}, {100, 50}}},            // both edges move
      {Role::BottomRight, {100.5, 300}, {}, {{100, 100}, {4, 200}}},    // never to nothing
  };
  for (const Case& one : cases) {
    Canvas canvas(documentOf({annotationOf(Kind::Box, {180, 140}, {100, 100})}, {pieceOf({1000, 1000})}));
    canvas.model.select({canvas.id(0)});
    Modifiers modifiers = one.modifiers;
    modifiers.control = true;
    canvas.drag(canvas.handle(one.role), one.to, modifiers);
    const Rect result = spannedRect(canvas.annotation(0));
    EXPECT_TRUE(isNear(result.origin, one.expected.origin) &&
                isNear({result.size.width, result.size.height}, {one.expected.size.width, one.expected.size.height}))
        << static_cast<int>(one.role) << ": " << result.minX() << ' ' << result.minY() << ' ' << result.size.width
        << ' ' << result.size.height;
    EXPECT_GT(canvas.annotation(0).p1.x, canvas.annotation(0).p2.x) << "the corners keep their sides";
  }
}

TEST(Resizing, BendsArrowsUnderThePointer) {
  Canvas canvas(documentOf({annotationOf(Kind::Arrow, {100, 100}, {200, 100})}));
  canvas.model.select({canvas.id(0)});
  canvas.drag({150, 100}, {160, 140});
  const Annotation bent = canvas.annotation(0);
  ASSERT_TRUE(bent.control.has_value());
  EXPECT_EQ(*bent.control, (Point{170, 180}));
  EXPECT_TRUE(isNear(canvas.handle(Role::Bend), {160, 140})) << "the curve passes under the pointer";
  // The bend turns and grows with the ends: a quarter turn to twice the length.
  canvas.drag({200, 100}, {100, 300}, control);
  EXPECT_TRUE(isNear(*canvas.annotation(0).control, {-60, 240}));
  canvas.drag(canvas.handle(Role::Bend), {101, 199});
  EXPECT_FALSE(canvas.annotation(0).control.has_value()) << "near the straight line it is straight";
  canvas.drag({100, 300}, {190, 130}, shift);
  EXPECT_TRUE(isNear(canvas.annotation(0).p2, {160, 160}) || isNear(canvas.annotation(0).p2, {190, 100}));
}

TEST(Resizing, ScalesStrokesAndTexts) {
  Annotation pen = annotationOf(Kind::Pen, {110, 110}, {150, 110});
  pen.lineWidth = 2;
  pen.penPoints = std::vector<Point>{{110, 110}, {150, 110}};  // without any height
  Annotation text = annotationOf(Kind::Text, {20, 20}, {20, 20});
  text.text = QStringLiteral("0123456789");
  text.lineWidth = 3;
  Canvas canvas(documentOf({pen, text}));
  canvas.model.select({canvas.id(0)});
  canvas.drag(canvas.handle(Role::BottomRight), {202, 122}, control);
  EXPECT_NEAR(canvas.annotation(0).penPoints->back().x, 194, 3);
  EXPECT_TRUE(std::isfinite(canvas.annotation(0).penPoints->back().y));
  canvas.model.select({canvas.id(1)});
  canvas.drag(canvas.handle(Role::BottomRight), {220, 60}, control);
  EXPECT_NEAR(textFontSize(canvas.annotation(1).lineWidth), 48, 1e-9) << "twice the size";
  canvas.drag(canvas.handle(Role::TextWidth), {80, 30}, control);
  EXPECT_NEAR(canvas.annotation(1).textBoxWidth, 60, 1e-9);
  canvas.model.doubleClick(Canvas::at(80, 30));
  EXPECT_EQ(canvas.annotation(1).textBoxWidth, 0) << "a double click on its edge lets it grow again";
}

TEST(Pointer, SaysWhatItWillDo) {
  Annotation text = annotationOf(Kind::Text, {20, 20}, {20, 20});
  text.text = QStringLiteral("word");
  Canvas canvas(documentOf({text, annotationOf(Kind::Box, {100, 100}, {200, 200})}));
  const auto hint = [&](double x, double y) { return canvas.model.hintAt(Canvas::at(x, y)); };
  EXPECT_EQ(hint(300, 250), PointerHint::Select);
  EXPECT_EQ(hint(100, 150), PointerHint::Move);
  EXPECT_EQ(hint(150, 150), PointerHint::Select) << "the inside of an outline is empty";
  canvas.model.select({canvas.id(1)});
  EXPECT_EQ(hint(100, 100), PointerHint::ResizeDiagonalDown);
  EXPECT_EQ(hint(200, 100), PointerHint::ResizeDiagonalUp);
  EXPECT_EQ(hint(200, 150), PointerHint::ResizeHorizontal);
  canvas.model.setTool(Tool::Text);
  EXPECT_EQ(hint(30, 30), PointerHint::EditText);
  EXPECT_EQ(hint(300, 250), PointerHint::TypeText);
  canvas.model.setTool(Tool::Arrow);
  EXPECT_EQ(hint(30, 30), PointerHint::Draw);
  canvas.model.move(Canvas::at(30, 30));
  EXPECT_FALSE(canvas.model.hovered().has_value()) << "a press would draw";
  canvas.model.setTool(Tool::Select);
  canvas.model.move(Canvas::at(30, 30));
  EXPECT_EQ(canvas.model.hovered(), canvas.id(0));
}

TEST(Changes, AreToldOncePerKindAfterEachCall) {
  Canvas canvas(documentOf({annotationOf(Kind::Blur, {20, 20}, {60, 60})}));
  std::map<CanvasChange, int> heard;
  canvas.model.onChange([&](CanvasChange change) { ++heard[change]; });
  canvas.model.setTool(Tool::Box);
  EXPECT_EQ(heard, (std::map<CanvasChange, int>{{CanvasChange::Tool, 1}, {CanvasChange::Style, 1}}));
  heard.clear();
  canvas.model.press(Canvas::at(100, 100));
  EXPECT_TRUE(heard.empty());
  canvas.model.move(Canvas::at(150, 150));
  EXPECT_EQ(heard[CanvasChange::Document], 1);
  EXPECT_EQ(heard[CanvasChange::Selection], 1);
  heard.clear();
  canvas.model.release(Canvas::at(150, 150));
  EXPECT_EQ(heard[CanvasChange::Tool], 1);
  heard.clear();
  canvas.model.move(Canvas::at(390, 290));
  canvas.model.setColor(canvas.annotation(1).color);
  canvas.model.deleteSelection();
  EXPECT_EQ(heard[CanvasChange::Document], 1);
  canvas.model.onChange({});
  canvas.model.undo();
}

TEST(Styles, ChangeTheSelectionAndWhatIsDrawnNext) {
  Canvas canvas(documentOf({annotationOf(Kind::Box, {20, 20}, {60, 60}), annotationOf(Kind::Line, {100, 20}, {140, 60}),
                            annotationOf(Kind::Blur, {200, 20}, {240, 60})}));
  EXPECT_TRUE(canvas.model.style().kinds.empty());
  canvas.model.selectAll();
  canvas.model.setLineWidth(8);
  EXPECT_EQ(canvas.model.style().lineWidth, 8);
  EXPECT_EQ(canvas.annotation(2).lineWidth, 3) << "a blur has no line";
  EXPECT_EQ(canvas.styles.resolvedStyle(Tool::Box).lineWidth, 8);
  EXPECT_EQ(canvas.styles.resolvedStyle(Tool::Arrow).lineWidth, 3);
  canvas.model.select({canvas.id(0)});
  canvas.model.setColor({0, 1, 0, 1});
  canvas.model.selectAll();
  EXPECT_FALSE(canvas.model.style().color.has_value()) << "they differ";
  EXPECT_EQ(canvas.model.style().blurStyle, BlurStyle::Mosaic);
  EXPECT_FALSE(canvas.model.style().textBackground.has_value());

  canvas.model.setTool(Tool::Blur);
  canvas.model.setBlurStyle(BlurStyle::Erase);
  canvas.model.setBlurStrength(7);
  EXPECT_EQ(canvas.model.style().blurStrength, 1);
  EXPECT_EQ(canvas.model.style().kinds, std::set{Kind::Blur});
  EXPECT_EQ(canvas.annotation(2).blurStyle, BlurStyle::Mosaic) << "another tool's style leaves what is not selected";
  canvas.drag({300, 200}, {350, 250});
  EXPECT_EQ(canvas.annotation(3).blurStyle, BlurStyle::Erase);
  canvas.model.setLineWidth(std::nan(""));
  canvas.model.setColor({2, 0, 0, 1});
  EXPECT_EQ(canvas.steps(), 3U);
}

TEST(Arranging, AlignsDistributesAndStacks) {
  const auto boxes = [] {
    return documentOf({annotationOf(Kind::Box, {0, 0}, {10, 10}), annotationOf(Kind::Box, {100, 50}, {140, 70}),
                       annotationOf(Kind::Box, {200, 100}, {230, 130})});
  };
  const auto rect = [](const Canvas& canvas, std::size_t i) { return spannedRect(canvas.annotation(i)); };
  Canvas canvas(boxes());
  canvas.model.selectAll();
  canvas.model.align(Alignment::Right);
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(rect(canvas, i).maxX(), 230);
  canvas.model.undo();
  canvas.model.distribute(Distribution::Horizontal);
  EXPECT_EQ(rect(canvas, 0).minX(), 0);
  EXPECT_EQ(rect(canvas, 1).minX(), 85) << "gaps of 75 on either side";
  EXPECT_EQ(rect(canvas, 2).minX(), 200);
  canvas.model.select({canvas.id(0)});
  canvas.model.align(Alignment::CenterX);
  EXPECT_EQ(rect(canvas, 0).minX(), 195) << "one alone lines up with the picture";

  const AnnotationId bottom = canvas.id(0);
  canvas.model.bringForward();
  EXPECT_EQ(canvas.id(1), bottom);
  canvas.model.bringToFront();
  EXPECT_EQ(canvas.id(2), bottom);
  canvas.model.sendBackward();
  EXPECT_EQ(canvas.id(1), bottom);
  const AnnotationId middleOne = canvas.id(0);
  canvas.model.select({bottom, middleOne});
  canvas.model.bringForward();
  EXPECT_EQ(canvas.id(1), middleOne) << "several keep their order";
  EXPECT_EQ(canvas.id(2), bottom);
}

}  // namespace
}  // namespace vellora
