#include <gtest/gtest.h>

#include <algorithm>

#include "recording/ui/RegionModel.h"
#include "support/PrintGeometry.h"

namespace vellora {
namespace {

using Kind = RegionPreset::Kind;
constexpr PixelRect display{1920, 100, 1600, 900};
constexpr PixelRect region{2100, 300, 640, 360};

RegionModel pulled(const RegionGrip& grip, int dx, int dy, bool keepsRatio = false) {
  RegionModel model(region, display);
  model.beginPull(grip, {5000, 5000});
  model.pullTo({5000 + dx, 5000 + dy}, keepsRatio);
  return model;
}

TEST(RegionModel, staysOnItsDisplayAndLargeEnough) {
  EXPECT_EQ(RegionModel({0, 0, 5000, 4}, display).region(), (PixelRect{1920, 100, 1600, 16}));
  EXPECT_EQ(RegionModel({3400, 950, 300, 300}, display).region(), (PixelRect{3220, 700, 300, 300}));

  const RegionGrip corner{.right = true, .bottom = true};
  EXPECT_EQ(pulled(corner, 10, 20).region(), (PixelRect{2100, 300, 650, 380}));
  EXPECT_EQ(pulled(corner, 9999, 9999).region(), (PixelRect{2100, 300, 1420, 700}));
  EXPECT_EQ(pulled(corner, -9999, -9999).region(), (PixelRect{2100, 300, 16, 16}));
  EXPECT_EQ(pulled({.left = true}, 9999, 50).region(), (PixelRect{2724, 300, 16, 360}));
  EXPECT_EQ(pulled({.top = true}, 50, -9999).region(), (PixelRect{2100, 100, 640, 560}));
  EXPECT_EQ(pulled(RegionGrip::whole(), -9999, 9999).region(), (PixelRect{1920, 640, 640, 360}));

  RegionModel nudged(region, display);
  nudged.nudge(-10, 1);
  EXPECT_EQ(nudged.region(), region.translated(-10, 1));
  nudged.nudge(-9999, 9999);
  EXPECT_EQ(nudged.region(), (PixelRect{1920, 640, 640, 360}));
}

TEST(RegionModel, aPullThatComesBackEndsWhereItBegan) {
  RegionModel model(region, display);
  model.beginPull({.left = true, .top = true}, {2100, 300});
  for (const int x : {1000, 9000, 2100}) model.pullTo({x, 300});
  EXPECT_EQ(model.region(), region);
  model.endPull();
  model.pullTo({0, 0});
  EXPECT_EQ(model.region(), region);
}

TEST(RegionModel, keepsItsShapeWhenAsked) {
  for (const RegionGrip& grip : {RegionGrip{.right = true, .bottom = true}, RegionGrip{.left = true, .top = true},
                                 RegionGrip{.right = true}, RegionGrip{.top = true}}) {
    for (const int by : {-9999, -50, 37, 400, 9999}) {
      const PixelRect next = pulled(grip, grip.left ? -by : by, grip.top ? -by : by, true).region();
      EXPECT_NEAR(next.width / 640.0, next.height / 360.0, 0.04) << testing::PrintToString(next);
      EXPECT_EQ(next.intersected(display), next);
      EXPECT_GE(std::min(next.width, next.height), 16);
    }
  }
  // The opposite corner stays.
  const PixelRect grown = pulled({.left = true, .top = true}, -64, 0, true).region();
  EXPECT_EQ(grown, (PixelRect{2036, 264, 704, 396}));
}

TEST(RegionModel, presetsKeepTheMiddleAndTheDisplay) {
  RegionModel model(region, display);
  EXPECT_FALSE(model.fits({Kind::size, 1920, 1080}));
  model.apply({Kind::size, 1920, 1080});
  EXPECT_EQ(model.region(), region);
  model.apply({Kind::size, 1280, 720});
  EXPECT_EQ(model.region().size(), (PixelSize{1280, 720}));
  EXPECT_EQ(model.region().intersected(display), model.region());
  model.apply({Kind::display});
  EXPECT_EQ(model.region(), display);
  EXPECT_TRUE(model.matches({Kind::display}));

  for (const RegionPreset& preset : RegionModel::presets()) {
    for (const PixelRect& start : {region, display, PixelRect{1920, 100, 16, 16}, PixelRect{1920, 100, 1600, 16}}) {
      RegionModel each(start, display);
      each.apply(preset);
      EXPECT_EQ(each.region().intersected(display), each.region());
      EXPECT_GE(std::min(each.region().width, each.region().height), 16);
      EXPECT_TRUE(!each.fits(preset) || each.matches(preset)) << preset.width << ":" << preset.height;
    }
  }
}

TEST(RegionFrameLayout, nothingDrawnLiesOverTheRegionButTheHandles) {
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    const RegionFrameLayout layout(region, scale);
    const PixelRect window = layout.window();
    EXPECT_EQ(region.x - window.x, std::lround(28 * scale));
    EXPECT_EQ(window.right() - region.right(), std::lround(28 * scale));
    for (const auto& side : layout.lines()) EXPECT_TRUE(side.intersected(region).isEmpty());
    for (const auto& side : layout.band()) EXPECT_TRUE(side.intersected(region).isEmpty());
    for (const auto& part : layout.inputParts()) EXPECT_EQ(part.intersected(window), part);
    const PixelPoint middle = region.center();
    EXPECT_TRUE(layout.gripAt(middle).isNone());
    EXPECT_TRUE(
        std::ranges::none_of(layout.inputParts(), [&](const PixelRect& part) { return part.contains(middle); }));
  }
}

TEST(RegionFrameLayout, everyPlaceThatTakesThePointerHoldsSomething) {
  for (const PixelRect& each : {region, PixelRect{2100, 300, 16, 16}, PixelRect{2100, 300, 16, 400}}) {
    const RegionFrameLayout layout(each, 1);
    for (const PixelRect& part : layout.inputParts()) {
      for (int y = part.y; y < part.bottom(); ++y) {
        for (int x = part.x; x < part.right(); ++x) ASSERT_FALSE(layout.gripAt({x, y}).isNone()) << x << " " << y;
      }
    }
  }
  const RegionFrameLayout layout(region, 1);
  EXPECT_EQ(layout.gripAt({region.x, region.y}), (RegionGrip{.left = true, .top = true}));
  EXPECT_EQ(layout.gripAt({region.right(), region.center().y - 60}), (RegionGrip{.right = true}));
  EXPECT_EQ(layout.gripAt({region.center().x + 60, region.bottom()}), (RegionGrip{.bottom = true}));
  EXPECT_TRUE(layout.gripAt({region.center().x + 60, region.y - 10}).isWhole());
}

}  // namespace
}  // namespace vellora
