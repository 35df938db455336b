#include "kit/ColorSwatch.h"

#include <cmath>

#include <QPainter>
#include <QPainterPath>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int hitWidth = 26;
constexpr double spot = 16;
constexpr double ring = 22;
constexpr double ringWidth = 2;
constexpr int plusSide = 12;
constexpr double chequer = 4;

}  // namespace

ColorSwatch::ColorSwatch(const QColor& color, const QString& title, QWidget* parent)
    : QAbstractButton(parent), color_(color) {
  setFocusPolicy(Qt::TabFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setTitle(title);
  repaintOnThemeChange(*this);
}

void ColorSwatch::setColor(const QColor& color) {
  color_ = color;
  update();
}

void ColorSwatch::setTitle(const QString& title, const QString& shortcut) {
  setAccessibleName(title);
  setToolTip(shortcut.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, shortcut));
}

QSize ColorSwatch::sizeHint() const {
  return {hitWidth, tokens::minimumHit};
}

void ColorSwatch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  const QPointF center = QRectF(rect()).center();
  painter.setRenderHint(QPainter::Antialiasing);
  if (!color_.isValid()) {
    painter.setBrush(isDown() ? palette.pressed : underMouse() ? palette.hover : QColor(Qt::transparent));
    painter.setPen(QPen(palette.controlBorder, 1, Qt::DashLine));
    painter.drawEllipse(center, spot / 2, spot / 2);
    QRectF plus(0, 0, plusSide, plusSide);
    plus.moveCenter(center);
    paintIcon(painter, QStringLiteral("add"), plus, isEnabled() ? palette.secondaryText : palette.disabledText);
  } else {
    const double grow = underMouse() && !isChecked() ? 1 : 0;
    paintColorSpot(painter, center, spot + 2 * grow, color_);
  }
  if (isChecked() || focus_.visible()) {
    QColor ink = palette.accent;
    // The ring is in the colour itself where that can be seen.
    if (!focus_.visible() && color_.isValid()) ink = palette.text;
    painter.setPen(QPen(ink, ringWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(center, ring / 2, ring / 2);
  }
}

void ColorSwatch::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QAbstractButton::focusInEvent(event);
  update();
}

void ColorSwatch::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QAbstractButton::focusOutEvent(event);
  update();
}

void paintChequers(QPainter& painter, const QRectF& rect, double side) {
  painter.fillRect(rect, Qt::white);
  for (double y = rect.top(); y < rect.bottom(); y += side) {
    const bool odd = static_cast<long>(std::lround((y - rect.top()) / side)) % 2 != 0;
    for (double x = rect.left() + (odd ? side : 0); x < rect.right(); x += 2 * side) {
      painter.fillRect(QRectF(x, y, side, side) & rect, QColor(0xCCCCCC));
    }
  }
}

void paintColorSpot(QPainter& painter, const QPointF& center, double diameter, const QColor& color) {
  const QRectF box(center.x() - diameter / 2, center.y() - diameter / 2, diameter, diameter);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (color.alpha() < 255) {
    QPainterPath circle;
    circle.addEllipse(box);
    painter.save();
    painter.setClipPath(circle);
    paintChequers(painter, box, chequer);
    painter.restore();
  }
  const ThemeColors& palette = Theme::shared().palette();
  const double contrast = std::abs(color.lightnessF() - palette.surface.lightnessF());
  painter.setBrush(color);
  painter.setPen(contrast < 0.15 || color.alpha() < 255 ? QPen(palette.disabledText, 1) : QPen(Qt::NoPen));
  painter.drawEllipse(box);
  painter.restore();
}

}  // namespace vellora
