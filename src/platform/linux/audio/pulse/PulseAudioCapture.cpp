#include "platform/linux/audio/pulse/PulseAudioCapture.h"

#include <utility>

#include "platform/linux/audio/pulse/MicrophoneQuery.h"
#include "platform/linux/audio/pulse/PulseStream.h"

namespace vellora {

Result<std::vector<CaptureDeviceInfo>, AudioCaptureError> PulseAudioCapture::microphones() {
  PulseConnection connection;
  const PulseConnection::Lock lock(connection);
  MicrophoneQuery query([&] { connection.wake(); });
  if (!connection.connect() || !connection.wait([&] { return connection.isReady(); })) {
    return failure(AudioCaptureError::notAvailable);
  }
  query.start(connection);
  if (!connection.wait([&] { return query.isDone(); })) return failure(AudioCaptureError::notAvailable);
  return query.microphones();
}

void PulseAudioCapture::onDevicesChanged(std::function<void()> changed) {
  watch_.reset();
  watchLifetime_.reset();
  if (!changed) return;
  watchLifetime_ = std::make_unique<Lifetime>();
  auto notify = watchLifetime_->guard(std::move(changed));
  watch_ =
      std::make_unique<MicrophoneWatch>([&runLoop = runLoop_, notify = std::move(notify)] { runLoop.post(notify); });
}

Result<std::unique_ptr<AudioStream>, AudioCaptureError> PulseAudioCapture::start(const QString& deviceID, int channels,
                                                                                 Callbacks callbacks) {
  return PulseStream::open(deviceID, channels, std::move(callbacks));
}

}  // namespace vellora
