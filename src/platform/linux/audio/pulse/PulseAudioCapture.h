#pragma once

#include <memory>

#include "base/Lifetime.h"
#include "base/RunLoop.h"
#include "platform/AudioCapture.h"
#include "platform/linux/audio/pulse/MicrophoneWatch.h"

namespace vellora {

/// Sound from a server that speaks the PulseAudio protocol. None is started where none runs.
class PulseAudioCapture final : public AudioCapture {
 public:
  /// `runLoop` outlives this.
  explicit PulseAudioCapture(RunLoop& runLoop) : runLoop_(runLoop) {}

  Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> microphones() override;
  void onDevicesChanged(std::function<void()> changed) override;
  Result<std::unique_ptr<AudioStream>, AudioCaptureError> start(const QString& deviceID, int channels,
                                                                Callbacks callbacks) override;

 private:
  RunLoop& runLoop_;
  std::unique_ptr<MicrophoneWatch> watch_;
  std::unique_ptr<Lifetime> watchLifetime_;
};

}  // namespace vellora
