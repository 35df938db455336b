#pragma once

#include <memory>
#include <mutex>

#include "base/RunLoop.h"
#include "platform/AudioCapture.h"

namespace vellora {

/// The module's sound capture, loaded by the first call that needs it. Where it is not installed there is no sound
/// server.
class LoadedAudioCapture final : public AudioCapture {
 public:
  /// `runLoop` outlives this.
  explicit LoadedAudioCapture(RunLoop& runLoop) : runLoop_(runLoop) {}

  Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> microphones() override;
  void onDevicesChanged(std::function<void()> changed) override;
  Result<std::unique_ptr<AudioStream>, AudioCaptureError> start(const QString& deviceID, int channels,
                                                                Callbacks callbacks) override;

 private:
  AudioCapture* loaded();

  RunLoop& runLoop_;
  std::once_flag once_;
  std::unique_ptr<AudioCapture> capture_;
};

/// The one function the module exports. The caller owns what it makes.
using AudioCaptureEntry = AudioCapture*(RunLoop&);
inline constexpr char audioCaptureEntryName[] = "vellora_audio_capture";

}  // namespace vellora
