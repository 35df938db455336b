#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/AudioCapture.h"
#include "platform/linux/audio/SampleClock.h"
#include "platform/linux/audio/pulse/PulseConnection.h"

namespace vellora {

/// Records one source of the sound server, over a connection of its own; for `systemSound` the monitor of the default
/// output, also after that has changed. A source that goes is not replaced by another.
///
/// The server is asked ten times a second how many samples it has taken over and for how long sound is under way from
/// the device, or, for a monitor, to the speakers. A SampleClock makes the chunks' times of it.
class PulseStream final : public AudioStream {
 public:
  static Result<std::unique_ptr<AudioStream>, AudioCaptureError> open(const QString& deviceID, int channels,
                                                                      AudioCapture::Callbacks callbacks);
  ~PulseStream() override;

 private:
  static constexpr std::int64_t chunkFrames = AudioChunk::sampleRate / 50;
  static constexpr double timingInterval = 0.097;  // seconds; not in step with the server's blocks
  static constexpr double firstInterval = 0.004;   // until the clock is settled

  PulseStream(int channels, AudioCapture::Callbacks callbacks);

  Result<void, AudioCaptureError> start(const QString& deviceID);
  /// Records the source from now on, instead of the one before.
  void record(const std::string& source);
  bool hasEnded() const { return stream_ && !PA_STREAM_IS_GOOD(pa_stream_get_state(stream_.get())); }
  void stateChanged();
  void lose(AudioCaptureError error);

  void askForDefaultOutput();
  void takeMonitor(const char* source);

  void read();
  void append(const void* bytes, std::size_t count);
  void deliver();
  void askForTiming();
  void takeTiming();

  std::size_t frameBytes() const { return sizeof(float) * static_cast<std::size_t>(channels_); }

  const int channels_;
  AudioCapture::Callbacks callbacks_;
  bool isSystemSound_ = false;
  bool isStarted_ = false;  // start() has succeeded
  bool isLost_ = false;
  std::string source_;
  std::vector<float> samples_;  // received, not delivered yet
  std::int64_t delivered_ = 0;  // frames of this source
  SampleClock clock_{AudioChunk::sampleRate};
  bool isSettled_ = false;
  PulseConnection connection_;
  PulseConnection::Timer timing_;
  PulseStreamPointer stream_;
  PulseOperationPointer question_;  // of the default output
};

}  // namespace vellora
