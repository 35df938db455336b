#include "editor/ui/compressor/ComparisonParts.h"

#include <cmath>

#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QTimerEvent>

#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr float groundOpacity = 0.92F;
constexpr int readoutWidth = 48;
constexpr int turningInterval = 33;  // milliseconds
constexpr int turningStep = 10;      // degrees
constexpr int arcLength = 270 * 16;  // sixteenths of a degree
constexpr double arcDiameter = 14;
constexpr double arcWidth = 2;

}  // namespace

void paintComparisonGround(QPainter& painter, const QRectF& rect, double radius) {
  const ThemeColors& palette = Theme::shared().palette();
  QColor ground = palette.raised;
  ground.setAlphaF(groundOpacity);
  fillRounded(painter, rect, radius, ground);
  strokeRounded(painter, rect, radius, palette.controlBorder);
}

ComparisonZoomBar::ComparisonZoomBar(QWidget* parent) : QWidget(parent) {
  //% "Show the whole picture"
  fit_ = new IconButton(QStringLiteral("zoom.fit"), qtTrId("compress.compare.fit"), QStringLiteral("0"), this);
  //% "Show at 100 %"
  actual_ = new IconButton(QStringLiteral("zoom.actual"), qtTrId("compress.compare.actual"), QStringLiteral("1"), this);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(readoutWidth, 0, 0, 0);
  row->setSpacing(0);
  for (IconButton* button : {fit_, actual_}) {
    button->setIconSide(tokens::menuIcon);
    // A click leaves the keys with the pictures.
    button->setFocusPolicy(Qt::TabFocus);
    row->addWidget(button);
  }
  setCursor(Qt::ArrowCursor);
  connect(fit_, &IconButton::clicked, this, &ComparisonZoomBar::fitRequested);
  connect(actual_, &IconButton::clicked, this, &ComparisonZoomBar::actualSizeRequested);
  repaintOnThemeChange(*this);
}

void ComparisonZoomBar::setZoom(double zoom, bool fitting) {
  //% "%1 %"
  text_ = qtTrId("compress.compare.zoom").arg(std::lround(zoom * 100));
  fit_->setEnabled(!fitting);
  actual_->setEnabled(fitting || zoom != 1);
  update();
}

void ComparisonZoomBar::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintComparisonGround(painter, rect(), tokens::controlRadius);
  painter.setFont(tabularFont(badgeFont()));
  painter.setPen(Theme::shared().palette().text);
  painter.drawText(QRect(tokens::space1, 0, readoutWidth - tokens::space1, height()), Qt::AlignCenter, text_);
}

ComparisonBusySign::ComparisonBusySign(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  //% "The result is being made"
  setAccessibleName(qtTrId("compress.compare.busy"));
  resize(side, side);
  hide();
  repaintOnThemeChange(*this);
}

void ComparisonBusySign::setBusy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    appearing_.start(delay, this);
  } else {
    appearing_.stop();
    turning_.stop();
    hide();
  }
}

void ComparisonBusySign::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  paintComparisonGround(painter, rect(), side / 2.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Theme::shared().palette().secondaryText, arcWidth, Qt::SolidLine, Qt::RoundCap));
  QRectF arc(0, 0, arcDiameter, arcDiameter);
  arc.moveCenter(QRectF(rect()).center());
  painter.drawArc(arc, -angle_ * 16, arcLength);
}

void ComparisonBusySign::timerEvent(QTimerEvent* event) {
  if (event->timerId() == appearing_.timerId()) {
    appearing_.stop();
    show();
    if (!Theme::shared().reducedMotion()) turning_.start(turningInterval, this);
  } else if (event->timerId() == turning_.timerId()) {
    angle_ = (angle_ + turningStep) % 360;
    update();
  } else {
    QWidget::timerEvent(event);
  }
}

}  // namespace vellora
