// Shows pins with the controls of every tier over light and dark pictures and writes one picture of them all.

#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QPainter>

#include "base/QtRunLoop.h"
#include "editor/ui/pins/PinBoard.h"
#include "editor/ui/pins/PinChrome.h"
#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Compositing.h"
#include "kit/Paint.h"
#include "kit/Theme.h"
#include "kit/Tokens.h"
#include "media/codecs/ImageConversion.h"
#include "support/FakePreferences.h"

namespace vellora::test {
namespace {

/// Something like a program's window: a bar, lines of text, a picture.
QImage specimen(QSize points, double scale, const ThemeColors& colors) {
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
  return image;
}

void settle() {
  QElapsedTimer timer;
  timer.start();
  while (timer.elapsed() < 150) QApplication::processEvents(QEventLoop::AllEvents, 10);
}

int run(const QString& folder) {
  Theme::shared().setReducedMotion(true);
  setCompositingProbe([](const QScreen*) { return true; });
  QtRunLoop runLoop;
  FakePreferences preferences;
  PinBoard board(runLoop, preferences, nullptr, {});
  const double scale = qApp->devicePixelRatio();
  const std::vector<QSize> sizes{{300, 190}, {174, 120}, {140, 100}, {106, 80}, {80, 56}, {60, 46}, {20, 10}};
  constexpr int rowHeight = 250;
  QImage sheet((QSizeF(1200, 2 * rowHeight) * scale).toSize(), QImage::Format_RGB32);
  sheet.setDevicePixelRatio(scale);
  sheet.fill(QColor(0xE8, 0xEA, 0xED));
  QPainter painter(&sheet);
  int top = 0;
  for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
    int left = 0;
    for (const QSize size : sizes) {
      PinWindowController* const pin = board.open(
          {.image = toBitmap(specimen(size, scale, Theme::palette(appearance))), .scale = scale, .capturedAt = {}});
      if (size.width() == 174) pin->toggleRoundedCorners();
      pin->window().chrome().fadeIn();
      settle();
      painter.drawPixmap(left, top, pin->window().grab());
      left += pin->window().width();
      if (size.width() == 174) pin->toggleRoundedCorners();
    }
    top += rowHeight;
  }
  painter.end();
  return sheet.save(folder + QStringLiteral("/pins-%1x.png").arg(scale)) ? 0 : 1;
}

}  // namespace
}  // namespace vellora::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) {
    std::fputs("usage: pin_gallery FOLDER\n", stderr);
    return 2;
  }
  return vellora::test::run(QString::fromLocal8Bit(argv[1]));
}
