#pragma once

#include <chrono>
#include <cstdint>

namespace vellora {

/// Turns the times of one kind of media into the timestamps of its messages: the first message at 0 (a chunk of type
/// zero), every later one as the milliseconds since the one before it (type one). Because differences leave, a stream
/// goes on correctly past 2^24 ms, where an absolute timestamp without extension would start again.
class RTMPTimestamp {
 public:
  /// The longest gap one difference can say, in milliseconds; longer gaps are shortened to it.
  static constexpr std::uint32_t maximumDelta = 0xFFFFFE;

  /// `time` counts from the start of the stream. Never negative: a time before the last one gives 0. Rounds to the
  /// nearest millisecond from the start, so that rounding never adds up. The first call gives 0 whatever its time; the
  /// next one makes up for it.
  std::uint32_t update(std::chrono::microseconds time);
  /// Where the last message was, in milliseconds from the start.
  std::uint64_t value() const { return value_; }

 private:
  std::uint64_t value_ = 0;
  bool started_ = false;
};

}  // namespace vellora
