#pragma once

#include <functional>
#include <vector>

#include "preferences/AfterCaptureActions.h"
#include "preferences/AppLanguage.h"
#include "preferences/Settings.h"

namespace vellora {

/// What the general page shows and changes. Reads the stored values anew each time. Main thread.
class GeneralSettingsModel {
 public:
  GeneralSettingsModel(Settings& settings, Localization& localization, const FileNames& fileNames);

  bool isOn(AfterCaptureAction action) const;
  /// Turns an action on or off, and with it off what it excludes. False when it is refused because it is the last one
  /// that is on: nothing changes then but the count of refusals.
  bool setOn(AfterCaptureAction action, bool on);
  int refusals() const { return refusals_; }

  ClipboardMode clipboardMode() const { return settings_.clipboardMode(); }
  void setClipboardMode(ClipboardMode mode);

  QString saveDirectory() const { return settings_.saveDirectory(); }
  /// The folder for people: below the home folder it begins with "~".
  QString saveDirectoryText() const;
  /// Whether a folder was chosen, so that there is something to reset.
  bool hasChosenDirectory() const;
  void chooseDirectory(const QString& path);
  void resetDirectory();

  AppLanguage language() const { return localization_.selection(); }
  void setLanguage(AppLanguage language) { localization_.apply(language); }

  /// Called after every change but the language's, which has a notice of its own. Also after a refusal.
  void setChangeHandler(std::function<void()> handler) { changed_ = std::move(handler); }

 private:
  void changed() const;

  Settings& settings_;
  Localization& localization_;
  const FileNames& fileNames_;
  std::function<void()> changed_;
  int refusals_ = 0;
};

}  // namespace vellora
