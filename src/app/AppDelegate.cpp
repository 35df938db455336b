#include "app/AppDelegate.h"

#include <malloc.h>
#include <unistd.h>

#include <cstdio>

#include <QApplication>
#include <QDir>
#include <QGuiApplication>
#include <QScreen>

#include "app/LauncherWindow.h"
#include "app/RecentRecordings.h"
#include "app/StatusMenu.h"
#include "app/TrayIcon.h"
#include "app/settings/FunctionKeyMode.h"
#include "app/settings/SettingsSnapshot.h"
#include "app/settings/SettingsWindow.h"
#include "base/FileName.h"
#include "base/Log.h"
#include "capture/RepaintWait.h"
#include "kit/AlertDialog.h"
#include "kit/Compositing.h"
#include "kit/Theme.h"
#include "kit/Toast.h"
#include "platform/linux/desktop/InstanceClient.h"
#include "preferences/LegacyMigration.h"
#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

/// What this build can do; the menu shows the rest disabled.
const std::set<Command>& availableCommands() {
  static const std::set<Command> commands{Command::CaptureArea,
                                          Command::CaptureWindow,
                                          Command::CaptureFullscreen,
                                          Command::CaptureFullscreenDelayed,
                                          Command::LoadFromClipboard,
                                          Command::LoadFromFile,
                                          Command::ReopenLast,
                                          Command::ReopenEntry,
                                          Command::ClearHistory,
                                          Command::EndClickThrough,
                                          Command::ToggleRegionRecording,
                                          Command::TogglePauseRecording,
                                          Command::RecordWindow,
                                          Command::RecordFullscreen,
                                          Command::OpenRecentRecording,
                                          Command::ImportVideo,
                                          Command::OpenRecordingsFolder,
                                          Command::CleanUpRecordings,
                                          Command::OpenCompressor,
                                          Command::OpenSettings,
                                          Command::Quit};
  return commands;
}

RecordingPhase phaseOf(RecordingHost::State state) {
  switch (state) {
    case RecordingHost::State::idle:
      return RecordingPhase::Idle;
    case RecordingHost::State::preparing:
      return RecordingPhase::Preparing;
    case RecordingHost::State::arming:
      return RecordingPhase::Arming;
    case RecordingHost::State::recording:
      return RecordingPhase::Recording;
    case RecordingHost::State::paused:
      return RecordingPhase::Paused;
  }
  return RecordingPhase::Idle;
}

QScreen* pointerScreen() {
  QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
  return screen ? screen : QGuiApplication::primaryScreen();
}

}  // namespace

AppDelegate::AppDelegate(Mode mode)
    : mode_(mode),
      accessGate_(
          services_.access,
          [this](Access missing, std::function<void()> openPage) { alertMissingAccess(missing, std::move(openPage)); }),
      captures_({services_.captureEngine, services_.screens, services_.overlayPresenter, services_.runLoop},
                accessGate_, {[this](int remaining) { showCountdown(remaining); }, [this] { hideCountdown(); }}),
      pictureLoading_(services_.pasteboard, services_.runLoop),
      compressor_(services_, pictureLoading_, [this] { endWhenIdle(); }),
      windows_(services_, captures_, pictureLoading_,
               {[this](const CaptureOutcome& outcome) { reportOutcome(outcome); },
                [this](const char* icon, const QString& text, bool isFailure) { showToast(icon, text, isFailure); },
                [this](const ImageDocument& document, Date at) { compressor_.addDocument(document, at); },
                [this] { endWhenIdle(); }}),
      completion_(
          services_.settings, services_.sessionStore, services_.captureOutput, services_.runLoop,
          {[this](const CaptureDocument& document) { windows_.openEditor(document); },
           [this](const CaptureDocument& document) { windows_.openPin(document); }},
          [this] { captures_.cancelSessions(); }, [this](const CaptureOutcome& outcome) { reportOutcome(outcome); }),
      recordings_(services_, captures_,
                  {[this] { recordingChanged(); }, [this] { endWhenIdle(); },
                   [this](const char* icon, const QString& text, bool isFailure) { showToast(icon, text, isFailure); },
                   [this] { return accessGate_.allows(AccessGate::Need::Screen); }}),
      hotKeyCenter_(services_.hotKeys),
      instanceCommands_(captures_, {[this](int index) {
                                      services_.sessionStore.loadIndex();  // other processes add to it too
                                      return reopenEntry(index);
                                    },
                                    [this](const QString& path, std::function<void(const QString&)> done) {
                                      editFile(path, std::move(done));
                                    },
                                    [this](const QStringList& paths) { compressor_.open(paths); }}),
      instanceServer_({[this] { openLauncher(); }, [this] { openSettings(); },
                       [this](const InstanceServer::Command& command, InstanceServer::Reply reply) {
                         instanceCommands_.run(command, std::move(reply));
                       }}) {
  captures_.setCompletion(completion_);
  captures_.setStartHandler([this] {
    Toast::dismiss();
    // Once the capture and its toast are long over, what they needed goes back to the system.
    constexpr double quietSeconds = 10;
    memoryReturn_ = services_.runLoop.after(quietSeconds, [] { ::malloc_trim(0); });
  });
  captures_.setFailureHandler([this](CaptureError error) {
    showToast("exclamationmark.triangle.fill", localized(localizationKey(error)), true);
  });
}

AppDelegate::~AppDelegate() = default;

void AppDelegate::applicationWillFinishLaunching() {
  setCompositingProbe([this](const QScreen*) { return services_.screens.isComposited(); });
  followDesktopAppearance();
  migrateLegacyPreferences(*services_.preferences, services_.suites);
  translations_.use(services_.localization.effectiveCode());
}

bool AppDelegate::applicationDidFinishLaunching() {
  if (instanceServer_.start() == InstanceServer::Start::AlreadyRunning) {
    if (!InstanceClient().activate()) log::error(QStringLiteral("the running instance does not answer"));
    return false;
  }
  rebuildMenu();
  trayIcon_ = std::make_unique<TrayIcon>(statusMenu_->menu());
  trayIcon_->show();
  reloadHotKeys();
  services_.clipboardFiles.sweep();
  hotKeysObserver_ = services_.notices.observe(notice::hotKeysChanged, [this] { hotKeysChanged(); });
  languageObserver_ = services_.notices.observe(notice::languageChanged, [this] { languageChanged(); });
  services_.preferences->setChangeHandler([this](const QStringList& keys) { settingsChangedElsewhere(keys); });
  if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    //% "This is a Wayland session: for now Vellora sees only programs that use X11"
    showToast("info", qtTrId("toast.waylandSession"), false);
  } else if (!TrayIcon::isTrayAvailable()) {
    //% "Vellora is running. This desktop has no tray: start Vellora again to see its commands."
    showToast("vellora", qtTrId("toast.noTray"), false);
  }
  recoverAbandoned();
  recordings_.recoverAbandoned();
  writeSnapshotsIfAsked();
  return true;
}

void AppDelegate::recoverAbandoned() {
  services_.sessionStore.recoverAbandoned([this](int count) {
    //% "%n capture(s) that were open when Vellora ended are in the history"
    showToast("history.reopen", qtTrId("toast.recovered", count), false);
  });
}

void AppDelegate::applicationWillTerminate() {
  captures_.cancelSessions();
  recordings_.endAndWait();
  hotKeyCenter_.unregisterAll();
  windows_.closeAll();
  compressor_.close();
  services_.captureOutput.waitForPendingWrites();
  services_.sessionStore.waitForPendingWrites();
  services_.clipboardFiles.waitForPendingWork();
  services_.preferences->flush();
}

void AppDelegate::followDesktopAppearance() {
  services_.desktopAppearance.setChangeHandler([this] {
    const auto& appearance = services_.desktopAppearance;
    std::optional<Appearance> wanted;
    if (const auto dark = appearance.prefersDark()) wanted = *dark ? Appearance::Dark : Appearance::Light;
    Theme::shared().setDesktopAppearance(wanted);
    Theme::shared().setReducedMotion(appearance.reducesMotion());
  });
  services_.desktopAppearance.watch();
}

void AppDelegate::runOnce(const QStringList& words) {
  instanceCommands_.run({words, QDir::currentPath()}, [this](const CommandOutcome& outcome) {
    if (!outcome.standardOutput.isEmpty()) std::fprintf(stdout, "%s\n", qUtf8Printable(outcome.standardOutput));
    if (!outcome.standardError.isEmpty()) std::fprintf(stderr, "vellora: %s\n", qUtf8Printable(outcome.standardError));
    std::fflush(stdout);
    commandEnded_ = true;
    exitCode_ = outcome.exitCode;
    endWhenIdle();
  });
}

void AppDelegate::endWhenIdle() {
  if (mode_ == Mode::OneShot && commandEnded_ && !hasOpenWindows()) QCoreApplication::exit(exitCode_);
}

bool AppDelegate::hasOpenWindows() const {
  return windows_.hasOpenWindows() || compressor_.isOpen() || recordings_.hasOpenWindows();
}

void AppDelegate::perform(Command command, int index) {
  switch (command) {
    case Command::CaptureArea:
      return captures_.captureArea();
    case Command::CaptureWindow:
      return captures_.captureWindow();
    case Command::CaptureFullscreen:
      return captures_.captureFullscreen();
    case Command::CaptureFullscreenDelayed:
      return captures_.captureFullscreenDelayed();
    case Command::LoadFromClipboard:
      return loadFromClipboard();
    case Command::LoadFromFile:
      return loadFromFile();
    case Command::ReopenLast:
      reopenEntry(0);
      return;
    case Command::ReopenEntry:
      reopenEntry(index);
      return;
    case Command::ClearHistory:
      return clearHistory();
    case Command::EndClickThrough:
      return windows_.endClickThrough();
    case Command::OpenCompressor:
      return compressor_.open();
    case Command::ToggleRegionRecording:
      return recordings_.toggleRegion();
    case Command::TogglePauseRecording:
      return recordings_.togglePause();
    case Command::RecordWindow:
      return recordings_.recordWindow();
    case Command::RecordFullscreen:
      return recordings_.recordFullscreen();
    case Command::OpenRecentRecording:
      return openRecentRecording(index);
    case Command::ImportVideo:
      return recordings_.chooseVideo();
    case Command::OpenRecordingsFolder:
      return openRecordingsFolder();
    case Command::CleanUpRecordings:
      return cleanUpRecordings();
    case Command::OpenSettings:
      return openSettings();
    case Command::Quit:
      return QCoreApplication::exit();
    case Command::CaptureScrolling:
    case Command::CaptureText:
    case Command::CaptureElement:
    case Command::CaptureAreaSized:
    case Command::ToggleLive:
      return;  // disabled in the menu and without a hot key: see availableCommands()
  }
}

void AppDelegate::performFromMenu(Command command, int index) {
  // The menu must be off the screen before an overlay freezes what is on it.
  menuClosing_ = services_.runLoop.after(repaintWait(0), [this, command, index] { perform(command, index); });
}

void AppDelegate::rebuildMenu() {
  if (!statusMenu_) {
    statusMenu_ = std::make_unique<StatusMenu>([this] { return menuState(); },
                                               [this](Command command, int index) { performFromMenu(command, index); });
  } else {
    statusMenu_->refresh();
  }
}

MenuState AppDelegate::menuState() {
  MenuState state;
  services_.sessionStore.loadIndex();
  const QLocale locale(services_.localization.effectiveCode());
  for (const SessionStore::Item& item : services_.sessionStore.items()) {
    state.history.push_back(
        {item.label(locale, services_.runLoop.now()), item.hasThumbnail ? item.thumbnailFile() : QString()});
  }
  for (const RecordingBundle& bundle : listRecordings(recordings_.projectsFolder())) {
    state.recordings.push_back({bundle.name, bundle.path});
  }
  const auto openCount = static_cast<std::size_t>(recordings_.openBundles().size());
  state.canCleanUpRecordings = state.recordings.size() > openCount;
  state.recording = phaseOf(recordings_.state());
  state.hasClickThroughPins = windows_.hasClickThroughPins();
  for (const HotKeyAction action : allHotKeyActions) {
    const auto binding = services_.hotKeySettings.binding(action);
    if (binding && availableCommands().contains(commandOf(action))) state.shortcuts[commandOf(action)] = *binding;
  }
  state.available = availableCommands();
  return state;
}

void AppDelegate::reloadHotKeys() {
  // A combination that would do nothing yet is left to the other programs.
  std::vector<HotKeyAction> actions;
  for (const HotKeyAction action : allHotKeyActions) {
    if (availableCommands().contains(commandOf(action))) actions.push_back(action);
  }
  hotKeyCenter_.reload(services_.hotKeySettings, actions, [this](HotKeyAction action) { perform(commandOf(action)); });
}

void AppDelegate::suspendHotKeys(bool suspended) {
  if (suspended) {
    hotKeyCenter_.unregisterAll();
  } else {
    reloadHotKeys();
  }
}

void AppDelegate::hotKeysChanged() {
  reloadHotKeys();
  rebuildMenu();
}

void AppDelegate::languageChanged() {
  translations_.use(services_.localization.effectiveCode());
  rebuildMenu();
  if (launcher_) launcher_->refresh();
}

void AppDelegate::settingsChangedElsewhere(const QStringList& keys) {
  const bool hotKeys =
      std::ranges::any_of(keys, [](const QString& key) { return key.startsWith(preferenceKey::hotKeyPrefix); });
  if (hotKeys) services_.notices.post(notice::hotKeysChanged);
  if (keys.contains(preferenceKey::appLanguage)) services_.notices.post(notice::languageChanged);
  if (settings_) settings_->refresh();
}

bool AppDelegate::reopenEntry(int index) {
  return index >= 0 && windows_.reopen(static_cast<std::size_t>(index));
}

void AppDelegate::editFile(const QString& path, std::function<void(const QString&)> done) {
  if (const auto project = RecordProjectBundle::open(path)) {
    recordings_.open(project->path());
    return done({});
  }
  pictureLoading_.loadFromFile(path, [this, done = std::move(done)](const PictureLoading::Outcome& outcome) {
    if (outcome) openLoaded(outcome);
    // A resident program has looked when it started.
    if (mode_ == Mode::OneShot) recoverAbandoned();
    done(outcome ? QString() : localized(outcome.error().toLatin1().constData()));
  });
}

void AppDelegate::clearHistory() {
  Alert alert;
  //% "Clear the capture history?"
  alert.title = qtTrId("alert.clearHistory.title");
  //% "The recent captures will be deleted. Saved files stay where they are."
  alert.body = qtTrId("alert.clearHistory.body");
  //% "Clear History"
  alert.buttons << qtTrId("alert.clearHistory.confirm");
  //% "Cancel"
  alert.buttons << qtTrId("alert.cancel");
  alert.destructive = true;
  AlertDialog::show(alert, [this](int button) {
    if (button == 0) services_.sessionStore.clear();
  });
}

void AppDelegate::loadFromClipboard() {
  pictureLoading_.loadFromPasteboard([this](const PictureLoading::Outcome& outcome) { openLoaded(outcome); });
}

void AppDelegate::loadFromFile() {
  windows_.choosePicture(nullptr, [this](const std::optional<CapturePiece>& piece) {
    if (piece) openLoaded(LoadedImage{piece->image, piece->scale});
  });
}

void AppDelegate::openLoaded(const PictureLoading::Outcome& outcome) {
  if (!outcome)
    return showToast("exclamationmark.triangle.fill", localized(outcome.error().toLatin1().constData()), true);
  Toast::dismiss();  // an earlier attempt's failure
  const CapturedImage picture{outcome->bitmap, outcome->scale};
  windows_.openEditor(
      {picture, std::make_shared<SharedPng>(picture.image, picture.scale), std::nullopt, services_.runLoop.now()});
}

void AppDelegate::recordingChanged() {
  if (trayIcon_) trayIcon_->setRecording(recordings_.state() == RecordingHost::State::recording);
  if (launcher_) launcher_->refresh();
}

void AppDelegate::openRecentRecording(int index) {
  const auto bundles = listRecordings(recordings_.projectsFolder());
  if (index >= 0 && static_cast<std::size_t>(index) < bundles.size()) recordings_.open(bundles[index].path);
}

void AppDelegate::openRecordingsFolder() {
  const QString folder = recordings_.projectsFolder();
  QDir().mkpath(folder);
  services_.urlOpener.openFile(folder);
}

void AppDelegate::cleanUpRecordings() {
  const QStringList open = recordings_.openBundles();
  auto bundles = listRecordings(recordings_.projectsFolder());
  std::erase_if(bundles, [&](const RecordingBundle& bundle) { return open.contains(bundle.path); });
  if (bundles.empty()) return;
  qint64 bytes = 0;
  for (const RecordingBundle& bundle : bundles) bytes += totalSize(bundle.path);
  Alert alert;
  //% "Move %n recording(s) to the Trash?"
  alert.title = qtTrId("alert.cleanupRecordings.title", static_cast<int>(bundles.size()));
  //% "They take up %1."
  alert.body = qtTrId("alert.cleanupRecordings.body").arg(QLocale().formattedDataSize(bytes)) + u'\n' +
               //% "Recordings that are open stay."
               qtTrId("alert.cleanupRecordings.openNote");
  //% "Move to Trash"
  alert.buttons << qtTrId("alert.cleanupRecordings.confirm") << qtTrId("alert.cancel");
  alert.destructive = true;
  AlertDialog::show(alert, [this, bundles](int button) {
    if (button != 0) return;
    for (const RecordingBundle& bundle : bundles) {
      const auto moved = services_.trash.moveToTrash(bundle.path);
      if (!moved) log::error(QStringLiteral("cleanup trash failed for %1").arg(moved.error().description()));
    }
    //% "Recordings moved to the Trash"
    showToast("checkmark.circle.fill", qtTrId("toast.recordingsTrashed"), false);
  });
}

void AppDelegate::reportOutcome(const CaptureOutcome& outcome) {
  QStringList sentences;
  for (LocalizedMessage message : outcomeMessages(outcome)) {
    const bool onlySaveFailed = outcome.saveRequested && !outcome.saved && outcome.copied == outcome.copyRequested;
    if (onlySaveFailed && qstrcmp(message.key, "toast.captureOutputFailed") == 0) {
      message = {"toast.saveFailed", {outcome.saveFolder}};
    }
    for (QString& argument : message.arguments) argument = pathBelowHome(argument, services_.fileNames.home());
    sentences << localized(message.key, message.arguments);
  }
  showToast(outcomeIcon(outcome), sentences.join(QStringLiteral(" — ")), outcome.hasFailure());
}

void AppDelegate::showToast(const char* icon, const QString& text, bool isFailure) {
  // A program that ends at once cannot keep a toast on the screen; the desktop's notification outlives it.
  if (mode_ == Mode::OneShot && !hasOpenWindows()) {
    if (::isatty(STDERR_FILENO) == 0) services_.notifier.notify(text, {});
    return;
  }
  Toast::show(QString::fromLatin1(icon), text, isFailure ? ToastKind::Failure : ToastKind::Success, pointerScreen());
}

void AppDelegate::alertMissingAccess(Access missing, std::function<void()> openPage) {
  Alert alert;
  if (missing == Access::ScreenRecording) {
    //% "Vellora is not allowed to see the screen"
    alert.title = qtTrId("alert.screenRecording.title");
    //% "Allow Vellora to record the screen in the desktop's privacy settings, then try again."
    alert.body = qtTrId("alert.screenRecording.body");
  } else {
    //% "Vellora is not allowed to follow the pointer"
    alert.title = qtTrId("alert.accessibility.title");
    //% "Allow Vellora to use accessibility in the desktop's privacy settings, then try again."
    alert.body = qtTrId("alert.accessibility.body");
  }
  //% "Open Settings"
  alert.buttons << qtTrId("alert.screenRecording.open") << qtTrId("alert.cancel");
  AlertDialog::show(alert, [openPage = std::move(openPage)](int button) {
    if (button == 0) openPage();
  });
}

void AppDelegate::showCountdown(int remaining) {
  if (trayIcon_) trayIcon_->setCountdown(remaining);
  if (!countdownPanel_) {
    countdownPanel_ = std::make_unique<CountdownPanel>(&services_.hotKeys);
    QObject::connect(countdownPanel_.get(), &CountdownPanel::cancelled, countdownPanel_.get(),
                     [this] { services_.runLoop.post([this] { captures_.cancelSessions(); }); });
  }
  countdownPanel_->showRemaining(remaining, pointerScreen());
}

void AppDelegate::hideCountdown() {
  if (trayIcon_) trayIcon_->setCountdown(std::nullopt);
  countdownPanel_.reset();
}

void AppDelegate::openSettings() {
  settingsWindow().present();
  if (!TrayIcon::isTrayAvailable()) openLauncher();
}

void AppDelegate::openLauncher() {
  if (!launcher_) {
    launcher_ = std::make_unique<LauncherWindow>(
        [this] { return menuState(); }, [this](Command command, int index) { performFromMenu(command, index); });
  }
  launcher_->present();
}

SettingsWindow& AppDelegate::settingsWindow() {
  if (settings_) return *settings_;
  const HotKeyAccess hotKeys{[this](HotKeyAction action) { return !hotKeyCenter_.isTakenElsewhere(action); },
                             [this](bool suspended) { suspendHotKeys(suspended); },
                             [] { return functionKeysNeedFn(); }};
  settings_ = std::make_unique<SettingsWindow>(SettingsContext{
      services_.settings, services_.localization, services_.hotKeySettings, services_.notices, services_.fileNames,
      hotKeys, AboutInfo{QStringLiteral(VELLORA_VERSION), QStringLiteral("GPL-3.0-or-later"), {}, {}, {}},
      [this](const QString& address) {
        if (address.startsWith(u'/')) {
          services_.urlOpener.openFile(address);
        } else {
          services_.urlOpener.openUrl(address);
        }
      }});
  // Its pages are worth more memory than the moment it takes to build them again.
  QObject::connect(settings_.get(), &SettingsWindow::closed, settings_.get(),
                   [this] { services_.runLoop.post([this] { settings_.reset(); }); });
  return *settings_;
}

void AppDelegate::writeSnapshotsIfAsked() {
  const QString folder = qEnvironmentVariable("VELLORA_SETTINGS_SNAPSHOT");
  if (folder.isEmpty()) return;
  services_.runLoop.post([this, folder] { writeSettingsSnapshots(folder, settingsWindow()); });
}

}  // namespace vellora
