#include "preferences/Settings.h"

#include <QFileInfo>

#include "preferences/PreferenceKeys.h"

namespace vellora {

Settings::Settings(PreferenceStore& preferences, const FileNames& fileNames)
    : preferences_(preferences), fileNames_(fileNames) {}

ClipboardMode Settings::clipboardMode() const {
  return clipboardModeFromStored(preferences_.string(preferenceKey::clipboardMode).value_or(QString()));
}

void Settings::setClipboardMode(ClipboardMode mode) {
  preferences_.setValue(preferenceKey::clipboardMode, storedString(mode));
}

QString Settings::saveDirectory() const {
  const auto stored = preferences_.string(preferenceKey::saveDirectory);
  if (stored && !stored->isEmpty() && QFileInfo::exists(*stored)) return *stored;
  const QString desktop = fileNames_.desktop();
  return desktop.isEmpty() ? fileNames_.home() : desktop;
}

void Settings::setSaveDirectory(const QString& path) {
  preferences_.setValue(preferenceKey::saveDirectory, path);
}

void Settings::resetSaveDirectory() {
  preferences_.remove(preferenceKey::saveDirectory);
}

}  // namespace vellora
