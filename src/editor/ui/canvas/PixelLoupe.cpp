#include "editor/ui/canvas/PixelLoupe.h"

#include <cmath>

#include <QBitmap>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include "kit/Compositing.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

constexpr int cell = 8;  // points a pixel is shown as
constexpr int rim = 3;
constexpr int glass = PixelLoupe::pixelCount * cell + 2 * rim;
constexpr int captionHeight = 24;
constexpr int captionWidth = 76;
constexpr int captionGap = 6;
constexpr int pointerGap = 22;

QRect glassRect() {
  return {0, 0, glass, glass};
}

QRect captionRect() {
  return {(glass - captionWidth) / 2, glass + captionGap, captionWidth, captionHeight};
}

// It lies over pictures of any colour: its chrome is dark in both themes.
const ThemeColors& chrome() {
  return Theme::palette(Appearance::Dark);
}

}  // namespace

PixelLoupe::PixelLoupe(QWidget* parent)
    : QWidget(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
                          Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint) {
  setAttribute(Qt::WA_ShowWithoutActivating);
  setAttribute(Qt::WA_TranslucentBackground, isComposited(screen()));
  resize(glass, captionRect().bottom() + 1);
  if (testAttribute(Qt::WA_TranslucentBackground)) return;
  QRegion shape(glassRect(), QRegion::Ellipse);
  setMask(shape | captionRect());
}

void PixelLoupe::showAt(QPoint global, const QImage& pixels) {
  pixels_ = pixels;
  const QScreen* const here = QGuiApplication::screenAt(global);
  const QRect room = here != nullptr ? here->geometry() : QRect(global, size());
  QPoint place = global + QPoint(pointerGap, pointerGap);
  if (place.x() + width() > room.right()) place.setX(global.x() - pointerGap - width());
  if (place.y() + height() > room.bottom()) place.setY(global.y() - pointerGap - height());
  move(place);
  if (!isVisible()) show();
  update();
}

void PixelLoupe::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF inner = QRectF(glassRect()).adjusted(rim, rim, -rim, -rim);
  painter.setPen(Qt::NoPen);
  painter.setBrush(chrome().raised);
  painter.drawEllipse(glassRect());
  QPainterPath round;
  round.addEllipse(inner);
  painter.save();
  painter.setClipPath(round);
  painter.drawImage(inner, pixels_);
  // A faint grid tells the pixels apart.
  const double line = hairline(painter);
  for (int i = 1; i < pixelCount; ++i) {
    painter.fillRect(QRectF(inner.x() + i * cell, inner.y(), line, inner.height()), QColor(128, 128, 128, 48));
    painter.fillRect(QRectF(inner.x(), inner.y() + i * cell, inner.width(), line), QColor(128, 128, 128, 48));
  }
  painter.restore();

  const int before = pixelCount / 2 * cell;
  const QRectF middle(inner.x() + before, inner.y() + before, cell, cell);
  strokeRounded(painter, middle.adjusted(-2, -2, 2, 2), 0, QColor(0, 0, 0, 200));
  strokeRounded(painter, middle.adjusted(-1, -1, 1, 1), 0, Qt::white);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(Qt::white, rim - 1));
  painter.drawEllipse(inner.adjusted(-0.5, -0.5, 0.5, 0.5));

  if (pixels_.isNull()) return;
  fillRounded(painter, captionRect(), tokens::controlRadius, chrome().raised);
  painter.setFont(tabularFont(badgeFont()));
  painter.setPen(chrome().text);
  painter.drawText(captionRect(), Qt::AlignCenter, pixels_.pixelColor(pixels_.rect().center()).name().toUpper());
}

}  // namespace vellora
