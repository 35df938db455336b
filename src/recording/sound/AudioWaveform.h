#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vellora {

/// How loud a recording is over its time. A peak is the largest absolute sample of a window of 1 / samples-per-second
/// seconds, all channels together.
class AudioWaveform {
 public:
  /// Windows per second in the file.
  static constexpr double samplesPerSecond = 50;

  /// Both lists have one value per peak.
  struct Envelope {
    std::vector<float> displayLevels;  ///< logarithmic, for drawing: 0 at -48 dB and below, 1 at full scale
    std::vector<float> linearLevels;   ///< 1 for the loudest window, 0 for what is too quiet to count
  };

  /// Peaks that are negative or not finite count as silence.
  static Envelope envelope(std::span<const float> peaks);

  /// Collects the peaks of sound that comes in pieces.
  class PeakAccumulator {
   public:
    /// A rate of windows that is not positive stands for samplesPerSecond.
    PeakAccumulator(int sampleRate, int channels, double samplesPerSecond);

    /// Interleaved samples that follow those before.
    void append(std::span<const float> samples);
    /// Time passes without sound.
    void appendSilence(std::int64_t frames);
    std::int64_t frames() const { return frame_; }
    /// All peaks; a window that is not full counts. Ends the collection.
    std::vector<float> finish();

   private:
    /// The first frame behind the current window.
    std::int64_t windowEnd() const;
    void close();

    int channels_;
    double framesPerWindow_;
    std::int64_t frame_ = 0;  // received
    float peak_ = 0;          // of the current window
    std::vector<float> peaks_;
  };
};

}  // namespace vellora
