#include "record_editor/ui/WaveformScrubber.h"

#include <algorithm>
#include <cmath>

#include <QMouseEvent>
#include <QPainter>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr double barWidth = 2, barDistance = 3;
constexpr double leastBar = 2;  // height of silence
constexpr double plainHeight = 4;
constexpr double headWidth = 2, headKnob = 10;

}  // namespace

WaveformScrubber::WaveformScrubber(QWidget* parent) : QAbstractSlider(parent) {
  setOrientation(Qt::Horizontal);
  setFocusPolicy(Qt::StrongFocus);
  setSingleStep(1000);
  setPageStep(10'000);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  //% "Position"
  setAccessibleName(qtTrId("player.position"));
  repaintOnThemeChange(*this);
}

void WaveformScrubber::setDuration(double seconds) {
  duration_ = std::max(0.0, seconds);
  isShowing_ = true;
  setRange(0, static_cast<int>(std::min(duration_ * 1000, 2e9)));
  isShowing_ = false;
  update();
}

void WaveformScrubber::setPosition(double seconds) {
  if (position_ == seconds) return;
  position_ = seconds;
  isShowing_ = true;
  setValue(static_cast<int>(std::lround(std::min(seconds * 1000, 2e9))));
  isShowing_ = false;
  update();
}

void WaveformScrubber::setLevels(std::vector<float> levels) {
  levels_ = std::move(levels);
  measureColumns();
  update();
}

void WaveformScrubber::setMarks(std::vector<double> marks) {
  marks_ = std::move(marks);
  update();
}

QRectF WaveformScrubber::track() const {
  const double side = tokens::focusRingRoom + headKnob / 2;
  return {side, tokens::focusRingRoom + 2.0, std::max(1.0, width() - 2 * side),
          height() - 2 * (tokens::focusRingRoom + 2.0)};
}

double WaveformScrubber::placeOf(double seconds) const {
  const QRectF place = track();
  return place.left() + (duration_ > 0 ? std::clamp(seconds / duration_, 0.0, 1.0) : 0) * place.width();
}

double WaveformScrubber::secondsAt(double x) const {
  const QRectF place = track();
  return std::clamp((x - place.left()) / place.width(), 0.0, 1.0) * duration_;
}

void WaveformScrubber::measureColumns() {
  columns_.clear();
  if (levels_.empty()) return;
  const auto count = static_cast<std::size_t>(std::max(1.0, std::floor(track().width() / barDistance)));
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t from = i * levels_.size() / count;
    const std::size_t to = std::max(from + 1, (i + 1) * levels_.size() / count);
    columns_.push_back(*std::max_element(levels_.begin() + static_cast<std::ptrdiff_t>(from),
                                         levels_.begin() + static_cast<std::ptrdiff_t>(std::min(to, levels_.size()))));
  }
}

void WaveformScrubber::resizeEvent(QResizeEvent* event) {
  QAbstractSlider::resizeEvent(event);
  measureColumns();
}

void WaveformScrubber::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const ThemeColors& palette = Theme::shared().palette();
  const QRectF place = track();
  const double head = placeOf(position_);
  const QColor seen = isEnabled() ? palette.accentFill : palette.disabledText;
  const QColor ahead = isEnabled() ? palette.controlBorder : palette.line;
  if (columns_.empty()) {
    QRectF line(place.left(), place.center().y() - plainHeight / 2, place.width(), plainHeight);
    fillRounded(painter, line, plainHeight / 2, ahead);
    line.setRight(head);
    if (line.width() > 0) fillRounded(painter, line, plainHeight / 2, seen);
  }
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const double x =
        place.left() + (static_cast<double>(i) + 0.5) * place.width() / static_cast<double>(columns_.size());
    const double tall = std::max(leastBar, static_cast<double>(columns_[i]) * place.height());
    fillRounded(painter, {x - barWidth / 2, place.center().y() - tall / 2, barWidth, tall}, barWidth / 2,
                x <= head ? seen : ahead);
  }
  for (const double mark : marks_) {
    fillRounded(painter, {placeOf(mark) - 0.75, place.top(), 1.5, place.height()}, 0.75, palette.warning);
  }
  if (!isEnabled()) return;
  fillRounded(painter, {head - headWidth / 2, place.top() - 2, headWidth, place.height() + 4}, headWidth / 2,
              palette.text);
  const QRectF knob(head - headKnob / 2, place.top() - 3, headKnob, headKnob);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette.text);
  painter.drawEllipse(knob);
  if (focus_.visible()) drawFocusRing(painter, knob, headKnob / 2);
}

void WaveformScrubber::choose(double seconds) {
  const double wanted = std::clamp(seconds, 0.0, duration_);
  setPosition(wanted);
  emit sought(wanted);
}

void WaveformScrubber::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return event->ignore();
  setSliderDown(true);
  choose(secondsAt(event->position().x()));
}

void WaveformScrubber::mouseMoveEvent(QMouseEvent* event) {
  if (isSliderDown()) choose(secondsAt(event->position().x()));
}

void WaveformScrubber::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) setSliderDown(false);
}

void WaveformScrubber::keyPressEvent(QKeyEvent* event) {
  const double step = event->modifiers().testFlag(Qt::ShiftModifier) ? 5 : 1;
  switch (event->key()) {
    case Qt::Key_Left:
      return choose(position_ - step);
    case Qt::Key_Right:
      return choose(position_ + step);
    case Qt::Key_Up:
    case Qt::Key_Down:
      return event->ignore();
    default:
      QAbstractSlider::keyPressEvent(event);
  }
}

void WaveformScrubber::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void WaveformScrubber::focusInEvent(QFocusEvent* event) {
  focus_.focusIn(*event);
  QAbstractSlider::focusInEvent(event);
  update();
}

void WaveformScrubber::focusOutEvent(QFocusEvent* event) {
  focus_.focusOut();
  QAbstractSlider::focusOutEvent(event);
  update();
}

void WaveformScrubber::sliderChange(SliderChange change) {
  QAbstractSlider::sliderChange(change);
  // Keys and screen readers move the inherited value.
  if (change == SliderValueChange && !isShowing_) choose(value() / 1000.0);
}

}  // namespace vellora
