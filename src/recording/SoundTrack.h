#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <vector>

#include "platform/AudioCapture.h"
#include "recording/sound/AudioTimeline.h"
#include "recording/sound/LevelMeter.h"

namespace vellora {

/// What became of one source's sound.
struct SoundReport {
  bool isSystemSound = false;
  bool isLost = false;  ///< the device was gone at the end
  AudioTimelineReport timeline;
};

/// One source of sound for a recording: it is heard from the moment it is opened, for the level meter and so that the
/// recording's first moment has its sound; recorded from `begin` on. Any thread, but it is destroyed on the main one.
class SoundTrack {
 public:
  struct Callbacks {
    /// Every 50 ms, on the stream's thread.
    std::function<void(SoundLevel)> onLevel{};
    /// The device is gone; silence follows. On the stream's thread.
    std::function<void()> onLost{};
  };

  /// Opens a microphone, or AudioCapture::systemSound. Waits for the sound server: not on the main thread.
  static Result<std::unique_ptr<SoundTrack>, AudioCaptureError> open(AudioCapture& capture, const QString& deviceID,
                                                                     Callbacks callbacks);
  ~SoundTrack();
  SoundTrack(const SoundTrack&) = delete;
  SoundTrack& operator=(const SoundTrack&) = delete;

  bool isSystemSound() const { return isSystemSound_; }
  int channels() const { return channels_; }

  /// Whether the device is gone.
  bool isLost() const;
  /// Listens again to a lost device that is back; false when it is not. Waits for the sound server: not on the main
  /// thread, and by one thread at a time.
  bool reopen();

  /// The recording starts at this host time. `onSamples` is called on the stream's thread, and within `begin` and
  /// `advance`, when there is something for `take`; it must not call back.
  void begin(double hostTime, std::function<void()> onSamples);
  void pause(double hostTime);
  void resume(double hostTime);
  /// Tells the time, so that silence takes the place of what does not come. About once a second.
  void advance(double hostTime);
  /// Leaves out what is heard from this host time on; what was heard before may still be under way.
  void end(double hostTime);
  /// Makes everything until this host time, or the one of `end`, ready for `take`; nothing follows.
  void finish(double hostTime);

  struct Samples {
    double time = 0;  ///< recorded second of the first
    std::vector<float> interleaved;
  };
  /// What was recorded since the call before.
  Samples take();
  SoundReport report() const;

 private:
  SoundTrack(AudioCapture& capture, const QString& deviceID, Callbacks callbacks);
  Result<void, AudioCaptureError> connect();
  void receive(const AudioChunk& chunk);
  void lose();
  template <class Change>
  void change(Change change);

  AudioCapture& capture_;
  const QString deviceID_;
  const bool isSystemSound_;
  const int channels_;
  const Callbacks callbacks_;
  LevelMeter meter_;  // of the stream's thread
  mutable std::mutex mutex_;
  AudioTimeline timeline_;
  Samples ready_;
  bool isLost_ = false;
  std::function<void()> onSamples_;
  std::unique_ptr<AudioStream> stream_;  // ends before what its callbacks use
};

}  // namespace vellora
