#include "editor/ui/pins/PinChrome.h"

#include <array>
#include <cmath>

#include <QApplication>
#include <QEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QVariantAnimation>

#include "kit/Icons.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

using Tier = PinGeometry::ChromeTier;

constexpr int readoutWidth = 42;
constexpr int iconSide = 16;
constexpr int radius = 7;
constexpr int leastGap = 2;  // between the two groups
constexpr int copiedStay = 1200;

const ThemeColors& colors() {
  return Theme::palette(Appearance::Dark);
}

}  // namespace

QColor pinChromeGround() {
  QColor color = colors().raised;
  color.setAlphaF(0.94F);
  return color;
}

QColor pinChromeInk() {
  return colors().text;
}

QColor pinChromeEdge() {
  return {255, 255, 255, 36};
}

PinButton::PinButton(const QString& iconName, int width, QWidget* parent)
    : QAbstractButton(parent), iconName_(iconName) {
  resize(width, PinChrome::height);
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_Hover);
  setCursor(Qt::ArrowCursor);
}

void PinButton::setTitle(const QString& title, const QString& hint) {
  setAccessibleName(title);
  setToolTip(hint.isEmpty() ? title : QStringLiteral("%1 (%2)").arg(title, hint));
}

void PinButton::setIconName(const QString& name) {
  iconName_ = name;
  update();
}

void PinButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setOpacity(static_cast<const PinChrome*>(parentWidget())->shown());
  if (isDown() || underMouse()) {
    const QRectF ground = QRectF(rect()).adjusted(2, 2, -2, -2);
    fillRounded(painter, ground, radius - 2, isDown() ? colors().pressed : colors().hover);
  }
  if (iconName_.isEmpty()) {
    painter.setFont(tabularFont(badgeFont()));
    painter.setPen(pinChromeInk());
    painter.drawText(rect(), Qt::AlignCenter, text());
    return;
  }
  QRectF icon(0, 0, iconSide, iconSide);
  icon.moveCenter(QRectF(rect()).center());
  paintIcon(painter, iconName_, snapped(painter, icon), pinChromeInk());
}

void PinButton::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->position().toPoint();
  QAbstractButton::mousePressEvent(event);
}

void PinButton::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  const QPoint pulled = event->position().toPoint() - pressed_;
  if (!draggable_ || !(event->buttons() & Qt::LeftButton) ||
      pulled.manhattanLength() < QApplication::startDragDistance()) {
    return;
  }
  setDown(false);
  emit dragged();
}

PinChrome::PinChrome(QWidget* parent)
    : QWidget(parent),
      readout_(new PinButton({}, readoutWidth, this)),
      copy_(new PinButton(QStringLiteral("copy"), height, this)),
      edit_(new PinButton(QStringLiteral("editor"), height, this)),
      more_(new PinButton(QStringLiteral("capture.more"), height, this)),
      close_(new PinButton(QStringLiteral("close"), height, this)),
      fade_(new QVariantAnimation(this)),
      copied_(new QTimer(this)) {
  hide();
  copy_->setDraggable(true);
  copied_->setSingleShot(true);
  copied_->setInterval(copiedStay);
  fade_->setDuration(tokens::motionShort);
  fade_->setEasingCurve(QEasingCurve::OutCubic);
  connect(readout_, &PinButton::clicked, this, &PinChrome::actualSizeRequested);
  connect(copy_, &PinButton::clicked, this, &PinChrome::copyRequested);
  connect(copy_, &PinButton::dragged, this, &PinChrome::dragRequested);
  connect(edit_, &PinButton::clicked, this, &PinChrome::editRequested);
  connect(more_, &PinButton::clicked, this,
          [this] { emit menuRequested(more_->mapToGlobal(QPoint(0, more_->height() + tokens::space1))); });
  connect(close_, &PinButton::clicked, this, &PinChrome::closeRequested);
  connect(copied_, &QTimer::timeout, this, [this] { copy_->setIconName(QStringLiteral("copy")); });
  fade_->setStartValue(0.0);
  fade_->setEndValue(1.0);
  connect(fade_, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& progress) { setShown(from_ + (target_ - from_) * progress.toDouble()); });
  translate();
}

void PinChrome::translate() {
  //% "Zoom"
  readout_->setTitle(qtTrId("pin.zoom"),
                     //% "0 for the picture's own size"
                     qtTrId("pin.zoom.hint"));
  //% "Copy"
  copy_->setTitle(qtTrId("pin.copy"),
                  //% "Ctrl+C; drag it into another program"
                  qtTrId("pin.copy.hint"));
  //% "Edit"
  edit_->setTitle(qtTrId("pin.edit"), QStringLiteral("E"));
  //% "More"
  more_->setTitle(qtTrId("pin.more"), {});
  //% "Close"
  close_->setTitle(qtTrId("pin.close"), QStringLiteral("Esc"));
}

void PinChrome::changeEvent(QEvent* event) {
  if (event->type() == QEvent::LanguageChange) translate();
  QWidget::changeEvent(event);
}

int PinChrome::widthOf(Tier tier) {
  switch (tier) {
    case Tier::Full:
      return readoutWidth + 4 * height + leastGap;
    case Tier::NoReadout:
      return 4 * height + leastGap;
    case Tier::CopyEdit:
      return 3 * height + leastGap;
    case Tier::CopyOnly:
      return 2 * height + leastGap;
    case Tier::CloseOnly:
      break;
  }
  return height;
}

void PinChrome::arrange(Tier tier, const QRect& area) {
  tier_ = tier;
  setGeometry(area);
  readout_->setVisible(tier == Tier::Full);
  more_->setVisible(tier <= Tier::NoReadout);
  edit_->setVisible(tier <= Tier::CopyEdit);
  copy_->setVisible(tier <= Tier::CopyOnly);
  int left = 0;
  for (PinButton* button : std::array{readout_, copy_, edit_, more_}) {
    if (button->isHidden()) continue;
    button->move(left, 0);
    left += button->width();
  }
  close_->move(width() - close_->width(), 0);
}

void PinChrome::setScale(double scale) {
  //% "%1 %"
  readout_->setText(qtTrId("pin.percent").arg(std::lround(scale * 100)));
  readout_->update();
}

void PinChrome::showCopied() {
  copy_->setIconName(QStringLiteral("check"));
  copied_->start();
}

void PinChrome::fadeTo(double target) {
  if (target == target_) return;
  fade_->stop();
  from_ = shown_;
  target_ = target;
  if (Theme::shared().reducedMotion()) {
    setShown(target);
  } else {
    fade_->start();
  }
}

void PinChrome::setShown(double shown) {
  shown_ = shown;
  setVisible(shown_ > 0 || target_ > 0);
  update();
}

void PinChrome::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setOpacity(shown_);
  const auto ground = [&painter](const QRect& group) {
    if (group.isEmpty()) return;
    fillRounded(painter, group, radius, pinChromeGround());
    strokeRounded(painter, group, radius, pinChromeEdge());
  };
  QRect left;
  for (const PinButton* button : std::array{readout_, copy_, edit_, more_}) {
    if (!button->isHidden()) left |= button->geometry();
  }
  ground(left);
  ground(close_->geometry());
}

}  // namespace vellora
