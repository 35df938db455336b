#include <gtest/gtest.h>

#include <cmath>

#include "SyntheticCameraFrame.h"
#include "recording/ui/BubblePlace.h"
#include "recording/ui/CameraFeed.h"
#include "recording/ui/CameraPicture.h"
#include "support/FakePreferences.h"
#include "support/VirtualRunLoop.h"

namespace vellora {
namespace {

using test::SyntheticCameraFrame;

std::shared_ptr<SyntheticCameraFrame> frameOf(std::uint8_t y, std::uint8_t u, std::uint8_t v) {
  return std::make_shared<SyntheticCameraFrame>(64, 36, y, u, v);
}

TEST(CameraPicture, hasTheColorsOfItsMatrix) {
  // Limited range; values of the exact formulas, rounded.
  struct Case {
    std::uint8_t y, u, v;
    bool isBt709;
    QRgb color;
  };
  const Case cases[] = {{16, 128, 128, true, 0xFF000000},   {235, 128, 128, true, 0xFFFFFFFF},
                        {126, 128, 128, false, 0xFF808080}, {63, 102, 240, true, 0xFFFF0100},
                        {81, 90, 240, false, 0xFFFE0000},   {32, 240, 118, true, 0xFF0100FF},
                        {0, 128, 128, true, 0xFF000000},    {255, 128, 128, false, 0xFFFFFFFF}};
  for (const Case& each : cases) {
    const auto frame = frameOf(each.y, each.u, each.v);
    frame->isBt709 = each.isBt709;
    const QImage picture = mirroredSquare(*frame, 17);
    ASSERT_EQ(picture.size(), QSize(17, 17));
    for (const QPoint at : {QPoint(0, 0), QPoint(8, 8), QPoint(16, 16)}) {
      const QRgb seen = picture.pixel(at);
      EXPECT_NEAR(qRed(seen), qRed(each.color), 1) << int{each.y};
      EXPECT_NEAR(qGreen(seen), qGreen(each.color), 1) << int{each.y};
      EXPECT_NEAR(qBlue(seen), qBlue(each.color), 1) << int{each.y};
    }
  }
}

TEST(CameraPicture, isTheMirroredMiddle) {
  // Black, with a white column of the middle square's left quarter and gray beyond the square.
  SyntheticCameraFrame frame(160, 80);
  for (int y = 0; y < 80; ++y) {
    for (int x = 0; x < 160; ++x) {
      if (x < 40 || x >= 120) frame.at(0, x, y) = 126;
      if (x >= 40 && x < 60) frame.at(0, x, y) = 235;
    }
  }
  for (const int side : {20, 40, 80, 200}) {
    const QImage picture = mirroredSquare(frame, side);
    const auto gray = [&](double part) { return qGray(picture.pixel(static_cast<int>(part * side), side / 2)); };
    EXPECT_EQ(gray(0.05), 0) << side;
    EXPECT_EQ(gray(0.5), 0) << side;
    EXPECT_EQ(gray(0.85), 255) << side;
  }
}

TEST(CameraPicture, countsEveryPixelItStandsFor) {
  // Stripes of one pixel become an even gray, not stripes of another width.
  SyntheticCameraFrame frame(720, 720);
  for (int y = 0; y < 720; ++y) {
    for (int x = 0; x < 720; x += 2) frame.at(0, x, y) = 235;
  }
  const QImage picture = mirroredSquare(frame, 176);
  for (int x = 2; x < 174; ++x) EXPECT_NEAR(qGray(picture.pixel(x, 88)), 128, 12) << x;
}

TEST(CameraPicture, takesAnySizeAndNoPixels) {
  for (const int width : {2, 3, 7, 640}) {
    for (const int height : {2, 5, 480}) {
      for (const int side : {1, 2, 97}) {
        const SyntheticCameraFrame frame(width, height, 126);
        const QImage picture = mirroredSquare(frame, side);
        EXPECT_EQ(qGray(picture.pixel(side - 1, side - 1)), 128) << width << "x" << height << " " << side;
      }
    }
  }
  EXPECT_TRUE(mirroredSquare(CameraFrame(), 100).isNull());
  EXPECT_TRUE(mirroredSquare(SyntheticCameraFrame(64, 36), 0).isNull());
}

class CameraFeedTest : public testing::Test {
 protected:
  void show() {
    feed_.open(32, [this](const QImage& picture) { shown_.push_back(picture); });
  }
  bool shows(std::size_t count) {
    return loop_.runUntil([&] { return shown_.size() >= count; });
  }
  int newest() const { return qGray(shown_.back().pixel(16, 16)); }

  test::VirtualRunLoop loop_;
  std::vector<QImage> shown_;
  CameraFeed feed_{loop_};
};

TEST_F(CameraFeedTest, showsTheNewestThirtyTimesASecond) {
  feed_.push(frameOf(235, 128, 128));  // before anybody looks
  loop_.advance(1);
  show();
  feed_.push(frameOf(16, 128, 128));
  ASSERT_TRUE(shows(1));
  EXPECT_EQ(newest(), 0);
  for (int i = 0; i < 10; ++i) feed_.push(frameOf(static_cast<std::uint8_t>(16 + i), 128, 128));
  feed_.push(frameOf(235, 128, 128));
  loop_.runPosted();
  EXPECT_EQ(shown_.size(), 1u) << "too early";
  loop_.advance(CameraFeed::leastInterval);
  ASSERT_TRUE(shows(2));
  EXPECT_EQ(newest(), 255);
  loop_.advance(1);
  EXPECT_EQ(shown_.size(), 2u);
}

TEST_F(CameraFeedTest, anotherSideShowsTheSameFrameAnew) {
  show();
  feed_.push(frameOf(235, 128, 128));
  ASSERT_TRUE(shows(1));
  loop_.advance(1);
  feed_.setSide(48);
  ASSERT_TRUE(shows(2));
  EXPECT_EQ(shown_.back().width(), 48);
}

TEST_F(CameraFeedTest, closedItHoldsAndShowsNothing) {
  show();
  const auto frame = frameOf(235, 128, 128);
  feed_.push(frame);
  feed_.close();
  loop_.advance(1);
  feed_.push(frame);
  loop_.advance(1);
  EXPECT_TRUE(shown_.empty());
  EXPECT_EQ(frame.use_count(), 1);
}

const Rect area{{100, 50}, {1000, 700}};

TEST(BubblePlace, snapsToEdgesAndKeepsToThem) {
  BubblePlace place;
  EXPECT_EQ(place.frameIn(area), (Rect{{904, 554}, {176, 176}}));
  place.moveTo({130, 560}, area);
  EXPECT_EQ(place.frameIn(area), (Rect{{120, 554}, {176, 176}}));
  place.resize(300, area);
  EXPECT_EQ(place.frameIn(area), (Rect{{120, 430}, {300, 300}}));
  place.resize(9999, area);
  EXPECT_EQ(place.side, 480);
  place.resize(0, area);
  EXPECT_EQ(place.side, 96);

  place.moveTo({500, 300}, area);
  EXPECT_EQ(place.frameIn(area), (Rect{{500, 300}, {96, 96}}));
  place.resize(196, area);
  EXPECT_EQ(place.frameIn(area), (Rect{{450, 250}, {196, 196}}));
  place.moveTo({-5000, 9000}, area);
  EXPECT_EQ(place.x, 0);
  EXPECT_EQ(place.y, 1);
}

TEST(BubblePlace, isRememberedAndNeverOffTheDisplay) {
  test::FakePreferences preferences;
  EXPECT_EQ(BubblePlace::load(preferences), BubblePlace());
  const BubblePlace place{.side = 240, .x = 0.25, .y = 0};
  place.store(preferences);
  EXPECT_EQ(BubblePlace::load(preferences), place);

  const QString key = QStringLiteral("record.cameraBubble");
  for (const QVariant& damaged :
       {QVariant(3), QVariant(QVariantList{1, 2}), QVariant(QVariantList{100, QStringLiteral("x"), 1}),
        QVariant(QVariantList{std::nan(""), 0.5, 0.5})}) {
    preferences.setValue(key, damaged);
    EXPECT_EQ(BubblePlace::load(preferences), BubblePlace());
  }
  preferences.setValue(key, QVariantList{1e9, -4, 7});
  EXPECT_EQ(BubblePlace::load(preferences), (BubblePlace{.side = 480, .x = 0, .y = 1}));
  const Rect small{{0, 0}, {300, 200}};
  const Rect frame = BubblePlace::load(preferences).frameIn(small);
  EXPECT_EQ(frame.united(small), small);
}

}  // namespace
}  // namespace vellora
