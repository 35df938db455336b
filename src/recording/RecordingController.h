#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "platform/PreferenceStore.h"
#include "recording/RecordingBarModel.h"
#include "recording/RecordingPresenter.h"
#include "recording/RecordingSession.h"
#include "recording/RecordingTarget.h"
#include "recording/SoundTrack.h"

namespace vellora {

/// Takes one recording from a person's command to an opened project: region or border, bar, countdown, recording,
/// pauses, stop. There is one session at a time; a command to begin another one meanwhile does nothing. Main thread.
class RecordingController {
 public:
  enum class State : std::uint8_t { idle, preparing, arming, recording, paused };

  /// Seconds.
  static constexpr int countdownFrom = 3;
  static constexpr double countdownInterval = 1;
  static constexpr double windowFollowInterval = 0.15;
  static constexpr double elapsedInterval = 0.25;

  struct Devices {
    CameraCapture& cameras;
    AudioCapture& audio;
  };
  struct Callbacks {
    std::function<void(State)> onStateChanged{};
    std::function<void(const RecordProjectBundle&)> openEditor{};
  };

  RecordingController(const RecordingServices& services, Devices devices, RecordingPresenter& presenter,
                      PreferenceStore& preferences, Callbacks callbacks);
  ~RecordingController();

  State state() const { return state_; }
  const RecordingBarModel& barModel() const { return barModel_; }

  /// `region` in points from the screen's top left corner.
  void begin(const Rect& region, const DisplayInfo& screen);
  void begin(const WindowInfo& window, const DisplayInfo& screen, double cornerRadius);
  void begin(const DisplayInfo& fullscreen);

  /// Start on the bar: counts down, then records.
  void start();
  void pause();
  void resume();
  /// Ends a recording, or leaves one that has not begun.
  void stop();
  /// Opens the camera used last, so that its picture is there at once when a recording is begun.
  void prewarmCamera();
  /// Closes it again, when nothing is begun after all.
  void releaseCamera();

 private:
  enum class Sound : std::uint8_t { microphone, system };

  void prepare(RecordingTarget target, const QString& source);
  void bindBar();
  void countDown();
  void beginCapture();
  void captureBegan(const Result<void, RecordingError>& began);
  void finish();
  void endedBy(RecordingNotice reason);
  void followWindow();
  void selectCamera(const std::optional<QString>& deviceID);
  void selectKeyboard(bool isOn);
  void selectMicrophone(const std::optional<QString>& deviceID);
  void selectSystemSound(bool isOn);
  void openSound(Sound which);
  void soundOpened(Sound which, std::shared_ptr<SoundTrack> track);
  void soundLost(Sound which);
  void withoutSound(Sound which);
  std::shared_ptr<SoundTrack>& sound(Sound which) { return which == Sound::microphone ? microphone_ : systemSound_; }
  /// Asks for the devices there are.
  void listDevices();
  void openCamera();
  void cameraOpened(bool isOpen);
  void cameraLost();
  void tearCameraDown();
  /// Says something in passing, outside of the picture.
  void tell(RecordingNotice notice);
  void hideWindows();
  void reset();
  void setState(State state, RecordingBarModel::Mode mode);
  void showBorder(RecordingPresenter::BorderLook look);
  /// Tells the recording which windows of ours there are by now.
  void leaveWindowsOut();

  RecordingServices services_;
  Devices devices_;
  RecordingPresenter& presenter_;
  PreferenceStore& preferences_;
  Callbacks callbacks_;

  State state_ = State::idle;
  RecordingBarModel barModel_;
  std::optional<RecordingTarget> target_;
  RecordingPresenter::BorderLook borderLook_ = RecordingPresenter::BorderLook::armed;
  std::shared_ptr<CameraRecorder> cameraRecorder_;
  std::shared_ptr<CameraRecorder> openingCamera_;
  int cameraRound_ = 0;  ///< answers to earlier choices do not count
  std::shared_ptr<SoundTrack> microphone_;
  std::shared_ptr<SoundTrack> systemSound_;
  std::array<int, 2> soundRounds_{};  ///< by Sound: answers to earlier choices do not count
  std::unique_ptr<RecordingSession> session_;
  std::vector<WindowId> leftOut_;
  bool isFinishing_ = false;
  int countdownRemaining_ = 0;
  TimerHandle countdownTimer_;
  TimerHandle windowFollowTimer_;
  TimerHandle elapsedTimer_;
  SerialQueue queue_{"dev.orlo.vellora.recording.windows"};
  Lifetime lifetime_;
};

}  // namespace vellora
