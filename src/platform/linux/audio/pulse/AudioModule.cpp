#include "platform/linux/audio/LoadedAudioCapture.h"
#include "platform/linux/audio/pulse/PulseAudioCapture.h"

extern "C" __attribute__((visibility("default"))) vellora::AudioCapture* vellora_audio_capture(
    vellora::RunLoop& runLoop) {
  return new vellora::PulseAudioCapture(runLoop);
}
