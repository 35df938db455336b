#include "capture/OverlayLayout.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "support/PrintGeometry.h"

namespace vellora {
namespace {

const PixelRect screen{1000, 0, 1920, 1080};

bool meets(const PixelRect& a, const PixelRect& b) {
  return !a.intersected(b).isEmpty();
}
bool within(const PixelRect& inner, const PixelRect& outer) {
  return inner.intersected(outer) == inner;
}

DisplayInfo onScreen(double scale = 1) {
  DisplayInfo display;
  display.id = 1;
  display.frame = screen;
  display.scale = scale;
  return display;
}

TEST(OverlayLayout, BadgeStandsOutsideWhereverThereIsRoomAndNeverOnACorner) {
  const PixelSize size{120, 24};
  const int gap = 8;
  EXPECT_EQ(badgePlace({1500, 500, 300, 200}, size, screen, gap, false), (PixelRect{1500, 468, 120, 24}));
  EXPECT_EQ(badgePlace({1500, 500, 300, 200}, size, screen, gap, true), (PixelRect{1500, 708, 120, 24}));
  EXPECT_EQ(badgePlace({1500, 10, 300, 200}, size, screen, gap, false), (PixelRect{1500, 218, 120, 24}));
  EXPECT_EQ(badgePlace({1500, 0, 300, 1080}, size, screen, gap, false), (PixelRect{1808, 8, 120, 24}));
  EXPECT_EQ(badgePlace(screen, size, screen, gap, false), (PixelRect{1900, 8, 120, 24}));

  std::mt19937 random(7);
  const auto number = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  for (int i = 0; i < 2000; ++i) {
    const int x = number(screen.x, screen.right() - 1);
    const int y = number(screen.y, screen.bottom() - 1);
    const PixelRect rect{x, y, number(1, screen.right() - x), number(1, screen.bottom() - y)};
    const PixelRect badge = badgePlace(rect, size, screen, gap, i % 2 == 0);
    ASSERT_TRUE(within(badge, screen)) << i;
    for (const PixelPoint corner :
         {PixelPoint{rect.x, rect.y}, PixelPoint{rect.right() - 1, rect.y}, PixelPoint{rect.x, rect.bottom() - 1},
          PixelPoint{rect.right() - 1, rect.bottom() - 1}}) {
      ASSERT_FALSE(badge.contains(corner)) << rect.x << "," << rect.y << " " << rect.width << "x" << rect.height;
    }
  }
}

TEST(OverlayLayout, LoupeLeavesItsPixelTheBadgeAndTheDragFree) {
  const PixelSize size{124, 152};
  const PixelPoint anchor{1500, 500};
  EXPECT_EQ(loupePlace({1600, 600}, size, screen, 20, anchor, {}), (PixelRect{1620, 620, 124, 152}));
  EXPECT_EQ(loupePlace({1400, 400}, size, screen, 20, anchor, {}), (PixelRect{1256, 228, 124, 152}));
  EXPECT_EQ(loupePlace({1400, 400}, size, screen, 20, anchor, PixelRect{1300, 300, 120, 24}),
            (PixelRect{1420, 228, 124, 152}));
  std::mt19937 random(11);
  for (int i = 0; i < 2000; ++i) {
    const PixelPoint pixel{std::uniform_int_distribution<int>(screen.x, screen.right() - 1)(random),
                           std::uniform_int_distribution<int>(screen.y, screen.bottom() - 1)(random)};
    const PixelRect loupe = loupePlace(pixel, size, screen, 20, anchor, {});
    ASSERT_TRUE(within(loupe, screen)) << i;
    ASSERT_FALSE(loupe.contains(pixel)) << pixel.x << "," << pixel.y;
  }
}

TEST(OverlayLayout, ScalesWithTheDisplayAndKeepsToIt) {
  OverlayScene scene;
  scene.display = 1;
  scene.clear = PixelRect{1200, 200, 400, 300};
  scene.frame = OverlayFrame::Adjusting;
  scene.loupe = PixelPoint{1200, 200};
  const OverlayParts one = layOut(scene, onScreen(1), {});
  const OverlayParts two = layOut(scene, onScreen(2), {});
  EXPECT_EQ(one.frameWidth * 2, two.frameWidth);
  EXPECT_EQ(one.handles.front().width * 2, two.handles.front().width);
  EXPECT_NEAR(one.loupe->width * 2, two.loupe->width, 8);
  EXPECT_EQ(one.handles.size(), 8u);
  // A window that reaches over to another display is clear there too; the rest stays where the person works.
  scene.display = 2;
  const OverlayParts other = layOut(scene, onScreen(1), {});
  EXPECT_EQ(other.clear, *scene.clear);
  EXPECT_FALSE(other.loupe);
  EXPECT_TRUE(other.handles.empty());
}

/// Paints two states onto a grid of part numbers and holds what changed against what was announced.
TEST(OverlayLayout, AnnouncesEveryPixelThatChangesAndLittleElse) {
  DisplayInfo small;
  small.id = 1;
  small.frame = {0, 0, 160, 120};
  const auto state = [&](PixelRect clear, OverlayFrame frame) {
    OverlayScene scene;
    scene.display = 1;
    scene.clear = clear;
    scene.frame = frame;
    return layOut(scene, small, {});
  };
  const auto valueAt = [](const OverlayParts& parts, PixelPoint p) {
    for (const PixelRect& handle : parts.handles) {
      if (handle.contains(p)) return 3;
    }
    for (const PixelRect& edge : parts.frameEdges) {
      if (edge.contains(p)) return parts.frame == OverlayFrame::Highlight ? 4 : 2;
    }
    return parts.clear.contains(p) ? 1 : 0;
  };
  const std::vector<OverlayParts> states{
      {},
      state({20, 20, 60, 40}, OverlayFrame::Selection),
      state({20, 20, 61, 41}, OverlayFrame::Selection),
      state({50, 40, 70, 60}, OverlayFrame::Adjusting),
      state({0, 0, 160, 120}, OverlayFrame::Adjusting),
      state({100, 80, 1, 1}, OverlayFrame::Highlight),
  };
  for (std::size_t from = 0; from < states.size(); ++from) {
    for (std::size_t to = 0; to < states.size(); ++to) {
      const auto rects = changedRects(states[from], states[to]);
      int announced = 0;
      int changed = 0;
      for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 160; ++x) {
          const bool in = std::ranges::any_of(rects, [&](const PixelRect& rect) { return rect.contains({x, y}); });
          const bool differs = valueAt(states[from], {x, y}) != valueAt(states[to], {x, y});
          ASSERT_TRUE(in || !differs) << from << " to " << to << " at " << x << "," << y;
          announced += in ? 1 : 0;
          changed += differs ? 1 : 0;
        }
      }
      EXPECT_LE(announced, changed + 2000) << from << " to " << to;
    }
  }
  EXPECT_TRUE(changedRects(states[2], states[2]).empty());
}

TEST(OverlayLayout, SubtractsWithoutOverlap) {
  const PixelRect rect{0, 0, 10, 10};
  for (const PixelRect hole :
       {PixelRect{3, 3, 4, 4}, PixelRect{-5, -5, 8, 8}, PixelRect{0, 0, 10, 10}, PixelRect{20, 20, 5, 5}}) {
    int area = 0;
    for (const PixelRect& part : subtracted(rect, hole)) {
      EXPECT_FALSE(meets(part, hole));
      area += part.width * part.height;
    }
    const PixelRect cut = rect.intersected(hole);
    EXPECT_EQ(area, 100 - cut.width * cut.height);
  }
}

}  // namespace
}  // namespace vellora
