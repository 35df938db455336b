#include "editor/ui/backdrop/GradientBar.h"

#include <algorithm>
#include <cmath>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include "editor/backdrop/BackdropPainter.h"
#include "kit/ColorSwatch.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double knobSide = 18;
constexpr double barHeight = 20;
constexpr double removeReach = 34;  // how far from the bar a knob is let go to take it out
constexpr double chequer = 5;

}  // namespace

GradientBar::GradientBar(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  //% "Colors of the gradient"
  setAccessibleName(qtTrId("backdrop.gradient.stops"));
  //% "Drag a color to move it, away to remove it; click to add one"
  setToolTip(qtTrId("backdrop.gradient.stopsHelp"));
  repaintOnThemeChange(*this);
}

void GradientBar::setStops(const std::vector<GradientStop>& stops) {
  stops_ = stops;
  chosen_ = std::min(chosen_, stops_.empty() ? 0 : stops_.size() - 1);
  update();
}

void GradientBar::setChosen(std::size_t index) {
  chosen_ = std::min(index, stops_.empty() ? 0 : stops_.size() - 1);
  update();
  emit chosenChanged();
}

QSize GradientBar::sizeHint() const {
  return {160, static_cast<int>(knobSide) + 2 * tokens::focusRingRoom + 6};
}

QRectF GradientBar::bar() const {
  const double room = tokens::focusRingRoom;
  return {room, (height() - barHeight) / 2, width() - 2 * room, barHeight};
}

double GradientBar::placeOf(double position) const {
  const QRectF area = bar();
  return area.left() + knobSide / 2 + position * (area.width() - knobSide);
}

double GradientBar::positionAt(double x) const {
  const QRectF area = bar();
  const double position = (x - area.left() - knobSide / 2) / (area.width() - knobSide);
  return std::round(std::clamp(position, 0.0, 1.0) * 100) / 100;
}

std::optional<std::size_t> GradientBar::stopAt(double x) const {
  // The chosen one lies on top, then the later ones.
  if (chosen_ < stops_.size() && std::abs(placeOf(stops_[chosen_].position) - x) <= knobSide / 2) return chosen_;
  for (std::size_t i = stops_.size(); i-- > 0;) {
    if (std::abs(placeOf(stops_[i].position) - x) <= knobSide / 2) return i;
  }
  return std::nullopt;
}

void GradientBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF area = snapped(painter, bar());
  QPainterPath shape;
  shape.addRoundedRect(area, tokens::controlRadius, tokens::controlRadius);
  painter.save();
  painter.setClipPath(shape);
  paintChequers(painter, area, chequer);
  BackdropPainter().drawBackground(painter, area, {BackdropBackground::Gradient{stops_, 0}});
  painter.restore();
  QColor edge = palette.text;
  edge.setAlphaF(0.16F);
  strokeRounded(painter, area, tokens::controlRadius, edge);
  const auto knob = [&](std::size_t index) {
    const QPointF center(placeOf(stops_[index].position), area.center().y());
    const bool chosen = index == chosen_;
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 60));
    painter.drawEllipse(center + QPointF(0, 0.5), knobSide / 2 + 0.5, knobSide / 2 + 0.5);
    painter.setBrush(Qt::white);
    painter.drawEllipse(center, knobSide / 2, knobSide / 2);
    paintColorSpot(
        painter, center, knobSide - 6,
        QColor::fromRgbF(static_cast<float>(stops_[index].color.red), static_cast<float>(stops_[index].color.green),
                         static_cast<float>(stops_[index].color.blue), static_cast<float>(stops_[index].color.alpha)));
    if (!chosen) return;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(palette.accent, 2));
    painter.drawEllipse(center, knobSide / 2, knobSide / 2);
  };
  for (std::size_t i = 0; i < stops_.size(); ++i) {
    if (i != chosen_) knob(i);
  }
  if (chosen_ < stops_.size()) knob(chosen_);
  if (focus_.visible()) drawFocusRing(painter, area, tokens::controlRadius);
}

void GradientBar::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const double x = event->position().x();
  if (const auto stop = stopAt(x)) {
    setChosen(*stop);
  } else {
    emit addRequested(positionAt(x));
  }
  dragging_ = true;
}

void GradientBar::mouseMoveEvent(QMouseEvent* event) {
  if (!dragging_) return;
  emit moved(positionAt(event->position().x()));
}

void GradientBar::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !dragging_) return;
  dragging_ = false;
  if (std::abs(event->position().y() - height() / 2.0) > removeReach) emit removeRequested();
  emit editingFinished();
}

void GradientBar::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && stopAt(event->position().x())) emit colorRequested();
}

void GradientBar::keyPressEvent(QKeyEvent* event) {
  if (stops_.empty()) return;
  const double step = event->modifiers().testFlag(Qt::ShiftModifier) ? 0.10 : 0.01;
  const double position = stops_[chosen_].position;
  switch (event->key()) {
    case Qt::Key_Left:
      emit moved(std::max(position - step, 0.0));
      return;
    case Qt::Key_Right:
      emit moved(std::min(position + step, 1.0));
      return;
    case Qt::Key_PageUp:
      setChosen(chosen_ == 0 ? stops_.size() - 1 : chosen_ - 1);
      return;
    case Qt::Key_PageDown:
      setChosen((chosen_ + 1) % stops_.size());
      return;
    case Qt::Key_Insert:
    case Qt::Key_Plus:
      emit addRequested(chosen_ + 1 < stops_.size()
                            ? (position + stops_[chosen_ + 1].position) / 2
                            : (position + (chosen_ > 0 ? stops_[chosen_ - 1].position : 0)) / 2);
      return;
    case Qt::Key_Delete:
    case Qt::Key_Backspace:
      emit removeRequested();
      return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      emit colorRequested();
      return;
    default:
      QWidget::keyPressEvent(event);
  }
}

void GradientBar::keyReleaseEvent(QKeyEvent* event) {
  QWidget::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) emit editingFinished();
}

void GradientBar::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QWidget::focusInEvent(event);
  update();
}

void GradientBar::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace vellora
