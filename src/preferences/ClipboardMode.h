#pragma once

#include <array>

#include <QString>

namespace vellora {

/// How a capture is put on the clipboard.
enum class ClipboardMode {
  FileAndImage,  ///< the picture and the URL of a file that holds it
  FileOnly,
  ImageOnly,
};

inline constexpr std::array allClipboardModes{ClipboardMode::FileAndImage, ClipboardMode::FileOnly,
                                              ClipboardMode::ImageOnly};

/// The stored form, "fileAndImage", "fileOnly" or "imageOnly".
QString storedString(ClipboardMode mode);

/// The mode of a stored string; anything unknown reads as FileAndImage.
ClipboardMode clipboardModeFromStored(const QString& stored);

/// The localisation key of the mode's name on the settings page.
const char* labelKey(ClipboardMode mode);

}  // namespace vellora
