#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <vector>

#include "media/loaded_movies/Movies.h"

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

  /// Asked while a track is read; false ends it.
  using GoesOn = std::function<bool()>;
  /// The peaks of a track from its start, `rate` a second, as far as it can be read.
  static std::vector<float> extract(AudioReader& track, double rate, const GoesOn& goesOn = {});
  /// The envelope of a file's first audio track; empty when it has none, cannot be read, or was ended on the way. An
  /// hour takes seconds: not on the main thread.
  static Envelope load(Movies& movies, const std::filesystem::path& file, double rate = samplesPerSecond,
                       const GoesOn& goesOn = {});

  /// Collects the peaks of sound that comes in pieces.
  class PeakAccumulator {
   public:
    /// Windows a second; a rate that is not positive stands for samplesPerSecond.
    PeakAccumulator(int sampleRate, int channels, double rate);

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
