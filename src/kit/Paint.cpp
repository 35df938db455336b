#include "kit/Paint.h"

#include <cmath>
#include <vector>

#include <QFocusEvent>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include "kit/Theme.h"
#include "kit/Tokens.h"

namespace vellora {
namespace {

double devicePixelRatio(const QPainter& painter) {
  return painter.device()->devicePixelRatioF();
}

// Three box blurs come close to a Gaussian of the standard deviation `sigma`.
void blurAlpha(QImage& image, double sigma) {
  const int width = image.width();
  const int height = image.height();
  const int radius = std::max(1, static_cast<int>(std::lround(sigma * 3.0 * std::sqrt(2.0 * M_PI) / 4.0 + 0.5)) / 2);
  std::vector<int> line(static_cast<std::size_t>(std::max(width, height)));
  const auto blurLine = [&](uchar* first, int count, qsizetype step) {
    int sum = 0;
    for (int i = 0; i < count; ++i) line[static_cast<std::size_t>(i)] = first[i * step];
    const auto at = [&](int i) { return i < 0 || i >= count ? 0 : line[static_cast<std::size_t>(i)]; };
    for (int i = -radius; i <= radius; ++i) sum += at(i);
    for (int i = 0; i < count; ++i) {
      first[i * step] = static_cast<uchar>(sum / (2 * radius + 1));
      sum += at(i + radius + 1) - at(i - radius);
    }
  };
  for (int pass = 0; pass < 3; ++pass) {
    for (int y = 0; y < height; ++y) blurLine(image.scanLine(y), width, 1);
    for (int x = 0; x < width; ++x) blurLine(image.bits() + x, height, image.bytesPerLine());
  }
}

}  // namespace

QRectF snapped(const QPainter& painter, const QRectF& rect) {
  // Below 200 % a widget itself may begin between two device pixels: what counts is the place on the device.
  const QTransform toDevice = painter.deviceTransform();
  if (toDevice.type() > QTransform::TxScale) return rect;
  const QRectF device = toDevice.mapRect(rect);
  const QPointF topLeft(std::round(device.left()), std::round(device.top()));
  const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
  return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double hairline(const QPainter& painter, double width) {
  const double ratio = devicePixelRatio(painter);
  return std::max(1.0, std::floor(width * ratio)) / ratio;
}

void drawHorizontalLine(QPainter& painter, double left, double right, double y, const QColor& color) {
  QRectF line = snapped(painter, QRectF(QPointF(left, y), QPointF(right, y + 1)));
  line.setHeight(hairline(painter));
  painter.fillRect(line, color);
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(snapped(painter, rect), radius, radius);
  painter.restore();
}

void strokeRounded(QPainter& painter, const QRectF& rect, double radius, const QColor& color, double width) {
  const double pen = hairline(painter, width);
  const double half = pen / 2;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, pen));
  painter.setBrush(Qt::NoBrush);
  const double inner = std::max(0.0, radius - half);
  painter.drawRoundedRect(snapped(painter, rect).adjusted(half, half, -half, -half), inner, inner);
  painter.restore();
}

void drawFocusRing(QPainter& painter, const QRectF& rect, double radius) {
  const double grow = tokens::focusRingGap + tokens::focusRingWidth;
  strokeRounded(painter, rect.adjusted(-grow, -grow, grow, grow), radius + grow, Theme::shared().palette().accent,
                tokens::focusRingWidth);
}

int PanelShadow::margin() {
  return tokens::shadowBlur + tokens::shadowOffset;
}

void PanelShadow::paint(QPainter& painter, const QRectF& panel, double radius) {
  const double ratio = devicePixelRatio(painter);
  const double reach = tokens::shadowBlur;
  const double core = reach + radius;  // from the tile's edge to its stretchable middle
  const int side = static_cast<int>(std::ceil((2 * core + 2) * ratio));
  if (tile_.isNull() || radius_ != radius || tile_.width() != side) {
    QImage alpha(side, side, QImage::Format_Alpha8);
    alpha.fill(0);
    {
      QPainter shape(&alpha);
      shape.setRenderHint(QPainter::Antialiasing);
      shape.setPen(Qt::NoPen);
      shape.setBrush(QColor(0, 0, 0, qRound(255 * tokens::shadowOpacity)));
      const double edge = reach * ratio;
      shape.drawRoundedRect(QRectF(edge, edge, side - 2 * edge, side - 2 * edge), radius * ratio, radius * ratio);
    }
    blurAlpha(alpha, reach / 2 * ratio);
    tile_ = QPixmap::fromImage(alpha.convertToFormat(QImage::Format_ARGB32_Premultiplied));
    radius_ = radius;
  }
  const QRectF target = panel.adjusted(-reach, -reach, reach, reach).translated(0, tokens::shadowOffset);
  const double xs[] = {target.left(), target.left() + core, target.right() - core, target.right()};
  const double ys[] = {target.top(), target.top() + core, target.bottom() - core, target.bottom()};
  const double cut[] = {0, core * ratio, side - core * ratio, static_cast<double>(side)};
  painter.save();
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      const QRectF to(QPointF(xs[column], ys[row]), QPointF(xs[column + 1], ys[row + 1]));
      const QRectF from(QPointF(cut[column], cut[row]), QPointF(cut[column + 1], cut[row + 1]));
      if (to.width() > 0 && to.height() > 0) painter.drawPixmap(to, tile_, from);
    }
  }
  painter.restore();
}

void KeyboardFocus::focusIn(const QFocusEvent& event) {
  const auto reason = event.reason();
  visible_ = reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason ||
             (visible_ && (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason));
}

void repaintOnThemeChange(QWidget& widget) {
  QObject::connect(&Theme::shared(), &Theme::changed, &widget, [&widget] { widget.update(); });
}

}  // namespace vellora
