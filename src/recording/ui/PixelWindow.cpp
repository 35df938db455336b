#include "recording/ui/PixelWindow.h"

#include <cmath>

#include <QCursor>
#include <QExposeEvent>
#include <QPainter>
#include <QScreen>

#include "kit/Compositing.h"
#include "platform/WindowHints.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {

PixelWindow::PixelWindow(WindowHints* hints, const QString& title)
    : hints_(hints), blended_(isComposited(screen())), store_(this) {
  setFlags(Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint |
           Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
  if (hints_ == nullptr) setFlag(Qt::WindowTransparentForInput);
  setSurfaceType(QSurface::RasterSurface);
  QSurfaceFormat format;
  format.setAlphaBufferSize(blended_ ? 8 : 0);
  setFormat(format);
  setTitle(title);
}

void PixelWindow::place(const PixelRect& frame) {
  QScreen* const target = screenAt(frame.center());
  if (target == nullptr) return;
  frame_ = frame;
  const CoveringPlace place = covering(frame, *target);
  window_ = place.window;
  if (screen() != target) setScreen(target);
  if (geometry() != place.points) setGeometry(place.points);
  if (handle() != nullptr) applyParts();
}

void PixelWindow::setVisibleParts(std::optional<std::vector<PixelRect>> parts) {
  visibleParts_ = std::move(parts);
  if (handle() != nullptr) applyParts();
}

void PixelWindow::setInputParts(std::vector<PixelRect> parts) {
  inputParts_ = std::move(parts);
  if (handle() != nullptr) applyParts();
}

void PixelWindow::applyParts() {
  if (hints_ == nullptr) return;
  const PixelPoint corner = inset();
  const auto moved = [&](std::vector<PixelRect> parts) {
    for (PixelRect& part : parts) part = part.translated(corner.x, corner.y);
    return parts;
  };
  auto visible = moved(visibleParts_.value_or(std::vector<PixelRect>{PixelRect{0, 0, frame_.width, frame_.height}}));
  auto input = moved(inputParts_);
  if (appliedVisible_ != visible) {
    hints_->limitVisible(winId(), visible);
    appliedVisible_ = std::move(visible);
  }
  if (appliedInput_ != input) {
    hints_->limitInput(winId(), input);
    appliedInput_ = std::move(input);
  }
}

void PixelWindow::appear() {
  if (isVisible()) return;
  if (handle() == nullptr) {
    create();
    // Where the pointer is has to be asked of the desktop, which has made the window by the time it answers: only then
    // does the connection of the hints know it.
    (void)QCursor::pos();
  }
  applyParts();
  setVisible(true);
}

void PixelWindow::exposeEvent(QExposeEvent*) {
  repaint();
}

void PixelWindow::resizeEvent(QResizeEvent*) {
  repaint();
}

void PixelWindow::repaint() {
  if (!isExposed()) return;
  if (store_.size() != size()) store_.resize(size());
  const QRect all(QPoint(0, 0), size());
  store_.beginPaint(all);
  if (QPaintDevice* const target = store_.paintDevice()) {
    QPainter painter(target);
    if (blended_) {
      painter.setCompositionMode(QPainter::CompositionMode_Source);
      painter.fillRect(all, Qt::transparent);
      painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    }
    painter.scale(1 / scale(), 1 / scale());
    painter.translate(inset().x, inset().y);
    paint(painter);
  }
  store_.endPaint();
  store_.flush(all);
}

PixelPoint PixelWindow::desktopPosition(QPointF positionInWindow) const {
  return {window_.x + static_cast<int>(std::floor(positionInWindow.x() * scale() + 1e-6)),
          window_.y + static_cast<int>(std::floor(positionInWindow.y() * scale() + 1e-6))};
}

}  // namespace vellora
