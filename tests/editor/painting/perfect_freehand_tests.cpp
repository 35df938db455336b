#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include <QPainterPath>

#include "editor/painting/InkPath.h"
#include "editor/painting/InkRibbon.h"
#include "editor/painting/PerfectFreehand.h"
#include "editor/painting/Vector.h"

namespace vellora {
namespace {

using Options = PerfectFreehand::Options;

std::vector<Point> wave(std::size_t count) {
  std::vector<Point> points;
  for (std::size_t i = 0; i < count; ++i) {
    const double t = static_cast<double>(i);
    points.push_back({t * 2, 60 + 50 * std::sin(t / 15)});
  }
  return points;
}

TEST(PerfectFreehand, FewSamplesBecomeAStroke) {
  const Point one[] = {{10, 20}};
  const auto single = PerfectFreehand::strokePoints(one, {}, {.last = true});
  ASSERT_EQ(single.size(), 2u);
  EXPECT_EQ(single[1].point, (Point{11, 21}));
  EXPECT_EQ(single[0].vector, single[1].vector);

  const Point two[] = {{0, 0}, {100, 0}};
  const double hard[] = {0.9, 0.9};
  const auto pair = PerfectFreehand::strokePoints(two, hard, {.size = 2, .streamline = 1, .last = true});
  ASSERT_EQ(pair.size(), 5u);
  EXPECT_DOUBLE_EQ(pair[0].pressure, 0.9);
  EXPECT_DOUBLE_EQ(pair[1].point.x, 25 * 0.15);  // follows the samples by 0.15 at most streamline
  EXPECT_DOUBLE_EQ(pair[1].pressure, 0.5);
  EXPECT_EQ(pair[4].point, (Point{100, 0}));
  EXPECT_NEAR(pair[4].runningLength, 100, 1e-9);

  EXPECT_TRUE(PerfectFreehand::strokePoints({}, {}, {}).empty());
}

TEST(PerfectFreehand, TheNoisyStartIsLeftOutAndNegativePressureReplaced) {
  std::vector<Point> points;
  for (int i = 0; i < 30; ++i) points.push_back({i * 1.0, 0});
  const std::vector<double> pressures(points.size(), -1);
  const auto stroke = PerfectFreehand::strokePoints(points, pressures, {.size = 10, .streamline = 0, .last = true});
  EXPECT_DOUBLE_EQ(stroke[0].pressure, 0.25);
  EXPECT_DOUBLE_EQ(stroke[1].pressure, 0.5);
  EXPECT_GE(stroke[1].runningLength, 10);
  EXPECT_LT(stroke.size(), points.size());
}

TEST(PerfectFreehand, WidthFollowsPressure) {
  std::vector<Point> points;
  for (int i = 0; i < 50; ++i) points.push_back({i * 10.0, 0});
  const auto height = [&](double pressure) {
    const Options options{.size = 20, .thinning = 0.6, .simulatePressure = false, .last = true};
    const std::vector<double> pressures(points.size(), pressure);
    double most = 0;
    for (const Point& point :
         PerfectFreehand::strokeOutlinePoints(PerfectFreehand::strokePoints(points, pressures, options), options)) {
      most = std::max(most, std::abs(point.y));
    }
    return most;
  };
  EXPECT_NEAR(height(0.5), 10, 0.01);
  EXPECT_NEAR(height(1), 20 * (0.5 + 0.6 * 0.5), 0.01);
  EXPECT_NEAR(height(0.1), 20 * (0.5 - 0.6 * 0.4), 0.01);
}

TEST(PerfectFreehand, CapsHaveTheirSegments) {
  const Point two[] = {{0, 0}, {100, 0}};
  Options options{.size = 10, .thinning = 0, .streamline = 0, .simulatePressure = false, .last = true};
  const auto stroke = PerfectFreehand::strokePoints(two, {}, options);
  const auto round = PerfectFreehand::strokeOutlinePoints(stroke, options);
  options.capStart = options.capEnd = false;
  const auto flat = PerfectFreehand::strokeOutlinePoints(stroke, options);
  EXPECT_EQ(round.size() - flat.size(), 13u + 28u - 4u - 4u);
  options.taperStart = options.taperEnd = 20;
  const auto tapered = PerfectFreehand::strokeOutlinePoints(stroke, options);
  EXPECT_EQ(flat.size() - tapered.size(), 4u + 3u);

  EXPECT_EQ(PerfectFreehand::drawDot({5, 5}, 3).size(), 13u);
  for (const Point& point : PerfectFreehand::drawDot({5, 5}, 3)) {
    EXPECT_NEAR(vec::distance(point, {5, 5}), 3, 1e-9);
  }
}

TEST(PerfectFreehand, ATurnBackIsRoundOnBothSides) {
  std::vector<Point> points;
  for (int i = 0; i <= 20; ++i) points.push_back({i * 10.0, 0});
  for (int i = 19; i >= 0; --i) points.push_back({i * 10.0, 1});
  const Options options{.size = 16, .thinning = 0, .streamline = 0, .last = true};
  double right = 0;
  for (const Point& point :
       PerfectFreehand::strokeOutlinePoints(PerfectFreehand::strokePoints(points, {}, options), options)) {
    right = std::max(right, point.x);
  }
  EXPECT_NEAR(right, 208, 0.2);
}

TEST(InkRibbon, IsAsWideAsAsked) {
  std::vector<Point> points;
  std::vector<double> halfWidths;
  for (int i = 0; i <= 40; ++i) {
    points.push_back({i * 10.0, 0});
    halfWidths.push_back(i <= 20 ? 4 : 8);
  }
  std::vector<std::vector<Point>> ink;
  fillInkRibbon(ink, points, halfWidths, true, true);
  ASSERT_EQ(ink.size(), 1u);
  for (const Point& point : ink[0]) {
    if (point.x > 20 && point.x < 180) {
      EXPECT_NEAR(std::abs(point.y), 4, 1e-9);
    }
    if (point.x > 230 && point.x < 380) {
      EXPECT_NEAR(std::abs(point.y), 8, 1e-9);
    }
  }
  fillInkRibbon(ink, std::vector<Point>{{1, 1}}, std::vector<double>{3}, true, true);
  fillInkRibbon(ink, std::vector<Point>{{1, 1}, {9, 9}}, std::vector<double>{0, -2}, true, true);
  EXPECT_EQ(ink.size(), 1u);
}

TEST(SmoothClosedPath, RunsThroughTheMiddlesOfEdges) {
  const Point square[] = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const QPainterPath path = smoothClosedPath(square);
  ASSERT_EQ(path.elementCount(), 1 + 4 * 3);
  EXPECT_EQ(QPointF(path.elementAt(0)), QPointF(5, 0));
  EXPECT_EQ(QPointF(path.elementAt(3)), QPointF(10, 5));
  EXPECT_NEAR(path.elementAt(1).x, 5 + 5 * 2 / 3.0, 1e-9);

  const Point two[] = {{8, 4}, {2, 4}};
  EXPECT_EQ(smoothClosedPath(two).boundingRect(), QRectF(1.5, 3.5, 7, 1));
  EXPECT_EQ(smoothClosedPath({two, 1}).boundingRect(), QRectF(7.5, 3.5, 1, 1));
  EXPECT_TRUE(smoothClosedPath({}).isEmpty());
}

TEST(InkPath, PiecesFillWhatTheOutlineDoes) {
  const Options options{.size = 14, .last = true};
  const std::vector<Point> outline =
      PerfectFreehand::strokeOutlinePoints(PerfectFreehand::strokePoints(wave(400), {}, options), options);
  const QPainterPath uncut = smoothClosedPath(outline);
  const InkPath ink = InkPath::of({&outline, 1});
  EXPECT_GT(ink.whole().toSubpathPolygons().size(), 10);
  EXPECT_TRUE(ink.bounds().contains(uncut.boundingRect()));

  const QRectF clip(200, 20, 90, 70);
  const QPainterPath part = ink.within(clip);
  EXPECT_LT(part.elementCount(), ink.whole().elementCount() / 2);
  for (double x = 0.5; x < 800; x += 7) {
    for (double y = 0.5; y < 120; y += 5) {
      EXPECT_EQ(ink.whole().contains({x, y}), uncut.contains({x, y})) << x << " " << y;
      if (clip.contains(x, y)) {
        EXPECT_EQ(part.contains({x, y}), uncut.contains({x, y})) << x << " " << y;
      }
    }
  }
}

}  // namespace
}  // namespace vellora
