#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

#include <QString>

#include "app/PlayerHost.h"
#include "base/Lifetime.h"
#include "base/SerialQueue.h"
#include "capture/CaptureCommands.h"
#include "media/loaded_movies/LoadedMovies.h"
#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/camera/LoadedCameraCapture.h"
#include "platform/linux/desktop/PasswordFocus.h"
#include "platform/linux/desktop/SleepWatch.h"
#include "platform/linux/x11/X11EventTap.h"
#include "platform/linux/x11/X11ScreenStream.h"
#include "recording/RecordingController.h"
#include "recording/ui/QtRecordingPresenter.h"

namespace vellora {

struct AppServices;

/// Recording as the menu and the keys start it: what is to be recorded, the controller with its windows, the projects
/// that come of it. What records is made with the first command. Main thread.
class RecordingHost {
 public:
  using State = RecordingController::State;
  struct Actions {
    /// The menu is another one now.
    std::function<void()> changed;
    /// A window came or went.
    std::function<void()> windowsChanged;
    /// Says something in a toast; failures stay longer.
    std::function<void(const char* icon, const QString& text, bool isFailure)> tell;
    std::function<bool()> mayRecord;
  };

  RecordingHost(AppServices& services, CaptureCommands& captures, Actions actions);
  ~RecordingHost();

  State state() const;
  bool isIdle() const { return state() == State::idle; }

  /// Begins the recording of a region, or ends the one there is.
  void toggleRegion();
  void togglePause();
  void recordWindow();
  /// The display with the pointer.
  void recordFullscreen();

  /// Makes whole projects of recordings that a killed program left, and tells of them.
  void recoverAbandoned();
  /// Opens a project in its window.
  void open(const QString& bundle);
  /// Lets a person choose a video, and makes a project of it.
  void chooseVideo();
  void importVideo(const QString& file);
  /// Ends what is being recorded and waits until it is whole; closes the windows.
  void endAndWait();
  bool hasOpenWindows() const;
  /// The folders of the projects that are shown in a window.
  QStringList openBundles() const { return player_.openBundles(); }
  /// Where the projects are, whether or not the folder exists.
  QString projectsFolder() const { return files_.projectsPath(); }

 private:
  struct Engine;

  Engine& engine();
  std::optional<DisplayInfo> display(DisplayId id) const;
  void stateChanged(State state);

  AppServices& services_;
  CaptureCommands& captures_;
  const Actions actions_;
  RecordingFiles files_;
  LoadedMovies movies_;
  PlayerHost player_;
  std::unique_ptr<Engine> engine_;
  std::atomic<bool> isEnding_ = false;
  SerialQueue queue_{"dev.orlo.vellora.projects"};
  Lifetime lifetime_;
};

}  // namespace vellora
