// Shows the windows of a recording on a real display as lines on standard input say, and tells on standard output what
// a person does with them:
//   recording_probe [--blended] [--texts TEXTS.qm]
// Commands: region X Y W H | border X Y W H RADIUS armed|recording|paused | bar preStart|arming|recording|paused X Y W
// H
//   elapsed SECONDS | level LEVEL | hidden 0|1 | countdown NUMBER X Y W H | camera | frame | notice NUMBER | failed |
//   close region|border|bar|countdown|camera | windows | quit

#include <unistd.h>

#include <cstdio>

#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QSocketNotifier>
#include <QTranslator>

#include "SyntheticCameraFrame.h"
#include "base/QtRunLoop.h"
#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/linux/x11/X11WindowHints.h"
#include "recording/ui/CameraBubble.h"
#include "recording/ui/QtRecordingPresenter.h"
#include "recording/ui/RecordingBar.h"
#include "recording/ui/RegionPanel.h"
#include "support/FakePreferences.h"

namespace vellora::test {
namespace {

void say(const QString& line) {
  std::printf("%s\n", qPrintable(line));
  std::fflush(stdout);
}

QString toText(const PixelRect& rect) {
  return QStringLiteral("%1 %2 %3 %4").arg(rect.x).arg(rect.y).arg(rect.width).arg(rect.height);
}

class Probe {
 public:
  explicit Probe(bool isBlended) {
    setCompositingProbe([this, isBlended](const QScreen*) { return isBlended || screens_.isComposited(); });
    model_.micDevices = {{QStringLiteral("mic"), QStringLiteral("Built-in microphone")},
                         {QStringLiteral("usb"), QStringLiteral("Desk & Stand Mic")}};
    model_.cameraDevices = {{QStringLiteral("cam"), QStringLiteral("Integrated camera")}};
    model_.selectedMicID = QStringLiteral("mic");
    model_.source = QStringLiteral("Region");
    model_.micLevel = 0.6;
    model_.onStart = [] { say(QStringLiteral("start")); };
    model_.onStop = [] { say(QStringLiteral("stop")); };
    model_.onPauseToggle = [] { say(QStringLiteral("pause")); };
    model_.onSelectMic = [this](const std::optional<QString>& id) {
      say(QStringLiteral("mic ") + id.value_or(QStringLiteral("none")));
      model_.selectedMicID = id;
      model_.changed();
    };
    model_.onSelectCamera = [this](const std::optional<QString>& id) {
      say(QStringLiteral("camera ") + id.value_or(QStringLiteral("none")));
      model_.selectedCameraID = id;
      model_.changed();
    };
    model_.onSelectSystemSound = [this](bool isOn) {
      say(QStringLiteral("sound %1").arg(isOn));
      model_.systemSoundEnabled = isOn;
      model_.changed();
    };
    model_.onSelectKeyboard = [this](bool isOn) {
      say(QStringLiteral("keys %1").arg(isOn));
      model_.keyboardEnabled = isOn;
      model_.changed();
    };
    (void)input_.open(STDIN_FILENO, QIODevice::ReadOnly | QIODevice::Unbuffered);
    QObject::connect(&commands_, &QSocketNotifier::activated, [this] {
      const QByteArray line = input_.readLine().trimmed();
      if (line.isEmpty()) return commands_.setEnabled(false);
      run(QString::fromUtf8(line).split(QLatin1Char(' ')));
      say(QStringLiteral("done ") + QString::fromUtf8(line));
    });
    say(QStringLiteral("ready"));
  }

 private:
  void run(const QStringList& words) {
    const QString& what = words[0];
    const auto word = [&](int i) { return words.value(i); };
    const auto rect = [&](int i) {
      return PixelRect{word(i).toInt(), word(i + 1).toInt(), word(i + 2).toInt(), word(i + 3).toInt()};
    };
    const auto display = [this](const PixelRect& place) {
      const auto info = screenAt(screens_.screens(), place.center());
      return info ? info->display : DisplayInfo{};
    };
    if (what == QLatin1String("region")) {
      presenter_.showRegionPanel(
          rect(1), display(rect(1)), [](const PixelRect& region) { say(QStringLiteral("region ") + toText(region)); },
          [] { say(QStringLiteral("cancelled")); });
    } else if (what == QLatin1String("border")) {
      const auto look = word(6) == QLatin1String("armed")    ? RecordingPresenter::BorderLook::armed
                        : word(6) == QLatin1String("paused") ? RecordingPresenter::BorderLook::paused
                                                             : RecordingPresenter::BorderLook::recording;
      presenter_.showBorder(rect(1), word(5).toDouble(), look);
    } else if (what == QLatin1String("bar")) {
      using Mode = RecordingBarModel::Mode;
      model_.mode = word(1) == QLatin1String("preStart")    ? Mode::preStart
                    : word(1) == QLatin1String("arming")    ? Mode::arming
                    : word(1) == QLatin1String("recording") ? Mode::recording
                                                            : Mode::paused;
      if (words.size() > 2) {
        presenter_.showBar(model_, rect(2), display(rect(2)));
      } else {
        model_.changed();
      }
    } else if (what == QLatin1String("elapsed")) {
      model_.elapsed = word(1).toDouble();
      model_.changed();
    } else if (what == QLatin1String("level")) {
      model_.micLevel = word(1).toDouble();
      model_.changed();
    } else if (what == QLatin1String("hidden")) {
      model_.keyboardHidden = word(1).toInt() != 0;
      model_.changed();
    } else if (what == QLatin1String("countdown")) {
      presenter_.showCountdown(word(1).toInt(), rect(2), display(rect(2)));
    } else if (what == QLatin1String("camera")) {
      presenter_.showCamera(display({0, 0, 2, 2}));
    } else if (what == QLatin1String("frame")) {
      presenter_.cameraFrame(portrait(1280, 720));
    } else if (what == QLatin1String("notice")) {
      presenter_.notify(static_cast<RecordingNotice>(word(1).toInt()));
    } else if (what == QLatin1String("failed")) {
      presenter_.startFailed(RecordingError::windowNotFound);
    } else if (what == QLatin1String("close")) {
      close(word(1));
    } else if (what == QLatin1String("windows")) {
      for (const WindowId id : presenter_.ownWindows()) say(QStringLiteral("window %1").arg(id));
    } else if (what == QLatin1String("quit")) {
      QApplication::quit();
    }
  }
  void close(const QString& what) {
    if (what == QLatin1String("region")) presenter_.closeRegionPanel();
    if (what == QLatin1String("border")) presenter_.hideBorder();
    if (what == QLatin1String("bar")) presenter_.hideBar();
    if (what == QLatin1String("countdown")) presenter_.hideCountdown();
    if (what == QLatin1String("camera")) presenter_.hideCamera();
  }

  QtRunLoop runLoop_;
  FakePreferences preferences_;
  X11Screens screens_;
  X11WindowHints hints_;
  X11HotKeys hotKeys_;
  RecordingBarModel model_;
  QtRecordingPresenter presenter_{runLoop_, preferences_, &hints_, &hotKeys_};
  QFile input_;
  QSocketNotifier commands_{STDIN_FILENO, QSocketNotifier::Read};
};

}  // namespace
}  // namespace vellora::test

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  QTranslator texts;
  if (const auto at = arguments.indexOf(QStringLiteral("--texts")); at >= 0 && texts.load(arguments.value(at + 1))) {
    QApplication::installTranslator(&texts);
  }
  if (qEnvironmentVariable("VELLORA_APPEARANCE") == QLatin1String("dark")) {
    vellora::Theme::shared().setAppearanceOverride(vellora::Appearance::Dark);
  }
  const vellora::test::Probe probe(arguments.contains(QStringLiteral("--blended")));
  return QApplication::exec();
}
