#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "base/Geometry.h"
#include "platform/CameraCapture.h"
#include "platform/ScreenCaptureService.h"
#include "recording/RecordingBarModel.h"
#include "recording/RecordingError.h"

namespace vellora {

/// What a person is told about a recording, in passing or with a question to answer.
enum class RecordingNotice : std::uint8_t {
  recordingFailed,         ///< nothing could be kept
  keyboardSaveFailed,      ///< the recording is whole, the keys are lost
  micUnavailable,          ///< the recording goes on without it
  micLost,                 ///< it was unplugged: silence from here on
  micReturned,             ///< it is recorded again
  systemSoundUnavailable,  ///< the recording goes on without it
  systemSoundReturned,     ///< it is recorded again
  cameraUnavailable,       ///< the recording goes on without it
  cameraLost,              ///< it was unplugged
  diskLow,                 ///< five minutes of room are left
  diskFull,                ///< stopped before the disk was full
  stoppedByItself,         ///< the display or window is gone; what was recorded is kept
  keyboardNotPermitted,    ///< the desktop lets nobody listen to keys
  importUnreadable,        ///< an alert: the file is no video that can be read
};

/// The windows of a recording. Frames are device pixels of the desktop. Main thread.
class RecordingPresenter {
 public:
  enum class BorderLook : std::uint8_t { armed, recording, paused };

  virtual ~RecordingPresenter() = default;

  /// The frame with handles and size badge in which a person chooses the region. `changed` comes with every move,
  /// `cancelled` when it is closed.
  virtual void showRegionPanel(const PixelRect& region, const DisplayInfo& screen,
                               std::function<void(PixelRect)> changed, std::function<void()> cancelled) = 0;
  virtual void closeRegionPanel() = 0;

  /// The thin frame around what is recorded; a second call moves it. `cornerRadius` in points.
  virtual void showBorder(const PixelRect& frame, double cornerRadius, BorderLook look) = 0;
  virtual void hideBorder() = 0;

  virtual void showBar(RecordingBarModel& model, const PixelRect& beside, const DisplayInfo& screen) = 0;
  virtual void hideBar() = 0;

  /// A large number in the middle of `over`; a second call changes it.
  virtual void showCountdown(int number, const PixelRect& over, const DisplayInfo& screen) = 0;
  virtual void hideCountdown() = 0;

  /// The round picture of the camera, which a person may move and resize.
  virtual void showCamera(const DisplayInfo& screen) = 0;
  /// A new picture for it. Any thread.
  virtual void cameraFrame(std::shared_ptr<const CameraFrame> frame) = 0;
  virtual void hideCamera() = 0;

  /// The windows above, as far as they are shown: they are to be left out of the picture.
  virtual std::vector<WindowId> ownWindows() const = 0;

  virtual void notify(RecordingNotice notice) = 0;
  virtual void startFailed(RecordingError error) = 0;
};

}  // namespace vellora
