#include "recording/RecordingController.h"

#include <algorithm>
#include <utility>

#include "base/Log.h"

namespace vellora {
namespace {

const QString cameraKey = QStringLiteral("record.cameraDeviceID");
const QString keyboardKey = QStringLiteral("record.keyboardEnabled");

}  // namespace

RecordingController::RecordingController(const RecordingServices& services, Devices devices,
                                         RecordingPresenter& presenter, PreferenceStore& preferences,
                                         Callbacks callbacks)
    : services_(services),
      devices_(devices),
      presenter_(presenter),
      preferences_(preferences),
      callbacks_(std::move(callbacks)) {
  bindBar();
}

RecordingController::~RecordingController() {
  hideWindows();
}

void RecordingController::bindBar() {
  barModel_.onStart = [this] { start(); };
  barModel_.onStop = [this] { stop(); };
  barModel_.onPauseToggle = [this] { state_ == State::paused ? resume() : pause(); };
  barModel_.onSelectCamera = [this](const std::optional<QString>& id) { selectCamera(id); };
  barModel_.onSelectKeyboard = [this](bool isOn) { selectKeyboard(isOn); };
}

void RecordingController::setState(State state, RecordingBarModel::Mode mode) {
  state_ = state;
  barModel_.mode = mode;
  barModel_.changed();
  if (callbacks_.onStateChanged) callbacks_.onStateChanged(state);
}

void RecordingController::begin(const Rect& region, const DisplayInfo& screen) {
  if (state_ != State::idle) return;
  prepare(RecordingTarget::region(region, screen));
  presenter_.showRegionPanel(
      target_->area, screen,
      [this](const PixelRect& area) {
        if (state_ == State::preparing) target_->area = area;
      },
      [this] { stop(); });
}

void RecordingController::begin(const WindowInfo& window, const DisplayInfo& screen, double cornerRadius) {
  if (state_ != State::idle) return;
  prepare(RecordingTarget::window(window, screen, cornerRadius));
  showBorder(RecordingPresenter::BorderLook::armed);
  windowFollowTimer_ = services_.runLoop.every(windowFollowInterval, [this] { followWindow(); });
}

void RecordingController::begin(const DisplayInfo& fullscreen) {
  if (state_ != State::idle) return;
  prepare(RecordingTarget::fullscreen(fullscreen));
  showBorder(RecordingPresenter::BorderLook::armed);
}

void RecordingController::prepare(RecordingTarget target) {
  target_ = std::move(target);
  barModel_.elapsed = 0;
  barModel_.keyboardEnabled = preferences_.value(keyboardKey).toBool();
  prewarmCamera();
  setState(State::preparing, RecordingBarModel::Mode::preStart);
  presenter_.showBar(barModel_, target_->area, target_->screen);
}

void RecordingController::start() {
  if (state_ != State::preparing) return;
  presenter_.closeRegionPanel();
  setState(State::arming, RecordingBarModel::Mode::arming);
  showBorder(RecordingPresenter::BorderLook::armed);
  countdownRemaining_ = countdownFrom;
  presenter_.showCountdown(countdownRemaining_, target_->area, target_->screen);
  countdownTimer_ = services_.runLoop.every(countdownInterval, [this] { countDown(); });
}

void RecordingController::countDown() {
  if (--countdownRemaining_ >= 1) {
    presenter_.showCountdown(countdownRemaining_, target_->area, target_->screen);
    return;
  }
  countdownTimer_.reset();
  presenter_.hideCountdown();
  beginCapture();
}

void RecordingController::beginCapture() {
  const auto notice = [this](RecordingNotice what) { return [this, what] { presenter_.notify(what); }; };
  session_ = std::make_unique<RecordingSession>(
      services_, RecordingSession::Callbacks{.onEnded = [this] { endedBy(RecordingNotice::stoppedByItself); },
                                             .onKeysNotSaved = notice(RecordingNotice::keyboardSaveFailed),
                                             .onDiskLow = notice(RecordingNotice::diskLow),
                                             .onDiskFull = [this] { endedBy(RecordingNotice::diskFull); },
                                             .onKeysNotPermitted = notice(RecordingNotice::keyboardNotPermitted)});
  session_->start({.target = *target_,
                   .recordsKeys = barModel_.keyboardEnabled,
                   .leftOut = presenter_.ownWindows(),
                   .camera = cameraRecorder_.get()},
                  [this](const Result<void, RecordingError>& began) { captureBegan(began); });
}

void RecordingController::endedBy(RecordingNotice reason) {
  if (isFinishing_) return;
  stop();
  presenter_.notify(reason);
}

void RecordingController::captureBegan(const Result<void, RecordingError>& began) {
  if (!began) {
    log::error(QStringLiteral("recording start failed: ") + description(began.error()));
    const RecordingError error = began.error();
    reset();
    presenter_.startFailed(error);
    return;
  }
  setState(State::recording, RecordingBarModel::Mode::recording);
  showBorder(RecordingPresenter::BorderLook::recording);
  elapsedTimer_ = services_.runLoop.every(elapsedInterval, [this] {
    barModel_.elapsed = session_->elapsed();
    barModel_.changed();
  });
}

void RecordingController::pause() {
  if (state_ != State::recording || isFinishing_) return;
  session_->pause();
  barModel_.elapsed = session_->elapsed();
  setState(State::paused, RecordingBarModel::Mode::paused);
  showBorder(RecordingPresenter::BorderLook::paused);
}

void RecordingController::resume() {
  if (state_ != State::paused || isFinishing_) return;
  session_->resume();
  setState(State::recording, RecordingBarModel::Mode::recording);
  showBorder(RecordingPresenter::BorderLook::recording);
}

void RecordingController::stop() {
  switch (state_) {
    case State::idle:
      return;
    case State::preparing:
    case State::arming:
      return reset();
    case State::recording:
    case State::paused:
      if (!isFinishing_) finish();
      return;
  }
}

void RecordingController::finish() {
  isFinishing_ = true;
  hideWindows();
  session_->finish(lifetime_.guard([this](const Result<RecordProjectBundle, RecordingError>& bundle) {
    reset();
    if (!bundle) return presenter_.notify(RecordingNotice::recordingFailed);
    if (callbacks_.openEditor) callbacks_.openEditor(*bundle);
  }));
}

void RecordingController::hideWindows() {
  countdownTimer_.reset();
  windowFollowTimer_.reset();
  elapsedTimer_.reset();
  presenter_.hideCountdown();
  presenter_.closeRegionPanel();
  presenter_.hideBorder();
  presenter_.hideBar();
  presenter_.hideCamera();
}

void RecordingController::reset() {
  hideWindows();
  session_.reset();
  tearCameraDown();
  target_.reset();
  isFinishing_ = false;
  setState(State::idle, RecordingBarModel::Mode::preStart);
}

void RecordingController::showBorder(RecordingPresenter::BorderLook look) {
  borderLook_ = look;
  presenter_.showBorder(target_->borderFrame(), target_->borderRadius(), look);
}

void RecordingController::followWindow() {
  auto deliver = lifetime_.guard([this](std::optional<PixelRect> frame) {
    if (!windowFollowTimer_ || !target_) return;
    if (!frame) return presenter_.hideBorder();
    target_->area = *frame;
    showBorder(borderLook_);
  });
  queue_.async([services = services_, id = *target_->windowID, deliver = std::move(deliver)]() mutable {
    std::optional<PixelRect> frame;
    if (const auto content = services.capture.shareableContent()) {
      const auto window = std::ranges::find(content->windows, id, &WindowInfo::id);
      if (window != content->windows.end()) frame = window->frame;
    }
    services.runLoop.post([frame, deliver = std::move(deliver)]() mutable { deliver(frame); });
  });
}

void RecordingController::prewarmCamera() {
  if (state_ != State::idle || cameraRecorder_) return;
  const QString stored = preferences_.value(cameraKey).toString();
  barModel_.selectedCameraID = stored.isEmpty() ? std::nullopt : std::optional(stored);
  openCamera();
}

void RecordingController::selectCamera(const std::optional<QString>& deviceID) {
  if (state_ != State::preparing) return;
  if (deviceID) {
    preferences_.setValue(cameraKey, *deviceID);
  } else {
    preferences_.remove(cameraKey);
  }
  barModel_.selectedCameraID = deviceID;
  tearCameraDown();
  openCamera();
  barModel_.changed();
}

void RecordingController::openCamera() {
  if (!barModel_.selectedCameraID) return;
  auto lost = lifetime_.guard([this](CameraCaptureError) {
    if (state_ == State::idle) return;
    presenter_.hideCamera();
    presenter_.notify(RecordingNotice::cameraLost);
  });
  cameraRecorder_ = std::make_unique<CameraRecorder>(
      services_.runLoop,
      CameraRecorder::Callbacks{
          .onPreview = [&presenter = presenter_](
                           std::shared_ptr<const CameraFrame> frame) { presenter.cameraFrame(std::move(frame)); },
          .onLost = lost});
  if (cameraRecorder_->open(devices_.cameras, *barModel_.selectedCameraID)) {
    if (target_) presenter_.showCamera(target_->screen);
  } else {
    cameraRecorder_.reset();
    barModel_.selectedCameraID.reset();
  }
}

void RecordingController::tearCameraDown() {
  presenter_.hideCamera();
  cameraRecorder_.reset();
}

void RecordingController::selectKeyboard(bool isOn) {
  preferences_.setValue(keyboardKey, isOn);
  barModel_.keyboardEnabled = isOn;
  barModel_.changed();
}

}  // namespace vellora
