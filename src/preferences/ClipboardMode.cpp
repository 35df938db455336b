#include "preferences/ClipboardMode.h"

namespace vellora {

QString storedString(ClipboardMode mode) {
  switch (mode) {
    case ClipboardMode::FileAndImage:
      return QStringLiteral("fileAndImage");
    case ClipboardMode::FileOnly:
      return QStringLiteral("fileOnly");
    case ClipboardMode::ImageOnly:
      return QStringLiteral("imageOnly");
  }
  return {};
}

ClipboardMode clipboardModeFromStored(const QString& stored) {
  for (const ClipboardMode mode : allClipboardModes) {
    if (storedString(mode) == stored) return mode;
  }
  return ClipboardMode::FileAndImage;
}

const char* labelKey(ClipboardMode mode) {
  switch (mode) {
    case ClipboardMode::FileAndImage:
      return "settings.clipboard.fileAndImage";
    case ClipboardMode::FileOnly:
      return "settings.clipboard.fileOnly";
    case ClipboardMode::ImageOnly:
      return "settings.clipboard.imageOnly";
  }
  return "";
}

}  // namespace vellora
