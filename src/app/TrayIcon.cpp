#include "app/TrayIcon.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QScreen>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int traySides[] = {16, 22, 24, 32, 44, 48};

/// A round badge with one number, for panels of any colour.
QIcon numberIcon(int number) {
  QIcon result;
  for (const int side : traySides) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::shared().palette().accentFill);
    painter.drawEllipse(QRectF(0.5, 0.5, side - 1, side - 1));
    QFont font = headingFont();
    font.setPixelSize(side * 5 / 8);
    painter.setFont(font);
    painter.setPen(Theme::shared().palette().onFill);
    painter.drawText(pixmap.rect(), Qt::AlignCenter, QString::number(number));
    result.addPixmap(pixmap);
  }
  return result;
}

/// The mark with a red dot in its corner.
QIcon recordingIcon(const QIcon& mark) {
  QIcon result;
  for (const int side : traySides) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    mark.paint(&painter, pixmap.rect());
    const QPointF center(side * 0.72, side * 0.72);
    painter.setPen(Qt::NoPen);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.drawEllipse(center, side * 0.32, side * 0.32);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(Theme::shared().palette().record);
    painter.drawEllipse(center, side * 0.25, side * 0.25);
    result.addPixmap(pixmap);
  }
  return result;
}

/// Beside the icon, towards the middle of the screen; at the pointer where the panel keeps the icon's place to itself.
QPoint menuPosition(const QRect& icon, const QMenu& menu) {
  const QScreen* const screen = icon.isEmpty() ? nullptr : QGuiApplication::screenAt(icon.center());
  if (screen == nullptr) return QCursor::pos();
  if (icon.center().y() < screen->geometry().center().y()) return {icon.left(), icon.bottom() + 1};
  return {icon.left(), icon.top() - menu.sizeHint().height()};
}

}  // namespace

TrayIcon::TrayIcon(QMenu* menu) {
  icon_.setContextMenu(menu);
  icon_.setToolTip(QStringLiteral("Vellora"));
  setCountdown(std::nullopt);
  // The menu is all there is, so either button opens it.
  QObject::connect(&icon_, &QSystemTrayIcon::activated, menu, [this, menu](QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) menu->popup(menuPosition(icon_.geometry(), *menu));
  });
}

void TrayIcon::show() {
  icon_.show();
}

void TrayIcon::setCountdown(std::optional<int> remaining) {
  if (!remaining) return showMark();
  icon_.setIcon(numberIcon(*remaining));
}

void TrayIcon::setRecording(bool isRecording) {
  isRecording_ = isRecording;
  showMark();
}

void TrayIcon::showMark() {
  const QIcon mark = icon(QStringLiteral("vellora.tray"));
  icon_.setIcon(isRecording_ ? recordingIcon(mark) : mark);
}

}  // namespace vellora
