#include "editor/ui/canvas/CanvasBacking.h"

#include <gtest/gtest.h>

#include <random>

#include <QPainter>

namespace vellora {
namespace {

using namespace std::chrono_literals;

constexpr auto unlimited = 1h;

/// A plane of which every pixel has its own colour, another one after each change and at each scale.
class Plane {
 public:
  void paint(QImage& target, const QRect& clip, QPoint planeToTarget) {
    EXPECT_TRUE(target.rect().contains(clip));
    for (int y = clip.top(); y <= clip.bottom(); ++y) {
      auto* row = reinterpret_cast<QRgb*>(target.scanLine(y));
      for (int x = clip.left(); x <= clip.right(); ++x) row[x] = colorAt(QPoint(x, y) - planeToTarget);
    }
    painted += std::int64_t{clip.width()} * clip.height();
  }

  QRgb colorAt(QPoint at) const {
    unsigned hash =
        static_cast<unsigned>(at.x()) * 73856093U ^ static_cast<unsigned>(at.y()) * 19349663U ^ scale * 83492791U;
    for (const auto& [rect, version] : changes) {
      if (rect.contains(at)) hash = hash * 31 + version;
    }
    return 0xFF000000U | (hash & 0xFFFFFFU);
  }

  QImage expected(const QRect& part) const {
    QImage image(part.size(), QImage::Format_RGB32);
    for (int y = 0; y < part.height(); ++y) {
      for (int x = 0; x < part.width(); ++x) image.setPixel(x, y, colorAt(part.topLeft() + QPoint(x, y)));
    }
    return image;
  }

  std::vector<std::pair<QRect, unsigned>> changes;
  unsigned scale = 1;
  std::int64_t painted = 0;
};

QImage drawn(const CanvasBacking& backing, const QRect& visible) {
  QImage image(visible.size(), QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.translate(-visible.topLeft());
  backing.draw(painter, visible, Qt::magenta);
  return image;
}

class CanvasBackingTest : public testing::Test {
 protected:
  Plane plane;
  CanvasBacking backing{
      [this](QImage& target, const QRect& clip, QPoint offset) { plane.paint(target, clip, offset); }};
};

TEST_F(CanvasBackingTest, ShowsWhatAFreshPaintWouldAfterAnyWalk) {
  std::mt19937 random(7);
  const auto upTo = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
  QRect visible(-40, -30, 200, 150);
  backing.show(visible, plane.scale);
  for (int step = 0; step < 400; ++step) {
    switch (upTo(6)) {
      case 0:  // far, past what is kept
        visible.translate(upTo(2000) - 1000, upTo(2000) - 1000);
        break;
      case 1:
        visible.setSize({100 + upTo(260), 80 + upTo(200)});
        break;
      case 2:
        plane.scale = 1 + static_cast<unsigned>(upTo(4));
        break;
      case 3: {
        const QRect changed(visible.left() + upTo(visible.width()) - 50, visible.top() + upTo(visible.height()) - 50,
                            1 + upTo(120), 1 + upTo(120));
        plane.changes.emplace_back(changed, step);
        backing.outdate(changed);
        break;
      }
      default:
        visible.translate(upTo(90) - 45, upTo(90) - 45);
        break;
    }
    backing.show(visible, plane.scale);
    const bool complete = upTo(3) == 0;
    backing.paint(visible, visible.center(), complete ? std::chrono::nanoseconds(unlimited) : 0ns);
    if (!complete) continue;
    ASSERT_TRUE(backing.unpainted().isEmpty());
    ASSERT_EQ(drawn(backing, visible), plane.expected(visible)) << "after step " << step;
  }
}

TEST_F(CanvasBackingTest, MovingPaintsOnlyWhatCameIntoView) {
  const QRect visible(0, 0, 600, 450);
  backing.show(visible, 1);
  backing.paint(visible, {}, unlimited);
  plane.painted = 0;
  for (int i = 1; i <= 10; ++i) {
    const QRect moved = visible.translated(12 * i, -5 * i);
    backing.show(moved, 1);
    backing.paint(moved, {}, unlimited);
  }
  EXPECT_LE(plane.painted, 10 * (12 * 450 + 5 * 600));
  // A step back, within what is kept: nothing at all.
  const std::int64_t before = plane.painted;
  backing.show(visible.translated(12 * 9, -5 * 9), 1);
  EXPECT_TRUE(backing.paint(visible.translated(12 * 9, -5 * 9), {}, unlimited).isEmpty());
  EXPECT_EQ(plane.painted, before);
}

TEST_F(CanvasBackingTest, ShowsTheOldPictureStretchedUntilTheNewOneIsPainted) {
  const QRect visible(0, 0, 128, 128);
  CanvasBacking halves([](QImage& target, const QRect& clip, QPoint) {
    QPainter(&target).fillRect(clip, clip.width() < 100 ? Qt::green : Qt::blue);
  });
  halves.show(visible, 1);
  halves.paint(visible, {}, unlimited);
  halves.show(visible, 2);
  EXPECT_EQ(drawn(halves, visible).pixelColor(60, 60), QColor(Qt::blue));
  EXPECT_EQ(halves.copy({60, 60, 1, 1}).pixelColor(0, 0).alpha(), 0) << "a stand-in is no colour to pick";
  // Zoomed out there is less of the old picture than the view has room for.
  halves.show(visible, 0.5);
  const QImage shrunk = drawn(halves, visible);
  EXPECT_EQ(shrunk.pixelColor(30, 30), QColor(Qt::blue));
  EXPECT_EQ(shrunk.pixelColor(100, 100), QColor(Qt::magenta));
  halves.paint(QRect(0, 0, 50, 128), {}, unlimited);
  EXPECT_EQ(drawn(halves, visible).pixelColor(30, 30), QColor(Qt::green));
}

TEST_F(CanvasBackingTest, KeepsToItsTimeAndStartsAtTheFocus) {
  CanvasBacking slow([](QImage& target, const QRect& clip, QPoint) {
    const auto until = std::chrono::steady_clock::now() + std::chrono::nanoseconds(200) * clip.width() * clip.height();
    while (std::chrono::steady_clock::now() < until) {
    }
    QPainter(&target).fillRect(clip, Qt::blue);
  });
  const QRect visible(0, 0, 1920, 1080);
  slow.show(visible, 1);
  const QPoint focus(1500, 800);
  const QRegion first = slow.paint(visible, focus, 8ms);
  EXPECT_TRUE(first.contains(focus));
  EXPECT_FALSE(slow.unpainted().isEmpty());
  // Once it knows how slow the painting is, a turn takes a frame's time and no more than one piece beyond.
  const auto start = std::chrono::steady_clock::now();
  slow.paint(visible, focus, 8ms);
  EXPECT_LT(std::chrono::steady_clock::now() - start, 40ms);
}

}  // namespace
}  // namespace vellora
