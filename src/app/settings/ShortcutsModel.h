#pragma once

#include <functional>
#include <optional>

#include "base/NotificationCenter.h"
#include "preferences/HotKeySettings.h"

namespace vellora {

/// What the shortcuts page has to ask and tell the program that owns the hot keys. Empty functions count as "all is
/// well".
struct HotKeyAccess {
  /// Whether the action's combination is the program's own now; false when another program holds it.
  std::function<bool(HotKeyAction)> isRegistered;
  /// True: give up all combinations, so that they reach the recorder. False: take them again.
  std::function<void(bool)> suspendHotKeys;
  /// Whether the keyboard's F-keys may do something else unless Fn is held.
  std::function<bool()> functionKeysNeedFn;
};

/// The rules of the shortcuts page: the state of each row, and the recording of a combination. At most one row records.
/// Main thread.
class ShortcutsModel {
 public:
  ShortcutsModel(HotKeySettings& hotKeys, const PreferenceStore& preferences, NotificationCenter& notices,
                 HotKeyAccess access);
  ShortcutsModel(const ShortcutsModel&) = delete;
  ShortcutsModel& operator=(const ShortcutsModel&) = delete;
  ~ShortcutsModel();

  /// What is wrong with a row.
  enum class Fault {
    None,
    SharedWithAction,  ///< an earlier action has the same combination and gets it
    HeldElsewhere,     ///< another program holds it
  };
  struct Row {
    std::optional<HotKeyBinding> binding;
    bool customised = false;  ///< there is something to reset
    Fault fault = Fault::None;
    std::optional<HotKeyAction> sharedWith;
    bool needsFn = false;  ///< a function key, on a keyboard where Fn may have to be held
  };
  Row row(HotKeyAction action) const;

  /// Starts recording for `action`; another row's recording ends unchanged.
  void startRecording(HotKeyAction action);
  /// Ends recording and changes nothing.
  void stopRecording();
  std::optional<HotKeyAction> recording() const { return recording_; }

  enum class Answer {
    Ignored,    ///< no combination that could be a hot key: recording goes on
    Cancelled,  ///< Escape: recording has ended, nothing changed
    Reset,      ///< Delete: recording has ended, the default applies
    Conflict,   ///< another action has it: nothing stored, recording goes on
    Stored,     ///< recording has ended
  };
  struct Reply {
    Answer answer = Answer::Ignored;
    std::optional<HotKeyBinding> binding;  ///< of Conflict and Stored
    std::optional<HotKeyAction> owner;     ///< of Conflict
  };
  /// A key was pressed while recording: its place, the modifiers held, and what it types without them.
  ///
  /// Delete and Forward Delete alone go back to the action's default and end the recording, as the reset button does;
  /// with control, option or command they are ignored, so that a slip does not lose a shortcut.
  Reply press(std::uint32_t keyCode, std::uint32_t carbonModifiers, const QString& characters);

  /// Forgets the stored combination of `action`.
  void reset(HotKeyAction action);

  /// Called when rows or the recording may have changed.
  void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

 private:
  void endRecording();
  void changed() const;

  HotKeySettings& hotKeys_;
  const PreferenceStore& preferences_;
  HotKeyAccess access_;
  std::optional<HotKeyAction> recording_;
  std::function<void()> changed_;
  NotificationCenter::Subscription hotKeysChanged_;
};

}  // namespace vellora
