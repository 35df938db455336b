#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include <QString>

#include "base/Result.h"
#include "platform/CaptureDevice.h"

namespace vellora {

/// Sound as it is recorded: interleaved 32-bit float, 48,000 frames a second.
struct AudioChunk {
  static constexpr int sampleRate = 48000;
  int channels = 1;
  std::span<const float> samples;  ///< valid during the call
  double hostTime = 0;             ///< when the first of them was at the microphone, seconds of the host clock
};

enum class AudioCaptureError {
  notAvailable,    ///< no sound server
  deviceNotFound,  ///< it has no such device
  failed,          ///< it refused
};

/// A running recording of one device. Destroying it ends it; after that no callback comes. Main thread.
class AudioStream {
 public:
  virtual ~AudioStream() = default;
};

/// Microphones, and what the speakers play.
class AudioCapture {
 public:
  /// Names the sound that the default output plays.
  static inline const QString systemSound = QStringLiteral("system");

  struct Callbacks {
    /// On a thread of the stream's, every 10 to 40 ms.
    std::function<void(const AudioChunk&)> onChunk{};
    /// The device or the sound server is gone; nothing follows. On the same thread.
    std::function<void(AudioCaptureError)> onLost{};
  };
  virtual ~AudioCapture() = default;

  /// Microphones as they are at the moment, the default one first. May take some milliseconds: not on the main thread.
  virtual Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> microphones() = 0;
  /// Calls back on the main thread's loop when a device comes or goes; an empty function ends it. Main thread.
  virtual void onDevicesChanged(std::function<void()> changed) = 0;
  /// Opens a microphone by its identifier, or `systemSound`, with one or two channels.
  virtual Result<std::unique_ptr<AudioStream>, AudioCaptureError> start(const QString& deviceID, int channels,
                                                                        Callbacks callbacks) = 0;
};

}  // namespace vellora
