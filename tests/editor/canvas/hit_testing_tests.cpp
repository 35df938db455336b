#include "CanvasFixture.h"
#include "editor/canvas/HitTesting.h"

namespace vellora {
namespace {

using namespace test;
using Kind = Annotation::Kind;

class HitTesting : public testing::Test {
 protected:
  bool hits(const Annotation& annotation, Point place, double tolerance = 6) {
    return vellora::hits(annotation, outlines.of(makeAnnotation(annotation)), place, tolerance);
  }
  bool touches(const Annotation& annotation, const Rect& marquee) {
    return vellora::touches(annotation, outlines.of(makeAnnotation(annotation)), marquee);
  }
  FakeTextMeasurer measurer;
  AnnotationOutlines outlines{measurer};
};

TEST_F(HitTesting, TakesLinesWithinTheToleranceBesideTheirWidth) {
  Annotation line = annotationOf(Kind::Line, {0, 100}, {200, 100});
  line.lineWidth = 10;
  EXPECT_TRUE(hits(line, {100, 110.9}));
  EXPECT_FALSE(hits(line, {100, 111.1}));
  EXPECT_FALSE(hits(line, {100, 106}, 0.5)) << "close up the tolerance covers less of the document";
  EXPECT_TRUE(hits(line, {-10, 100}));
  EXPECT_FALSE(hits(line, {-12, 100}));
}

TEST_F(HitTesting, TakesArrowsByCurveAndHead) {
  Annotation arrow = annotationOf(Kind::Arrow, {0, 0}, {200, 0});
  EXPECT_TRUE(hits(arrow, {184, 10})) << "inside the head";
  EXPECT_FALSE(hits(arrow, {100, 10}));
  arrow.control = Point{100, 100};
  EXPECT_TRUE(hits(arrow, {100, 50}));
  EXPECT_FALSE(hits(arrow, {100, 0})) << "the chord is not the curve";
}

TEST_F(HitTesting, TakesShapesByTheirOutlineUnlessFilled) {
  for (const Kind kind : {Kind::Box, Kind::Ellipse}) {
    Annotation shape = annotationOf(kind, {300, 200}, {100, 100});
    EXPECT_TRUE(hits(shape, {105, 150}));
    EXPECT_TRUE(hits(shape, {200, 205}));
    EXPECT_FALSE(hits(shape, {200, 150}));
    EXPECT_EQ(hits(shape, {103, 103}), kind == Kind::Box) << "an ellipse has no corners";
    shape.shapeFill = true;
    EXPECT_TRUE(hits(shape, {200, 150}));
    shape.shapeFill.reset();
    shape.p1 = {100, 100};
    EXPECT_TRUE(hits(shape, {100, 100})) << "one without an extent can still be taken";
  }
}

TEST_F(HitTesting, TakesTheRestByArea) {
  Annotation text = annotationOf(Kind::Text, {100, 100}, {100, 100});
  text.text = QStringLiteral("four\nfi");
  EXPECT_TRUE(hits(text, {139, 139}));
  EXPECT_FALSE(hits(text, {150, 110}));
  Annotation counter = annotationOf(Kind::Counter, {100, 100}, {100, 100});
  counter.lineWidth = 6;  // a radius of 20, a tail to 30
  EXPECT_TRUE(hits(counter, {100, 119}));
  EXPECT_TRUE(hits(counter, {129, 100}));
  EXPECT_FALSE(hits(counter, {71, 100}));
  Annotation lens = annotationOf(Kind::Magnifier, {100, 100}, {200, 200});
  EXPECT_TRUE(hits(lens, {150, 150}));
  EXPECT_FALSE(hits(lens, {104, 104}));
  lens.magnifierShape = MagnifierShape::RoundedRect;
  EXPECT_TRUE(hits(lens, {104, 104}));
  EXPECT_TRUE(hits(annotationOf(Kind::Blur, {100, 100}, {200, 200}), {150, 150}));
  Annotation pen = annotationOf(Kind::Pen, {0, 0}, {100, 100});
  pen.penPoints = std::vector<Point>{{0, 0}, {100, 0}, {100, 100}};
  EXPECT_TRUE(hits(pen, {50, 8}));
  EXPECT_FALSE(hits(pen, {50, 50}));
  pen.penPoints.reset();
  EXPECT_FALSE(hits(pen, {0, 0}));
}

TEST_F(HitTesting, PrefersTheSelectedAndThenTheTopmost) {
  const ImageDocument document =
      documentOf({annotationOf(Kind::Blur, {0, 0}, {50, 50}), annotationOf(Kind::Blur, {0, 0}, {50, 50}),
                  annotationOf(Kind::Blur, {40, 40}, {90, 90})});
  const auto id = [&](std::size_t i) { return document.annotations[i]->id; };
  EXPECT_EQ(annotationAt(document, outlines, {10, 10}, 6), id(1));
  EXPECT_EQ(annotationAt(document, outlines, {10, 10}, 6, {id(0)}), id(0));
  EXPECT_EQ(annotationAt(document, outlines, {80, 80}, 6, {id(0)}), id(2));
  EXPECT_FALSE(annotationAt(document, outlines, {200, 200}, 6).has_value());

  const ImageDocument covered =
      documentOf({annotationOf(Kind::Blur, {0, 0}, {200, 200}), annotationOf(Kind::Counter, {100, 100}, {100, 100})});
  EXPECT_EQ(annotationAt(covered, outlines, {100, 100}, 6, {covered.annotations[0]->id}), covered.annotations[1]->id)
      << "what lies on a selected area can be taken";
}

TEST_F(HitTesting, MarqueesTakeWhatTheyMeet) {
  const Rect marquee{{100, 100}, {50, 50}};
  EXPECT_TRUE(touches(annotationOf(Kind::Line, {0, 125}, {300, 125}), marquee)) << "through, with both ends outside";
  EXPECT_FALSE(touches(annotationOf(Kind::Line, {0, 80}, {80, 300}), marquee)) << "around the corner";
  EXPECT_TRUE(touches(annotationOf(Kind::Line, {110, 110}, {120, 120}), marquee));
  for (const Kind kind : {Kind::Box, Kind::Ellipse}) {
    Annotation around = annotationOf(kind, {0, 0}, {250, 250});
    EXPECT_FALSE(touches(around, marquee));
    around.shapeFill = true;
    EXPECT_TRUE(touches(around, marquee));
    EXPECT_TRUE(touches(annotationOf(kind, {90, 110}, {130, 140}), marquee));
  }
  EXPECT_FALSE(touches(annotationOf(Kind::Ellipse, {140, 140}, {340, 340}), marquee)) << "only its empty corner";
}

}  // namespace
}  // namespace vellora
