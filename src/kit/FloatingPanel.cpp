#include "kit/FloatingPanel.h"

#include <QPainter>
#include <QScreen>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

FloatingPanel::FloatingPanel(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      padding_(tokens::space2, tokens::space2, tokens::space2, tokens::space2),
      frame_(screen()) {
  setAttribute(Qt::WA_TranslucentBackground);
  followTheme(*this);
  updateMargins();
}

void FloatingPanel::setPadding(const QMargins& padding) {
  padding_ = padding;
  updateMargins();
}

void FloatingPanel::setRadius(double radius) {
  frame_.setRadius(radius);
  update();
}

void FloatingPanel::updateMargins() {
  const int room = frame_.margin();
  setContentsMargins(padding_ + QMargins(room, room, room, room));
  update();
}

void FloatingPanel::showEvent(QShowEvent* event) {
  // The desktop may have begun or ceased to blend windows since this one was made; the panel itself stays where it is.
  const QRect before = panelRect().translated(pos());
  if (frame_.refresh(screen())) {
    updateMargins();
    const int room = frame_.margin();
    setGeometry(before.adjusted(-room, -room, room, room));
  }
  QWidget::showEvent(event);
}

void FloatingPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  frame_.paint(painter, rect());
  paintPanel(painter, panelRect());
}

void FloatingPanel::paintPanel(QPainter&, const QRect&) {}

}  // namespace vellora
