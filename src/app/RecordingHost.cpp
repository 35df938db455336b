#include "app/RecordingHost.h"

#include <algorithm>
#include <utility>

#include <QDir>
#include <QEventLoop>
#include <QFileDialog>
#include <QStandardPaths>
#include <QTimer>

#include "app/AppServices.h"
#include "base/Log.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "record_editor/VideoImport.h"
#include "recording/RecordingRecovery.h"

namespace vellora {
namespace {

constexpr char warningIcon[] = "exclamationmark.triangle.fill";
constexpr QSize fileDialogSize{860, 560};
constexpr char videoPatterns[] = "*.mp4 *.mov *.mkv *.webm *.m4v *.avi *.mts *.m2ts *.ts *.mpg *.mpeg *.flv *.ogv";
/// Milliseconds a recording that ends with the program may take to become whole.
constexpr int longestEnd = 10'000;

/// The region in points from the display's corner.
Rect pointsIn(const DisplayInfo& display, const PixelRect& rect) {
  return {{(rect.x - display.frame.x) / display.scale, (rect.y - display.frame.y) / display.scale},
          {rect.width / display.scale, rect.height / display.scale}};
}

}  // namespace

/// What records. It costs threads, connections and libraries, so it waits for the first command.
struct RecordingHost::Engine {
  Engine(RecordingHost& host, AppServices& services)
      : audio(services.runLoop),
        eventTap([this] { return passwordFocus.hasKeyboard(); }),
        presenter(services.runLoop, *services.preferences, &services.windowHints, &services.hotKeys),
        controller({.runLoop = services.runLoop,
                    .capture = services.screenCapture,
                    .streams = streams,
                    .eventTap = eventTap,
                    .movies = host.movies_,
                    .files = host.files_},
                   {cameras, audio}, presenter, *services.preferences,
                   {.onStateChanged = [&host](State state) { host.stateChanged(state); },
                    .openEditor =
                        [&host](const RecordProjectBundle& bundle) {
                          if (!host.isEnding_) host.open(bundle.path());
                        }}) {}

  LoadedAudioCapture audio;
  LoadedCameraCapture cameras;
  X11ScreenStreamService streams;
  PasswordFocus passwordFocus;
  X11EventTap eventTap;
  SleepWatch sleepWatch;
  QtRecordingPresenter presenter;
  RecordingController controller;
};

RecordingHost::RecordingHost(AppServices& services, CaptureCommands& captures, Actions actions)
    : services_(services),
      captures_(captures),
      actions_(std::move(actions)),
      files_(services.fileNames),
      player_(services, movies_, [this] { actions_.windowsChanged(); }) {}

RecordingHost::~RecordingHost() = default;

RecordingHost::Engine& RecordingHost::engine() {
  if (!engine_) engine_ = std::make_unique<Engine>(*this, services_);
  return *engine_;
}

RecordingHost::State RecordingHost::state() const {
  return engine_ ? engine_->controller.state() : State::idle;
}

void RecordingHost::stateChanged(State state) {
  SleepWatch& sleep = engine_->sleepWatch;
  if (state == State::recording) {
    sleep.hold("A recording is being completed", [this] { engine_->controller.stop(); });
  } else if (state == State::idle) {
    sleep.release();
    services_.runLoop.post(lifetime_.guard([this] { actions_.windowsChanged(); }));
  }
  actions_.changed();
}

std::optional<DisplayInfo> RecordingHost::display(DisplayId id) const {
  for (const ScreenInfo& screen : services_.screens.screens()) {
    if (screen.display.id == id) return screen.display;
  }
  return std::nullopt;
}

void RecordingHost::toggleRegion() {
  if (!isIdle()) return engine().controller.stop();
  engine().controller.prewarmCamera();
  captures_.chooseRegionToRecord(lifetime_.guard([this](const std::optional<CaptureOrigin>& origin) {
    const auto screen = origin ? display(origin->display) : std::nullopt;
    if (screen) return engine().controller.begin(pointsIn(*screen, origin->rect), *screen);
    engine().controller.releaseCamera();
  }));
}

void RecordingHost::togglePause() {
  if (state() == State::recording) return engine().controller.pause();
  if (state() == State::paused) engine().controller.resume();
}

void RecordingHost::recordWindow() {
  if (!isIdle()) return;
  captures_.chooseWindowToRecord(lifetime_.guard([this](const std::optional<CaptureOrigin>& origin) {
    if (!origin) return;
    auto screen = display(origin->display);
    if (!screen) {
      const auto nearest = screenAt(services_.screens.screens(), origin->rect.center());
      if (!nearest) return;
      screen = nearest->display;
    }
    const WindowInfo window{.id = origin->window, .frame = origin->rect};
    // X tells no corner radius of a window.
    engine().controller.begin(window, *screen, 0);
  }));
}

void RecordingHost::recordFullscreen() {
  if (!isIdle() || !actions_.mayRecord()) return;
  captures_.cancelSessions();
  const auto pointer = services_.screens.pointerPosition().value_or(PixelPoint{});
  if (const auto screen = screenAt(services_.screens.screens(), pointer)) engine().controller.begin(screen->display);
}

void RecordingHost::recoverAbandoned() {
  auto tell = lifetime_.guard([this](int count) {
    //% "%n interrupted recording(s) saved: look under Recent Recordings"
    actions_.tell("record.circle", qtTrId("toast.recordingsRecovered", count), false);
    actions_.changed();
  });
  queue_.async([this, tell = std::move(tell)]() mutable {
    const std::size_t count = RecordingRecovery::run(files_, movies_).size();
    if (count == 0) return;
    services_.runLoop.post([tell = std::move(tell), count]() mutable { tell(static_cast<int>(count)); });
  });
}

void RecordingHost::endAndWait() {
  isEnding_ = true;
  if (engine_ && !isIdle()) {
    QEventLoop loop;
    QTimer::singleShot(longestEnd, &loop, &QEventLoop::quit);
    engine_->controller.stop();
    const auto watch = services_.runLoop.every(0.01, [&] {
      if (isIdle()) loop.quit();
    });
    if (!isIdle()) loop.exec();
  }
  player_.close();
}

void RecordingHost::open(const QString& bundle) {
  if (const auto project = RecordProjectBundle::open(bundle)) return player_.open(*project);
  //% "This recording cannot be opened: it has no movie"
  actions_.tell(warningIcon, qtTrId("toast.recordingNotOpened"), true);
}

void RecordingHost::chooseVideo() {
  auto* dialog = new QFileDialog;
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  followTheme(*dialog);
  dialog->setFileMode(QFileDialog::ExistingFile);
  dialog->setDirectory(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
  dialog->resize(fileDialogSize);
  //% "Import a video"
  dialog->setWindowTitle(qtTrId("import.video.title"));
  //% "Videos (%1)"
  const QString videos = qtTrId("import.video.filter").arg(QLatin1StringView(videoPatterns));
  //% "All files (*)"
  dialog->setNameFilters({videos, qtTrId("import.video.all")});
  QObject::connect(dialog, &QFileDialog::fileSelected, dialog,
                   lifetime_.guard([this](const QString& file) { importVideo(file); }));
  dialog->open();
}

void RecordingHost::importVideo(const QString& file) {
  //% "Importing the video…"
  actions_.tell("video.import", qtTrId("toast.importingVideo"), false);
  auto deliver = lifetime_.guard([this](const Result<RecordProjectBundle, VideoImport::Error>& imported) {
    if (isEnding_) return;
    Toast::dismiss();
    if (imported) {
      actions_.changed();
      return open(imported->path());
    }
    if (imported.error() == VideoImport::Error::Unreadable) {
      log::error(QStringLiteral("video import failed: it cannot be read"));
      return engine().presenter.notify(RecordingNotice::importUnreadable);
    }
    //% "The video could not be copied into the recordings folder"
    actions_.tell(warningIcon, qtTrId("toast.importNotCopied"), true);
  });
  queue_.async([this, file, deliver = std::move(deliver)]() mutable {
    const auto hasVideo = [this](const QString& path) {
      const auto summary = movies_.summarize(QFile::encodeName(path).toStdString());
      return summary && summary->video;
    };
    const auto goesOn = [this](double) { return !isEnding_; };
    services_.runLoop.post([imported = VideoImport::run(files_, file, hasVideo, goesOn),
                            deliver = std::move(deliver)]() mutable { deliver(imported); });
  });
}

bool RecordingHost::hasOpenWindows() const {
  return !isIdle() || player_.hasOpenWindows();
}

}  // namespace vellora
