#include "kit/Switch.h"

#include <QKeyEvent>
#include <QPainter>
#include <QVariantAnimation>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int trackWidth = 36;
constexpr int trackHeight = 20;
constexpr int knobGap = 2;

QColor between(const QColor& from, const QColor& to, double part) {
  const auto mix = [part](int a, int b) { return qRound(a + (b - a) * part); };
  return QColor(mix(from.red(), to.red()), mix(from.green(), to.green()), mix(from.blue(), to.blue()));
}

}  // namespace

Switch::Switch(QWidget* parent) : QCheckBox(parent), slide_(new QVariantAnimation(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  slide_->setDuration(tokens::motionShort);
  slide_->setEasingCurve(QEasingCurve::OutCubic);
  connect(slide_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    knob_ = value.toDouble();
    update();
  });
  repaintOnThemeChange(*this);
}

QSize Switch::sizeHint() const {
  const int room = 2 * (tokens::focusRingRoom + 1);
  return {trackWidth + room, std::max(trackHeight + room, tokens::minimumHit)};
}

void Switch::nextCheckState() {
  emit toggleRequested(!isChecked());
}

void Switch::checkStateSet() {
  QCheckBox::checkStateSet();
  const double target = isChecked() ? 1.0 : 0.0;
  slide_->stop();
  if (!isVisible() || Theme::shared().reducedMotion()) {
    knob_ = target;
    update();
    return;
  }
  slide_->setStartValue(knob_);
  slide_->setEndValue(target);
  slide_->start();
}

void Switch::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const ThemeColors& palette = Theme::shared().palette();
  QRectF track(0, 0, trackWidth, trackHeight);
  track.moveCenter(QRectF(rect()).center());
  track = snapped(painter, track);
  QColor ground = between(palette.controlBorder, palette.accentFill, knob_);
  if (!isEnabled()) {
    ground.setAlphaF(0.5F);
  } else if (underMouse()) {
    ground = ground.darker(106);
  }
  fillRounded(painter, track, trackHeight / 2.0, ground);
  const double side = trackHeight - 2 * knobGap;
  const double travel = trackWidth - trackHeight;
  const bool mirrored = layoutDirection() == Qt::RightToLeft;
  const double x = track.left() + knobGap + travel * (mirrored ? 1 - knob_ : knob_);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 30));
  painter.drawEllipse(QRectF(x, track.top() + knobGap + 0.75, side, side));
  painter.setBrush(palette.onFill);
  painter.drawEllipse(QRectF(x, track.top() + knobGap, side, side));
  if (focus_.visible()) drawFocusRing(painter, track, trackHeight / 2.0);
}

void Switch::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QCheckBox::keyPressEvent(event);
}

void Switch::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QCheckBox::focusInEvent(event);
  update();
}

void Switch::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QCheckBox::focusOutEvent(event);
  update();
}

}  // namespace vellora
