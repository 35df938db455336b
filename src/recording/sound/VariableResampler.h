#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <vector>

namespace vellora {

/// Resamples interleaved sound by a ratio near 1 that may change at any time: a windowed sinc (Kaiser) of 48 samples at
/// 256 positions between two of them, with straight lines in between. Flat to 20 kHz at 48,000 samples a second. One or
/// two channels.
class VariableResampler {
 public:
  explicit VariableResampler(int channels);

  /// Forgets all sound. The next frame that is pushed is source frame 0, and pull() starts at `position`.
  void restart(double position);
  void push(std::span<const float> samples);
  /// The source frame that the next frame pulled is for.
  double position() const { return static_cast<double>(whole_) + fraction_; }
  /// Fills the frames of `to` that can be told by what was pushed, `step` source frames apart; their number.
  std::size_t pull(std::span<float> to, double step);

 private:
  static constexpr std::ptrdiff_t taps = 48;
  static constexpr std::ptrdiff_t before = taps / 2 - 1;  // taps before the frame that position() is in

  template <int channelCount>
  std::size_t pullFrames(std::span<float> to, double step);
  void forgetOld();

  int channels_;
  std::array<std::vector<float>, 2> held_;  // per channel
  std::ptrdiff_t first_ = 0;                // source frame of the first one held
  std::ptrdiff_t whole_ = 0;
  double fraction_ = 0;
};

}  // namespace vellora
