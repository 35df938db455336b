#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace vellora {

/// Tells when a sample was at the device, from what the sound server says now and then of how far the device is.
///
/// A server may know its position only in steps, as large as the blocks it works in: between two steps the position it
/// tells is too old, never too new. So the least delay among the observations of the last seconds counts. The clock
/// moves to a new value at no more than a thousandth of the time that passes; only when several observations in a row
/// agree that samples were lost, or the device stood still, does it jump. A plain value.
class SampleClock {
 public:
  explicit SampleClock(int sampleRate) : sampleRate_(sampleRate) {}

  /// At `hostTime` the device had recorded `position` samples.
  void observe(double position, double hostTime);
  /// Whether enough was observed to rely on timeOf().
  bool isSettled() const { return count_ >= settledCount; }
  /// Seconds of the host clock at which the sample with this number was at the device.
  double timeOf(std::int64_t sample) const { return start_ + static_cast<double>(sample) / sampleRate_; }

 private:
  static constexpr std::size_t window = 32;
  static constexpr std::size_t settledCount = 8;
  static constexpr std::size_t jumpCount = 5;
  static constexpr double jump = 0.03;          // seconds
  static constexpr double steepestSlew = 1e-3;  // seconds per second

  double leastOf(std::size_t count) const;

  int sampleRate_;
  double start_ = 0;  // when sample 0 was at the device
  double observedAt_ = 0;
  std::array<double, window> starts_{};  // as each observation has it, a ring
  std::size_t count_ = 0;                // in the ring
  std::size_t next_ = 0;
  std::size_t astray_ = 0;  // observations in a row that are far from start_
};

}  // namespace vellora
