#pragma once

#include <cstdint>
#include <deque>

namespace vellora {

/// Foresees when a recording fills its disk. A plain value.
class DiskWatch {
 public:
  enum class Advice : std::uint8_t {
    fine,
    low,   ///< for the first time less than `warningTime` is left
    full,  ///< stop now, while there is room to finish
  };
  /// Seconds of recording left when a person is told.
  static constexpr double warningTime = 300;
  /// Bytes that stay free: for the movie's index, and for everybody else.
  static constexpr std::int64_t reserve = 128 << 20;

  /// `expectedRate`: bytes a second before anything was measured.
  explicit DiskWatch(double expectedRate) : expectedRate_(expectedRate) {}

  /// At `time` (recorded seconds) the recording had `written` bytes and the disk `free` ones.
  Advice look(double time, std::int64_t written, std::int64_t free);
  /// Seconds of recording that fit, by the last look.
  double remaining() const { return remaining_; }

 private:
  struct Look {
    double time;
    std::int64_t written;
  };
  double rate() const;

  double expectedRate_;
  std::deque<Look> looks_;
  double remaining_ = 0;
  bool hasWarned_ = false;
};

}  // namespace vellora
