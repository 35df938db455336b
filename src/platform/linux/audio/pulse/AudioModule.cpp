#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/audio/LoadedAudioPlayback.h"
#include "platform/linux/audio/pulse/PulseAudioCapture.h"
#include "platform/linux/audio/pulse/PulseAudioPlayback.h"

extern "C" __attribute__((visibility("default"))) vellora::AudioCapture* vellora_audio_capture(
    vellora::RunLoop& runLoop) {
  return new vellora::PulseAudioCapture(runLoop);
}

extern "C" __attribute__((visibility("default"))) vellora::AudioPlayback* vellora_audio_playback() {
  return new vellora::PulseAudioPlayback;
}
