#include "platform/linux/audio/LoadedAudioPlayback.h"

#include <utility>

#include "base/Module.h"

namespace vellora {

Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> LoadedAudioPlayback::start(Callbacks callbacks) {
  std::call_once(once_, [this] {
    auto* const entry = moduleFunction<AudioPlaybackEntry>("libvellora_pulse.so", audioPlaybackEntryName);
    if (entry != nullptr) playback_.reset(entry());
  });
  if (playback_ == nullptr) return failure(AudioPlaybackError::notAvailable);
  return playback_->start(std::move(callbacks));
}

}  // namespace vellora
