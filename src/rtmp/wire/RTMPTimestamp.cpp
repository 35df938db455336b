#include "rtmp/wire/RTMPTimestamp.h"

#include <algorithm>
#include <utility>

namespace vellora {

std::uint32_t RTMPTimestamp::update(std::chrono::microseconds time) {
  if (!std::exchange(started_, true) || time.count() < 0) return 0;
  const auto microseconds = static_cast<std::uint64_t>(time.count());
  const std::uint64_t rounded = (microseconds + 500) / 1000;
  if (rounded <= value_) return 0;
  const auto delta = static_cast<std::uint32_t>(std::min<std::uint64_t>(rounded - value_, maximumDelta));
  value_ += delta;
  return delta;
}

}  // namespace vellora
