#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

#include <QString>

#include "platform/CaptureDevice.h"

namespace vellora {

/// What the recording bar shows and what its controls do. The controller changes it and then calls `changed`; the bar
/// shows it and calls the callbacks. Main thread.
class RecordingBarModel {
 public:
  enum class Mode : std::uint8_t { preStart, arming, recording, paused };

  Mode mode = Mode::preStart;
  double elapsed = 0;  ///< recorded seconds
  std::vector<CaptureDeviceInfo> micDevices{};
  std::vector<CaptureDeviceInfo> cameraDevices{};
  std::optional<QString> selectedMicID{};     ///< none: off
  std::optional<QString> selectedCameraID{};  ///< none: off
  bool systemSoundEnabled = false;
  bool keyboardEnabled = false;
  bool keyboardHidden = false;  ///< a field for passwords has the keyboard: nothing is recorded at the moment
  double micLevel = 0;          ///< 0 to 1, of the selected microphone, for the meter
  QString source{};             ///< what is recorded, in words

  std::function<void()> onStart{};
  std::function<void()> onStop{};
  std::function<void()> onPauseToggle{};
  std::function<void(std::optional<QString>)> onSelectMic{};
  std::function<void(std::optional<QString>)> onSelectCamera{};
  std::function<void(bool)> onSelectSystemSound{};
  std::function<void(bool)> onSelectKeyboard{};

  /// The bar's own: called after a change.
  std::function<void()> onChanged{};
  void changed() const {
    if (onChanged) onChanged();
  }
};

}  // namespace vellora
