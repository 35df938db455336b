#include "recording/ui/ScreenPlaces.h"

#include <cmath>

#include <QGuiApplication>
#include <QScreen>

namespace vellora {
namespace {

/// The first whole point at or before `from` pixels, and the number of points whose rounded pixels reach `to`.
struct Span {
  int start;
  int length;
};
Span coveringSpan(int from, int to, double ratio) {
  const int start = static_cast<int>(std::floor(from / ratio + 1e-6));
  int length = static_cast<int>(std::ceil(to / ratio - 1e-6)) - start;
  while (qRound(start * ratio) + qRound(length * ratio) < to) ++length;
  return {start, length};
}

}  // namespace

QScreen* screenOf(const DisplayInfo& display) {
  // A screen's corner is in device pixels whatever the scale; the rest of its geometry is not.
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->geometry().topLeft() == QPoint(display.frame.x, display.frame.y)) return screen;
  }
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->name() == display.name) return screen;
  }
  return QGuiApplication::primaryScreen();
}

QScreen* screenAt(PixelPoint place) {
  for (QScreen* screen : QGuiApplication::screens()) {
    if (pixelFrame(*screen).contains(place)) return screen;
  }
  return QGuiApplication::primaryScreen();
}

PixelRect pixelFrame(const QScreen& screen) {
  const QRect points = screen.geometry();
  const double ratio = screen.devicePixelRatio();
  return {points.x(), points.y(), qRound(points.width() * ratio), qRound(points.height() * ratio)};
}

QRectF toPoints(const PixelRect& rect, const QScreen& screen) {
  const QPointF origin = screen.geometry().topLeft();
  const double ratio = screen.devicePixelRatio();
  return {origin.x() + (rect.x - origin.x()) / ratio, origin.y() + (rect.y - origin.y()) / ratio, rect.width / ratio,
          rect.height / ratio};
}

CoveringPlace covering(const PixelRect& pixels, const QScreen& screen) {
  const QPoint origin = screen.geometry().topLeft();
  const double ratio = screen.devicePixelRatio();
  const Span across = coveringSpan(pixels.x - origin.x(), pixels.right() - origin.x(), ratio);
  const Span down = coveringSpan(pixels.y - origin.y(), pixels.bottom() - origin.y(), ratio);
  return {.points = {origin.x() + across.start, origin.y() + down.start, across.length, down.length},
          .window = {origin.x() + qRound(across.start * ratio), origin.y() + qRound(down.start * ratio),
                     qRound(across.length * ratio), qRound(down.length * ratio)}};
}

}  // namespace vellora
