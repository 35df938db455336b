#include "kit/Button.h"

#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int buttonPadding = 14;
constexpr int buttonIconGap = 6;
constexpr double dotRadius = 2.5;
constexpr double dotInset = 5.5;

void prepare(QPushButton& button) {
  button.setFocusPolicy(Qt::StrongFocus);
  button.setAttribute(Qt::WA_Hover);
  button.setAutoDefault(false);
  repaintOnThemeChange(button);
}

QColor blend(const QColor& under, const QColor& over) {
  const double a = over.alphaF();
  const auto mix = [a](int below, int above) { return qRound(below * (1 - a) + above * a); };
  return QColor(mix(under.red(), over.red()), mix(under.green(), over.green()), mix(under.blue(), over.blue()));
}

}  // namespace

Button::Button(Role role, const QString& text, QWidget* parent) : QPushButton(text, parent), role_(role) {
  prepare(*this);
  setFont(bodyStrongFont());
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void Button::setRole(Role role) {
  role_ = role;
  update();
}

void Button::setIconName(const QString& name) {
  iconName_ = name;
  updateGeometry();
  update();
}

QSize Button::sizeHint() const {
  const int room = 2 * tokens::focusRingRoom;
  int width = fontMetrics().horizontalAdvance(text()) + 2 * buttonPadding;
  if (!iconName_.isEmpty()) width += tokens::menuIcon + (text().isEmpty() ? 0 : buttonIconGap);
  return {std::max(width, 64) + room, tokens::controlHeight + room};
}

void Button::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const int room = tokens::focusRingRoom;
  const QRectF edge = QRectF(rect()).adjusted(room, room, -room, -room);
  const bool filled = role_ == Role::Primary || role_ == Role::Destructive;
  QColor ink = filled ? palette.onFill : palette.text;
  const QColor touch = !isEnabled()   ? QColor(Qt::transparent)
                       : isDown()     ? palette.pressed
                       : underMouse() ? palette.hover
                                      : QColor(Qt::transparent);
  if (!isEnabled()) {
    ink = palette.disabledText;
    if (role_ != Role::Quiet) fillRounded(painter, edge, tokens::controlRadius, palette.hover);
  } else if (filled) {
    // White over a filled ground would wash it out in light mode and black muddy it in dark: both go darker.
    QColor ground = role_ == Role::Primary ? palette.accentFill : palette.dangerFill;
    if (isDown()) {
      ground = ground.darker(120);
    } else if (underMouse()) {
      ground = ground.darker(109);
    }
    fillRounded(painter, edge, tokens::controlRadius, ground);
  } else {
    if (role_ == Role::Secondary) {
      fillRounded(painter, edge, tokens::controlRadius, blend(palette.raised, touch));
      strokeRounded(painter, edge, tokens::controlRadius, palette.controlBorder);
    } else {
      fillRounded(painter, edge, tokens::controlRadius, touch);
    }
  }
  const int textWidth = fontMetrics().horizontalAdvance(text());
  double x = edge.left();
  if (iconName_.isEmpty()) {
    x += (edge.width() - textWidth) / 2;
  } else {
    const int gap = text().isEmpty() ? 0 : buttonIconGap;
    x += (edge.width() - textWidth - gap - tokens::menuIcon) / 2;
    paintIcon(
        painter, iconName_,
        snapped(painter, QRectF(x, edge.center().y() - tokens::menuIcon / 2.0, tokens::menuIcon, tokens::menuIcon)),
        ink);
    x += tokens::menuIcon + gap;
  }
  painter.setPen(ink);
  painter.setFont(font());
  painter.drawText(QRectF(x, edge.top(), textWidth + 1, edge.height()), Qt::AlignLeft | Qt::AlignVCenter, text());
  if (focus_.visible()) drawFocusRing(painter, edge, tokens::controlRadius);
}

void Button::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void Button::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

void Button::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    animateClick();
    return;
  }
  QPushButton::keyPressEvent(event);
}

IconButton::IconButton(const QString& iconName, const QString& title, const QString& shortcut, QWidget* parent)
    : QPushButton(parent), iconName_(iconName), iconSide_(tokens::barIcon) {
  prepare(*this);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setTitle(title, shortcut);
}

void IconButton::setIconName(const QString& name) {
  iconName_ = name;
  update();
}

void IconButton::setTitle(const QString& title, const QString& shortcut) {
  setAccessibleName(title);
  setToolTip(shortcut.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, shortcut));
}

void IconButton::setIconSide(int points) {
  iconSide_ = points;
  updateGeometry();
  update();
}

void IconButton::setIconColor(const QColor& color) {
  iconColor_ = color;
  update();
}

void IconButton::setDot(const QColor& color) {
  if (dotColor_ == color) return;
  dotColor_ = color;
  update();
}

QSize IconButton::sizeHint() const {
  const int side = std::max(tokens::minimumHit, iconSide_ + 12) + 2 * tokens::focusRingRoom;
  return {side, side};
}

void IconButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const int room = tokens::focusRingRoom;
  const QRectF edge = QRectF(rect()).adjusted(room, room, -room, -room);
  QColor ink = iconColor_.isValid() ? iconColor_ : palette.text;
  if (!isEnabled()) {
    ink = palette.disabledText;
  } else if (isChecked()) {
    ink = palette.onFill;
    fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.accentFill.darker(115) : palette.accentFill);
  } else if (isDown() || underMouse()) {
    fillRounded(painter, edge, tokens::controlRadius, isDown() ? palette.pressed : palette.hover);
  }
  QRectF iconRect(0, 0, iconSide_, iconSide_);
  iconRect.moveCenter(edge.center());
  paintIcon(painter, iconName_, snapped(painter, iconRect), ink);
  if (dotColor_.isValid()) {
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    const double x = mirrored ? edge.left() + dotInset : edge.right() - dotInset;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(dotColor_);
    painter.drawEllipse(QPointF(x, edge.top() + dotInset), dotRadius, dotRadius);
  }
  if (focus_.visible()) drawFocusRing(painter, edge, tokens::controlRadius);
}

void IconButton::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QPushButton::focusInEvent(event);
  update();
}

void IconButton::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QPushButton::focusOutEvent(event);
  update();
}

}  // namespace vellora
