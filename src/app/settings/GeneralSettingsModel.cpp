#include "app/settings/GeneralSettingsModel.h"

#include "base/FileName.h"

#include "preferences/PreferenceKeys.h"

namespace vellora {

GeneralSettingsModel::GeneralSettingsModel(Settings& settings, Localization& localization, const FileNames& fileNames)
    : settings_(settings), localization_(localization), fileNames_(fileNames) {}

bool GeneralSettingsModel::isOn(AfterCaptureAction action) const {
  return AfterCaptureActions::load(settings_.preferences()).contains(action);
}

bool GeneralSettingsModel::setOn(AfterCaptureAction action, bool on) {
  const auto wanted = AfterCaptureActions::load(settings_.preferences()).toggled(action, on);
  if (wanted) {
    wanted->store(settings_.preferences());
  } else {
    ++refusals_;
  }
  changed();
  return wanted.has_value();
}

void GeneralSettingsModel::setClipboardMode(ClipboardMode mode) {
  settings_.setClipboardMode(mode);
  changed();
}

QString GeneralSettingsModel::saveDirectoryText() const {
  return pathBelowHome(saveDirectory(), fileNames_.home());
}

bool GeneralSettingsModel::hasChosenDirectory() const {
  return settings_.preferences().contains(preferenceKey::saveDirectory);
}

void GeneralSettingsModel::chooseDirectory(const QString& path) {
  if (path.isEmpty()) return;
  settings_.setSaveDirectory(path);
  changed();
}

void GeneralSettingsModel::resetDirectory() {
  settings_.resetSaveDirectory();
  changed();
}

void GeneralSettingsModel::changed() const {
  if (changed_) changed_();
}

}  // namespace vellora
