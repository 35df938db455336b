#pragma once

#include <QString>

#include "preferences/AfterCaptureActions.h"
#include "preferences/ClipboardMode.h"

/// Texts of the settings pages that belong to values.
namespace vellora::settingsText {

QString label(AfterCaptureAction action);
QString help(AfterCaptureAction action);
QString label(ClipboardMode mode);

}  // namespace vellora::settingsText
