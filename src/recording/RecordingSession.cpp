#include "recording/RecordingSession.h"

#include <sys/statvfs.h>

#include <algorithm>
#include <utility>

#include <QDir>
#include <QFile>

#include "base/Log.h"
#include "record_editor/BundleFiles.h"
#include "record_editor/ProjectCompletion.h"
#include "record_editor/RecordPauseMarks.h"
#include "recording/RecordingReport.h"

namespace vellora {
namespace {

/// What a lively screen takes in a second.
constexpr double bytesPerPixel = 1;

bool saved(const char* failureText, const Result<void, FileError>& written) {
  if (!written) log::error(QString::fromLatin1(failureText) + written.error().description());
  return written.has_value();
}

}  // namespace

/// A recording under way, which goes with its files unless it is kept.
struct RecordingSession::Started {
  explicit Started(RecordProjectBundle made) : bundle(std::move(made)) {}
  Started(Started&& other) noexcept
      : bundle(std::exchange(other.bundle, std::nullopt)),
        marker(std::move(other.marker)),
        recorder(std::move(other.recorder)),
        expectedRate(other.expectedRate) {}
  Started& operator=(Started&&) = delete;
  ~Started() {
    recorder.reset();
    if (!bundle) return;
    if (const auto removed = bundle->remove(); !removed) {
      log::warning(QStringLiteral("recording not removed: ") + removed.error().description());
    }
  }

  std::optional<RecordProjectBundle> bundle;
  std::optional<RecordingMarker> marker;
  std::unique_ptr<ScreenRecorder> recorder;
  double expectedRate = 0;  ///< bytes a second
};

RecordingSession::RecordingSession(const RecordingServices& services, Callbacks callbacks)
    : services_(services), callbacks_(std::move(callbacks)), keyboardCapture_(services.eventTap, services.runLoop) {}

RecordingSession::~RecordingSession() {
  keyboardCapture_.stop();
  // A start that nobody waits for any more ends here, while the camera lives.
  queue_.drain();
  started_.reset();
  // Its tasks use this session's queue.
  recorder_.reset();
}

void RecordingSession::start(const Request& request, std::function<void(Result<void, RecordingError>)> done) {
  auto deliver = lifetime_.guard([this, request, done = std::move(done)](const Result<void, RecordingError>& started) {
    if (started) keep(request);
    done(started);
  });
  queue_.async([this, request, deliver = std::move(deliver)]() mutable {
    Result<void, RecordingError> result;
    if (auto started = makeStarted(request)) {
      started_ = std::make_unique<Started>(std::move(*started));
    } else {
      result = failure(started.error());
    }
    services_.runLoop.post([result, deliver = std::move(deliver)]() mutable { deliver(result); });
  });
}

Result<RecordingSession::Started, RecordingError> RecordingSession::makeStarted(const Request& request) {
  const auto content = services_.capture.shareableContent();
  const auto& target = request.target;
  if (!content || std::ranges::find(content->displays, target.screen.id, &DisplayInfo::id) == content->displays.end()) {
    return failure(RecordingError::displayNotFound);
  }
  ScreenStreamConfiguration configuration{.area = target.area, .window = target.windowID, .leftOut = request.leftOut};
  if (target.windowID) {
    const auto window = std::ranges::find(content->windows, *target.windowID, &WindowInfo::id);
    if (window == content->windows.end()) return failure(RecordingError::windowNotFound);
    configuration.area = window->frame;
  }
  const int width = configuration.area.width;
  const int height = configuration.area.height;

  const QString name = RecordingFiles::projectName(services_.runLoop.now().toDateTime());
  auto bundle = RecordProjectBundle::create(services_.files, name);
  if (!bundle) {
    log::error(QStringLiteral("recording start failed: ") + bundle.error().description());
    return failure(RecordingError::writerSetupFailed);
  }
  Started started(*bundle);
  auto marker = RecordingMarker::place(bundle->path());
  if (!marker) {
    log::error(QStringLiteral("recording start failed: ") + marker.error().description());
    return failure(RecordingError::writerSetupFailed);
  }
  started.marker = std::move(*marker);
  auto ended = lifetime_.guard([this] {
    if (callbacks_.onEnded) callbacks_.onEnded();
  });
  const auto endLater = [&runLoop = services_.runLoop, ended] { runLoop.post([ended]() mutable { ended(); }); };
  started.expectedRate = bytesPerPixel * width * height;
  MovieWriter::Settings settings{.video = {.width = width, .height = height}};
  for (const auto& sound : request.sounds) settings.sounds.push_back({.channels = sound->channels()});
  auto movie = services_.movies.create(
      QFile::encodeName(bundle->file(bundleFiles::screen)).toStdString(), settings,
      [endLater](const MovieFailure& reason) {
        log::error(QStringLiteral("writing the recording failed: ") + QString::fromStdString(reason.message));
        endLater();
      });
  if (!movie) {
    log::error(QString::fromStdString(movie.error().message));
    return failure(RecordingError::writerSetupFailed);
  }
  CameraRecorder* const camera = request.camera;
  ScreenRecorder::Callbacks recorderCallbacks{.onStreamStopped = [endLater](ScreenCaptureError error) {
    log::warning(QStringLiteral("stream stopped on its own: %1").arg(static_cast<int>(error)));
    endLater();
  }};
  if (camera != nullptr) {
    recorderCallbacks.onSessionAnchor = [camera](double at) { camera->anchor(at); };
    recorderCallbacks.onPauseBoundary = [camera](double at) { camera->pause(at); };
    recorderCallbacks.onResumeBoundary = [camera](double at) { camera->resume(at); };
    camera->startWriting(services_.movies, bundle->file(bundleFiles::camera));
  }
  started.recorder = std::make_unique<ScreenRecorder>(services_.runLoop, std::move(recorderCallbacks));
  started.recorder->setSounds(request.sounds);
  if (auto pointerTrack = PointerTrackWriter::create(bundle->path())) {
    started.recorder->setPointerTrack(std::move(*pointerTrack));
  } else {
    log::warning(QStringLiteral("pointer not recorded: ") + pointerTrack.error().description());
  }
  const auto running = started.recorder->start(services_.streams, configuration, std::move(*movie));
  if (!running) return failure(running.error());
  return started;
}

void RecordingSession::keep(const Request& request) {
  const auto started = std::move(started_);
  currentBundle_ = std::exchange(started->bundle, std::nullopt);
  marker_ = std::move(started->marker);
  recorder_ = std::move(started->recorder);
  marksTimer_ = services_.runLoop.every(marksInterval, [this] { keepMarks(); });
  diskWatch_.emplace(started->expectedRate);
  advanceTimer_ = services_.runLoop.every(advanceInterval, [this] { recorder_->advance(); });
  diskTimer_ = services_.runLoop.every(diskInterval, [this] { lookAtDisk(); });
  sounds_ = request.sounds;
  if (!sounds_.empty()) soundTimer_ = services_.runLoop.every(soundInterval, [this] { takeSoundsBack(); });
  camera_ = request.camera;
  segmentStartedAt_ = services_.runLoop.hostTime();
  recordsKeys_ = request.recordsKeys && keyboardCapture_.start(*recorder_);
  if (request.recordsKeys && !recordsKeys_ && callbacks_.onKeysNotPermitted) callbacks_.onKeysNotPermitted();
}

void RecordingSession::keepMarks() {
  recorder_->marks([this, bundle = currentBundle_->path(), keysToo = recordsKeys_](
                       const std::vector<double>& pauseMarks, const std::vector<RecordedKeyCue>& keyCues) {
    queue_.async([bundle, keysToo, pauseMarks, keyCues] {
      saved("pause marks save failed: ", RecordPauseMarks::save(pauseMarks, bundle));
      if (keysToo) saved("keyboard metadata save failed: ", RecordedKeyCue::save(keyCues, bundle));
    });
  });
}

void RecordingSession::lookAtDisk() {
  auto deliver = lifetime_.guard([this, time = elapsed()](std::int64_t written, std::int64_t free) {
    if (!diskTimer_) return;
    const auto tell = [](const std::function<void()>& callback) {
      if (callback) callback();
    };
    switch (diskWatch_->look(time, written, free)) {
      case DiskWatch::Advice::fine:
        return;
      case DiskWatch::Advice::low:
        return tell(callbacks_.onDiskLow);
      case DiskWatch::Advice::full:
        diskTimer_.reset();
        return tell(callbacks_.onDiskFull);
    }
  });
  queue_.async([&runLoop = services_.runLoop, path = currentBundle_->path(), deliver = std::move(deliver)]() mutable {
    std::int64_t written = 0;
    for (const QFileInfo& file : QDir(path).entryInfoList(QDir::Files | QDir::Hidden)) written += file.size();
    struct statvfs disk {};
    if (::statvfs(QFile::encodeName(path).constData(), &disk) != 0) return;
    const auto free = static_cast<std::int64_t>(disk.f_bavail * disk.f_frsize);
    runLoop.post([written, free, deliver = std::move(deliver)]() mutable { deliver(written, free); });
  });
}

void RecordingSession::takeSoundsBack() {
  if (isAskingForSounds_ || std::ranges::none_of(sounds_, &SoundTrack::isLost)) return;
  isAskingForSounds_ = true;
  using Sounds = std::vector<std::shared_ptr<SoundTrack>>;
  auto deliver = lifetime_.guard([this](const Sounds& returned) {
    isAskingForSounds_ = false;
    if (!soundTimer_ || !callbacks_.onSoundReturned) return;
    for (const auto& sound : returned) callbacks_.onSoundReturned(sound->isSystemSound());
  });
  soundQueue_.async([&runLoop = services_.runLoop, sounds = sounds_, deliver = std::move(deliver)]() mutable {
    std::erase_if(sounds, [](const auto& sound) { return !sound->isLost() || !sound->reopen(); });
    runLoop.post([returned = std::move(sounds), deliver = std::move(deliver)]() mutable { deliver(returned); });
  });
}

void RecordingSession::pause() {
  if (!recorder_ || !segmentStartedAt_) return;
  recorder_->pause();
  accumulatedElapsed_ = elapsed();
  segmentStartedAt_.reset();
  keepMarks();
}

void RecordingSession::resume() {
  if (!recorder_ || segmentStartedAt_) return;
  recorder_->resume();
  segmentStartedAt_ = services_.runLoop.hostTime();
}

void RecordingSession::setLeftOut(std::vector<WindowId> windows) {
  if (recorder_) recorder_->setLeftOut(std::move(windows));
}

double RecordingSession::elapsed() const {
  const double segment = segmentStartedAt_ ? services_.runLoop.hostTime() - *segmentStartedAt_ : 0;
  return accumulatedElapsed_ + segment;
}

void RecordingSession::finish(std::function<void(Result<RecordProjectBundle, RecordingError>)> done) {
  keyboardCapture_.stop();
  marksTimer_.reset();
  advanceTimer_.reset();
  soundTimer_.reset();
  diskTimer_.reset();
  if (!recorder_) return done(failure(RecordingError::writeFailed));
  const double now = services_.runLoop.hostTime();
  recorder_->finish(lifetime_.guard(
      [this, now, done = std::move(done)](const Result<ScreenRecorder::Outcome, RecordingError>& outcome) {
        recorder_.reset();
        if (!outcome) {
          log::error(QStringLiteral("recording stop failed: ") + description(outcome.error()));
          discard();
          return done(failure(outcome.error()));
        }
        if (camera_ == nullptr) return complete(*outcome, done);
        camera_->finishWriting(now, lifetime_.guard([this, outcome, done](bool) { complete(*outcome, done); }));
      }));
}

void RecordingSession::complete(const ScreenRecorder::Outcome& outcome,
                                const std::function<void(Result<RecordProjectBundle, RecordingError>)>& done) {
  auto deliver = lifetime_.guard([this, done](bool keysSaved) {
    marker_->remove();
    if (!keysSaved && callbacks_.onKeysNotSaved) callbacks_.onKeysNotSaved();
    done(*currentBundle_);
  });
  queue_.async([this, bundle = *currentBundle_, outcome, recordsKeys = recordsKeys_,
                deliver = std::move(deliver)]() mutable {
    soundQueue_.drain();  // which is not to be waited for on the main thread
    saved("pause marks save failed: ", RecordPauseMarks::save(outcome.pauseMarks, bundle.path()));
    const bool keysSaved =
        !recordsKeys || saved("keyboard metadata save failed: ", RecordedKeyCue::save(outcome.keyCues, bundle.path()));
    saved("recording report save failed: ", recordingReport::save(outcome.report, bundle.path()));
    projectCompletion::complete(bundle);
    services_.runLoop.post([keysSaved, deliver = std::move(deliver)]() mutable { deliver(keysSaved); });
  });
}

void RecordingSession::discard() {
  if (!currentBundle_) return;
  if (const auto removed = currentBundle_->remove(); !removed) {
    log::warning(QStringLiteral("recording not removed: ") + removed.error().description());
  }
  currentBundle_.reset();
}

}  // namespace vellora
