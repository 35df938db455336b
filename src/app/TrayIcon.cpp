#include "app/TrayIcon.h"

#include <QCursor>
#include <QMenu>
#include <QPainter>

#include "kit/Icons.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

/// A round badge with one number, for panels of any colour.
QIcon numberIcon(int number) {
  QIcon result;
  for (const int side : {16, 22, 24, 32, 44, 48}) {
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

}  // namespace

TrayIcon::TrayIcon(QMenu* menu) {
  icon_.setContextMenu(menu);
  icon_.setToolTip(QStringLiteral("Vellora"));
  setCountdown(std::nullopt);
  // The menu is all there is, so either button opens it.
  QObject::connect(&icon_, &QSystemTrayIcon::activated, menu, [menu](QSystemTrayIcon::ActivationReason reason) {
    if (reason == QSystemTrayIcon::Trigger) menu->popup(QCursor::pos());
  });
}

void TrayIcon::show() {
  icon_.show();
}

void TrayIcon::setCountdown(std::optional<int> remaining) {
  icon_.setIcon(remaining ? numberIcon(*remaining) : icon(QStringLiteral("vellora.tray")));
}

}  // namespace vellora
