#pragma once

#include <QString>

#include "platform/FileNames.h"
#include "platform/PreferenceStore.h"
#include "preferences/ClipboardMode.h"

namespace vellora {

/// Typed accessors of the stored settings, each with its default and validation. Values are read on demand and never
/// cached.
class Settings {
 public:
  Settings(PreferenceStore& preferences, const FileNames& fileNames);

  ClipboardMode clipboardMode() const;
  void setClipboardMode(ClipboardMode mode);

  /// The folder of automatic saves: the stored one while it exists, else the desktop folder, else the home folder.
  QString saveDirectory() const;
  void setSaveDirectory(const QString& path);
  /// Forgets the stored folder, so that the desktop folder applies.
  void resetSaveDirectory();

  PreferenceStore& preferences() const { return preferences_; }

 private:
  PreferenceStore& preferences_;
  const FileNames& fileNames_;
};

}  // namespace vellora
