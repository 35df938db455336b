#pragma once

#include <algorithm>
#include <cstdint>

namespace vellora {

/// Says when the next frame may be taken; seconds. After a pause that is at once. In a row, a frame that came late does
/// not push the next ones back: over any time there are as many as intervals fit in, and one.
class X11FrameClock {
 public:
  explicit X11FrameClock(double interval) : interval_(interval) {}

  double interval() const { return interval_; }
  double due() const { return due_; }
  void frameTaken(double now) { due_ = std::max(due_ + interval_, now + shortest * interval_); }
  /// How many whole intervals have passed since the frame was due.
  std::uint64_t missed(double now) const {
    return now > due_ ? static_cast<std::uint64_t>((now - due_) / interval_) : 0;
  }

 private:
  /// The least distance of two frames, of the interval.
  static constexpr double shortest = 0.5;
  const double interval_;
  double due_ = 0;
};

}  // namespace vellora
