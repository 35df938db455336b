#pragma once

#include "platform/AudioPlayback.h"

namespace vellora {

/// Plays on the sound server's default output. Every stream has a connection of its own.
class PulseAudioPlayback final : public AudioPlayback {
 public:
  Result<std::unique_ptr<PlaybackStream>, AudioPlaybackError> start(Callbacks callbacks) override;
};

}  // namespace vellora
