#include "SampleContent.h"

#include <QFont>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include "media/codecs/ImageConversion.h"

namespace vellora::test {
namespace {

struct Inks {
  QColor ground, panel, line, text, quiet, accent;
};

Inks inks(bool dark) {
  if (dark) {
    return {QColor(0x17191D), QColor(0x202329), QColor(0x2E323A), QColor(0xECEEF1), QColor(0x5F6673), QColor(0x6C9BFF)};
  }
  return {QColor(0xFFFFFF), QColor(0xF6F7F9), QColor(0xE6E8EC), QColor(0x1C2024), QColor(0xC3C8D0), QColor(0x2F6FED)};
}

void bar(QPainter& painter, double x, double y, double width, double height, const QColor& color) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawRoundedRect(QRectF(x, y, width, height), height / 2, height / 2);
}

void chart(QPainter& painter, const QRectF& area, const Inks& ink) {
  painter.setPen(QPen(ink.line, 1));
  for (int i = 0; i <= 4; ++i) {
    const double y = area.top() + area.height() * i / 4;
    painter.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
  }
  const double values[] = {0.30, 0.42, 0.36, 0.55, 0.50, 0.68, 0.62, 0.80, 0.74, 0.92};
  QPainterPath line;
  for (int i = 0; i < 10; ++i) {
    const QPointF point(area.left() + area.width() * i / 9, area.bottom() - area.height() * values[i]);
    if (i == 0) {
      line.moveTo(point);
    } else {
      const QPointF before = line.currentPosition();
      const double middle = (before.x() + point.x()) / 2;
      line.cubicTo({middle, before.y()}, {middle, point.y()}, point);
    }
  }
  QPainterPath below = line;
  below.lineTo(area.bottomRight());
  below.lineTo(area.bottomLeft());
  QColor soft = ink.accent;
  soft.setAlphaF(0.14F);
  painter.fillPath(below, soft);
  painter.strokePath(line, QPen(ink.accent, 2.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
}

CapturePiece pieceOf(const QImage& image, double scale) {
  return makePiece(toBitmap(image), scale);
}

QImage canvas(Size size, double scale, const QColor& ground) {
  QImage image(QSize(qRound(size.width * scale), qRound(size.height * scale)), QImage::Format_RGB32);
  image.fill(ground);
  return image;
}

}  // namespace

CapturePiece sampleWindow(Size size, double scale, bool dark) {
  const Inks ink = inks(dark);
  QImage image = canvas(size, scale, ink.ground);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  const double side = size.width * 0.22;
  painter.fillRect(QRectF(0, 0, side, size.height), ink.panel);
  painter.fillRect(QRectF(side, 0, 1, size.height), ink.line);
  bar(painter, 20, 22, side * 0.5, 12, ink.text);
  for (int i = 0; i < 7; ++i) {
    const double y = 66 + 34.0 * i;
    if (i == 1) {
      QColor chosen = ink.accent;
      chosen.setAlphaF(0.14F);
      painter.setBrush(chosen);
      painter.setPen(Qt::NoPen);
      painter.drawRoundedRect(QRectF(10, y - 10, side - 20, 30), 7, 7);
    }
    bar(painter, 20, y, 10, 10, i == 1 ? ink.accent : ink.quiet);
    bar(painter, 40, y + 1, side * (0.34 + 0.07 * ((i * 3) % 4)), 8, i == 1 ? ink.accent : ink.quiet);
  }
  const double left = side + 32;
  const double width = size.width - left - 32;
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(24);
  font.setWeight(QFont::DemiBold);
  painter.setFont(font);
  painter.setPen(ink.text);
  painter.drawText(QPointF(left, 46), QStringLiteral("Visitors this week"));
  bar(painter, left, 62, width * 0.42, 8, ink.quiet);
  for (int i = 0; i < 3; ++i) {
    const QRectF card(left + (width + 16) / 3 * i, 92, (width - 32) / 3, 86);
    painter.setPen(QPen(ink.line, 1));
    painter.setBrush(ink.panel);
    painter.drawRoundedRect(card, 10, 10);
    bar(painter, card.left() + 16, card.top() + 18, card.width() * 0.4, 8, ink.quiet);
    bar(painter, card.left() + 16, card.top() + 42, card.width() * 0.55, 18, ink.text);
  }
  chart(painter, QRectF(left, 206, width, size.height - 206 - 34), ink);
  painter.end();
  return pieceOf(image, scale);
}

CapturePiece samplePhone(double scale) {
  const Inks ink = inks(false);
  const Size size{390, 844};
  QImage image = canvas(size, scale, ink.panel);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(32);
  font.setWeight(QFont::Bold);
  painter.setFont(font);
  painter.setPen(ink.text);
  painter.drawText(QPointF(24, 110), QStringLiteral("Today"));
  QLinearGradient hero(24, 136, 366, 316);
  hero.setColorAt(0, QColor(0x7C8CF8));
  hero.setColorAt(1, QColor(0xB45FC9));
  painter.setPen(Qt::NoPen);
  painter.setBrush(hero);
  painter.drawRoundedRect(QRectF(24, 136, 342, 180), 22, 22);
  bar(painter, 48, 170, 120, 14, QColor(255, 255, 255, 230));
  bar(painter, 48, 200, 190, 10, QColor(255, 255, 255, 150));
  for (int i = 0; i < 5; ++i) {
    const QRectF card(24, 340 + 92.0 * i, 342, 78);
    painter.setBrush(ink.ground);
    painter.drawRoundedRect(card, 18, 18);
    bar(painter, card.left() + 18, card.top() + 21, 36, 36, QColor::fromHsv((210 + 47 * i) % 360, 90, 235));
    bar(painter, card.left() + 70, card.top() + 24, 120 + 20.0 * (i % 3), 11, ink.text);
    bar(painter, card.left() + 70, card.top() + 46, 190, 8, ink.quiet);
  }
  painter.end();
  return pieceOf(image, scale);
}

}  // namespace vellora::test
