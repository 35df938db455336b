#include "editor/ui/backdrop/PointPad.h"

#include <algorithm>
#include <cmath>

#include <QKeyEvent>
#include <QLocale>
#include <QMouseEvent>
#include <QPainter>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double knobSide = 14;
constexpr double keyStep = 0.01;  // of the plane
constexpr double snapReach = 0.03;

}  // namespace

PointPad::PointPad(Point first, Point last, Point defaultPlace, const QString& title, QWidget* parent)
    : QWidget(parent), first_(first), last_(last), default_(defaultPlace), place_(defaultPlace), title_(title) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setPlace(defaultPlace);
  repaintOnThemeChange(*this);
}

void PointPad::setPlace(Point place) {
  place_ = {std::clamp(place.x, first_.x, last_.x), std::clamp(place.y, first_.y, last_.y)};
  const auto percent = [this](double value) { return locale().toString(std::lround(value * 100)); };
  const QString text = QStringLiteral("%1: %2 %, %3 %").arg(title_, percent(place_.x), percent(place_.y));
  setToolTip(text);
  setAccessibleName(text);
  update();
}

QRectF PointPad::plane() const {
  const double room = tokens::focusRingRoom;
  return QRectF(rect()).adjusted(room, room, -room, -room);
}

QPointF PointPad::positionOf(Point place) const {
  const QRectF area = plane().adjusted(knobSide / 2, knobSide / 2, -knobSide / 2, -knobSide / 2);
  return {area.left() + (place.x - first_.x) / (last_.x - first_.x) * area.width(),
          area.top() + (place.y - first_.y) / (last_.y - first_.y) * area.height()};
}

void PointPad::choose(Point place) {
  const Point before = place_;
  setPlace(place);
  if (place_ == before) return;
  editing_ = true;
  emit placeChanged(place_);
}

void PointPad::moveTo(const QPointF& position) {
  const QRectF area = plane().adjusted(knobSide / 2, knobSide / 2, -knobSide / 2, -knobSide / 2);
  const auto along = [](double value, double from, double length, double first, double last, double sticky) {
    const double chosen = first + (value - from) / length * (last - first);
    const double rounded = std::round(chosen * 100) / 100;
    return std::abs(rounded - sticky) <= snapReach * (last - first) ? sticky : rounded;
  };
  choose({along(position.x(), area.left(), area.width(), first_.x, last_.x, default_.x),
          along(position.y(), area.top(), area.height(), first_.y, last_.y, default_.y)});
}

void PointPad::finish() {
  if (!editing_) return;
  editing_ = false;
  emit editingFinished();
}

void PointPad::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF area = plane();
  fillRounded(painter, area, tokens::controlRadius, palette.sunken);
  strokeRounded(painter, area, tokens::controlRadius, underMouse() ? palette.controlBorder : palette.line);
  const QPointF home = positionOf(default_);
  painter.setPen(QPen(palette.line, hairline(painter)));
  painter.drawLine(QPointF(area.left() + 1, home.y()), QPointF(area.right() - 1, home.y()));
  painter.drawLine(QPointF(home.x(), area.top() + 1), QPointF(home.x(), area.bottom() - 1));
  QRectF knob(0, 0, knobSide, knobSide);
  knob.moveCenter(positionOf(place_));
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 34));
  painter.drawEllipse(knob.adjusted(-0.5, 0.5, 0.5, 1.5));
  painter.setBrush(place_ == default_ ? palette.onFill : palette.accentFill);
  painter.setPen(QPen(place_ == default_ ? palette.controlBorder : palette.onFill, 1.5));
  painter.drawEllipse(knob.adjusted(0.75, 0.75, -0.75, -0.75));
  if (focus_.visible()) drawFocusRing(painter, area, tokens::controlRadius);
}

void PointPad::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) moveTo(event->position());
}

void PointPad::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) moveTo(event->position());
}

void PointPad::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) finish();
}

void PointPad::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  choose(default_);
  finish();
}

void PointPad::keyPressEvent(QKeyEvent* event) {
  const double steps = event->modifiers().testFlag(Qt::ShiftModifier) ? 10 : 1;
  Point next = place_;
  switch (event->key()) {
    case Qt::Key_Left:
      next.x -= keyStep * steps * (last_.x - first_.x);
      break;
    case Qt::Key_Right:
      next.x += keyStep * steps * (last_.x - first_.x);
      break;
    case Qt::Key_Up:
      next.y -= keyStep * steps * (last_.y - first_.y);
      break;
    case Qt::Key_Down:
      next.y += keyStep * steps * (last_.y - first_.y);
      break;
    case Qt::Key_Home:
      next = default_;
      break;
    default:
      QWidget::keyPressEvent(event);
      return;
  }
  choose(next);
}

void PointPad::keyReleaseEvent(QKeyEvent* event) {
  QWidget::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) finish();
}

void PointPad::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QWidget::focusInEvent(event);
  update();
}

void PointPad::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QWidget::focusOutEvent(event);
  finish();
  update();
}

}  // namespace vellora
