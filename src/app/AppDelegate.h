#pragma once

#include <memory>
#include <optional>

#include <QPointer>
#include <QString>

#include "app/AppServices.h"
#include "app/Command.h"
#include "app/CompressorHost.h"
#include "app/DocumentWindows.h"
#include "app/HotKeyCenter.h"
#include "app/InstanceCommands.h"
#include "app/PictureLoading.h"
#include "app/RecordingHost.h"
#include "app/StatusMenuModel.h"
#include "app/Translations.h"
#include "capture/CaptureCommands.h"
#include "capture/ui/CountdownPanel.h"

namespace vellora {

class LauncherWindow;
class SettingsWindow;
class StatusMenu;
class TrayIcon;

/// The program with its windows: start-up, the status menu, every command's entry, and the orderly end. Main thread.
class AppDelegate {
 public:
  enum class Mode {
    Resident,  ///< in the tray, with hot keys, found by later starts
    OneShot,   ///< carries out one command for the command line and ends with its windows
  };

  explicit AppDelegate(Mode mode);
  ~AppDelegate();
  AppDelegate(const AppDelegate&) = delete;
  AppDelegate& operator=(const AppDelegate&) = delete;

  /// Texts and the migration of earlier preferences: before anything reads a setting.
  void applicationWillFinishLaunching();
  /// Tray, hot keys, clean-up, observers. False when another instance is running already; it has been woken.
  bool applicationDidFinishLaunching();
  /// Closes pins and waits for every pending write.
  void applicationWillTerminate();

  /// Carries out one command, then ends the program as soon as none of its windows is open.
  void runOnce(const QStringList& words);

  /// Carries out a menu command; `index` names a history entry or a recording.
  void perform(Command command, int index = -1);

  void openSettings();
  void openLauncher();

 private:
  void followDesktopAppearance();
  void performFromMenu(Command command, int index);
  /// Brings what a killed program had open into the history and tells of it.
  void recoverAbandoned();
  void rebuildMenu();
  void reloadHotKeys();
  void suspendHotKeys(bool suspended);
  void hotKeysChanged();
  void languageChanged();
  void settingsChangedElsewhere(const QStringList& keys);
  MenuState menuState();

  bool reopenEntry(int index);
  void editFile(const QString& path, std::function<void(const QString& problem)> done);
  void clearHistory();
  void loadFromClipboard();
  void loadFromFile();
  void openLoaded(const PictureLoading::Outcome& outcome);
  /// A recording began, paused or ended: the tray and the menus tell.
  void recordingChanged();
  void openRecentRecording(int index);
  void openRecordingsFolder();
  void cleanUpRecordings();

  void reportOutcome(const CaptureOutcome& outcome);
  void showToast(const char* icon, const QString& text, bool isFailure);
  void alertMissingAccess(Access missing, std::function<void()> openPage);
  void showCountdown(int remaining);
  void hideCountdown();
  SettingsWindow& settingsWindow();
  void writeSnapshotsIfAsked();
  void endWhenIdle();
  bool hasOpenWindows() const;

  const Mode mode_;
  AppServices services_;
  Translations translations_;
  AccessGate accessGate_;
  CaptureCommands captures_;
  PictureLoading pictureLoading_;
  CompressorHost compressor_;
  DocumentWindows windows_;
  CaptureCompletion completion_;
  RecordingHost recordings_;
  HotKeyCenter hotKeyCenter_;
  InstanceCommands instanceCommands_;
  InstanceServer instanceServer_;
  std::unique_ptr<StatusMenu> statusMenu_;
  std::unique_ptr<TrayIcon> trayIcon_;
  TimerHandle menuClosing_;
  TimerHandle memoryReturn_;
  std::unique_ptr<CountdownPanel> countdownPanel_;
  std::unique_ptr<LauncherWindow> launcher_;
  std::unique_ptr<SettingsWindow> settings_;
  NotificationCenter::Subscription hotKeysObserver_;
  NotificationCenter::Subscription languageObserver_;
  // Of a one-shot run:
  bool commandEnded_ = false;
  int exitCode_ = 0;
};

}  // namespace vellora
