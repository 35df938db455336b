#include "cli/publish/PacingClock.h"

namespace vellora {

std::optional<PacingClock::Time> PacingClock::wakeTime(std::chrono::microseconds mediaTime, Time now) {
  if (!zero_ || now > *zero_ + mediaTime + tolerance) zero_ = now - mediaTime;
  const Time due = *zero_ + mediaTime;
  if (due <= now + lead) return std::nullopt;
  return due - (lead - batch);
}

}  // namespace vellora
