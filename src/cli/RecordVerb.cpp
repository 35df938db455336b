#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include <QCoreApplication>

#include "base/Log.h"
#include "base/QtRunLoop.h"
#include "base/TerminationSignals.h"
#include "cli/Terminal.h"
#include "cli/Values.h"
#include "cli/Verbs.h"
#include "media/loaded_movies/LoadedMovies.h"
#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/camera/LoadedCameraCapture.h"
#include "platform/linux/desktop/PasswordFocus.h"
#include "platform/linux/desktop/SessionBus.h"
#include "platform/linux/desktop/SleepWatch.h"
#include "platform/linux/desktop/XdgFileNames.h"
#include "platform/linux/x11/X11EventTap.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "recording/RecordingSession.h"

namespace vellora::cli {
namespace {

/// The word that stands for the first device of its kind.
const std::string anyDevice = "default";
constexpr double longestDuration = 7 * 24 * 3600;
constexpr double deviceWait = 0.5;  // seconds in which devices begin to deliver

std::nullopt_t refuse(const QString& message) {
  printError(message);
  return std::nullopt;
}

QString durationText(double seconds) {
  const int whole = static_cast<int>(seconds);
  return QStringLiteral("%1:%2").arg(whole / 60).arg(whole % 60, 2, 10, QLatin1Char('0'));
}

std::optional<DisplayInfo> displayWith(const ShareableContent& content, const PixelRect& rect) {
  std::optional<DisplayInfo> best;
  std::int64_t most = 0;
  for (const DisplayInfo& display : content.displays) {
    const PixelRect part = display.frame.intersected(rect);
    const std::int64_t pixels = part.isEmpty() ? 0 : std::int64_t{part.width} * part.height;
    if (pixels > most) {
      most = pixels;
      best = display;
    }
  }
  return best;
}

/// What the options name; nothing when there is no such thing, after saying so.
std::optional<RecordingTarget> findTarget(const Invocation& invocation, ScreenCaptureService& capture) {
  const auto content = capture.shareableContent();
  if (!content || content->displays.empty()) {
    return refuse(QStringLiteral("there is no desktop that can be recorded; is DISPLAY set?"));
  }
  if (const auto region = invocation.value("--region")) {
    const auto area = parseRegion(*region);
    if (!area) return refuse(QStringLiteral("--region takes X,Y,W,H in device pixels, W and H above 0"));
    const auto display = displayWith(*content, *area);
    if (!display) return refuse(QStringLiteral("the region lies outside every display"));
    return RecordingTarget{.screen = *display, .area = area->intersected(display->frame), .windowID = std::nullopt};
  }
  if (const auto window = invocation.value("--window")) {
    const auto id = parseWindow(*window);
    if (!id) return refuse(QStringLiteral("--window takes an id as 'vellora windows' lists it"));
    const auto found = std::ranges::find(content->windows, *id, &WindowInfo::id);
    if (found == content->windows.end()) return refuse(description(RecordingError::windowNotFound));
    return RecordingTarget::window(*found, displayWith(*content, found->frame).value_or(content->displays.front()), 0);
  }
  const auto wanted = invocation.value("--display");
  if (!wanted) return RecordingTarget::fullscreen(content->displays.front());
  for (const DisplayInfo& display : content->displays) {
    if (display.name.toStdString() == *wanted || parseInteger(*wanted) == std::int64_t{display.id}) {
      return RecordingTarget::fullscreen(display);
    }
  }
  return refuse(description(RecordingError::displayNotFound));
}

/// The device an option names; nothing when there is none, after saying so.
std::optional<QString> deviceNamed(const std::string& wanted, const std::vector<CaptureDeviceInfo>& devices,
                                   RecordingError missing) {
  for (const CaptureDeviceInfo& device : devices) {
    if (wanted == anyDevice || device.uniqueID.toStdString() == wanted) return device.uniqueID;
  }
  return refuse(description(missing) + QStringLiteral(" 'vellora devices' lists what there is."));
}

QString soundName(bool isSystemSound) {
  return isSystemSound ? QStringLiteral("the speakers' sound") : QStringLiteral("the microphone");
}

/// One recording from here on, without windows.
class Recording {
 public:
  explicit Recording(bool json)
      : json_(json),
        files_(fileNames_),
        audio_(runLoop_),
        eventTap_([this] { return passwordFocus_.hasKeyboard(); }),
        session_({.runLoop = runLoop_,
                  .capture = capture_,
                  .streams = streams_,
                  .eventTap = eventTap_,
                  .movies = movies_,
                  .files = files_},
                 {.onEnded = [this] { endBecause(QStringLiteral("what was recorded is gone")); },
                  .onKeysNotSaved = [] { printError(QStringLiteral("the keystrokes could not be saved")); },
                  .onDiskLow = [] { printError(QStringLiteral("the disk has room for about five minutes more")); },
                  .onDiskFull = [this] { endBecause(QStringLiteral("the disk is nearly full")); },
                  .onSoundReturned =
                      [](bool isSystemSound) { printError(soundName(isSystemSound) + QStringLiteral(" is back")); },
                  .onKeysNotPermitted = [] { printError(QStringLiteral("keystrokes cannot be recorded")); }}) {}

  /// False when an option is wrong, after saying so.
  bool prepare(const Invocation& invocation) {
    const auto target = findTarget(invocation, capture_);
    if (!target) return false;
    request_.target = *target;
    request_.recordsKeys = invocation.has("--keystrokes");
    if (const auto microphone = invocation.value("--microphone")) {
      const auto devices = audio_.microphones();
      const auto id =
          deviceNamed(*microphone, devices ? *devices : std::vector<CaptureDeviceInfo>(), RecordingError::micNotFound);
      if (!id || !listenTo(*id, soundName(false))) return false;
    }
    if (invocation.has("--system-sound") && !listenTo(AudioCapture::systemSound, soundName(true))) {
      return false;
    }
    if (const auto camera = invocation.value("--camera")) {
      const auto id = deviceNamed(*camera, cameras_.cameras(), RecordingError::cameraNotFound);
      if (!id) return false;
      camera_ = std::make_unique<CameraRecorder>(
          runLoop_, CameraRecorder::Callbacks{.onLost = [](CameraCaptureError) {
            printError(QStringLiteral("the camera is gone; the recording goes on without it"));
          }});
      if (!camera_->open(cameras_, *id)) {
        printError(description(RecordingError::cameraNotFound));
        return false;
      }
      request_.camera = camera_.get();
    }
    return true;
  }

  void start(std::optional<double> duration) {
    duration_ = duration;
    const double wait = camera_ || !request_.sounds.empty() ? deviceWait : 0;
    starting_ = runLoop_.after(wait, [this] {
      session_.start(request_, [this](const Result<void, RecordingError>& began) {
        if (began) return this->began();
        printError(description(began.error()));
        QCoreApplication::exit(Failed);
      });
    });
  }

  /// Ctrl-C: the first one ends the recording, the next one the program.
  void stop() {
    if (isEnding_ || !isRunning_) return QCoreApplication::exit(Failed);
    end();
  }

 private:
  bool listenTo(const QString& deviceID, const QString& name) {
    auto track = SoundTrack::open(audio_, deviceID, {.onLost = [name] {
                                    printError(name + QStringLiteral(" is gone; silence takes its place"));
                                  }});
    if (!track) {
      printError(name + QStringLiteral(" cannot be recorded"));
      return false;
    }
    request_.sounds.push_back(std::move(*track));
    return true;
  }

  void began() {
    isRunning_ = true;
    sleepWatch_.hold("A recording is being completed", [this] { end(); });
    if (::isatty(STDERR_FILENO) != 0) std::fprintf(stderr, "Recording. Ctrl-C ends it.\n");
    constexpr double tick = 0.02;
    ticking_ = runLoop_.every(tick, [this] { look(); });
  }

  void look() {
    const double elapsed = session_.elapsed();
    if (duration_ && elapsed >= *duration_) return end();
    if (::isatty(STDERR_FILENO) == 0 || static_cast<int>(elapsed) == shownSecond_) return;
    shownSecond_ = static_cast<int>(elapsed);
    std::fprintf(stderr, "\r%s ", qPrintable(durationText(elapsed)));
  }

  void endBecause(const QString& reason) {
    if (!isEnding_) printError(QStringLiteral("%1: the recording ends here").arg(reason));
    end();
  }

  void end() {
    if (std::exchange(isEnding_, true)) return;
    ticking_.reset();
    const double seconds = session_.elapsed();
    if (shownSecond_ >= 0) std::fputc('\n', stderr);
    session_.finish([this, seconds](const Result<RecordProjectBundle, RecordingError>& bundle) {
      sleepWatch_.release();
      if (!bundle) {
        printError(description(bundle.error()));
        return QCoreApplication::exit(Failed);
      }
      if (json_) {
        printJson({{"bundle", bundle->path().toStdString()}, {"seconds", seconds}});
      } else {
        printLine(bundle->path());
      }
      QCoreApplication::exit(Done);
    });
  }

  const bool json_;
  QtRunLoop runLoop_;
  XdgFileNames fileNames_;
  RecordingFiles files_;
  X11ScreenCapture capture_;
  X11ScreenStreamService streams_;
  PasswordFocus passwordFocus_;
  LoadedAudioCapture audio_;
  LoadedCameraCapture cameras_;
  X11EventTap eventTap_;
  LoadedMovies movies_;
  SleepWatch sleepWatch_;
  std::unique_ptr<CameraRecorder> camera_;
  RecordingSession session_;
  RecordingSession::Request request_;
  std::optional<double> duration_;
  bool isRunning_ = false;
  bool isEnding_ = false;
  int shownSecond_ = -1;
  TimerHandle starting_;
  TimerHandle ticking_;
};

}  // namespace

int record(const Invocation& invocation) {
  const int targets = (invocation.has("--region") ? 1 : 0) + (invocation.has("--window") ? 1 : 0) +
                      (invocation.has("--fullscreen") ? 1 : 0);
  if (targets != 1) {
    printError(QStringLiteral("name what to record: --region X,Y,W,H, --window ID or --fullscreen"));
    return WrongUsage;
  }
  std::optional<double> duration;
  if (const auto text = invocation.value("--duration")) {
    bool ok = false;
    duration = QString::fromStdString(*text).toDouble(&ok);
    if (!ok || !(*duration > 0) || *duration > longestDuration) {
      printError(QStringLiteral("--duration takes seconds above 0"));
      return WrongUsage;
    }
  }
  sessionBus::forbidAutolaunch();
  int argc = 1;
  char name[] = "vellora";
  char* argv[] = {name, nullptr};
  const QCoreApplication application(argc, argv);
  Recording recording(invocation.json);
  if (!recording.prepare(invocation)) return Failed;
  const TerminationSignals interruption([&] { recording.stop(); });
  recording.start(duration);
  return QCoreApplication::exec();
}

}  // namespace vellora::cli
