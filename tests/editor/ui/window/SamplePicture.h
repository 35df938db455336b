#pragma once

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

namespace vellora::test {

/// A picture like a captured program: a window with a table, cards and a chart.
inline QImage samplePicture(QSize size, double scale) {
  QImage image(size, QImage::Format_RGB32);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  const QRectF area(0, 0, size.width() / scale, size.height() / scale);
  painter.fillRect(area, QColor(0xF7F8FA));
  const auto font = [](int pixels, QFont::Weight weight) {
    QFont result(QStringLiteral("Inter"));
    result.setPixelSize(pixels);
    result.setWeight(weight);
    return result;
  };
  const auto text = [&](QPointF at, const QString& string, int pixels, const QColor& color,
                        QFont::Weight weight = QFont::Normal) {
    painter.setFont(font(pixels, weight));
    painter.setPen(color);
    painter.drawText(at, string);
  };
  const auto card = [&](const QRectF& rect) {
    painter.setPen(QPen(QColor(0xE4E7EC), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(rect, 10, 10);
  };
  painter.fillRect(QRectF(0, 0, 200, area.height()), QColor(0x18212F));
  text({24, 42}, QStringLiteral("Harbour"), 18, Qt::white, QFont::DemiBold);
  const char* pages[] = {"Overview", "Orders", "Customers", "Shipping", "Reports", "Settings"};
  for (int i = 0; i < 6; ++i) {
    if (i == 0) {
      painter.setPen(Qt::NoPen);
      painter.setBrush(QColor(0x2B3A50));
      painter.drawRoundedRect(QRectF(12, 66, 176, 34), 7, 7);
    }
    text({28, 88.0 + i * 40}, QLatin1StringView(pages[i]), 13, i == 0 ? QColor(Qt::white) : QColor(0x9FB0C6));
  }
  text({232, 52}, QStringLiteral("Overview"), 24, QColor(0x101828), QFont::DemiBold);
  text({232, 76}, QStringLiteral("Last 30 days"), 13, QColor(0x667085));
  const char* titles[] = {"Revenue", "Orders", "Returning"};
  const char* values[] = {"48 920", "1 284", "37 %"};
  const double width = (area.width() - 232 - 32 - 2 * 16) / 3;
  for (int i = 0; i < 3; ++i) {
    const QRectF rect(232 + i * (width + 16), 100, width, 92);
    card(rect);
    text(rect.topLeft() + QPointF(18, 32), QLatin1StringView(titles[i]), 13, QColor(0x667085));
    text(rect.topLeft() + QPointF(18, 68), QLatin1StringView(values[i]), 26, QColor(0x101828), QFont::DemiBold);
  }
  const QRectF chart(232, 208, area.width() - 264, (area.height() - 240) * 0.5);
  card(chart);
  QPainterPath curve;
  const double step = (chart.width() - 48) / 11;
  const double heights[] = {0.25, 0.4, 0.32, 0.55, 0.5, 0.62, 0.48, 0.7, 0.66, 0.82, 0.74, 0.92};
  for (int i = 0; i < 12; ++i) {
    const QPointF at(chart.left() + 24 + i * step, chart.bottom() - 24 - heights[i] * (chart.height() - 60));
    if (i == 0) {
      curve.moveTo(at);
    } else {
      const QPointF last = curve.currentPosition();
      curve.cubicTo(last + QPointF(step / 2, 0), at - QPointF(step / 2, 0), at);
    }
  }
  QPainterPath ground = curve;
  ground.lineTo(chart.right() - 24, chart.bottom() - 24);
  ground.lineTo(chart.left() + 24, chart.bottom() - 24);
  QLinearGradient fade(0, chart.top(), 0, chart.bottom());
  fade.setColorAt(0, QColor(46, 144, 250, 90));
  fade.setColorAt(1, QColor(46, 144, 250, 0));
  painter.fillPath(ground, fade);
  painter.strokePath(curve, QPen(QColor(0x2E90FA), 2.5));
  const QRectF table(232, chart.bottom() + 16, area.width() - 264, area.bottom() - chart.bottom() - 40);
  card(table);
  const char* names[] = {"Ada Quist", "Jonas Weir", "Mira Solberg", "Tomas Rhee", "Lena Okafor", "Per Dahl"};
  for (int i = 0; i < 6 && 40 + i * 40 < table.height(); ++i) {
    const double y = table.top() + 34 + i * 40;
    text({table.left() + 20, y}, QLatin1StringView(names[i]), 13, QColor(0x101828));
    text({table.left() + 220, y}, QStringLiteral("order-%1@example.org").arg(4021 + i * 7), 13, QColor(0x667085));
    text({table.right() - 90, y}, QStringLiteral("%1.00").arg(120 + i * 37), 13, QColor(0x101828));
    painter.fillRect(QRectF(table.left() + 1, y + 14, table.width() - 2, 1), QColor(0xF0F2F5));
  }
  return image;
}

}  // namespace vellora::test
