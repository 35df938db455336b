#pragma once

#include <memory>
#include <mutex>

#include "platform/AudioPlayback.h"

namespace vellora {

/// The module's speakers, loaded by the first call that needs them. Where it is not installed there is no sound server.
class LoadedAudioPlayback final : public AudioPlayback {
 public:
  Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> start(Callbacks callbacks) override;

 private:
  std::once_flag once_;
  std::unique_ptr<AudioPlayback> playback_;
};

/// The one function for playback that the module exports. The caller owns what it makes.
using AudioPlaybackEntry = AudioPlayback*();
inline constexpr char audioPlaybackEntryName[] = "vellora_audio_playback";

}  // namespace vellora
