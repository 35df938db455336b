#include "kit/Toast.h"

#include <vector>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPropertyAnimation>
#include <QScreen>
#include <QTimer>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int bottomGap = 48;      // between the panel and the edge of the available area
constexpr int clearance = 12;      // between the panel and a window it is not to cover
constexpr int entranceTravel = 8;  // how far it rises while it comes in
constexpr int widestPanel = 560;
constexpr QMargins padding{14, 10, 16, 10};

QPointer<Toast>& slot() {
  static QPointer<Toast> toast;
  return toast;
}

std::vector<QPointer<const QWidget>>& keptClear() {
  static std::vector<QPointer<const QWidget>> windows;
  return windows;
}

/// `panel`, raised above the windows it is not to cover.
QRect clearOfWindows(QRect panel) {
  for (const auto& window : keptClear()) {
    if (!window || !window->isVisible()) continue;
    const QRect taken = window->frameGeometry();
    if (taken.intersects(panel)) panel.moveBottom(taken.top() - clearance);
  }
  return panel;
}

QString iconOf(ToastKind kind) {
  switch (kind) {
    case ToastKind::Success:
      return QStringLiteral("checkmark.circle.fill");
    case ToastKind::Failure:
      return QStringLiteral("exclamationmark.triangle.fill");
    case ToastKind::Info:
      break;
  }
  return QStringLiteral("info");
}

QColor iconColor(ToastKind kind) {
  const ThemeColors& palette = Theme::shared().palette();
  switch (kind) {
    case ToastKind::Success:
      return palette.success;
    case ToastKind::Failure:
      return palette.warning;
    case ToastKind::Info:
      break;
  }
  return palette.secondaryText;
}

}  // namespace

void Toast::show(const QString& iconName, const QString& text, ToastKind kind, QScreen* screen) {
  dismiss();
  QScreen* const target = screen != nullptr ? screen : QGuiApplication::primaryScreen();
  if (target == nullptr) return;
  auto* const toast = new Toast(iconName.isEmpty() ? iconOf(kind) : iconName, text, kind, target);
  slot() = toast;
  toast->enter();
}

void Toast::keepClearOf(const QWidget* window) {
  std::erase_if(keptClear(), [](const auto& each) { return each.isNull(); });
  keptClear().emplace_back(window);
}

void Toast::dismiss() {
  if (Toast* const toast = slot()) toast->vanish();
}

Toast* Toast::current() {
  return slot();
}

Toast::Toast(QString iconName, QString text, ToastKind kind, QScreen* screen)
    // A tool tip window is outside the window manager's reach: above all, in no task bar, and no focus goes to it.
    : FloatingPanel(nullptr, Qt::ToolTip | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus),
      iconName_(std::move(iconName)),
      text_(std::move(text)),
      kind_(kind),
      stay_(new QTimer(this)) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_X11NetWmWindowTypeNotification);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(text_);
  setRadius(tokens::panelRadius);
  setScreen(screen);
  place(*screen);
  stay_->setSingleShot(true);
  stay_->setInterval(kind == ToastKind::Failure ? tokens::toastFailureStay : tokens::toastStay);
  connect(stay_, &QTimer::timeout, this, &Toast::leave);
}

QSize Toast::panelSize(int widest) const {
  const QFontMetrics metrics(bodyFont());
  const int around = padding.left() + padding.right() + tokens::toastIcon + tokens::space2;
  const QRect bounds = metrics.boundingRect(QRect(0, 0, widest - around, 10000), Qt::TextWordWrap, text_);
  const int height = std::max(bounds.height(), tokens::toastIcon) + padding.top() + padding.bottom();
  return {bounds.width() + around + 1, height};
}

void Toast::place(const QScreen& screen) {
  const QRect area = screen.availableGeometry();
  const QSize panel = panelSize(std::min(widestPanel, area.width() - 2 * tokens::space6));
  const QSize shadowRoom = size() - panelRect().size();
  resize(panel + shadowRoom);
  const QPoint usual(area.x() + (area.width() - panel.width()) / 2, area.bottom() + 1 - bottomGap - panel.height());
  movePanel(clearOfWindows({usual, panel}).topLeft());
}

void Toast::enter() {
  stay_->start();
  if (Theme::shared().reducedMotion()) {
    QWidget::show();
    return;
  }
  const QPoint rest = pos();
  setWindowOpacity(0);
  QWidget::show();
  auto* const rise = new QVariantAnimation(this);
  rise->setDuration(tokens::motionMedium);
  rise->setEasingCurve(QEasingCurve::OutCubic);
  rise->setStartValue(0.0);
  rise->setEndValue(1.0);
  connect(rise, &QVariantAnimation::valueChanged, this, [this, rest](const QVariant& value) {
    const double progress = value.toDouble();
    setWindowOpacity(progress);
    move(rest + QPoint(0, qRound((1 - progress) * entranceTravel)));
  });
  rise->start(QAbstractAnimation::DeleteWhenStopped);
}

void Toast::leave() {
  if (leaving_) return;
  leaving_ = true;
  if (Theme::shared().reducedMotion()) {
    vanish();
    return;
  }
  auto* const fade = new QPropertyAnimation(this, "windowOpacity", this);
  fade->setDuration(tokens::motionShort);
  fade->setEndValue(0.0);
  connect(fade, &QAbstractAnimation::finished, this, &Toast::vanish);
  fade->start(QAbstractAnimation::DeleteWhenStopped);
}

void Toast::vanish() {
  if (slot() == this) slot() = nullptr;
  hide();
  deleteLater();
}

void Toast::paintPanel(QPainter& painter, const QRect& panel) {
  const QRect content = panel.marginsRemoved(padding);
  const QFontMetrics metrics(bodyFont());
  // The icon stands on the middle of the first line, however many there are.
  const int firstLine = std::max(metrics.height(), tokens::toastIcon);
  const QRectF iconRect(content.x(), content.y() + (firstLine - tokens::toastIcon) / 2.0, tokens::toastIcon,
                        tokens::toastIcon);
  paintIcon(painter, iconName_, snapped(painter, iconRect), iconColor(kind_));
  painter.setFont(bodyFont());
  painter.setPen(Theme::shared().palette().text);
  painter.drawText(content.adjusted(tokens::toastIcon + tokens::space2, 0, 1, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap, text_);
}

void Toast::mousePressEvent(QMouseEvent* event) {
  if (panelRect().contains(event->position().toPoint())) vanish();
}

void Toast::enterEvent(QEnterEvent*) {
  stay_->stop();
}

void Toast::leaveEvent(QEvent*) {
  if (!leaving_) stay_->start();
}

}  // namespace vellora
