#include "preferences/AfterCaptureActions.h"

#include "preferences/PreferenceKeys.h"

namespace vellora {
namespace {

constexpr qint64 bit(AfterCaptureAction action) {
  return static_cast<qint64>(action);
}

constexpr qint64 definedBits = bit(AfterCaptureAction::ShowEditor) | bit(AfterCaptureAction::Copy) |
                               bit(AfterCaptureAction::Save) | bit(AfterCaptureAction::Pin);

}  // namespace

AfterCaptureActions AfterCaptureActions::fromRaw(qint64 raw) {
  qint64 bits = raw & definedBits;
  if ((bits & bit(AfterCaptureAction::ShowEditor)) != 0) bits &= ~bit(AfterCaptureAction::Pin);
  return bits == 0 ? AfterCaptureActions() : AfterCaptureActions(bits);
}

AfterCaptureActions AfterCaptureActions::load(const PreferenceStore& preferences) {
  return fromRaw(preferences.integer(preferenceKey::afterCaptureActions).value_or(0));
}

void AfterCaptureActions::store(PreferenceStore& preferences) const {
  preferences.setValue(preferenceKey::afterCaptureActions, raw_);
}

std::optional<AfterCaptureActions> AfterCaptureActions::toggled(AfterCaptureAction action, bool on) const {
  qint64 bits = raw_;
  if (on) {
    bits |= bit(action);
    if (action == AfterCaptureAction::ShowEditor) bits &= ~bit(AfterCaptureAction::Pin);
    if (action == AfterCaptureAction::Pin) bits &= ~bit(AfterCaptureAction::ShowEditor);
  } else {
    bits &= ~bit(action);
  }
  if (bits == 0) return std::nullopt;
  return AfterCaptureActions(bits);
}

const char* labelKey(AfterCaptureAction action) {
  switch (action) {
    case AfterCaptureAction::ShowEditor:
      return "settings.general.showEditor";
    case AfterCaptureAction::Copy:
      return "settings.general.copy";
    case AfterCaptureAction::Save:
      return "settings.general.save";
    case AfterCaptureAction::Pin:
      return "settings.general.pin";
  }
  return "";
}

}  // namespace vellora
