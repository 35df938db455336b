#include "app/settings/PageButton.h"

#include <QPainter>
#include <QStyle>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int buttonHeight = 34;
constexpr int leastWidth = 96;
constexpr int sidePadding = 10;

}  // namespace

PageButton::PageButton(const QString& iconName, QWidget* parent) : QPushButton(parent), iconName_(iconName) {
  setCheckable(true);
  setAutoExclusive(true);
  setFont(bodyFont());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  repaintOnThemeChange(*this);
}

QSize PageButton::sizeHint() const {
  return {leastWidth, buttonHeight};
}

void PageButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF edge = QRectF(rect());
  if (isChecked()) {
    fillRounded(painter, edge, tokens::controlRadius, palette.selection);
  } else if (isDown() || underMouse()) {
    fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
  }
  const QRect inner = rect().adjusted(sidePadding, 0, -sidePadding, 0);
  const auto place = [&](const QRect& logical) { return QStyle::visualRect(layoutDirection(), inner, logical); };
  const QRect iconRect =
      place({inner.left(), inner.center().y() + 1 - tokens::menuIcon / 2, tokens::menuIcon, tokens::menuIcon});
  paintIcon(painter, iconName_, snapped(painter, iconRect), isChecked() ? palette.accent : palette.secondaryText);
  painter.setFont(font());
  painter.setPen(palette.text);
  const auto leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
  painter.drawText(place(inner.adjusted(tokens::menuIcon + sidePadding, 0, 0, 0)),
                   static_cast<int>(leading | Qt::AlignVCenter), text());
  // The sidebar's edge is near: the ring lies inside.
  if (focus_.visible()) strokeRounded(painter, edge, tokens::controlRadius, palette.accent, tokens::focusRingWidth);
}

void PageButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void PageButton::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
