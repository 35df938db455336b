#include "recording/RecordingController.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include <QCoreApplication>

#include "base/Log.h"

namespace vellora {
namespace {

const QString cameraKey = QStringLiteral("record.cameraDeviceID");
const QString microphoneKey = QStringLiteral("record.micDeviceID");
const QString systemSoundKey = QStringLiteral("record.systemSoundEnabled");
const QString keyboardKey = QStringLiteral("record.keyboardEnabled");

/// Where the level meter begins, in decibels.
constexpr float quietest = -60;
/// Nobody sees it change by less.
constexpr double finestLevel = 0.01;

/// 0 to 1.
double meterLevel(SoundLevel level) {
  return std::clamp((level.peak - quietest) / -quietest, 0.0F, 1.0F);
}

bool contains(const std::vector<CaptureDeviceInfo>& devices, const QString& id) {
  return std::ranges::find(devices, id, &CaptureDeviceInfo::uniqueID) != devices.end();
}

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
  devices_.audio.onDevicesChanged({});
  hideWindows();
}

void RecordingController::bindBar() {
  barModel_.onStart = [this] { start(); };
  barModel_.onStop = [this] { stop(); };
  barModel_.onPauseToggle = [this] { state_ == State::paused ? resume() : pause(); };
  barModel_.onSelectCamera = [this](const std::optional<QString>& id) { selectCamera(id); };
  barModel_.onSelectMic = [this](const std::optional<QString>& id) { selectMicrophone(id); };
  barModel_.onSelectSystemSound = [this](bool isOn) { selectSystemSound(isOn); };
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
  //% "Region"
  prepare(RecordingTarget::region(region, screen), qtTrId("record.source.region"));
  presenter_.showRegionPanel(
      target_->area, screen,
      [this](const PixelRect& area) {
        if (state_ == State::preparing) target_->area = area;
      },
      [this] { stop(); });
}

void RecordingController::begin(const WindowInfo& window, const DisplayInfo& screen, double cornerRadius) {
  if (state_ != State::idle) return;
  //% "Window"
  const QString unnamed = qtTrId("record.source.window");
  prepare(RecordingTarget::window(window, screen, cornerRadius), window.title.isEmpty() ? unnamed : window.title);
  showBorder(RecordingPresenter::BorderLook::armed);
  windowFollowTimer_ = services_.runLoop.every(windowFollowInterval, [this] { followWindow(); });
}

void RecordingController::begin(const DisplayInfo& fullscreen) {
  if (state_ != State::idle) return;
  //% "Full screen"
  prepare(RecordingTarget::fullscreen(fullscreen), qtTrId("record.source.fullscreen"));
  showBorder(RecordingPresenter::BorderLook::armed);
}

void RecordingController::prepare(RecordingTarget target, const QString& source) {
  target_ = std::move(target);
  barModel_.source = source;
  barModel_.elapsed = 0;
  barModel_.keyboardEnabled = preferences_.value(keyboardKey).toBool();
  const QString microphone = preferences_.value(microphoneKey).toString();
  barModel_.selectedMicID = microphone.isEmpty() ? std::nullopt : std::optional(microphone);
  barModel_.systemSoundEnabled = preferences_.value(systemSoundKey).toBool();
  barModel_.micLevel = 0;
  openSound(Sound::microphone);
  openSound(Sound::system);
  listDevices();
  devices_.audio.onDevicesChanged([this] { listDevices(); });
  prewarmCamera();
  if (cameraRecorder_) presenter_.showCamera(target_->screen);
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
  const auto notice = [this](RecordingNotice what) { return [this, what] { tell(what); }; };
  session_ = std::make_unique<RecordingSession>(
      services_, RecordingSession::Callbacks{.onEnded = [this] { endedBy(RecordingNotice::stoppedByItself); },
                                             .onKeysNotSaved = notice(RecordingNotice::keyboardSaveFailed),
                                             .onDiskLow = notice(RecordingNotice::diskLow),
                                             .onDiskFull = [this] { endedBy(RecordingNotice::diskFull); },
                                             .onSoundReturned =
                                                 [this](bool isSystemSound) {
                                                   tell(isSystemSound ? RecordingNotice::systemSoundReturned
                                                                      : RecordingNotice::micReturned);
                                                 },
                                             .onKeysNotPermitted = notice(RecordingNotice::keyboardNotPermitted)});
  std::vector<std::shared_ptr<SoundTrack>> sounds;
  for (const auto& track : {microphone_, systemSound_}) {
    if (track) sounds.push_back(track);
  }
  leftOut_ = presenter_.ownWindows();
  session_->start({.target = *target_,
                   .recordsKeys = barModel_.keyboardEnabled,
                   .leftOut = leftOut_,
                   .camera = cameraRecorder_.get(),
                   .sounds = std::move(sounds)},
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
    barModel_.keyboardHidden = barModel_.keyboardEnabled && services_.eventTap.isSecureInputEnabled();
    barModel_.changed();
    leaveWindowsOut();
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
  devices_.audio.onDevicesChanged({});
  for (const Sound which : {Sound::microphone, Sound::system}) {
    ++soundRounds_[static_cast<std::size_t>(which)];
    sound(which).reset();
  }
  barModel_.keyboardHidden = false;
  tearCameraDown();
  target_.reset();
  isFinishing_ = false;
  setState(State::idle, RecordingBarModel::Mode::preStart);
}

void RecordingController::showBorder(RecordingPresenter::BorderLook look) {
  borderLook_ = look;
  presenter_.showBorder(target_->borderFrame(), target_->borderRadius(), look);
  leaveWindowsOut();
}

void RecordingController::leaveWindowsOut() {
  if (state_ != State::recording && state_ != State::paused) return;
  std::vector<WindowId> windows = presenter_.ownWindows();
  if (windows == leftOut_) return;
  leftOut_ = std::move(windows);
  session_->setLeftOut(leftOut_);
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
  if (state_ != State::idle || cameraRecorder_ || openingCamera_) return;
  const QString stored = preferences_.value(cameraKey).toString();
  barModel_.selectedCameraID = stored.isEmpty() ? std::nullopt : std::optional(stored);
  openCamera();
}

void RecordingController::releaseCamera() {
  if (state_ == State::idle) tearCameraDown();
}

void RecordingController::listDevices() {
  auto deliver =
      lifetime_.guard([this](std::vector<CaptureDeviceInfo> microphones, std::vector<CaptureDeviceInfo> cameras) {
        if (state_ == State::idle) return;
        barModel_.micDevices = std::move(microphones);
        barModel_.cameraDevices = std::move(cameras);
        // A device that has come back is taken again.
        const QString stored = preferences_.value(microphoneKey).toString();
        if (state_ == State::preparing && !barModel_.selectedMicID && contains(barModel_.micDevices, stored)) {
          barModel_.selectedMicID = stored;
          openSound(Sound::microphone);
        }
        const QString camera = preferences_.value(cameraKey).toString();
        if (state_ == State::preparing && !barModel_.selectedCameraID && contains(barModel_.cameraDevices, camera)) {
          barModel_.selectedCameraID = camera;
          openCamera();
        }
        barModel_.changed();
      });
  queue_.async([&runLoop = services_.runLoop, devices = devices_, deliver = std::move(deliver)]() mutable {
    auto microphones = devices.audio.microphones();
    if (!microphones) microphones = std::vector<CaptureDeviceInfo>();
    runLoop.post([microphones = std::move(*microphones), cameras = devices.cameras.cameras(),
                  deliver = std::move(deliver)]() mutable { deliver(std::move(microphones), std::move(cameras)); });
  });
}

void RecordingController::selectMicrophone(const std::optional<QString>& deviceID) {
  if (state_ != State::preparing) return;
  if (deviceID) {
    preferences_.setValue(microphoneKey, *deviceID);
  } else {
    preferences_.remove(microphoneKey);
  }
  barModel_.selectedMicID = deviceID;
  openSound(Sound::microphone);
  barModel_.changed();
}

void RecordingController::selectSystemSound(bool isOn) {
  if (state_ != State::preparing) return;
  preferences_.setValue(systemSoundKey, isOn);
  barModel_.systemSoundEnabled = isOn;
  openSound(Sound::system);
  barModel_.changed();
}

void RecordingController::openSound(Sound which) {
  const int round = ++soundRounds_[static_cast<std::size_t>(which)];
  sound(which).reset();
  std::optional<QString> deviceID;
  if (which == Sound::microphone) {
    barModel_.micLevel = 0;
    deviceID = barModel_.selectedMicID;
  } else if (barModel_.systemSoundEnabled) {
    deviceID = AudioCapture::systemSound;
  }
  if (!deviceID) return;
  const auto isCurrent = [this, which, round] { return soundRounds_[static_cast<std::size_t>(which)] == round; };
  auto opened = lifetime_.guard([this, which, isCurrent](std::shared_ptr<SoundTrack> track) {
    if (isCurrent()) soundOpened(which, std::move(track));
  });
  auto showLevel = lifetime_.guard([this, isCurrent](double level) {
    if (!isCurrent() || state_ == State::idle || std::abs(level - barModel_.micLevel) < finestLevel) return;
    barModel_.micLevel = level;
    barModel_.changed();
  });
  auto lost = lifetime_.guard([this, which, isCurrent] {
    if (isCurrent() && state_ != State::idle) soundLost(which);
  });
  RunLoop& runLoop = services_.runLoop;
  SoundTrack::Callbacks callbacks{.onLost = [&runLoop, lost] { runLoop.post([lost]() mutable { lost(); }); }};
  if (which == Sound::microphone) {
    callbacks.onLevel = [&runLoop, showLevel](SoundLevel level) {
      runLoop.post([showLevel, level]() mutable { showLevel(meterLevel(level)); });
    };
  }
  queue_.async([&runLoop, &audio = devices_.audio, deviceID = *deviceID, callbacks = std::move(callbacks),
                opened = std::move(opened)]() mutable {
    auto track = SoundTrack::open(audio, deviceID, std::move(callbacks));
    runLoop.post([opened = std::move(opened),
                  track = std::shared_ptr<SoundTrack>(track ? std::move(*track) : nullptr)]() mutable {
      opened(std::move(track));
    });
  });
}

void RecordingController::soundOpened(Sound which, std::shared_ptr<SoundTrack> track) {
  if (state_ == State::idle) return;
  if (track) {
    sound(which) = std::move(track);
    return;
  }
  log::warning(QStringLiteral("mic setup failed, recording without audio: ") +
               (which == Sound::microphone ? *barModel_.selectedMicID : AudioCapture::systemSound));
  withoutSound(which);
}

void RecordingController::soundLost(Sound which) {
  const bool isMicrophone = which == Sound::microphone;
  log::warning(isMicrophone ? QStringLiteral("microphone lost") : QStringLiteral("system sound lost"));
  if (!session_) return withoutSound(which);
  if (!isMicrophone) return tell(RecordingNotice::systemSoundUnavailable);
  barModel_.micLevel = 0;
  barModel_.changed();
  tell(RecordingNotice::micLost);
}

/// The device stays the person's choice for when it is back.
void RecordingController::withoutSound(Sound which) {
  ++soundRounds_[static_cast<std::size_t>(which)];
  sound(which).reset();
  if (which == Sound::microphone) {
    barModel_.selectedMicID.reset();
    barModel_.micLevel = 0;
  } else {
    barModel_.systemSoundEnabled = false;
  }
  barModel_.changed();
  tell(which == Sound::microphone ? RecordingNotice::micUnavailable : RecordingNotice::systemSoundUnavailable);
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
  const int round = ++cameraRound_;
  if (!barModel_.selectedCameraID) return;
  auto lost = lifetime_.guard([this, round](CameraCaptureError) {
    if (round == cameraRound_) cameraLost();
  });
  auto recorder = std::make_shared<CameraRecorder>(
      services_.runLoop,
      CameraRecorder::Callbacks{
          .onPreview = [&presenter = presenter_](
                           std::shared_ptr<const CameraFrame> frame) { presenter.cameraFrame(std::move(frame)); },
          .onLost = lost});
  auto opened = lifetime_.guard([this, round](bool isOpen) {
    if (round == cameraRound_) cameraOpened(isOpen);
  });
  openingCamera_ = recorder;
  queue_.async([&runLoop = services_.runLoop, &cameras = devices_.cameras, recorder = std::move(recorder),
                deviceID = *barModel_.selectedCameraID, opened = std::move(opened)]() mutable {
    const bool isOpen = recorder->open(cameras, deviceID).has_value();
    runLoop.post([opened = std::move(opened), isOpen]() mutable { opened(isOpen); });
  });
}

void RecordingController::cameraOpened(bool isOpen) {
  // Too late for a recording that has begun.
  if (session_) return tearCameraDown();
  auto recorder = std::exchange(openingCamera_, nullptr);
  if (isOpen) {
    cameraRecorder_ = std::move(recorder);
    if (target_ && state_ != State::idle) presenter_.showCamera(target_->screen);
    return;
  }
  barModel_.selectedCameraID.reset();  // it stays the person's choice for when it is back
  barModel_.changed();
  if (state_ != State::idle) tell(RecordingNotice::cameraUnavailable);
}

void RecordingController::cameraLost() {
  presenter_.hideCamera();
  // A recording keeps what the camera gave so far.
  if (!session_) {
    tearCameraDown();
    barModel_.selectedCameraID.reset();
    barModel_.changed();
  }
  if (state_ != State::idle) tell(RecordingNotice::cameraLost);
}

void RecordingController::tearCameraDown() {
  ++cameraRound_;
  presenter_.hideCamera();
  for (auto* camera : {&cameraRecorder_, &openingCamera_}) {
    if (*camera) queue_.async([closed = std::exchange(*camera, nullptr)] { closed->close(); });
  }
}

void RecordingController::tell(RecordingNotice notice) {
  presenter_.notify(notice);
  leaveWindowsOut();
}

void RecordingController::selectKeyboard(bool isOn) {
  preferences_.setValue(keyboardKey, isOn);
  barModel_.keyboardEnabled = isOn;
  barModel_.changed();
}

}  // namespace vellora
