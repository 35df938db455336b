#pragma once

#include <cstdint>

#include <QString>

namespace vellora {

/// Why a recording could not be made.
enum class RecordingError : std::uint8_t {
  writerSetupFailed,
  writeFailed,
  displayNotFound,
  windowNotFound,
  micNotFound,
  cameraNotFound,
};

/// One English sentence, for alerts and the log.
QString description(RecordingError error);

}  // namespace vellora
