#include "editor/backdrop/BackdropLayout.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include <QPolygonF>

#include "support/TestBitmaps.h"

namespace vellora {
namespace {

ImageDocument documentOf(Size size, Point origin = {}) {
  ImageDocument document;
  CapturePiece piece = makePiece(test::solidBitmap({8, 8}, 0xFF336699), 1);
  piece.origin = origin;
  piece.pointSize = size;
  document.pieces = {piece};
  document.backdrop.enabled = true;
  document.backdrop.insetFraction = 0.1;
  return document;
}

QRectF seen(const BackdropLayout& layout) {
  return layout.placement
      .map(QPolygonF(
          QRectF(layout.framed.minX(), layout.framed.minY(), layout.framed.size.width, layout.framed.size.height)))
      .boundingRect();
}

TEST(BackdropLayoutTest, TheContentStaysWhereItIsInTheMiddleOfTheDocument) {
  const BackdropLayout layout = backdropLayout(documentOf({1000, 500}, {40, -20}));
  EXPECT_TRUE(layout.isFlat);
  EXPECT_EQ(layout.content, (Rect{{40, -20}, {1000, 500}}));
  EXPECT_EQ(layout.framed, layout.content);
  EXPECT_EQ(layout.document, (Rect{{-60, -120}, {1200, 700}}));

  ImageDocument off = documentOf({1000, 500});
  off.backdrop.enabled = false;
  off.backdrop.tiltX = 20;
  off.backdrop.deviceFrame = DeviceFrame::LaptopLight;
  EXPECT_EQ(backdropLayout(off).document, (Rect{{0, 0}, {1000, 500}}));
  EXPECT_TRUE(backdropLayout(off).isFlat);
}

TEST(BackdropLayoutTest, AFrameCountsAsPartOfTheContent) {
  for (int i = 0; i < 6; ++i) {
    ImageDocument document = documentOf({1000, 700});
    document.backdrop.deviceFrame = static_cast<DeviceFrame>(i);
    const BackdropLayout layout = backdropLayout(document);
    EXPECT_GT(layout.framed.size.height, 700);
    EXPECT_LE(layout.framed.minX(), 0);
    EXPECT_LT(layout.framed.minY(), 0);
    const Size expected = document.backdrop.documentSize(layout.framed.size);
    EXPECT_NEAR(layout.document.size.width, expected.width, 1e-9);
    EXPECT_NEAR(layout.document.size.height, expected.height, 1e-9);
  }
}

TEST(BackdropLayoutTest, TurnedContentStaysInsideTheDocumentAndInItsMiddle) {
  for (const double tiltX : {-30.0, 0.0, 17.0}) {
    for (const double tiltY : {-22.0, 0.0, 30.0}) {
      for (const double rotation : {-45.0, 0.0, 30.0}) {
        if (tiltX == 0 && tiltY == 0 && rotation == 0) continue;
        ImageDocument document = documentOf({1600, 500}, {100, 100});
        document.backdrop.tiltX = tiltX;
        document.backdrop.tiltY = tiltY;
        document.backdrop.rotation = rotation;
        const BackdropLayout layout = backdropLayout(document);
        EXPECT_FALSE(layout.isFlat);
        const QRectF box = seen(layout);
        const QRectF whole(layout.document.minX(), layout.document.minY(), layout.document.size.width,
                           layout.document.size.height);
        EXPECT_TRUE(whole.contains(box)) << tiltX << ' ' << tiltY << ' ' << rotation;
        EXPECT_NEAR(box.center().x(), whole.center().x(), 1e-6);
        EXPECT_NEAR(box.center().y(), whole.center().y(), 1e-6);
      }
    }
  }
}

TEST(BackdropLayoutTest, PositiveTiltsTurnTheRightAndTheLowerSideAway) {
  ImageDocument document = documentOf({1000, 1000});
  document.backdrop.tiltX = 20;
  const QPolygonF sideways = backdropLayout(document).placement.map(QPolygonF(QRectF(0, 0, 1000, 1000)));
  EXPECT_GT(sideways[3].y() - sideways[0].y(), sideways[2].y() - sideways[1].y());
  document.backdrop.tiltX = 0;
  document.backdrop.tiltY = 20;
  const QPolygonF upwards = backdropLayout(document).placement.map(QPolygonF(QRectF(0, 0, 1000, 1000)));
  EXPECT_GT(upwards[1].x() - upwards[0].x(), upwards[2].x() - upwards[3].x());
}

TEST(BackdropLayoutTest, ScaleAndOffsetMoveTheContentOnly) {
  ImageDocument document = documentOf({1000, 500});
  document.backdrop.contentScale = 0.5;
  document.backdrop.contentOffset = {0.25, -0.5};
  const BackdropLayout layout = backdropLayout(document);
  EXPECT_EQ(layout.document, (Rect{{-100, -100}, {1200, 700}}));
  EXPECT_EQ(layout.placement.map(QPointF(500, 250)), QPointF(500 + 300, 250 - 350));
  EXPECT_NEAR(seen(layout).width(), 500, 1e-9);
}

TEST(BackdropLayoutTest, NothingAbsurdComesOutOfAbsurdDocuments) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  ImageDocument document = documentOf({nan, 100});
  document.backdrop.tiltX = nan;
  (void)backdropLayout(document);
  document = documentOf({1e300, 1e-300});
  document.backdrop.rotation = 20;
  (void)backdropLayout(document);
  EXPECT_TRUE(backdropLayout(ImageDocument()).document.isEmpty());
}

}  // namespace
}  // namespace vellora
