#pragma once

#include <memory>

#include "base/NotificationCenter.h"
#include "base/QtRunLoop.h"
#include "capture/AccessGate.h"
#include "capture/CaptureEngine.h"
#include "capture/CaptureOutput.h"
#include "capture/ClipboardFiles.h"
#include "capture/ui/QtOverlayPresenter.h"
#include "editor/SessionStore.h"
#include "platform/linux/desktop/AlwaysGrantedAccess.h"
#include "platform/linux/desktop/DesktopAppearance.h"
#include "platform/linux/desktop/DesktopNotifier.h"
#include "platform/linux/desktop/DesktopPasteboard.h"
#include "platform/linux/desktop/DesktopUrlOpener.h"
#include "platform/linux/desktop/QSettingsPreferences.h"
#include "platform/linux/desktop/XdgFileNames.h"
#include "platform/linux/desktop/XdgTrash.h"
#include "platform/linux/x11/X11HotKeys.h"
#include "platform/linux/x11/X11ScreenCapture.h"
#include "platform/linux/x11/X11ScreenStill.h"
#include "platform/linux/x11/X11Screens.h"
#include "platform/linux/x11/X11WindowHints.h"
#include "preferences/AppLanguage.h"
#include "preferences/HotKeySettings.h"
#include "preferences/Settings.h"

namespace vellora {

/// The real adapters and the long-lived models over them, in the order they depend on each other: the one place where
/// they are made.
struct AppServices {
  AppServices();

  QtRunLoop runLoop;
  NotificationCenter notices;
  XdgFileNames fileNames;
  std::unique_ptr<QSettingsPreferences> preferences = QSettingsPreferences::openOwn();
  QSettingsSuites suites;
  DesktopUrlOpener urlOpener;
  XdgTrash trash;
  DesktopNotifier notifier;
  DesktopAppearance desktopAppearance;
  AlwaysGrantedAccess access;
  DesktopPasteboard pasteboard{runLoop};
  X11ScreenCapture screenCapture;
  X11Screens screens;
  X11HotKeys hotKeys;
  X11WindowHints windowHints;

  Settings settings{*preferences, fileNames};
  HotKeySettings hotKeySettings;
  Localization localization;
  ClipboardFiles clipboardFiles{fileNames.applicationSupport()};
  SessionStore sessionStore;
  CaptureOutput captureOutput{runLoop, pasteboard, clipboardFiles};
  CaptureEngine captureEngine{screenCapture, runLoop};
  X11ScreenStills screenStills;
  QtOverlayPresenter overlayPresenter{captureEngine, &screenStills};
};

}  // namespace vellora
