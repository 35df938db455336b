#include "editor/ui/canvas/Eyedropper.h"

#include <utility>

#include <QApplication>
#include <QCursor>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace vellora {

Eyedropper::Eyedropper(QWidget& host, Sample sample, std::function<void(ColorComponents)> picked)
    : host_(host), sample_(std::move(sample)), picked_(std::move(picked)), loupe_(&host) {
  host_.grabMouse(Qt::CrossCursor);
  moveTo(QCursor::pos());
}

Eyedropper::~Eyedropper() {
  host_.releaseMouse();
}

QImage Eyedropper::pixelsAt(QPoint global, int count) const {
  const QPoint inHost = host_.mapFromGlobal(global);
  // Another window may lie over the host: then the screen is right.
  const QWidget* const top = QApplication::widgetAt(global);
  if (host_.rect().contains(inHost) && (top == nullptr || top == &host_)) return sample_(inHost, count);
  QScreen* const screen = QGuiApplication::screenAt(global);
  if (screen == nullptr) return {};
  const QPoint local = global - screen->geometry().topLeft();
  QImage grabbed = screen->grabWindow(0, local.x() - count / 2, local.y() - count / 2, count, count).toImage();
  if (grabbed.isNull()) return {};
  // On a scaled screen more pixels came than were asked for: the middle ones are meant.
  grabbed.setDevicePixelRatio(1);
  return grabbed.copy((grabbed.width() - count) / 2, (grabbed.height() - count) / 2, count, count);
}

void Eyedropper::moveTo(QPoint global) {
  loupe_.showAt(global, pixelsAt(global, PixelLoupe::pixelCount));
}

std::optional<ColorComponents> Eyedropper::colorAt(QPoint global) const {
  const QImage pixel = pixelsAt(global, 1);
  if (pixel.isNull()) return std::nullopt;
  const QColor color = pixel.pixelColor(0, 0);
  if (color.alpha() == 0) return std::nullopt;
  return ColorComponents{color.redF(), color.greenF(), color.blueF(), 1};
}

}  // namespace vellora
