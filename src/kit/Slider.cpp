#include "kit/Slider.h"

#include <cmath>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double knobSide = 14;
constexpr double trackThickness = 4;
constexpr int pageSteps = 10;

}  // namespace

Slider::Slider(QWidget* parent) : QAbstractSlider(parent) {
  setOrientation(Qt::Horizontal);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setScale(0, 1, 0.01);
  repaintOnThemeChange(*this);
}

void Slider::setScale(double minimum, double maximum, double step) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  step_ = step;
  showing_ = true;
  setRange(static_cast<int>(std::lround(minimum_ / step)), static_cast<int>(std::lround(maximum_ / step)));
  setSingleStep(1);
  setPageStep(pageSteps);
  showing_ = false;
  setNumber(number_);
}

void Slider::setNumber(double number) {
  number_ = std::isfinite(number) ? std::clamp(number, minimum_, maximum_) : minimum_;
  showing_ = true;
  setValue(static_cast<int>(std::lround(number_ / step_)));
  showing_ = false;
  update();
}

QSize Slider::sizeHint() const {
  return {160, tokens::minimumHit};
}

QSize Slider::minimumSizeHint() const {
  return {64, tokens::minimumHit};
}

QRectF Slider::trackRect() const {
  const double side = tokens::focusRingRoom;
  return {side, (height() - trackThickness) / 2.0, std::max(width() - 2 * side, 1.0), trackThickness};
}

QRectF Slider::travel() const {
  return trackRect().adjusted(knobSide / 2, 0, -knobSide / 2, 0);
}

double Slider::placeOf(double number) const {
  const QRectF track = travel();
  const double part = maximum_ > minimum_ ? (number - minimum_) / (maximum_ - minimum_) : 0;
  return isMirrored() ? track.right() - part * track.width() : track.left() + part * track.width();
}

double Slider::numberAt(double x) const {
  const QRectF track = travel();
  const double part = (isMirrored() ? track.right() - x : x - track.left()) / track.width();
  const double number = minimum_ + std::clamp(part, 0.0, 1.0) * (maximum_ - minimum_);
  return std::clamp(std::round(number / step_) * step_, minimum_, maximum_);
}

void Slider::choose(double number) {
  if (number == number_) return;
  editing_ = true;
  setNumber(number);
  emit numberChanged(number_);
}

void Slider::finish() {
  if (!editing_) return;
  editing_ = false;
  emit editingFinished();
}

void Slider::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF track = snapped(painter, trackRect());
  const double place = placeOf(number_);
  fillRounded(painter, track, trackThickness / 2, isEnabled() ? palette.controlBorder : palette.line);
  const bool bothSigns = minimum_ < 0 && maximum_ > 0;
  const double start = bothSigns ? placeOf(0) : isMirrored() ? track.right() : track.left();
  const QRectF filled(QPointF(std::min(start, place), track.top()), QPointF(std::max(start, place), track.bottom()));
  if (number_ != (bothSigns ? 0 : minimum_)) {
    fillRounded(painter, filled, trackThickness / 2, isEnabled() ? palette.accentFill : palette.disabledText);
  }
  if (bothSigns) {
    const QRectF mark(start - 1, track.center().y() - 4, 2, 8);
    fillRounded(painter, mark, 1, isEnabled() ? palette.controlBorder : palette.line);
  }
  QRectF knob(0, 0, knobSide, knobSide);
  knob.moveCenter({place, track.center().y()});
  painter.setPen(Qt::NoPen);
  if (isEnabled()) {
    painter.setBrush(QColor(0, 0, 0, 34));
    painter.drawEllipse(knob.adjusted(-0.5, 0.5, 0.5, 1.5));
  }
  painter.setBrush(isEnabled() ? palette.onFill : palette.line);
  painter.drawEllipse(knob);
  const QColor border = !isEnabled()                     ? palette.disabledText
                        : isSliderDown() || underMouse() ? palette.accent
                                                         : palette.controlBorder;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(border, isSliderDown() ? 2 : 1));
  const double inset = isSliderDown() ? 1 : 0.5;
  painter.drawEllipse(knob.adjusted(inset, inset, -inset, -inset));
  if (focus_.visible()) drawFocusRing(painter, knob, knobSide / 2);
}

void Slider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) {
    event->ignore();
    return;
  }
  const double x = event->position().x();
  const double place = placeOf(number_);
  grabOffset_ = std::abs(x - place) <= knobSide / 2 ? place - x : 0;
  dragging_ = true;
  setSliderDown(true);
  if (grabOffset_ == 0) choose(numberAt(x));
  update();
}

void Slider::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_) choose(numberAt(event->position().x() + grabOffset_));
}

void Slider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !dragging_) return;
  dragging_ = false;
  setSliderDown(false);
  update();
  finish();
}

void Slider::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !default_) return;
  choose(*default_);
  finish();
}

void Slider::keyPressEvent(QKeyEvent* event) {
  const bool far = event->modifiers().testFlag(Qt::ShiftModifier);
  const bool arrow = event->key() == Qt::Key_Left || event->key() == Qt::Key_Right || event->key() == Qt::Key_Up ||
                     event->key() == Qt::Key_Down;
  if (!arrow) {
    QAbstractSlider::keyPressEvent(event);
    return;
  }
  const bool backward = event->key() == Qt::Key_Down || event->key() == (isMirrored() ? Qt::Key_Right : Qt::Key_Left);
  // From the step that is shown, so that a number between two steps comes onto one.
  setValue(value() + (backward ? -1 : 1) * (far ? pageSteps : 1));
}

void Slider::keyReleaseEvent(QKeyEvent* event) {
  QAbstractSlider::keyReleaseEvent(event);
  if (!event->isAutoRepeat()) finish();
}

void Slider::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void Slider::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QAbstractSlider::focusInEvent(event);
  update();
}

void Slider::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QAbstractSlider::focusOutEvent(event);
  finish();
  update();
}

void Slider::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  // Keys and screen readers move the inherited value.
  if (change == SliderValueChange && !showing_) choose(std::clamp(value() * step_, minimum_, maximum_));
}

}  // namespace vellora
