#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "editor/painting/Contrast.h"
#include "editor/painting/ShapeGeometry.h"
#include "editor/painting/SketchStrokes.h"
#include "editor/painting/Vector.h"

namespace vellora {
namespace {

TEST(ArrowGeometry, GrowsWithItsLength) {
  const ArrowGeometry none = arrowGeometry({50, 50}, {50, 50}, std::nullopt, 4);
  EXPECT_DOUBLE_EQ(none.shaftWidth, 2);
  EXPECT_DOUBLE_EQ(none.headLength, 26 * 0.35);
  EXPECT_DOUBLE_EQ(arrowGeometry({0, 0}, {0, 0}, std::nullopt, 0.1).headLength, 6);

  const ArrowGeometry full = arrowGeometry({0, 0}, {300, 0}, std::nullopt, 4);
  EXPECT_DOUBLE_EQ(full.shaftWidth, 4);
  EXPECT_DOUBLE_EQ(full.headOutline, 4);
  EXPECT_DOUBLE_EQ(full.headLength, 26);
  EXPECT_NEAR(full.headTip.x, 298, 1e-9);
  EXPECT_NEAR(full.barb1.x, 298 - 24 * std::cos(std::numbers::pi / 7), 1e-9);
  EXPECT_NEAR(full.barb1.y, -full.barb2.y, 1e-9);
  EXPECT_NEAR(full.shaftEnd.x, 300 - 26 * 0.8, 1e-9);
  EXPECT_DOUBLE_EQ(arrowLengthFactor({0, 0}, {110, 0}), 0.5);
}

TEST(ArrowGeometry, ABentArrowArrivesFromItsControl) {
  const ArrowGeometry arrow = arrowGeometry({0, 0}, {200, 0}, Point{200, -150}, 3);
  EXPECT_NEAR(arrow.direction, std::numbers::pi / 2, 1e-9);
  EXPECT_NEAR(arrow.shaftControl1.x, 200 * 2 / 3.0, 1e-9);
  EXPECT_NEAR(arrow.shaftControl1.y, -100, 1e-9);
}

TEST(CounterGeometry, TheTailTouchesTheCircle) {
  for (const double width : {0.0, 3.0, 20.0}) {
    const CounterGeometry badge = counterGeometry({100, 100}, width, 0.7);
    EXPECT_DOUBLE_EQ(badge.radius, 1.5 * width + 11);
    EXPECT_NEAR(vec::distance(badge.tailTip, {100, 100}), 1.5 * badge.radius, 1e-9);
    const Point side = vec::sub(badge.tailTip, badge.tailStart);
    EXPECT_NEAR(vec::dot(side, vec::sub(badge.tailStart, {100, 100})), 0, 1e-6);
  }
}

/// The distance of a place from the outline of a plain shape.
double fromPlain(Annotation::Kind kind, const Measures& shape, Point place) {
  if (kind == Annotation::Kind::Arrow) {
    const Point along = vec::sub(shape.p2, shape.p1);
    const double part = std::clamp(vec::dot(vec::sub(place, shape.p1), along) / vec::dot(along, along), 0.0, 1.0);
    return vec::distance(place, vec::mix(shape.p1, shape.p2, part));
  }
  const Rect rect = shape.rect();
  if (kind == Annotation::Kind::Box) {
    const double inside =
        std::min({place.x - rect.minX(), rect.maxX() - place.x, place.y - rect.minY(), rect.maxY() - place.y});
    return std::abs(inside);
  }
  const Point radius{rect.size.width / 2, rect.size.height / 2};
  const Point from = vec::sub(place, {rect.minX() + radius.x, rect.minY() + radius.y});
  const double scale = std::sqrt(from.x * from.x / (radius.x * radius.x) + from.y * from.y / (radius.y * radius.y));
  return std::abs(scale - 1) * std::min(radius.x, radius.y);
}

TEST(Sketch, KeepsNearThePlainShape) {
  using Kind = Annotation::Kind;
  for (const double width : {1.0, 3.0, 8.0, 20.0}) {
    for (std::uint64_t seed = 0; seed < 60; ++seed) {
      Measures shape{.p1 = {40, 30}, .p2 = {40 + 900.0 / static_cast<double>(seed % 4 + 1), 300}, .lineWidth = width};
      const std::pair<Kind, Sketch> sketches[] = {{Kind::Arrow, sketchArrow(shape, seed)},
                                                  {Kind::Box, sketchBox(shape, seed)},
                                                  {Kind::Ellipse, sketchEllipse(shape, seed)}};
      for (const auto& [kind, sketch] : sketches) {
        for (std::size_t s = 0; s < sketch.strokes.size(); ++s) {
          if (kind == Kind::Arrow && s > 0) continue;  // flicks of the head reach as far as the plain head's barbs
          const InkStroke& stroke = sketch.strokes[s];
          for (std::size_t i = 0; i < stroke.points.size(); ++i) {
            EXPECT_LT(fromPlain(kind, shape, stroke.points[i]), 3 * width + 4) << static_cast<int>(kind) << seed;
            EXPECT_GT(stroke.halfWidths[i], 0);
            EXPECT_LT(stroke.halfWidths[i], 0.65 * std::max(width, 1.0));
          }
        }
      }
    }
  }
}

TEST(Sketch, TheSameSeedGivesTheSameShapeAndAnotherAnother) {
  const Measures shape{.p1 = {40, 30}, .p2 = {340, 200}, .lineWidth = 3};
  for (const auto draw : {sketchArrow, sketchBox, sketchEllipse}) {
    EXPECT_EQ(draw(shape, 7).strokes[0].points, draw(shape, 7).strokes[0].points);
    EXPECT_NE(draw(shape, 7).strokes[0].points, draw(shape, 8).strokes[0].points);
  }
}

TEST(Contrast, PicksWhatTheEyeReadsBest) {
  EXPECT_EQ(readableOn({1, 1, 1, 1}), (ColorComponents{0, 0, 0, 1}));
  EXPECT_EQ(readableOn({0, 0, 0, 1}), (ColorComponents{1, 1, 1, 1}));
  EXPECT_EQ(readableOn({1, 0.773, 0.239, 1}), (ColorComponents{0, 0, 0, 1}));  // yellow
  EXPECT_EQ(readableOn({0.898, 0.282, 0.302, 1}), (ColorComponents{1, 1, 1, 1}));
}

}  // namespace
}  // namespace vellora
