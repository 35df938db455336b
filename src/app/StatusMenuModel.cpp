#include "app/StatusMenuModel.h"

namespace vellora {
namespace {

using Kind = MenuEntry::Kind;

MenuEntry separator() {
  MenuEntry entry;
  entry.kind = Kind::Separator;
  return entry;
}

MenuEntry item(Command command, const MenuState& state) {
  const CommandDescription& description = describe(command);
  MenuEntry entry;
  entry.command = command;
  entry.titleKey = QString::fromLatin1(description.titleKey);
  entry.iconName = QString::fromLatin1(description.iconName);
  entry.isEnabled = state.available.contains(command);
  if (const auto shortcut = state.shortcuts.find(command); shortcut != state.shortcuts.end()) {
    entry.shortcut = menuKeyEquivalent(shortcut->second);
  }
  return entry;
}

MenuEntry submenu(const char* titleKey, const char* iconName) {
  MenuEntry entry;
  entry.kind = Kind::Submenu;
  entry.titleKey = QString::fromLatin1(titleKey);
  entry.iconName = QString::fromLatin1(iconName);
  return entry;
}

MenuEntry moreCaptures(const MenuState& state) {
  MenuEntry entry = submenu("menu.moreCaptures", "capture.more");
  for (const Command command : {Command::CaptureElement, Command::CaptureAreaSized, Command::CaptureFullscreenDelayed,
                                Command::LoadFromClipboard, Command::LoadFromFile}) {
    entry.children.push_back(item(command, state));
  }
  return entry;
}

MenuEntry reopenLast(const MenuState& state) {
  MenuEntry entry = item(Command::ReopenLast, state);
  entry.isEnabled = entry.isEnabled && !state.history.empty();
  return entry;
}

MenuEntry historySubmenu(const MenuState& state) {
  MenuEntry entry = submenu("menu.reopenMore", "history.more");
  entry.isEnabled = !state.history.empty();
  for (const auto& line : state.history) {
    MenuEntry child = item(Command::ReopenEntry, state);
    child.titleKey.clear();
    child.title = line.label;
    child.thumbnailFile = line.thumbnailFile;
    child.index = static_cast<int>(entry.children.size());
    entry.children.push_back(std::move(child));
  }
  entry.children.push_back(separator());
  entry.children.push_back(item(Command::ClearHistory, state));
  return entry;
}

/// The one way back to pins that no click reaches.
MenuEntry endClickThrough(const MenuState& state) {
  MenuEntry entry = item(Command::EndClickThrough, state);
  entry.isVisible = state.hasClickThroughPins;
  return entry;
}

MenuEntry recordToggle(const MenuState& state) {
  MenuEntry entry = item(Command::ToggleRegionRecording, state);
  if (state.recording != RecordingPhase::Idle) {
    entry.titleKey = QStringLiteral("menu.stopRecording");
    entry.iconName = QStringLiteral("stop.circle");
  }
  return entry;
}

MenuEntry pauseToggle(const MenuState& state) {
  MenuEntry entry = item(Command::TogglePauseRecording, state);
  entry.isVisible = state.recording == RecordingPhase::Recording || state.recording == RecordingPhase::Paused;
  if (state.recording == RecordingPhase::Paused) {
    entry.titleKey = QStringLiteral("menu.resumeRecording");
    entry.iconName = QStringLiteral("record.circle");
  }
  return entry;
}

MenuEntry idleOnly(Command command, const MenuState& state) {
  MenuEntry entry = item(command, state);
  entry.isVisible = state.recording == RecordingPhase::Idle;
  return entry;
}

MenuEntry recordingsSubmenu(const MenuState& state) {
  MenuEntry entry = submenu("menu.recentRecordings", "recordings.recent");
  for (const auto& recording : state.recordings) {
    if (entry.children.size() == recentRecordingLimit) break;
    MenuEntry child = item(Command::OpenRecentRecording, state);
    child.titleKey.clear();
    child.title = recording.name;
    child.index = static_cast<int>(entry.children.size());
    entry.children.push_back(std::move(child));
  }
  entry.children.push_back(separator());
  entry.children.push_back(item(Command::OpenRecordingsFolder, state));
  MenuEntry cleanUp = item(Command::CleanUpRecordings, state);
  cleanUp.isEnabled = cleanUp.isEnabled && state.canCleanUpRecordings;
  entry.children.push_back(std::move(cleanUp));
  return entry;
}

MenuEntry liveToggle(const MenuState& state) {
  MenuEntry entry = item(Command::ToggleLive, state);
  if (state.isLive) {
    entry.titleKey = QStringLiteral("menu.stopLive");
    entry.iconName = QStringLiteral("stop.circle");
  }
  return entry;
}

MenuEntry withShortcut(Command command, const char* shortcut, const MenuState& state) {
  MenuEntry entry = item(command, state);
  entry.shortcut = QString::fromLatin1(shortcut);
  return entry;
}

}  // namespace

std::vector<MenuEntry> statusMenu(const MenuState& state) {
  return {
      item(Command::CaptureArea, state),
      item(Command::CaptureWindow, state),
      item(Command::CaptureFullscreen, state),
      item(Command::CaptureScrolling, state),
      item(Command::CaptureText, state),
      moreCaptures(state),
      separator(),
      reopenLast(state),
      historySubmenu(state),
      endClickThrough(state),
      separator(),
      item(Command::OpenCompressor, state),
      separator(),
      recordToggle(state),
      pauseToggle(state),
      idleOnly(Command::RecordWindow, state),
      idleOnly(Command::RecordFullscreen, state),
      recordingsSubmenu(state),
      item(Command::ImportVideo, state),
      separator(),
      liveToggle(state),
      separator(),
      withShortcut(Command::OpenSettings, "Ctrl+,", state),
      withShortcut(Command::Quit, "Ctrl+Q", state),
  };
}

QString menuKeyEquivalent(const HotKeyBinding& binding) {
  QString text = writtenShortcut(binding);
  text.replace(QStringLiteral("Super+"), QStringLiteral("Meta+"));
  const std::pair<const char*, const char*> names[] = {{"Pageup", "PgUp"}, {"Pagedown", "PgDown"}};
  for (const auto& [ours, qts] : names) {
    if (text.endsWith(QLatin1StringView(ours))) {
      text.chop(static_cast<qsizetype>(std::char_traits<char>::length(ours)));
      text += QLatin1StringView(qts);
    }
  }
  return text;
}

}  // namespace vellora
