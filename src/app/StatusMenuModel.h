#pragma once

#include <map>
#include <set>
#include <vector>

#include <QString>

#include "app/Command.h"
#include "preferences/HotKeyBinding.h"

namespace vellora {

/// Where a recording session stands, as far as the menu cares.
enum class RecordingPhase { Idle, Preparing, Arming, Recording, Paused };

/// Everything the menu depends on, read each time it opens.
struct MenuState {
  struct HistoryLine {
    QString label;
    QString thumbnailFile;  ///< empty when there is none
  };
  struct Recording {
    QString name;
    QString path;
  };
  std::vector<HistoryLine> history;   ///< newest first
  std::vector<Recording> recordings;  ///< newest first
  bool hasClickThroughPins = false;
  bool canCleanUpRecordings = false;
  RecordingPhase recording = RecordingPhase::Idle;
  bool isLive = false;
  std::map<Command, HotKeyBinding> shortcuts;
  std::set<Command> available;  ///< commands whose flow this build has; the others show disabled
};

/// One line of the menu.
struct MenuEntry {
  enum class Kind { Item, Separator, Submenu };
  Kind kind = Kind::Item;
  Command command = Command::Quit;  ///< of an item
  int index = -1;                   ///< of a history entry or recording
  QString titleKey;                 ///< a localisation key; empty when `title` is the text itself
  QString title;
  QString iconName;
  QString thumbnailFile;
  QString shortcut;  ///< as QKeySequence reads it; empty for none
  bool isVisible = true;
  bool isEnabled = true;
  std::vector<MenuEntry> children;  ///< of a submenu
};

/// The most recordings the submenu lists.
inline constexpr std::size_t recentRecordingLimit = 10;

/// The whole status menu, top to bottom, hidden lines included: it always has the same lines in the same places, apart
/// from the children of the history and recordings submenus.
std::vector<MenuEntry> statusMenu(const MenuState& state);

/// A binding as QKeySequence reads it ("Alt+1", "Meta+F5").
QString menuKeyEquivalent(const HotKeyBinding& binding);

}  // namespace vellora
