#include "editor/ui/SidePanel.h"

#include <QPainter>
#include <QVariantAnimation>

#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

SidePanel::SidePanel(QWidget* parent) : QWidget(parent), slide_(new QVariantAnimation(this)) {
  slide_->setDuration(tokens::motionLong);
  slide_->setEasingCurve(QEasingCurve::OutCubic);
  connect(slide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    shown_ = value.toDouble();
    place();
  });
  connect(slide_, &QVariantAnimation::finished, this, [this] { setVisible(open_); });
  repaintOnThemeChange(*this);
  hide();
}

void SidePanel::setContent(QWidget* content) {
  content_ = content;
  content_->setParent(this);
  setFixedWidth(content_->sizeHint().width() + 1);
  content_->show();
  place();
}

void SidePanel::setOpen(bool open) {
  if (open_ == open) return;
  open_ = open;
  slide_->stop();
  if (Theme::shared().reducedMotion()) {
    shown_ = open ? 1 : 0;
    place();
    setVisible(open);
    return;
  }
  show();
  slide_->setStartValue(shown_);
  slide_->setEndValue(open ? 1.0 : 0.0);
  slide_->start();
}

void SidePanel::place() {
  if (content_ == nullptr) return;
  const int outside = qRound((1 - shown_) * width());
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  content_->setGeometry(mirrored ? -outside : 1 + outside, 0, width() - 1, height());
  update();
}

void SidePanel::resizeEvent(QResizeEvent*) {
  place();
}

void SidePanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  painter.fillRect(rect(), palette.sunken);
  const double outside = (1 - shown_) * width();
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  const QRectF ground(mirrored ? -outside : outside, 0, width(), height());
  painter.fillRect(ground, palette.surface);
  QRectF line(mirrored ? ground.right() - 1 : ground.left(), 0, 1, height());
  line = snapped(painter, line);
  line.setWidth(hairline(painter));
  painter.fillRect(line, palette.line);
}

}  // namespace vellora
