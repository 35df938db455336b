#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace vellora {

/// How loud a moment was, in decibels of full scale: 0 at most for the peak, `silence` at least.
struct SoundLevel {
  static constexpr float silence = -100;
  float peak = silence;
  float rms = silence;  ///< of all channels together; -3 for a sine of full scale
  friend bool operator==(const SoundLevel&, const SoundLevel&) = default;
};

/// Measures sound of 48,000 frames a second as it comes.
class LevelMeter {
 public:
  static constexpr double interval = 0.05;  ///< seconds

  /// `onLevel` is called from append() for every interval that is full.
  LevelMeter(int channels, std::function<void(SoundLevel)> onLevel);
  void append(std::span<const float> samples);

 private:
  std::size_t needed_;  // samples of an interval
  std::function<void(SoundLevel)> onLevel_;
  std::size_t count_ = 0;  // samples of this one
  double squares_ = 0;
  float peak_ = 0;
};

}  // namespace vellora
