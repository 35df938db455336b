#include "kit/LinkRow.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int rowHeight = 44;
constexpr int touchInset = 4;
constexpr int trailingSide = 14;

}  // namespace

LinkRow::LinkRow(const QString& iconName, const QString& title, const QString& trailingIcon, QWidget* parent)
    : QPushButton(title, parent), iconName_(iconName), trailingIcon_(trailingIcon) {
  setFont(bodyFont());
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setAutoDefault(false);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setCursor(Qt::PointingHandCursor);
  repaintOnThemeChange(*this);
}

void LinkRow::setDetail(const QString& detail) {
  detail_ = detail;
  setAccessibleDescription(detail);
  update();
}

QSize LinkRow::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 3 * tokens::space4 + tokens::menuIcon + trailingSide, rowHeight};
}

void LinkRow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF touch = QRectF(rect()).adjusted(touchInset, touchInset, -touchInset, -touchInset);
  if (isEnabled() && (isDown() || underMouse())) {
    fillRounded(painter, touch, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
  }
  const QColor ink = isEnabled() ? palette.text : palette.disabledText;
  const QColor quiet = isEnabled() ? palette.secondaryText : palette.disabledText;
  QRect inner = rect().adjusted(tokens::space4, 0, -tokens::space4, 0);
  const QRect all = inner;
  const auto place = [&](const QRect& logical) { return QStyle::visualRect(layoutDirection(), all, logical); };
  const auto square = [&](int x, int side) { return place({x, inner.center().y() + 1 - side / 2, side, side}); };
  if (!iconName_.isEmpty()) {
    paintIcon(painter, iconName_, snapped(painter, square(inner.left(), tokens::menuIcon)), quiet);
    inner.setLeft(inner.left() + tokens::menuIcon + tokens::space3);
  }
  paintIcon(painter, trailingIcon_, snapped(painter, square(inner.right() + 1 - trailingSide, trailingSide)), quiet);
  inner.setRight(inner.right() - trailingSide - tokens::space2);
  painter.setFont(font());
  painter.setPen(ink);
  const auto leading = QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft);
  const auto trailing = QStyle::visualAlignment(layoutDirection(), Qt::AlignRight);
  painter.drawText(place(inner), static_cast<int>(leading | Qt::AlignVCenter), text());
  if (!detail_.isEmpty()) {
    painter.setFont(secondaryFont());
    painter.setPen(quiet);
    inner.setLeft(inner.left() + fontMetrics().horizontalAdvance(text()) + tokens::space4);
    painter.drawText(place(inner), static_cast<int>(trailing | Qt::AlignVCenter),
                     QFontMetrics(secondaryFont()).elidedText(detail_, Qt::ElideMiddle, inner.width()));
  }
  if (focus_.visible()) {
    const double inset = tokens::focusRingWidth + tokens::focusRingGap;
    drawFocusRing(painter, touch.adjusted(inset, inset, -inset, -inset), tokens::controlRadius - inset);
  }
}

void LinkRow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QPushButton::keyPressEvent(event);
}

void LinkRow::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void LinkRow::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
