#include "kit/TextField.h"

#include <QPainter>

#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

TextField::TextField(QWidget* parent) : QLineEdit(parent) {
  setFrame(false);
  setFont(bodyFont());
  setTextMargins(tokens::space2 - 2, 0, tokens::space2 - 2, 0);
  QPalette palette;
  palette.setColor(QPalette::Base, Qt::transparent);
  setPalette(palette);
  repaintOnThemeChange(*this);
}

QSize TextField::sizeHint() const {
  return {120, tokens::minimumHit};
}

void TextField::setInvalid(bool invalid) {
  if (invalid_ == invalid) return;
  invalid_ = invalid;
  update();
}

void TextField::paintEvent(QPaintEvent* event) {
  {
    QPainter painter(this);
    const ThemeColors& palette = Theme::shared().palette();
    fillRounded(painter, rect(), tokens::controlRadius, palette.surface);
    const QColor edge = invalid_ ? palette.record : hasFocus() ? palette.accent : palette.controlBorder;
    strokeRounded(painter, rect(), tokens::controlRadius, edge, hasFocus() ? tokens::focusRingWidth : 1);
  }
  QLineEdit::paintEvent(event);
}

}  // namespace vellora
