#include "app/Command.h"

#include <algorithm>
#include <array>

namespace vellora {
namespace {

constexpr std::array descriptions{
    CommandDescription{Command::CaptureArea, "menu.captureArea", "capture.area"},
    CommandDescription{Command::CaptureWindow, "menu.captureWindow", "capture.window"},
    CommandDescription{Command::CaptureFullscreen, "menu.captureFullscreen", "capture.fullscreen"},
    CommandDescription{Command::CaptureScrolling, "menu.captureScrolling", "capture.scrolling"},
    CommandDescription{Command::CaptureText, "menu.captureText", "capture.text"},
    CommandDescription{Command::CaptureElement, "menu.captureElement", "capture.element"},
    CommandDescription{Command::CaptureAreaSized, "menu.captureAreaSized", "capture.areaSized"},
    CommandDescription{Command::CaptureFullscreenDelayed, "menu.captureFullscreenDelayed", "capture.delayed"},
    CommandDescription{Command::LoadFromClipboard, "menu.loadFromClipboard", "load.clipboard"},
    CommandDescription{Command::LoadFromFile, "menu.loadFromFile", "load.file"},
    CommandDescription{Command::ReopenLast, "menu.reopen", "history.reopen"},
    CommandDescription{Command::ReopenEntry, "", ""},
    CommandDescription{Command::ClearHistory, "menu.clearHistory", "trash"},
    CommandDescription{Command::EndClickThrough, "menu.endClickThrough", "pin"},
    CommandDescription{Command::OpenCompressor, "menu.compressImages", "compress"},
    CommandDescription{Command::ToggleRegionRecording, "menu.recordRegion", "record.region"},
    CommandDescription{Command::TogglePauseRecording, "menu.pauseRecording", "pause.circle"},
    CommandDescription{Command::RecordWindow, "menu.recordWindow", "record.window"},
    CommandDescription{Command::RecordFullscreen, "menu.recordFullscreen", "record.fullscreen"},
    CommandDescription{Command::OpenRecentRecording, "", "video.import"},
    CommandDescription{Command::OpenRecordingsFolder, "menu.openRecordingsFolder", "folder"},
    CommandDescription{Command::CleanUpRecordings, "menu.cleanupRecordings", "cleanup"},
    CommandDescription{Command::ImportVideo, "menu.importVideo", "video.import"},
    CommandDescription{Command::ToggleLive, "menu.startLive", "antenna.radiowaves.left.and.right"},
    CommandDescription{Command::OpenSettings, "menu.settings", "settings"},
    CommandDescription{Command::Quit, "menu.quit", "quit"},
};

constexpr std::array<std::pair<HotKeyAction, Command>, allHotKeyActions.size()> hotKeyCommands{{
    {HotKeyAction::FullScreen, Command::CaptureFullscreen},
    {HotKeyAction::Area, Command::CaptureArea},
    {HotKeyAction::Window, Command::CaptureWindow},
    {HotKeyAction::Scrolling, Command::CaptureScrolling},
    {HotKeyAction::Element, Command::CaptureElement},
    {HotKeyAction::Text, Command::CaptureText},
}};

}  // namespace

const CommandDescription& describe(Command command) {
  return *std::ranges::find(descriptions, command, &CommandDescription::command);
}

Command commandOf(HotKeyAction action) {
  for (const auto& [bound, command] : hotKeyCommands) {
    if (bound == action) return command;
  }
  return Command::CaptureArea;
}

}  // namespace vellora
