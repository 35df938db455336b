#pragma once

#include <array>

#include <QtGlobal>

#include "platform/PreferenceStore.h"

namespace vellora {

/// One thing that happens after an image capture. The values are stored.
enum class AfterCaptureAction : qint64 { ShowEditor = 1, Copy = 2, Save = 4, Pin = 8 };

/// What happens after an image capture: at least one action; show editor and pin exclude each other.
class AfterCaptureActions {
 public:
  static constexpr std::array all{AfterCaptureAction::ShowEditor, AfterCaptureAction::Copy, AfterCaptureAction::Save,
                                  AfterCaptureAction::Pin};

  /// Show editor alone, what a new user has.
  AfterCaptureActions() = default;

  /// The set of a raw number as stored: unknown bits are dropped, pin yields to show editor, empty reads as show
  /// editor.
  static AfterCaptureActions fromRaw(qint64 raw);

  static AfterCaptureActions load(const PreferenceStore& preferences);
  void store(PreferenceStore& preferences) const;

  bool contains(AfterCaptureAction action) const { return (raw_ & static_cast<qint64>(action)) != 0; }
  qint64 raw() const { return raw_; }

  /// The set with `action` turned on or off. Turning on show editor turns pin off and the reverse; turning off the last
  /// action is refused with nothing.
  std::optional<AfterCaptureActions> toggled(AfterCaptureAction action, bool on) const;

  friend bool operator==(const AfterCaptureActions&, const AfterCaptureActions&) = default;

 private:
  explicit AfterCaptureActions(qint64 raw) : raw_(raw) {}
  qint64 raw_ = static_cast<qint64>(AfterCaptureAction::ShowEditor);
};

/// The localisation key of the action's name on the settings page.
const char* labelKey(AfterCaptureAction action);

}  // namespace vellora
