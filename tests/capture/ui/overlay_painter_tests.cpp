#include "capture/ui/OverlayPainter.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <random>

#include "support/FakeScreenCapture.h"

namespace vellora {
namespace {

Bitmap picture(PixelSize size) {
  auto bitmap = MutableBitmap::create(size, PixelAlpha::Opaque);
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) {
      for (int part = 0; part < 4; ++part) {
        bitmap->row(y)[x * 4 + part] = static_cast<std::byte>((x * (part + 3) + y * 7) & 0xFF);
      }
    }
  }
  return std::move(*bitmap).finish();
}

DisplayInfo display(double scale) {
  DisplayInfo info;
  info.id = 1;
  info.frame = {300, 0, 800, 600};
  info.scale = scale;
  return info;
}

OverlayScene randomScene(std::mt19937& random) {
  const auto number = [&](int low, int high) { return std::uniform_int_distribution<int>(low, high)(random); };
  OverlayScene scene;
  scene.display = number(0, 9) == 0 ? 2 : 1;
  scene.frame = static_cast<OverlayFrame>(number(1, 3));
  if (number(0, 5) != 0) {
    const int x = number(300, 1099);
    const int y = number(0, 599);
    scene.clear = PixelRect{x, y, number(1, 1100 - x), number(1, 600 - y)};
  }
  scene.showsSize = number(0, 3) != 0;
  if (number(0, 3) != 0) scene.loupe = PixelPoint{number(300, 1099), number(0, 599)};
  if (scene.loupe && number(0, 2) == 0) scene.marker = scene.loupe;
  scene.hintKey = QStringLiteral("overlay.hint.area");
  return scene;
}

/// Painting only what is announced as changed must come to the same picture as painting everything.
TEST(OverlayPainter, PaintsWhatChangesAndLeavesNoTraces) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    SCOPED_TRACE(scale);
    const DisplayInfo info = display(scale);
    OverlayPainter painter(info);
    painter.setStill(picture(info.frame.size()));
    QImage step(800, 600, QImage::Format_RGB32);
    QImage whole = step;
    OverlayParts shown;
    painter.paint(step, step.rect(), shown, 1);
    std::mt19937 random(5);
    for (int i = 0; i < 60; ++i) {
      const OverlayScene scene = randomScene(random);
      const OverlayParts next = layOut(scene, info, painter.texts(scene, i % 3 != 0));
      QRegion region;
      for (const PixelRect& rect : changedRects(shown, next)) {
        region += QRect(rect.x - info.frame.x, rect.y, rect.width, rect.height);
      }
      shown = next;
      painter.paint(step, region & step.rect(), shown, 1);
      painter.paint(whole, whole.rect(), shown, 1);
      ASSERT_EQ(step, whole) << i;
    }
  }
}

TEST(OverlayPainter, KeepsTheSelectionAndDimsTheRest) {
  const DisplayInfo info = display(1);
  OverlayPainter painter(info);
  const Bitmap still = picture(info.frame.size());
  painter.setStill(still);
  OverlayScene scene;
  scene.display = 1;
  scene.clear = PixelRect{500, 100, 200, 100};
  QImage surface(800, 600, QImage::Format_RGB32);
  painter.paint(surface, surface.rect(), layOut(scene, info, {}), 1);
  const QImage plain = sharedImage(still);
  EXPECT_EQ(surface.pixel(200, 100), plain.pixel(200, 100));
  EXPECT_EQ(surface.pixel(399, 199), plain.pixel(399, 199));
  EXPECT_NEAR(qGreen(surface.pixel(400, 199)), qGreen(plain.pixel(400, 199)) * OverlayPainter::dimmedTo, 1.5);
  EXPECT_NEAR(qRed(surface.pixel(10, 500)), qRed(plain.pixel(10, 500)) * OverlayPainter::dimmedTo, 1.5);
}

}  // namespace
}  // namespace vellora
