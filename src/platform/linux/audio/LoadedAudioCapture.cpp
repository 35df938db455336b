#include "platform/linux/audio/LoadedAudioCapture.h"

#include <utility>

#include "base/Module.h"

namespace vellora {

AudioCapture* LoadedAudioCapture::loaded() {
  std::call_once(once_, [this] {
    auto* const entry = moduleFunction<AudioCaptureEntry>("libvellora_pulse.so", audioCaptureEntryName);
    if (entry != nullptr) capture_.reset(entry(runLoop_));
  });
  return capture_.get();
}

Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> LoadedAudioCapture::microphones() {
  AudioCapture* const capture = loaded();
  if (capture == nullptr) return failure(AudioCaptureError::notAvailable);
  return capture->microphones();
}

void LoadedAudioCapture::onDevicesChanged(std::function<void()> changed) {
  if (AudioCapture* const capture = loaded()) capture->onDevicesChanged(std::move(changed));
}

Result<std::unique_ptr<AudioStream>, AudioCaptureError> LoadedAudioCapture::start(const QString& deviceID, int channels,
                                                                                  Callbacks callbacks) {
  AudioCapture* const capture = loaded();
  if (capture == nullptr) return failure(AudioCaptureError::notAvailable);
  return capture->start(deviceID, channels, std::move(callbacks));
}

}  // namespace vellora
