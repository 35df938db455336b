#include "recording/ui/OverlayPanel.h"

#include <QCursor>

#include "platform/WindowHints.h"

namespace vellora {
namespace {

Qt::WindowFlags flagsFor(OverlayPanel::Keyboard keyboard) {
  const Qt::WindowFlags flags = Qt::Tool | Qt::X11BypassWindowManagerHint | Qt::WindowStaysOnTopHint;
  return keyboard == OverlayPanel::Keyboard::Never ? flags | Qt::WindowDoesNotAcceptFocus : flags;
}

}  // namespace

OverlayPanel::OverlayPanel(WindowHints* hints, Keyboard keyboard)
    : FloatingPanel(nullptr, flagsFor(keyboard)), hints_(hints) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
}

void OverlayPanel::appear() {
  if (isVisible()) return;
  (void)winId();
  // The desktop has made the window by the time it has answered where the pointer is.
  (void)QCursor::pos();
  show();
}

void OverlayPanel::showEvent(QShowEvent* event) {
  FloatingPanel::showEvent(event);
  limitInput();
}

void OverlayPanel::resizeEvent(QResizeEvent* event) {
  FloatingPanel::resizeEvent(event);
  if (isVisible()) limitInput();
}

void OverlayPanel::limitInput() {
  if (hints_ == nullptr) return;
  const double ratio = devicePixelRatioF();
  const QRect panel = panelRect();
  const QRect device = QRectF(QPointF(panel.topLeft()) * ratio, QSizeF(panel.size()) * ratio).toAlignedRect();
  hints_->limitInput(winId(), {{device.x(), device.y(), device.width(), device.height()}});
}

}  // namespace vellora
