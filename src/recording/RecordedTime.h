#pragma once

#include <optional>

namespace vellora {

/// Takes pauses out of a recording's time. Times are seconds of the host clock; "recorded" ones lack what was paused
/// before them, so that they grow without a gap. A plain value.
class RecordedTime {
 public:
  /// Does nothing while paused.
  void pause(double now);
  /// Does nothing unless paused.
  void resume(double now);
  bool isPaused() const { return pauseStarted_.has_value(); }
  /// Seconds paused so far.
  double pauseOffset() const { return pauseOffset_; }

  /// The recorded time of a sample taken at `time`; nothing when it was taken in a pause and is not to be kept.
  std::optional<double> retimed(double time) const;
  /// The recorded time of `now`, which stands still in a pause.
  double at(double now) const { return pauseStarted_.value_or(now) - pauseOffset_; }

 private:
  std::optional<double> pauseStarted_;
  std::optional<double> resumeFloor_;
  double pauseOffset_ = 0;
};

}  // namespace vellora
