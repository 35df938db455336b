#pragma once

#include <vector>

#include "preferences/HotKeyAction.h"

namespace vellora {

/// Everything a person can start from the menu.
enum class Command {
  CaptureArea,
  CaptureWindow,
  CaptureFullscreen,
  CaptureScrolling,
  CaptureText,
  CaptureElement,
  CaptureAreaSized,
  CaptureFullscreenDelayed,
  LoadFromClipboard,
  LoadFromFile,
  ReopenLast,
  ReopenEntry,  ///< with an index
  ClearHistory,
  EndClickThrough,  ///< pins that let clicks through take them again
  OpenCompressor,
  ToggleRegionRecording,
  TogglePauseRecording,
  RecordWindow,
  RecordFullscreen,
  OpenRecentRecording,  ///< with an index
  OpenRecordingsFolder,
  CleanUpRecordings,
  ImportVideo,
  ToggleLive,
  OpenSettings,
  Quit,
};

/// A command as the menu shows it.
struct CommandDescription {
  Command command;
  const char* titleKey;
  const char* iconName;
};

const CommandDescription& describe(Command command);

/// What a hot key starts.
Command commandOf(HotKeyAction action);

}  // namespace vellora
