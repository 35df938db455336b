#include "app/settings/ShortcutsModel.h"

#include "platform/KeyCodes.h"

namespace vellora {
namespace {

constexpr std::uint32_t escapeKey = 53;
constexpr std::uint32_t deleteKey = 51;
constexpr std::uint32_t forwardDeleteKey = 117;

}  // namespace

ShortcutsModel::ShortcutsModel(HotKeySettings& hotKeys, const PreferenceStore& preferences, NotificationCenter& notices,
                               HotKeyAccess access)
    : hotKeys_(hotKeys),
      preferences_(preferences),
      access_(std::move(access)),
      hotKeysChanged_(notices.observe(notice::hotKeysChanged, [this] { changed(); })) {}

ShortcutsModel::~ShortcutsModel() {
  changed_ = nullptr;
  stopRecording();
}

ShortcutsModel::Row ShortcutsModel::row(HotKeyAction action) const {
  Row row;
  row.binding = hotKeys_.binding(action);
  row.customised = preferences_.contains(hotKeyPreferenceKey(action));
  if (!row.binding) return row;
  const auto owner = hotKeys_.actionBound(row.binding->keyCode, row.binding->carbonModifiers);
  if (owner && *owner != action) {
    row.fault = Fault::SharedWithAction;
    row.sharedWith = owner;
  } else if (!recording_ && access_.isRegistered && !access_.isRegistered(action)) {
    // While recording nothing is registered at all.
    row.fault = Fault::HeldElsewhere;
  }
  row.needsFn =
      functionKeyNumber(row.binding->keyCode).has_value() && access_.functionKeysNeedFn && access_.functionKeysNeedFn();
  return row;
}

void ShortcutsModel::startRecording(HotKeyAction action) {
  const bool wasRecording = recording_.has_value();
  recording_ = action;
  if (!wasRecording && access_.suspendHotKeys) access_.suspendHotKeys(true);
  changed();
}

void ShortcutsModel::stopRecording() {
  if (!recording_) return;
  endRecording();
  changed();
}

void ShortcutsModel::endRecording() {
  recording_.reset();
  if (access_.suspendHotKeys) access_.suspendHotKeys(false);
}

ShortcutsModel::Reply ShortcutsModel::press(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                            const QString& characters) {
  if (!recording_) return {};
  const HotKeyAction action = *recording_;
  if (keyCode == escapeKey) {
    stopRecording();
    return {Answer::Cancelled, {}, {}};
  }
  if (keyCode == deleteKey || keyCode == forwardDeleteKey) {
    if ((carbonModifiers & ~carbonModifier::shift) != 0) return {};
    endRecording();
    reset(action);
    return {Answer::Reset, {}, {}};
  }
  if (!isAcceptableHotKey(keyCode, carbonModifiers)) return {};
  const HotKeyBinding binding{keyCode, carbonModifiers, keyLabel(keyCode, characters)};
  const auto owner = hotKeys_.actionBound(keyCode, carbonModifiers);
  if (owner && *owner != action) return {Answer::Conflict, binding, owner};
  endRecording();
  hotKeys_.setBinding(binding, action);
  return {Answer::Stored, binding, {}};
}

void ShortcutsModel::reset(HotKeyAction action) {
  if (recording_) endRecording();
  hotKeys_.resetBinding(action);
}

void ShortcutsModel::changed() const {
  if (changed_) changed_();
}

}  // namespace vellora
