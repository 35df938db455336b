#pragma once

#include <chrono>
#include <optional>

namespace vellora {

/// When media is to leave so that it arrives as fast as it plays. The first frame leaves at once, later ones up to
/// `lead` ahead of their time, a few together, so that the program wakes some twenty times a second and not for every
/// frame.
class PacingClock {
 public:
  using Time = std::chrono::steady_clock::time_point;
  static constexpr std::chrono::milliseconds lead{100};
  /// How much of the lead may be used up before the next frames leave.
  static constexpr std::chrono::milliseconds batch{40};
  /// Later than this, the frames that follow are put off by as much, instead of all leaving in one burst: reading or
  /// encoding them did not keep up.
  static constexpr std::chrono::milliseconds tolerance{1000};

  /// When to wake for a frame of this media time; nothing when it may leave now.
  std::optional<Time> wakeTime(std::chrono::microseconds mediaTime, Time now);

 private:
  std::optional<Time> zero_;  ///< when media time 0 is due
};

}  // namespace vellora
