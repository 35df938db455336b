#pragma once

#include <algorithm>

#include <QPainter>

#include "editor/ui/pins/PinContent.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "media/codecs/ImageConversion.h"

namespace vellora::test {

/// Something like a capture of a program's window: a bar, lines of text, a picture.
inline PinContent pinSpecimen(QSize points, double scale, const ThemeColors& colors) {
  QImage image((QSizeF(points) * scale).toSize(), QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  image.fill(colors.surface);
  QPainter painter(&image);
  painter.fillRect(0, 0, points.width(), 24, colors.sunken);
  painter.setFont(bodyFont());
  painter.setPen(colors.text);
  painter.drawText(QRect(8, 0, points.width(), 24), Qt::AlignVCenter, QStringLiteral("Report"));
  for (int y = 34; y < points.height() - 10; y += 14) {
    const int width = points.width() - 20 - (y * 37) % std::max(1, points.width() / 2);
    painter.fillRect(10, y, width, 6, y % 4 == 0 ? colors.secondaryText : colors.line);
  }
  painter.fillRect(points.width() * 2 / 3, points.height() / 2, points.width() / 4, points.height() / 3, colors.accent);
  painter.end();
  PinContent content;
  content.image = toBitmap(image);
  content.scale = scale;
  return content;
}

}  // namespace vellora::test
