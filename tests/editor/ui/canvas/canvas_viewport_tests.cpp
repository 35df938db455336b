#include "editor/ui/canvas/CanvasViewport.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace vellora {
namespace {

CanvasViewport viewport(QSize pixels, double ratio, Rect document) {
  CanvasViewport made;
  made.setView(pixels, ratio);
  made.setDocument(document);
  return made;
}

TEST(CanvasViewport, FitsTheWholeDocumentAndNeverEnlargesIt) {
  auto large = viewport({1000, 800}, 1, {{-100, 50}, {4000, 1000}});
  large.zoomTo(large.fittingZoom(), {}, {});
  large.center();
  EXPECT_TRUE(QRectF(0, 0, 1000, 800).contains(large.toView().mapRect(large.document())));
  EXPECT_NEAR(large.toView().mapRect(large.document()).center().x(), 500, 1);
  EXPECT_EQ(viewport({1000, 800}, 1, {{0, 0}, {40, 30}}).fittingZoom(), 1);
  EXPECT_EQ(viewport({2000, 1600}, 2, {{0, 0}, {900, 700}}).fittingZoom(), 1) << "zooms are in screen points";
  // Larger than 10 % can show: fitting goes on below the limit.
  const auto huge = viewport({400, 400}, 1, {{0, 0}, {20000, 20000}});
  EXPECT_LT(huge.fittingZoom(), CanvasViewport::leastZoom);
  EXPECT_EQ(huge.lowerLimit(), huge.fittingZoom());
}

TEST(CanvasViewport, ZoomingKeepsThePointUnderThePointer) {
  std::mt19937 random(3);
  const auto upTo = [&](double limit) { return std::generate_canonical<double, 32>(random) * limit; };
  for (const double ratio : {1.0, 1.25, 2.0}) {
    auto view = viewport({1200, 900}, ratio, {{0, 0}, {1920, 1080}});
    view.center();
    for (int i = 0; i < 200; ++i) {
      const QPointF at(300 + upTo(600), 200 + upTo(500));
      const QPointF fixed(400 + upTo(1000), 200 + upTo(600));
      view.zoomTo(0.1 + upTo(7.9), fixed, at);
      const QPointF now = view.toView().map(fixed);
      EXPECT_LE(std::abs(now.x() - at.x()), 0.5001);
      EXPECT_LE(std::abs(now.y() - at.y()), 0.5001);
    }
  }
}

TEST(CanvasViewport, StepsThroughTheUsualZooms) {
  const auto view = viewport({800, 600}, 1, {{0, 0}, {1000, 1000}});
  double zoom = 0.1;
  std::vector<int> percents;
  while (zoom < CanvasViewport::mostZoom) {
    zoom = view.nextZoom(zoom, 1);
    percents.push_back(static_cast<int>(std::lround(zoom * 100)));
  }
  EXPECT_EQ(percents, (std::vector{25, 33, 50, 67, 75, 100, 150, 200, 300, 400, 600, 800}));
  EXPECT_EQ(view.nextZoom(8, 1), 8);
  EXPECT_EQ(view.nextZoom(0.9, -1), 0.75);
  EXPECT_EQ(view.nextZoom(0.1, -1), view.lowerLimit());
}

TEST(CanvasViewport, NeverLosesTheDocument) {
  for (const double zoom : {0.1, 1.0, 8.0}) {
    auto view = viewport({800, 600}, 1, {{500, -300}, {300, 2000}});
    view.zoomTo(zoom, {}, {});
    for (const QPoint far : {QPoint(1000000, 0), QPoint(-1000000, 5), QPoint(3, 1000000), QPoint(0, -1000000)}) {
      view.panBy(far);
      const QRectF visible = view.toView().mapRect(view.document()) & QRectF(0, 0, 800, 600);
      EXPECT_GE(visible.width(), std::min(63.0, 300 * zoom - 1));
      EXPECT_GE(visible.height(), 63);
    }
  }
}

TEST(CanvasViewport, BearsDocumentsNobodyCanDraw) {
  const double infinite = std::numeric_limits<double>::infinity();
  for (const Rect& rect :
       {Rect{}, Rect{{infinite, 0}, {1, 1}}, Rect{{0, 0}, {infinite, NAN}}, Rect{{1e300, 0}, {1e300, 1}}}) {
    auto view = viewport({800, 600}, 1, rect);
    view.zoomTo(NAN, {}, {});
    view.zoomTo(view.fittingZoom(), {NAN, 1e300}, {});
    view.center();
    view.panBy({100, 100});
    EXPECT_EQ(view.zoom(), 1);
    EXPECT_TRUE(QRect(-1000, -1000, 3000, 3000).contains(view.origin()));
  }
}

}  // namespace
}  // namespace vellora
