#include "kit/FloatingPanel.h"

#include <QPainter>
#include <QScreen>

#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

FloatingPanel::FloatingPanel(QWidget* parent, Qt::WindowFlags flags)
    : QWidget(parent, flags | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint),
      padding_(tokens::space2, tokens::space2, tokens::space2, tokens::space2),
      radius_(tokens::panelRadius),
      composited_(isComposited(screen())) {
  setAttribute(Qt::WA_TranslucentBackground);
  followTheme(*this);
  updateMargins();
}

void FloatingPanel::setPadding(const QMargins& padding) {
  padding_ = padding;
  updateMargins();
}

void FloatingPanel::setRadius(double radius) {
  radius_ = radius;
  update();
}

QRect FloatingPanel::panelRect() const {
  if (!composited_) return rect();
  const int margin = PanelShadow::margin();
  return rect().adjusted(margin, margin, -margin, -margin);
}

void FloatingPanel::movePanel(const QPoint& position) {
  move(position - panelRect().topLeft());
}

void FloatingPanel::updateMargins() {
  const int margin = composited_ ? PanelShadow::margin() : 0;
  setContentsMargins(padding_ + QMargins(margin, margin, margin, margin));
  update();
}

void FloatingPanel::showEvent(QShowEvent* event) {
  if (const bool composited = isComposited(screen()); composited != composited_) {
    composited_ = composited;
    updateMargins();
    adjustSize();
  }
  QWidget::showEvent(event);
}

void FloatingPanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const Palette& palette = Theme::shared().palette();
  const QRectF panel = panelRect();
  const double radius = composited_ ? radius_ : 0;
  if (composited_) shadow_.paint(painter, panel, radius);
  fillRounded(painter, panel, radius, palette.raised);
  strokeRounded(painter, panel, radius, palette.line);
  paintPanel(painter, panelRect());
}

void FloatingPanel::paintPanel(QPainter&, const QRect&) {}

}  // namespace vellora
