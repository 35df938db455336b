// Runs one overlay session on the display it finds itself on, for tests and measurements:
//   overlay_probe area|adjust|window [PICTURE.png [TEXTS.qm]]
// Prints "ready" before the session begins, "shown MILLISECONDS" when the overlays are up, and at the end
// "took X,Y WIDTHxHEIGHT scale S after MILLISECONDS" or "nothing".
#include <QApplication>
#include <QImage>
#include <QTranslator>
#include <cstdio>
#include <cstring>
#include <memory>

#include "base/QtRunLoop.h"
#include "capture/SelectionSession.h"
#include "capture/WindowPickerSession.h"
#include "capture/ui/OverlayPainter.h"
#include "capture/ui/QtOverlayPresenter.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11Screens.h"

int main(int argc, char** argv) {
  using namespace vellora;
  QApplication application(argc, argv);
  const QString mode = QString::fromUtf8(argc > 1 ? argv[1] : "area");
  const QString file = QString::fromUtf8(argc > 2 ? argv[2] : "");
  QTranslator texts;
  if (argc > 3 && texts.load(QString::fromUtf8(argv[3]))) QApplication::installTranslator(&texts);
  QtRunLoop loop;
  X11ScreenCapture capture;
  X11Screens screens;
  CaptureEngine engine(capture, loop);
  QtOverlayPresenter presenter(engine);
  engine.shareableContentNow();

  double begun = 0;
  std::unique_ptr<OverlaySession> session;
  const auto since = [&] { return (loop.hostTime() - begun) * 1000; };
  const auto done = [&](const std::optional<CapturedImage>& image, const CaptureOrigin& origin) {
    if (image) {
      std::printf("took %d,%d %dx%d scale %g after %.1f\n", origin.rect.x, origin.rect.y, image->image.width(),
                  image->image.height(), image->scale, since());
      if (!file.isEmpty()) sharedImage(image->image).save(file);
    } else {
      std::printf("nothing\n");
    }
    std::fflush(stdout);
    loop.post([] { QApplication::quit(); });
  };
  QObject::connect(&presenter, &QtOverlayPresenter::shown, [&] {
    std::printf("shown %.1f\n", since());
    std::fflush(stdout);
  });
  OverlayServices services{engine, screens, presenter, loop};
  if (mode == QLatin1String("window")) {
    session = std::make_unique<WindowPickerSession>(services, done);
  } else {
    session = std::make_unique<SelectionSession>(SelectionSession::Purpose::ImageCapture, services, done,
                                                 mode == QLatin1String("adjust"));
  }
  loop.post([&] {
    std::printf("ready\n");
    std::fflush(stdout);
    begun = loop.hostTime();
    session->begin();
  });
  return QApplication::exec();
}
