#include "capture/ui/OverlayWindow.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include <QExposeEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QStyleHints>
#include <QTimerEvent>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int hintStay = 3000;
constexpr int hintFrame = 33;

QScreen* screenFor(const DisplayInfo& display) {
  // A screen's corner is in device pixels whatever the scale; the rest of its geometry is not.
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->geometry().topLeft() == QPoint(display.frame.x, display.frame.y)) return screen;
  }
  for (QScreen* screen : QGuiApplication::screens()) {
    if (screen->name() == display.name) return screen;
  }
  return QGuiApplication::primaryScreen();
}

int outward(double value) {
  return static_cast<int>(std::ceil(value - 1e-6));
}
int inward(double value) {
  return static_cast<int>(std::floor(value + 1e-6));
}

Qt::CursorShape shapeOf(OverlayCursor cursor) {
  switch (cursor) {
    case OverlayCursor::Cross:
      return Qt::CrossCursor;
    case OverlayCursor::Hidden:
      return Qt::BlankCursor;
    case OverlayCursor::Pick:
      return Qt::PointingHandCursor;
    case OverlayCursor::Move:
      return Qt::SizeAllCursor;
    case OverlayCursor::Horizontal:
      return Qt::SizeHorCursor;
    case OverlayCursor::Vertical:
      return Qt::SizeVerCursor;
    case OverlayCursor::DiagonalDown:
      return Qt::SizeFDiagCursor;
    case OverlayCursor::DiagonalUp:
      return Qt::SizeBDiagCursor;
  }
  return Qt::CrossCursor;
}

}  // namespace

OverlayWindow::OverlayWindow(const DisplayInfo& display) : display_(display), painter_(display), store_(this) {
  setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
           Qt::WindowDoesNotAcceptFocus);
  setSurfaceType(QSurface::RasterSurface);
  QSurfaceFormat opaque;
  opaque.setAlphaBufferSize(0);
  setFormat(opaque);
  setTitle(QStringLiteral("Vellora overlay"));
  if (QScreen* screen = screenFor(display)) {
    setScreen(screen);
    const double ratio = screen->devicePixelRatio();
    setGeometry({screen->geometry().topLeft(),
                 QSize(outward(display.frame.width / ratio), outward(display.frame.height / ratio))});
  }
}

void OverlayWindow::setStill(Bitmap still) {
  painter_.setStill(std::move(still));
  if (drawn_) paint(changedRects({}, shown_));
}

OverlayParts OverlayWindow::parts() const {
  return layOut(scene_, display_, painter_.texts(scene_, hintOpacity_ > 0));
}

void OverlayWindow::setScene(const OverlayScene& scene) {
  const bool isHere = scene.display == display_.id && !scene.hintKey.isEmpty();
  const bool wanted = isHere && (scene.hintKey != scene_.hintKey || !hintAge_.isValid());
  scene_ = scene;
  if (hintsEnabled_ && wanted) startHint();
  applyCursor();
  refresh();
}

void OverlayWindow::refresh() {
  OverlayParts next = parts();
  const auto rects = changedRects(shown_, next);
  shown_ = std::move(next);
  if (drawn_) paint(rects);
}

void OverlayWindow::enableHints() {
  hintsEnabled_ = true;
  if (scene_.display == display_.id) startHint();
}

void OverlayWindow::startHint() {
  hintAge_.start();
  hintOpacity_ = 1;
  hintTimer_.start(hintStay, this);
  refresh();
}

void OverlayWindow::timerEvent(QTimerEvent* event) {
  if (event->timerId() != hintTimer_.timerId()) return QWindow::timerEvent(event);
  const double fade = Theme::shared().reducedMotion() ? 0 : tokens::motionLong;
  const auto into = static_cast<double>(hintAge_.elapsed() - hintStay);
  if (into >= fade) {
    hintTimer_.stop();
    hintOpacity_ = 0;
    refresh();
    return;
  }
  hintTimer_.start(hintFrame, this);
  hintOpacity_ = std::clamp(1 - into / fade, 0.0, 1.0);
  if (shown_.hint && drawn_) paint({*shown_.hint});
}

void OverlayWindow::exposeEvent(QExposeEvent*) {
  if (!isExposed()) return;
  const bool first = !drawn_;
  if (first) {
    drawn_ = true;
    store_.resize(size());
    shown_ = parts();
  }
  paintAll();
  if (first) emit appeared();
}

void OverlayWindow::paintAll() {
  if (ground_ == Ground::Server) {
    paint(changedRects({}, shown_));
  } else {
    paint({display_.frame});
  }
}

/// Paints rectangles of the desktop. What the toolkit sends to the screen are whole points: the painted region covers
/// them.
void OverlayWindow::paint(const std::vector<PixelRect>& rects) {
  if (rects.empty() || !isExposed()) return;
  if (ground_ == Ground::Server && !painter_.hasStill()) return;
  const double ratio = devicePixelRatio();
  const QRect whole(QPoint(0, 0), size());
  QRegion logical;
  for (const PixelRect& rect : rects) {
    const PixelRect seen = rect.intersected(display_.frame).translated(-display_.frame.x, -display_.frame.y);
    if (seen.isEmpty()) continue;
    const int left = inward(seen.x / ratio);
    const int top = inward(seen.y / ratio);
    logical += QRect(left, top, outward(seen.right() / ratio) - left, outward(seen.bottom() / ratio) - top) & whole;
  }
  if (logical.isEmpty()) return;
  QRegion device;
  for (const QRect& rect : logical) {
    const int left = inward(rect.x() * ratio);
    const int top = inward(rect.y() * ratio);
    device += QRect(left, top, outward((rect.x() + rect.width()) * ratio) - left,
                    outward((rect.y() + rect.height()) * ratio) - top);
  }
  store_.beginPaint(logical);
  QPaintDevice* target = store_.paintDevice();
  if (target != nullptr && target->devType() == QInternal::Image) {
    // The same memory counted in device pixels.
    auto* image = static_cast<QImage*>(target);
    QImage surface(image->bits(), image->width(), image->height(), image->bytesPerLine(), image->format());
    painter_.paint(surface, device & surface.rect(), shown_, hintOpacity_);
  }
  store_.endPaint();
  store_.flush(logical);
}

void OverlayWindow::applyCursor() {
  if (cursor_ == scene_.cursor) return;
  cursor_ = scene_.cursor;
  setCursor(shapeOf(scene_.cursor));
}

PixelPoint OverlayWindow::position(const QMouseEvent& event) const {
  const double ratio = devicePixelRatio();
  return {display_.frame.x + static_cast<int>(std::lround(event.position().x() * ratio)),
          display_.frame.y + static_cast<int>(std::lround(event.position().y() * ratio))};
}

void OverlayWindow::mouseMoveEvent(QMouseEvent* event) {
  emit pointerMoved(position(*event), event->modifiers());
}

void OverlayWindow::mousePressEvent(QMouseEvent* event) {
  const PixelPoint at = position(*event);
  const QStyleHints* hints = QGuiApplication::styleHints();
  const int distance = static_cast<int>(std::ceil(hints->mouseDoubleClickDistance() * devicePixelRatio()));
  const bool again = sincePress_.isValid() && sincePress_.elapsed() <= hints->mouseDoubleClickInterval() &&
                     std::abs(at.x - lastPress_.x) <= distance && std::abs(at.y - lastPress_.y) <= distance;
  clicks_ = again && event->button() == Qt::LeftButton ? clicks_ + 1 : 1;
  sincePress_.start();
  lastPress_ = at;
  emit pointerPressed(event->button(), at, event->modifiers(), clicks_);
}

void OverlayWindow::mouseReleaseEvent(QMouseEvent* event) {
  emit pointerReleased(event->button(), position(*event), event->modifiers());
}

}  // namespace vellora
