#include "editor/PinGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "editor/PinSnapping.h"

namespace vellora {
namespace {

using PinGeometry::ChromeTier;

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TEST(PinGeometryTest, APictureStaysLargeEnoughToSeeAndNeverGrowsForIt) {
  EXPECT_DOUBLE_EQ(PinGeometry::minimumScale({800, 400}), 46.0 / 400);
  EXPECT_DOUBLE_EQ(PinGeometry::minimumScale({100, 90}), 0.8);
  EXPECT_DOUBLE_EQ(PinGeometry::minimumScale({90, 100}), 0.8);
  EXPECT_DOUBLE_EQ(PinGeometry::minimumScale({20, 10}), 1);
}

TEST(PinGeometryTest, ANewPinFitsWhereItIsPutButIsNotTooSmall) {
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({4000, 3000}, 1, {1440, 900}), 0.3);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({400, 300}, 1, {1440, 900}), 1);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({400, 300}, 2, {1440, 900}), 2);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({100, 100}, 9, {1440, 900}), 5);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({800, 400}, 0.01, {1440, 900}), 46.0 / 400);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({0, 300}, 0.5, {1440, 900}), 1);
  EXPECT_DOUBLE_EQ(PinGeometry::initialScale({400, -1}, 0.5, {1440, 900}), 1);
}

TEST(PinGeometryTest, ScalesSnapNearTheRoundOnes) {
  for (const double kept : {0.47, 0.53, 0.95, 1.05, 1.91, 2.09, 3.0}) EXPECT_EQ(PinGeometry::snapped(kept), kept);
  for (const double half : {0.48, 0.49, 0.52}) EXPECT_EQ(PinGeometry::snapped(half), 0.5);
  for (const double whole : {0.96, 0.97, 1.04}) EXPECT_EQ(PinGeometry::snapped(whole), 1);
  for (const double twice : {1.92, 2.05, 2.08}) EXPECT_EQ(PinGeometry::snapped(twice), 2);
}

TEST(PinGeometryTest, PullingFollowsTheSideThatMovedMore) {
  const Size image{400, 200};
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({600, 200}, image, 1), 1.5);
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({400, 140}, image, 1), 0.7);
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({500, 160}, image, 1), 1.25) << "0.25 of width against 0.2 of height";
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({500, 150}, image, 1), 1.25) << "equally far: the width";
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({388, 200}, image, 1.2), 1) << "0.97 snaps";
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({9000, 200}, image, 1), 5);
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({-50, 200}, image, 1), 0.23);
  EXPECT_DOUBLE_EQ(PinGeometry::resolveScale({10, 10}, {0, 10}, 1.3), 1.3);
}

TEST(PinGeometryTest, ScalingKeepsTheCentreAndStaysInside) {
  const Size image{201, 101};
  const Rect visible{{0, 30}, {1000, 700}};
  const auto bounds = PinGeometry::scaleBounds(image);
  const auto grown = PinGeometry::setScale(1.5, bounds, image, {{400, 300}, {201, 101}}, visible);
  EXPECT_EQ(grown.scale, 1.5);
  EXPECT_EQ(grown.frame, (Rect{{349.5, 274.5}, {302, 152}}));
  EXPECT_EQ(PinGeometry::setScale(3, bounds, image, {{0, 30}, {201, 101}}, visible).frame.origin, (Point{0, 30}));
  const Rect low = PinGeometry::setScale(2, bounds, image, {{799, 629}, {201, 101}}, visible).frame;
  EXPECT_EQ((Point{low.maxX(), low.maxY()}), (Point{1000, 730}));
  EXPECT_EQ(PinGeometry::setScale(40, bounds, image, {{0, 0}, {201, 101}}, visible).scale, 5);
  EXPECT_EQ(PinGeometry::setScale(0, bounds, image, {{0, 0}, {201, 101}}, visible).scale, 46.0 / 101);
  EXPECT_EQ(PinGeometry::setScale(5, bounds, image, {{500, 300}, {201, 101}}, visible).frame.origin.x, 0)
      << "wider than the screen: its left edge is what stays in view";
}

TEST(PinGeometryTest, APinchEndsWhereTheScreenIsFull) {
  const auto wide = PinGeometry::pinchBounds({400, 100}, {1600, 900});
  EXPECT_DOUBLE_EQ(wide.upper, 4);
  EXPECT_DOUBLE_EQ(wide.lower, 0.46);
  const auto panorama = PinGeometry::pinchBounds({20000, 100}, {1600, 900});
  EXPECT_DOUBLE_EQ(panorama.upper, 0.08);
  EXPECT_DOUBLE_EQ(panorama.lower, 0.08) << "the minimum would not fit the screen";
}

TEST(PinGeometryTest, ControlsFollowTheWidth) {
  struct Case {
    double width;
    ChromeTier tier;
  };
  for (const Case& entry :
       {Case{174, ChromeTier::Full}, Case{173, ChromeTier::NoReadout}, Case{170, ChromeTier::NoReadout},
        Case{131, ChromeTier::NoReadout}, Case{130, ChromeTier::CopyEdit}, Case{104, ChromeTier::CopyEdit},
        Case{103, ChromeTier::CopyOnly}, Case{77, ChromeTier::CopyOnly}, Case{76, ChromeTier::CloseOnly},
        Case{0, ChromeTier::CloseOnly}, Case{-5, ChromeTier::CloseOnly}, Case{nan, ChromeTier::CloseOnly}}) {
    EXPECT_EQ(PinGeometry::chromeTier(entry.width), entry.tier) << entry.width;
  }
}

TEST(PinGeometryTest, NoNumberBreaksIt) {
  const double odd[] = {0, -1, 1e-300, 1e300, infinity, -infinity, nan, 65535};
  const Rect visible{{0, 0}, {1920, 1200}};
  for (const double width : odd) {
    for (const double height : odd) {
      const Size image{width, height};
      EXPECT_LE(PinGeometry::minimumScale(image), 1);
      const auto bounds = PinGeometry::scaleBounds(image);
      EXPECT_LE(bounds.lower, bounds.upper);
      const auto pinch = PinGeometry::pinchBounds(image, {1920, 1200});
      EXPECT_LE(pinch.lower, pinch.upper);
      for (const double value : odd) {
        EXPECT_GT(PinGeometry::initialScale(image, value, {value, 900}), 0);
        EXPECT_FALSE(std::isnan(PinGeometry::resolveScale({value, value}, image, 1)));
        EXPECT_FALSE(std::isnan(PinGeometry::setScale(value, bounds, image, visible, visible).scale));
      }
    }
  }
}

TEST(PinSnappingTest, EdgesMeetWhatIsNear) {
  const Rect screens[] = {{{0, 24}, {1920, 1056}}};
  const Rect pins[] = {{{500, 300}, {200, 100}}};
  const auto at = [&](double x, double y) { return snappedToEdges({{x, y}, {100, 50}}, screens, pins).origin; };
  EXPECT_EQ(at(6, 200), (Point{0, 200})) << "the screen's edge";
  EXPECT_EQ(at(1826, 1036), (Point{1820, 1030})) << "its corner";
  EXPECT_EQ(at(-8, 17), (Point{0, 24})) << "also from outside";
  EXPECT_EQ(at(9, 200), (Point{9, 200})) << "too far";
  EXPECT_EQ(at(705, 330), (Point{700, 330})) << "beside a pin";
  EXPECT_EQ(at(397, 298), (Point{400, 300})) << "beside it, its top in line";
  EXPECT_EQ(at(596, 245), (Point{600, 250})) << "above it, its right edge in line";
  EXPECT_EQ(at(705, 600), (Point{705, 600})) << "a pin that is not beside it";
}

}  // namespace
}  // namespace vellora
