// Draws pins with the controls of every tier over light and dark pictures into one picture:
//   pin_gallery FOLDER [TEXTS.qm]

#include <cstdio>

#include <QApplication>
#include <QElapsedTimer>
#include <QTranslator>

#include "PinSpecimen.h"
#include "base/QtRunLoop.h"
#include "editor/ui/pins/PinBoard.h"
#include "editor/ui/pins/PinChrome.h"
#include "editor/ui/pins/PinWindow.h"
#include "editor/ui/pins/PinWindowController.h"
#include "kit/Compositing.h"
#include "support/FakePreferences.h"

namespace vellora::test {
namespace {

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
  QImage sheet((QSizeF(1340, 2 * rowHeight) * scale).toSize(), QImage::Format_RGB32);
  sheet.setDevicePixelRatio(scale);
  sheet.fill(QColor(0xE8, 0xEA, 0xED));
  QPainter painter(&sheet);
  int top = 0;
  for (const Appearance appearance : {Appearance::Light, Appearance::Dark}) {
    int left = 0;
    for (const QSize size : sizes) {
      PinWindowController* const pin = board.open(pinSpecimen(size, scale, Theme::palette(appearance)));
      const bool round = size.width() == 174;
      if (round) pin->toggleRoundedCorners();
      pin->window().chrome().fadeIn();
      settle();
      painter.drawPixmap(left, top, pin->window().grab());
      left += pin->window().width();
      if (round) pin->toggleRoundedCorners();
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
  if (argc < 2) {
    std::fputs("usage: pin_gallery FOLDER [TEXTS.qm]\n", stderr);
    return 2;
  }
  QTranslator texts;
  if (argc > 2 && texts.load(QString::fromLocal8Bit(argv[2]))) QApplication::installTranslator(&texts);
  return vellora::test::run(QString::fromLocal8Bit(argv[1]));
}
