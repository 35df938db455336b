#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/AudioCapture.h"
#include "recording/sound/DriftEstimator.h"
#include "recording/sound/VariableResampler.h"

namespace vellora {

/// What became of a recording's sound.
struct AudioTimelineReport {
  std::uint64_t gaps = 0;  ///< times the device gave nothing and silence took its place
  double gapSeconds = 0;
  std::uint64_t overlaps = 0;  ///< times it gave a moment twice and the second was cut
  double overlapSeconds = 0;
  double driftPpm = 0;  ///< by how many millionths the device's clock was faster than the host's at the end
  double seconds = 0;   ///< put out
};

/// Makes one stream of samples, without gaps and 48,000 to each second of the host clock, of the chunks a device gives:
/// what is missing is silence, what comes twice is cut, and a device whose clock is faster or slower is resampled by so
/// little that nobody hears it. Pauses are taken out. Where sound breaks off or starts, the step fades in 2 ms.
///
/// Sound before begin() is kept for two seconds, as the first frame may be known late. Used by one thread at a time.
class AudioTimeline {
 public:
  /// Interleaved samples that follow those before; `time` is the recorded second of the first, from begin().
  using Output = std::function<void(std::span<const float> samples, double time)>;

  AudioTimeline(int channels, Output output);

  /// The recording starts at this host time: recorded second 0. Once.
  void begin(double hostTime);
  /// Takes a chunk; one that makes no sense (channels, a time that is no number) is left out.
  void append(const AudioChunk& chunk);
  /// The device is gone: from now on silence goes on with time, until append() comes again.
  void loseDevice() { isDeviceLost_ = true; }
  /// Tells the time. Sound that is a second late is given up for silence. A few times a second.
  void advance(double hostTime);

  /// What is heard between pause() and resume() is taken out, whenever its samples come. Host times that grow. What was
  /// put out before pause() told of it is made up for at the end of the pause.
  void pause(double hostTime);
  void resume(double hostTime);

  /// The recording ends at this host time: nothing from beyond it is put out. The first call counts.
  void end(double hostTime);
  /// Puts out everything until end(), which is this host time if it was not told before, with silence for what has not
  /// come; nothing follows.
  void finish(double hostTime);

  const AudioTimelineReport& report() const { return report_; }

 private:
  static constexpr int rate = AudioChunk::sampleRate;

  /// Frames of the host's time, counted from epoch_.
  using Frame = std::int64_t;
  struct Pause {
    Frame from;
    Frame to;
    Frame tooMany;  // put out before the pause was known: `to` is later by them
  };

  Frame frameAt(double hostTime) const;
  double timeOf(Frame frame) const { return epoch_.value_or(0) + static_cast<double>(frame) / rate; }

  void startSegment(double hostTime);
  void produce();
  /// Silence. `isMissing`: in place of sound that did not come.
  void fillTo(Frame end, bool isMissing);

  /// Hands on frames of the host's time, sound or silence, in order.
  void put(std::span<const float> samples);
  void keep(std::span<const float> samples);
  void cut(std::span<const float> samples);
  void write(std::span<const float> samples);

  const std::size_t channels_;
  Output output_;
  AudioTimelineReport report_;

  // The stretch of sound that runs without a break.
  bool isRunning_ = false;
  std::int64_t sourceFrames_ = 0;  // taken
  DriftEstimator clock_;
  VariableResampler resampler_;
  std::vector<float> block_;

  std::optional<double> epoch_;  // host time of frame 0
  Frame produced_ = 0;           // the next frame to make
  bool isSilent_ = false;        // the last frames made were not the device's
  bool isDeviceLost_ = false;
  bool isFinished_ = false;

  std::vector<float> early_;  // before begin()
  Frame earlyStart_ = 0;
  std::vector<double> earlyBoundaries_;  // of pauses before begin(), in host time
  bool hasBegun_ = false;
  bool isPaused_ = false;
  Frame cutAt_ = 0;  // the next frame that cut() gets
  Frame firstFrame_ = 0;
  std::optional<double> endTime_;  // host time
  std::deque<Pause> pauses_;

  Frame writtenFrames_ = 0;
  std::vector<float> written_;  // a copy to be faded
  // Steps are made smooth by adding what is missing to the last sample, less and less.
  std::vector<float> last_;    // written, per channel
  std::vector<float> offset_;  // to be added, when fading begins
  int fading_ = 0;             // frames still to be faded
  bool isBroken_ = false;      // the next frame does not follow the last one
};

}  // namespace vellora
