#pragma once

#include <functional>
#include <memory>
#include <optional>

#include <QString>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "base/SerialQueue.h"
#include "media/loaded_movies/Movies.h"
#include "platform/EventTap.h"
#include "platform/ScreenCaptureService.h"
#include "platform/ScreenStream.h"
#include "record_editor/RecordProjectBundle.h"
#include "recording/CameraRecorder.h"
#include "recording/DiskWatch.h"
#include "recording/KeyboardRecordingCapture.h"
#include "recording/RecordingError.h"
#include "recording/RecordingMarker.h"
#include "recording/RecordingTarget.h"
#include "recording/ScreenRecorder.h"

namespace vellora {

/// What recordings are made with.
struct RecordingServices {
  RunLoop& runLoop;
  ScreenCaptureService& capture;
  ScreenStreamService& streams;
  EventTap& eventTap;
  Movies& movies;
  const RecordingFiles& files;
};

/// One recording from its first file to a whole project, without a window. Main thread; callbacks come there.
class RecordingSession {
 public:
  /// Seconds between writings of marks and cues while recording.
  static constexpr double marksInterval = 2;
  /// Seconds between the words to the movie that time goes on.
  static constexpr double advanceInterval = 0.25;
  /// Seconds between questions whether a lost microphone is back.
  static constexpr double soundInterval = 2;
  /// Seconds between looks at the room on the disk.
  static constexpr double diskInterval = 2;

  struct Request {
    RecordingTarget target;
    bool recordsKeys = false;
    std::vector<WindowId> leftOut{};
    /// An open camera to write too; it must live as long as the session.
    CameraRecorder* camera = nullptr;
    /// Open sources of sound, in the order of the movie's tracks.
    std::vector<std::shared_ptr<SoundTrack>> sounds{};
  };
  struct Callbacks {
    /// What is recorded is gone, or nothing can be written any more: the recording is to be finished.
    std::function<void()> onEnded{};
    /// The project is whole but for its keys.
    std::function<void()> onKeysNotSaved{};
    /// The disk has room for five minutes more.
    std::function<void()> onDiskLow{};
    /// The disk is about to be full; the recording is to be finished.
    std::function<void()> onDiskFull{};
    /// A lost source of sound is recorded again.
    std::function<void(bool isSystemSound)> onSoundReturned{};
    /// Nobody may listen to keys.
    std::function<void()> onKeysNotPermitted{};
  };

  RecordingSession(const RecordingServices& services, Callbacks callbacks);
  /// Drops a recording that was not finished, its files stay as they are.
  ~RecordingSession();

  /// Makes the bundle and starts recording into it. After a failure nothing is left of it.
  void start(const Request& request, std::function<void(Result<void, RecordingError>)> done);
  void pause();
  void resume();
  /// The windows that are not to be seen from now on.
  void setLeftOut(std::vector<WindowId> windows);
  /// Recorded seconds so far.
  double elapsed() const;

  /// Ends the recording and completes the project. A failure means there is no movie, and the bundle is gone.
  void finish(std::function<void(Result<RecordProjectBundle, RecordingError>)> done);

 private:
  struct Started;
  Result<Started, RecordingError> makeStarted(const Request& request);
  void keep(const Request& request);
  void complete(const ScreenRecorder::Outcome& outcome,
                const std::function<void(Result<RecordProjectBundle, RecordingError>)>& done);
  void discard();
  /// Writes marks and cues as they are so far, for a recovery to find.
  void keepMarks();
  void lookAtDisk();
  void takeSoundsBack();

  RecordingServices services_;
  Callbacks callbacks_;
  std::unique_ptr<ScreenRecorder> recorder_;
  std::unique_ptr<Started> started_;  // of the queue until it is kept
  CameraRecorder* camera_ = nullptr;
  KeyboardRecordingCapture keyboardCapture_;
  bool recordsKeys_ = false;
  std::optional<RecordProjectBundle> currentBundle_;
  std::optional<RecordingMarker> marker_;
  double accumulatedElapsed_ = 0;
  std::optional<double> segmentStartedAt_;
  TimerHandle marksTimer_;
  TimerHandle advanceTimer_;
  std::vector<std::shared_ptr<SoundTrack>> sounds_;
  TimerHandle soundTimer_;
  bool isAskingForSounds_ = false;
  std::optional<DiskWatch> diskWatch_;
  TimerHandle diskTimer_;
  // The queues end before what their tasks use.
  SerialQueue soundQueue_{"dev.orlo.vellora.recording.sound"};  // a sound server may keep it waiting
  SerialQueue queue_{"dev.orlo.vellora.recording"};
  Lifetime lifetime_;
};

}  // namespace vellora
