#include "editor/ui/compressor/ElidedLabel.h"

#include <QPainter>
#include <QStyle>

#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  setFont(secondaryFont());
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  repaintOnThemeChange(*this);
}

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setFont(font());
  painter.setPen(Theme::shared().palette().secondaryText);
  painter.drawText(rect(),
                   static_cast<int>(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignVCenter) |
                       Qt::TextSingleLine,
                   fontMetrics().elidedText(text(), Qt::ElideMiddle, width()));
}

}  // namespace vellora
