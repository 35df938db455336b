#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "editor/BackdropRecord.h"
#include "editor/BackdropSettings.h"

namespace vellora {
namespace {

using Aspect = BackdropSettings::Aspect;

BackdropSettings enabled(double inset, Aspect aspect) {
  BackdropSettings settings;
  settings.enabled = true;
  settings.insetFraction = inset;
  settings.aspect = aspect;
  return settings;
}

/// Different from the default in every field.
BackdropSettings everything() {
  BackdropSettings s;
  s.enabled = true;
  s.background.value = BackdropBackground::Gradient{{{0, {1, 0, 0, 1}}, {0.25, {0, 1, 0, 0.5}}, {1, {0, 0, 1, 1}}}, 42};
  s.aspect = Aspect::FourThree;
  s.insetFraction = 0.11;
  s.shadow = 0.75;
  s.innerRadius = 24;
  s.deviceFrame = DeviceFrame::LaptopDark;
  s.tiltX = -12.5;
  s.tiltY = 8;
  s.rotation = 3;
  s.edgeBlurDirection = BackdropSettings::EdgeBlurDirection::Right;
  s.edgeBlurStrength = 0.4;
  s.noiseIntensity = 0.2;
  s.glowIntensity = 0.6;
  s.glowCenter = {0.1, 0.2};
  s.contentScale = 1.5;
  s.contentOffset = {-0.25, 0.125};
  return s;
}

void expectSize(Size size, double width, double height) {
  EXPECT_NEAR(size.width, width, 1e-9);
  EXPECT_NEAR(size.height, height, 1e-9);
}

TEST(BackdropSettingsTest, TheDocumentGrowsByTheMarginAndToTheAspect) {
  const Size image{1000, 500};
  expectSize(enabled(0.1, Aspect::Auto).documentSize(image), 1200, 700);
  expectSize(enabled(0.1, Aspect::Square).documentSize(image), 1200, 1200);
  expectSize(enabled(0.1, Aspect::ThreeFour).documentSize(image), 1200, 1600);
  expectSize(enabled(0.1, Aspect::FourThree).documentSize(image), 1200, 900);
  expectSize(enabled(0.1, Aspect::SixteenNine).documentSize(image), 700 * 16.0 / 9, 700);
  expectSize(enabled(0.1, Aspect::SixteenNine).documentSize({500, 1000}), 1200 * 16.0 / 9, 1200);
  for (const Aspect aspect : {Aspect::Auto, Aspect::Square, Aspect::ThreeFour, Aspect::SixteenNine}) {
    BackdropSettings off = enabled(0.1, aspect);
    off.enabled = false;
    EXPECT_EQ(off.documentSize(image), image);
  }
}

TEST(BackdropSettingsTest, ARecordKeepsEveryFieldUnderItsKeyInOrder) {
  const BackdropSettings settings = everything();
  const Json record = encodeBackdrop(settings);
  EXPECT_EQ(decodeBackdrop(record), settings);
  QStringList keys;
  for (const auto& [key, value] : record.items()) keys << QString::fromStdString(key);
  EXPECT_EQ(
      keys.join(u' '),
      QStringLiteral("enabled background aspect insetFraction shadow innerRadius deviceFrame tiltX tiltY rotation "
                     "edgeBlurDirection edgeBlurStrength noiseIntensity glowIntensity glowCenter contentScale "
                     "contentOffset"));
  EXPECT_EQ(record["aspect"], 3);
  EXPECT_EQ(record["edgeBlurDirection"], 3);
  EXPECT_EQ(record["glowCenter"], Json::array({0.1, 0.2}));
  EXPECT_FALSE(encodeBackdrop({}).contains("deviceFrame"));
}

TEST(BackdropSettingsTest, EveryBackgroundAndFrameComesBack) {
  BackdropSettings settings;
  const BackdropBackground backgrounds[] = {
      {BackdropBackground::Solid{{0.1, 0.2, 0.3, 0.4}}},
      {backdropGradientPresets().front().gradient},
      {BackdropBackground::Image{QStringLiteral("/home/me/Bilder/Süd \"7\".png")}},
      {BackdropBackground::BuiltInImage{QStringLiteral("moss")}},
  };
  for (const BackdropBackground& background : backgrounds) {
    settings.background = background;
    EXPECT_EQ(decodeBackdrop(encodeBackdrop(settings)), settings);
  }
  for (int i = 0; i < 6; ++i) {
    settings.deviceFrame = static_cast<DeviceFrame>(i);
    EXPECT_EQ(decodeBackdrop(encodeBackdrop(settings)), settings);
  }
}

TEST(BackdropSettingsTest, WhatIsMissingHasItsDefaultAndWrongTypesAreRefused) {
  EXPECT_EQ(decodeBackdrop(Json::object()), BackdropSettings());
  EXPECT_EQ(decodeBackdrop(Json::parse(R"({"background":{"kind":"hologram"},"deviceFrame":"toaster"})")),
            BackdropSettings());
  for (const char* text : {R"([])", R"({"enabled":1})", R"({"aspect":5})", R"({"aspect":-1})", R"({"aspect":1.5})",
                           R"({"edgeBlurDirection":5})", R"({"shadow":"deep"})", R"({"shadow":1e999})",
                           R"({"glowCenter":[1]})", R"({"contentOffset":[1,"x"]})"}) {
    const Json record = Json::parse(text, nullptr, false);
    EXPECT_EQ(decodeBackdrop(record), std::nullopt) << text;
  }
}

TEST(BackdropSettingsTest, AbsurdNumbersAreBroughtInside) {
  const auto read = decodeBackdrop(Json::parse(
      R"({"insetFraction":-3,"shadow":99,"innerRadius":1e300,"tiltX":-400,"tiltY":400,"rotation":1e9,
          "edgeBlurStrength":7,"noiseIntensity":-7,"glowIntensity":3,"glowCenter":[-1e200,1e200],"contentScale":0,
          "contentOffset":[1e200,-1e200]})"));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->insetFraction, 0);
  EXPECT_EQ(read->shadow, 1);
  EXPECT_EQ(read->innerRadius, backdropLimits::innerRadius);
  EXPECT_EQ(read->tiltX, -30);
  EXPECT_EQ(read->rotation, 45);
  EXPECT_EQ(read->contentScale, backdropLimits::minimumContentScale);
  EXPECT_EQ(read->contentOffset, (Point{1, -1}));
  EXPECT_EQ(read->glowCenter, (Point{0, 1}));

  const double nan = std::numeric_limits<double>::quiet_NaN();
  BackdropSettings broken = everything();
  broken.insetFraction = broken.tiltX = broken.contentScale = broken.glowCenter.x = nan;
  broken.background.value = BackdropBackground::Gradient{std::vector<GradientStop>(500, {nan, {nan, 7, -7, nan}}), nan};
  const BackdropSettings mended = broken.clamped();
  EXPECT_EQ(mended, mended.clamped());
  EXPECT_EQ(mended.insetFraction, BackdropSettings().insetFraction);
  EXPECT_EQ(std::get<BackdropBackground::Gradient>(mended.background.value).stops.size(),
            backdropLimits::gradientStops);
  EXPECT_TRUE(std::isfinite(broken.documentSize({100, 100}).width));
}

}  // namespace
}  // namespace vellora
