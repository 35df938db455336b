#include "recording/RecordingError.h"

namespace vellora {

QString description(RecordingError error) {
  switch (error) {
    case RecordingError::writerSetupFailed:
      return QStringLiteral("Failed to set up the video writer.");
    case RecordingError::writeFailed:
      return QStringLiteral("Failed to write the recording.");
    case RecordingError::displayNotFound:
      return QStringLiteral("Could not find the display to record.");
    case RecordingError::windowNotFound:
      return QStringLiteral("Could not find the window to record.");
    case RecordingError::micNotFound:
      return QStringLiteral("Could not find the selected microphone.");
    case RecordingError::cameraNotFound:
      return QStringLiteral("Could not find the selected camera.");
  }
  return {};
}

}  // namespace vellora
