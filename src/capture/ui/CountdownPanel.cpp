#include "capture/ui/CountdownPanel.h"

#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>

#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int diameter = 132;
constexpr int figureSize = 64;
constexpr std::uint32_t escapeKeyCode = 53;

}  // namespace

CountdownPanel::CountdownPanel(HotKeyService* hotKeys)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus |
                           Qt::NoDropShadowWindowHint),
      hotKeys_(hotKeys) {
  setAttribute(Qt::WA_TranslucentBackground);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFixedSize(diameter, diameter);
  setCursor(Qt::PointingHandCursor);
  //% "Capture in a moment. Click or press Escape to cancel."
  const QString help = qtTrId("countdown.help");
  setToolTip(help);
  setAccessibleDescription(help);
  //% "Countdown"
  setAccessibleName(qtTrId("countdown.name"));
}

CountdownPanel::~CountdownPanel() {
  releaseEscape();
}

void CountdownPanel::showRemaining(int seconds, QScreen* screen) {
  remaining_ = seconds;
  update();
  if (isVisible()) return;
  QScreen* const target = screen != nullptr ? screen : QGuiApplication::primaryScreen();
  if (target != nullptr) {
    setScreen(target);
    const QRect area = target->geometry();
    move(area.center() - rect().center());
  }
  blended_ = isComposited(target);
  // Where windows cannot be see-through the circle is cut out.
  if (blended_) {
    clearMask();
  } else {
    setMask(QRegion(rect(), QRegion::Ellipse));
  }
  show();
  if (hotKeys_ != nullptr && !escape_) {
    escape_ = hotKeys_->registerHotKey(escapeKeyCode, 0, [this] { emit cancelled(); });
  }
}

void CountdownPanel::hideEvent(QHideEvent* event) {
  releaseEscape();
  QWidget::hideEvent(event);
}

void CountdownPanel::releaseEscape() {
  if (escape_) hotKeys_->unregisterHotKey(*escape_);
  escape_.reset();
}

void CountdownPanel::mousePressEvent(QMouseEvent* event) {
  event->accept();
  emit cancelled();
}

void CountdownPanel::paintEvent(QPaintEvent*) {
  const ThemeColors& palette = Theme::palette(Appearance::Dark);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QColor ground = palette.sunken;
  if (blended_) {
    ground.setAlphaF(0.82F);
    painter.setPen(Qt::NoPen);
    painter.setBrush(ground);
    painter.drawEllipse(rect());
  } else {
    painter.fillRect(rect(), ground);
  }
  QFont figure = tabularFont(titleFont());
  figure.setPixelSize(figureSize);
  painter.setFont(figure);
  painter.setPen(palette.text);
  painter.drawText(rect(), Qt::AlignCenter, QString::number(remaining_));
}

}  // namespace vellora
