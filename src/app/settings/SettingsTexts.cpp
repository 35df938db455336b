#include "app/settings/SettingsTexts.h"

#include <QCoreApplication>

namespace vellora::settingsText {

QString label(AfterCaptureAction action) {
  switch (action) {
    case AfterCaptureAction::ShowEditor:
      //% "Open in the editor"
      return qtTrId("settings.general.showEditor");
    case AfterCaptureAction::Copy:
      //% "Copy to the clipboard"
      return qtTrId("settings.general.copy");
    case AfterCaptureAction::Save:
      //% "Save as a file"
      return qtTrId("settings.general.save");
    case AfterCaptureAction::Pin:
      //% "Pin to the screen"
      return qtTrId("settings.general.pin");
  }
  return {};
}

QString help(AfterCaptureAction action) {
  switch (action) {
    case AfterCaptureAction::ShowEditor:
      //% "In the editor, ready to be annotated."
      return qtTrId("settings.general.showEditorHelp");
    case AfterCaptureAction::Copy:
      //% "Ready to be pasted into another program."
      return qtTrId("settings.general.copyHelp");
    case AfterCaptureAction::Save:
      //% "As a PNG picture in the folder below."
      return qtTrId("settings.general.saveHelp");
    case AfterCaptureAction::Pin:
      //% "It stays above all windows. Takes the place of the editor."
      return qtTrId("settings.general.pinHelp");
  }
  return {};
}

QString label(ClipboardMode mode) {
  switch (mode) {
    case ClipboardMode::FileAndImage:
      //% "File and picture"
      return qtTrId("settings.clipboard.fileAndImage");
    case ClipboardMode::FileOnly:
      //% "File only"
      return qtTrId("settings.clipboard.fileOnly");
    case ClipboardMode::ImageOnly:
      //% "Picture only"
      return qtTrId("settings.clipboard.imageOnly");
  }
  return {};
}

}  // namespace vellora::settingsText
