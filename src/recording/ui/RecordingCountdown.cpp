#include "recording/ui/RecordingCountdown.h"

#include <utility>

#include <QPainter>
#include <QScreen>
#include <QVariantAnimation>

#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "recording/ui/ScreenPlaces.h"

namespace vellora {
namespace {

constexpr int figureSize = 76;
constexpr double growth = 0.35;  // how much larger a figure is when it comes, and smaller when it goes

}  // namespace

RecordingCountdown::RecordingCountdown()
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::X11BypassWindowManagerHint |
                           Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput |
                           Qt::NoDropShadowWindowHint),
      change_(new QVariantAnimation(this)) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_QuitOnClose, false);
  setFixedSize(diameter, diameter);
  change_->setDuration(changeTime);
  change_->setEasingCurve(QEasingCurve::InOutQuad);
  change_->setStartValue(0.0);
  change_->setEndValue(1.0);
  connect(change_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
    progress_ = value.toDouble();
    update();
  });
}

void RecordingCountdown::showNumber(int number, const PixelRect& over, const DisplayInfo& screen) {
  before_ = std::exchange(number_, number);
  //% "Recording starts in %n second(s)"
  setAccessibleName(qtTrId("recording.countdown", number));
  if (!isVisible()) {
    before_ = 0;
    if (QScreen* const target = screenOf(screen)) {
      setScreen(target);
      const QPointF middle = toPoints(over, *target).center();
      move(qRound(middle.x() - diameter / 2.0), qRound(middle.y() - diameter / 2.0));
    }
    blended_ = isComposited(this->screen());
    // Where windows cannot be see-through the circle is cut out.
    if (blended_) {
      clearMask();
    } else {
      setMask(QRegion(rect(), QRegion::Ellipse));
    }
    show();
  }
  change_->stop();
  if (Theme::shared().reducedMotion()) {
    progress_ = 1;
  } else {
    progress_ = 0;
    change_->start();
  }
  update();
}

void RecordingCountdown::paintEvent(QPaintEvent*) {
  // It lies over pictures of any color: dark in both themes.
  const ThemeColors& palette = Theme::palette(Appearance::Dark);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ground = palette.sunken;
  if (blended_) {
    ground.setAlphaF(0.78F);
    painter.setPen(QPen(QColor(255, 255, 255, 36), 1));  // tells it from what is dark itself
    painter.setBrush(ground);
    painter.drawEllipse(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  } else {
    painter.fillRect(rect(), ground);
  }
  QFont font = tabularFont(titleFont());
  font.setPixelSize(figureSize);
  painter.setFont(font);
  painter.setPen(palette.text);
  const auto figure = [&](int number, double scale, double opacity) {
    if (number <= 0 || opacity <= 0) return;
    painter.save();
    painter.setOpacity(opacity);
    painter.translate(QRectF(rect()).center());
    painter.scale(scale, scale);
    painter.drawText(QRectF(-diameter / 2.0, -diameter / 2.0, diameter, diameter), Qt::AlignCenter,
                     QString::number(number));
    painter.restore();
  };
  figure(before_, 1 - growth * progress_, 1 - progress_);
  figure(number_, 1 + growth * (1 - progress_), progress_);
}

}  // namespace vellora
