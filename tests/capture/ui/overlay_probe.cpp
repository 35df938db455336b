// Runs one overlay session on the display it finds itself on, for tests and measurements:
//   overlay_probe area|adjust|window [PICTURE.png [TEXTS.qm]]
// Prints "shown MILLISECONDS" when the overlays are up, and at the end "took X,Y WIDTHxHEIGHT scale S after
// MILLISECONDS" (since the button was released) or "nothing". OVERLAY_PROBE_ROUNDS=N only brings the overlays up N
// times. OVERLAY_PROBE_PLAIN does without the display server's help.
#include <QApplication>
#include <QImage>
#include <QTranslator>
#include <cstdio>
#include <functional>
#include <memory>

#include "base/QtRunLoop.h"
#include "capture/SelectionSession.h"
#include "capture/WindowPickerSession.h"
#include "capture/ui/OverlayPainter.h"
#include "capture/ui/QtOverlayPresenter.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11ScreenStill.h"
#include "platform/linux/x11/X11Screens.h"

namespace {

/// Notes when the last button was released.
class ReleaseWatch final : public QObject {
 public:
  explicit ReleaseWatch(vellora::RunLoop& loop) : loop_(loop) {}
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonRelease) at = loop_.hostTime();
    return false;
  }
  double at = 0;

 private:
  vellora::RunLoop& loop_;
};

}  // namespace

int main(int argc, char** argv) {
  using namespace vellora;
  QApplication application(argc, argv);
  const QString mode = QString::fromUtf8(argc > 1 ? argv[1] : "area");
  const QString file = QString::fromUtf8(argc > 2 ? argv[2] : "");
  QTranslator texts;
  if (argc > 3 && texts.load(QString::fromUtf8(argv[3]))) QApplication::installTranslator(&texts);
  QtRunLoop loop;
  ReleaseWatch release(loop);
  application.installEventFilter(&release);
  X11ScreenCapture capture;
  X11Screens screens;
  CaptureEngine engine(capture, loop);
  X11ScreenStills stills;
  QtOverlayPresenter presenter(engine, qEnvironmentVariableIsSet("OVERLAY_PROBE_PLAIN") ? nullptr : &stills);
  engine.waitForPictures();

  int rounds = qEnvironmentVariableIntValue("OVERLAY_PROBE_ROUNDS");
  double begun = 0;
  TimerHandle pause;
  std::unique_ptr<OverlaySession> session;
  const auto since = [&] { return (loop.hostTime() - begun) * 1000; };
  std::function<void()> begin;
  const auto say = [](const QString& line) {
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
  };
  const auto done = [&](const std::optional<CapturedImage>& image, const CaptureOrigin& origin) {
    if (image) {
      say(QStringLiteral("took %1,%2 %3x%4 scale %5 after %6")
              .arg(origin.rect.x)
              .arg(origin.rect.y)
              .arg(image->image.width())
              .arg(image->image.height())
              .arg(image->scale)
              .arg((loop.hostTime() - release.at) * 1000, 0, 'f', 1));
      if (!file.isEmpty()) sharedImage(image->image).save(file);
    } else if (rounds == 0) {
      say(QStringLiteral("nothing"));
    }
    if (rounds > 0 && --rounds > 0) {
      pause = loop.after(0.3, begin);
    } else {
      loop.post([] { QApplication::quit(); });
    }
  };
  QObject::connect(&presenter, &QtOverlayPresenter::shown, [&] {
    say(QStringLiteral("shown %1").arg(since(), 0, 'f', 1));
    if (rounds > 0) pause = loop.after(0.1, [&] { session->cancel(); });
  });
  const OverlayServices services{engine, screens, presenter, loop};
  begin = [&] {
    if (mode == QLatin1String("window")) {
      session = std::make_unique<WindowPickerSession>(services, done);
    } else {
      session = std::make_unique<SelectionSession>(SelectionSession::Purpose::ImageCapture, services, done,
                                                   mode == QLatin1String("adjust"));
    }
    begun = loop.hostTime();
    session->begin();
  };
  loop.post(begin);
  return QApplication::exec();
}
